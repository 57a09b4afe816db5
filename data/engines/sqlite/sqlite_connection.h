#pragma once

#include <sqlite3.h>

#include <memory>
#include <optional>
#include <string>

#include "base/values/status.h"
#include "data/engine/engine.h"
#include "data/engines/sqlite/unwritable_file.h"

namespace chengheng {

struct CloseConnection {
    void operator()(sqlite3* connection) const { sqlite3_close_v2(connection); }
};
using SqliteConnection = std::unique_ptr<sqlite3, CloseConnection>;

struct OpenedSqlite {
    SqliteConnection connection;
    /// What the file was when it was opened as it stands, where nothing beside it can be written.
    std::optional<UnwritableFile> unwritable;
};

/// Opens or creates the database of a file and sets it up for the books. A file that is not
/// ours is left exactly as it was.
Status openSqliteFile(const std::string& path, OpenMode mode, OpenedSqlite& opened);

/// Removes a database that came to nothing, with all that the engine keeps beside it.
void removeSqliteFiles(const std::string& path);

/// A new, empty database in memory, seen by this connection only.
Status openSqliteMemory(SqliteConnection& connection);

}  // namespace chengheng
