#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "data/access/CNbCwDB.h"

namespace chengheng {

/// The rows of one list read, found only when the read gave 0, rows and a count of at least
/// one. Holds the table's buffer and releases it when it goes.
template <class Record>
class RowLease {
  public:
    /// A null condition reads all rows.
    RowLease(CNbCwDB& database, const char* condition) : m_database(database) {
        m_result = database.readList<Record>(m_rows, m_count, condition);
        m_isRead = m_result == 0 || database.lastStatus().failure == Failure::missing;
    }
    ~RowLease() {
        if (m_result == 0) m_database.release<Record>();
    }
    RowLease(const RowLease&) = delete;
    RowLease& operator=(const RowLease&) = delete;

    /// Whether the table could be read; no rows is a reading well done.
    bool isRead() const { return m_isRead; }
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
    bool m_isRead = false;
};

/// Copies of the rows that meet the condition; empty when there are none.
template <class Record>
std::vector<Record> readRows(CNbCwDB& database, const char* condition) {
    return RowLease<Record>(database, condition).copy();
}

/// Whether any row meets the condition, which has no tail; nothing when the table could not be
/// read. Reads one row, however many there are.
template <class Record>
std::optional<bool> hasRows(CNbCwDB& database, const std::string& condition) {
    const RowLease<Record> lease(database, (condition + " LIMIT 1").c_str());
    return lease.isRead() ? std::optional(lease.isFound()) : std::nullopt;
}

}  // namespace chengheng
