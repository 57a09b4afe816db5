#pragma once

#include <span>
#include <vector>

#include "data/CNbCwDB.h"

namespace chengheng {

/// The rows of one list read, found only when the read gave 0, rows and a count of at least
/// one. Holds the table's buffer and releases it when it goes.
template <class Record>
class RowLease {
  public:
    /// A null condition reads all rows.
    RowLease(CNbCwDB& database, const char* condition) : m_database(database) {
        m_result = database.readList<Record>(m_rows, m_count, condition);
    }
    ~RowLease() {
        if (m_result == 0) m_database.release<Record>();
    }
    RowLease(const RowLease&) = delete;
    RowLease& operator=(const RowLease&) = delete;

    bool isFound() const { return m_result == 0 && m_rows != nullptr && m_count >= 1; }
    std::span<Record* const> rows() const {
        return isFound() ? std::span<Record* const>(m_rows, static_cast<std::size_t>(m_count))
                         : std::span<Record* const>();
    }
    std::vector<Record> copy() const {
        std::vector<Record> copies;
        copies.reserve(rows().size());
        for (const Record* row : rows()) copies.push_back(*row);
        return copies;
    }

  private:
    CNbCwDB& m_database;
    Record** m_rows = nullptr;
    int m_count = 0;
    int m_result = -1;
};

/// Copies of the rows that meet the condition; empty when there are none.
template <class Record>
std::vector<Record> readRows(CNbCwDB& database, const char* condition) {
    return RowLease<Record>(database, condition).copy();
}

}  // namespace chengheng
