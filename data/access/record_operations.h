#pragma once

#include <span>
#include <vector>
#include "base/values/status.h"

#include "data/tables/records.h"
#include "data/tables/text_row.h"

namespace chengheng {

/// The operations on tables by record type: what those that bear a table's name come to, and
/// what code for records of any type calls. CNbCwDB says what their results mean.
class RecordOperations {
  public:
    template <class Record>
    int readList(Record**& rows, int& count, const char* condition) {
        void* pointers = nullptr;
        const int result = readRecords(recordTypeOf<Record>(), pointers, count, condition);
        rows = static_cast<Record**>(pointers);
        return result;
    }
    template <class Record>
    int readOne(Record*& row, int id) {
        void* pointers = nullptr;
        const int result = readRecord(recordTypeOf<Record>(), pointers, id);
        row = result == 0 ? *static_cast<Record**>(pointers) : nullptr;
        return result;
    }
    template <class Record>
    int readText(TextRow*& rows, int& count, const char* condition) {
        return readTexts(recordTypeOf<Record>(), rows, count, condition);
    }
    template <class Record>
    void release() {
        releaseRecords(recordTypeOf<Record>());
    }
    template <class Record>
    int add(const Record& record, int& newId) {
        const void* const row = &record;
        return addRecords(recordTypeOf<Record>(), {&row, 1}, newId);
    }
    /// Adds rows under the next ids, which the records get; all of them or none.
    template <class Record>
    int addAll(std::span<Record> records) {
        std::vector<const void*> rows;
        rows.reserve(records.size());
        for (const Record& record : records) rows.push_back(&record);
        int first = 0;
        const int result = addRecords(recordTypeOf<Record>(), rows, first);
        for (std::int64_t id = first; Record & record : records)
            if (result == 0) record.lId = static_cast<std::int32_t>(id++);
        return result;
    }
    template <class Record>
    int edit(const Record& record) {
        return editRecord(recordTypeOf<Record>(), &record);
    }
    template <class Record>
    int remove(int id) {
        return removeRecord(recordTypeOf<Record>(), id);
    }
    template <class Record>
    int lastIdOf() {
        return readLastId(recordTypeOf<Record>());
    }
    /// The last id handed out, when `count` ids are left after it; else noIdLeft, which stands in
    /// lastStatus(), too. For batches that number their rows themselves.
    template <class Record>
    Status readLastIdBefore(int count, int& last) {
        return readIdBefore(recordTypeOf<Record>(), count, last);
    }

  protected:
    RecordOperations() = default;
    ~RecordOperations() = default;

  private:
    /// `pointers` comes to the first of as many `Record*` as there are rows.
    virtual int readRecords(const RecordType& type, void*& pointers, int& count,
                            const char* condition) = 0;
    int readRecord(const RecordType& type, void*& pointers, int id);
    virtual int readTexts(const RecordType& type, TextRow*& rows, int& count,
                          const char* condition) = 0;
    virtual void releaseRecords(const RecordType& type) = 0;
    virtual int addRecords(const RecordType& type, std::span<const void* const> records,
                           int& firstId) = 0;
    virtual int editRecord(const RecordType& type, const void* record) = 0;
    virtual int removeRecord(const RecordType& type, int id) = 0;
    virtual int readLastId(const RecordType& type) = 0;
    virtual Status readIdBefore(const RecordType& type, int count, int& last) = 0;
};

}  // namespace chengheng
