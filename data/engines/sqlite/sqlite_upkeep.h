#pragma once

#include <sqlite3.h>

#include <string>
#include <vector>

#include "base/values/status.h"
#include "data/engine/engine.h"

namespace chengheng {

inline constexpr const char* passOverChecks = "PRAGMA ignore_check_constraints = ON;\n";
inline constexpr const char* mindChecks = "PRAGMA ignore_check_constraints = OFF;\n";

/// The engine's version and the room the database takes, its log left aside.
Status readSqliteFacts(sqlite3* connection, EngineFacts& facts);

/// Whether changes go into a log beside the file, which others read along with it.
Status hasSqliteLog(sqlite3* connection, bool& hasLog);

/// Reads every page and compares the indexes with their tables.
Status verifySqlite(sqlite3* connection, std::vector<std::string>& faults);

/// Copies the database page by page while others go on using it. The file must not exist;
/// a copy that fails leaves nothing behind.
Status copySqliteToFile(sqlite3* connection, const std::string& path);

/// Copies the file byte by byte, for who has it alone, in a transaction that has changed nothing
/// yet. Then the engine does not copy it itself.
Status copySqliteBytes(sqlite3* connection, const std::string& path);

}  // namespace chengheng
