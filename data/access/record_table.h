#pragma once

#include <memory>
#include <span>
#include <string>

#include "base/values/status.h"
#include "data/connection/database.h"
#include "data/connection/record_buffer.h"
#include "data/connection/text_result.h"
#include "data/tables/record_type.h"

namespace chengheng {

/// One table as records: its statements, and the rows of its last read.
class RecordTable {
  public:
    explicit RecordTable(const RecordType& type);

    /// Reads the rows that meet a condition; a null condition all, one that begins with ORDER BY
    /// all in that order. No rows are missing.
    Status read(Database& database, const char* condition);
    RecordBuffer& records() { return m_records; }
    /// The same as text cells.
    Status readTexts(Database& database, const char* condition);
    TextResult& texts() { return *m_texts; }
    void release();

    /// Adds rows under the next ids of the table's counter. To be called in a unit of work.
    Status add(Database& database, std::span<const void* const> records, int& firstId) const;
    /// Changes the row of the record's id; none is missing.
    Status edit(Database& database, const void* record) const;
    /// Deletes the row of the id; none is missing.
    Status remove(Database& database, int id) const;

  private:
    std::string selectText(const Database& database, const char* condition) const;

    const RecordType& m_type;
    std::string m_select, m_insert, m_update, m_delete;
    RecordBuffer m_records;
    std::unique_ptr<TextResult> m_texts;
};

}  // namespace chengheng
