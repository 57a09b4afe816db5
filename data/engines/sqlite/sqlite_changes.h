#pragma once

#include <sqlite3.h>

#include <span>
#include <string>
#include <vector>

#include "data/engine/row_change.h"
#include "data/tables/schema.h"

namespace chengheng {

/// Tells a watcher what the statements of a connection do to rows. Lives as long as the
/// connection; the watcher is not owned.
class SqliteChanges {
  public:
    SqliteChanges(sqlite3* connection, ChangeWatcher& watcher);
    ~SqliteChanges();
    SqliteChanges(const SqliteChanges&) = delete;
    SqliteChanges& operator=(const SqliteChanges&) = delete;

    /// A row that is about to be put in as it stands, so that it need not be read back; of a null
    /// table none.
    void expectRow(const TableInfo* table, std::span<const Value> values) {
        m_expected = table;
        m_expectedRow = values;
    }

  private:
    static void onChange(void* self, sqlite3* connection, int operation, const char* database,
                         const char* table, sqlite3_int64 idBefore, sqlite3_int64 idAfter);
    void take(int operation, std::string_view table);
    bool isWatched(std::string_view table);
    bool isExpected(std::string_view table) const;
    void makeAmounts(std::vector<Value>& cells) const;

    sqlite3* m_connection;
    ChangeWatcher& m_watcher;
    std::string m_lastTable;  ///< most rows in a row are of one table
    bool m_isLastWatched = false;
    std::vector<std::size_t> m_amounts;  ///< where its columns of real numbers stand
    const TableInfo* m_expected = nullptr;
    std::span<const Value> m_expectedRow;
    std::vector<Value> m_before;
    std::vector<Value> m_after;
};

}  // namespace chengheng
