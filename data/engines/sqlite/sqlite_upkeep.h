#pragma once

#include <sqlite3.h>

#include <string>
#include <vector>

#include "base/values/status.h"
#include "data/engine/engine.h"

namespace chengheng {

/// The engine's version and the room the database takes, its log left aside.
Status readSqliteFacts(sqlite3* connection, EngineFacts& facts);

/// Reads every page and compares the indexes with their tables.
Status verifySqlite(sqlite3* connection, std::vector<std::string>& faults);

/// Copies the database page by page while others go on using it. The file must not exist;
/// a copy that fails leaves nothing behind.
Status copySqliteToFile(sqlite3* connection, const std::string& path);

}  // namespace chengheng
