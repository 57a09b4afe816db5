#pragma once

#include <sqlite3.h>

#include <memory>
#include <string>

#include "base/values/status.h"
#include "data/engine/engine.h"

namespace chengheng {

struct CloseConnection {
    void operator()(sqlite3* connection) const { sqlite3_close_v2(connection); }
};
using SqliteConnection = std::unique_ptr<sqlite3, CloseConnection>;

/// Opens or creates the database of a file and sets it up for the books. A file that is not
/// ours is left exactly as it was.
Status openSqliteFile(const std::string& path, OpenMode mode, SqliteConnection& connection);

/// A new, empty database in memory, seen by this connection only.
Status openSqliteMemory(SqliteConnection& connection);

}  // namespace chengheng
