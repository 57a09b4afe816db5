#pragma once

#include <sqlite3.h>

#include <span>
#include <string>
#include <vector>

#include "data/engine/row_change.h"
#include "data/engines/sqlite/sqlite_statement.h"

namespace chengheng {

/// Tells a watcher what the statements of a connection do to rows. Lives as long as the
/// connection; the watcher is not owned.
class SqliteChanges {
  public:
    SqliteChanges(sqlite3* connection, ChangeWatcher& watcher);
    ~SqliteChanges();
    SqliteChanges(const SqliteChanges&) = delete;
    SqliteChanges& operator=(const SqliteChanges&) = delete;

    /// What runs next: the row that a plain INSERT puts in, and columns that an UPDATE leaves as
    /// they are, need not be read back. Both must live until something else is expected.
    void expect(const SqliteStatement& statement, std::span<const Value> values) {
        m_statement = &statement;
        m_values = values;
    }
    void expectNothing() { m_statement = nullptr; }

  private:
    static void onChange(void* self, sqlite3* connection, int operation, const char* database,
                         const char* table, sqlite3_int64 idBefore, sqlite3_int64 idAfter);
    void take(int operation, std::string_view table);
    bool isWatched(std::string_view table);
    bool isGiven(std::string_view table) const;
    bool readRow(int operation, std::string_view table);
    bool readUpdated(const std::vector<std::size_t>& places);
    void beginUpdates(const std::vector<std::size_t>& places, std::size_t count);
    void makeAmounts(std::vector<Value>& cells) const;

    sqlite3* m_connection;
    ChangeWatcher& m_watcher;
    std::string m_lastTable;  ///< most rows in a row are of one table
    bool m_isLastWatched = false;
    std::vector<std::size_t> m_amounts;  ///< where its columns of real numbers stand
    std::vector<std::size_t> m_updated;  ///< what the rows read last have set; empty: no UPDATE
    std::vector<std::size_t> m_telling;  ///< what else is read of them: what a row is of
    const SqliteStatement* m_statement = nullptr;
    std::span<const Value> m_values;
    std::vector<Value> m_before;
    std::vector<Value> m_after;
};

}  // namespace chengheng
