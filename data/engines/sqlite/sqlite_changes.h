#pragma once

#include <sqlite3.h>

#include <string>
#include <vector>

#include "data/engine/row_change.h"

namespace chengheng {

/// Tells a watcher what the statements of a connection do to rows. Lives as long as the
/// connection; the watcher is not owned.
class SqliteChanges {
  public:
    SqliteChanges(sqlite3* connection, ChangeWatcher& watcher);
    ~SqliteChanges();
    SqliteChanges(const SqliteChanges&) = delete;
    SqliteChanges& operator=(const SqliteChanges&) = delete;

  private:
    static void onChange(void* self, sqlite3* connection, int operation, const char* database,
                         const char* table, sqlite3_int64 idBefore, sqlite3_int64 idAfter);
    void take(int operation, std::string_view table);
    bool isWatched(std::string_view table);
    void makeAmounts(std::vector<Value>& cells) const;

    sqlite3* m_connection;
    ChangeWatcher& m_watcher;
    std::string m_lastTable;  ///< most rows in a row are of one table
    bool m_isLastWatched = false;
    std::vector<std::size_t> m_amounts;  ///< where its columns of real numbers stand
    std::vector<Value> m_before;
    std::vector<Value> m_after;
};

}  // namespace chengheng
