#pragma once

#include <string>
#include <vector>

#include "base/values/status.h"
#include "data/engine/engine.h"
#include "data/tables/schema.h"

namespace chengheng {

/// "CREATE TABLE ...; CREATE INDEX ...;" for an engine.
std::string createTableSql(const TableInfo& table, const EngineDialect& dialect);

/// The names of a table's indexes.
std::vector<std::string> indexNames(const TableInfo& table);

/// Makes every table in an empty database, with its row in ABIdTable and the format
/// version. To be called inside a transaction.
Status createTables(Engine& engine);

/// The same in a transaction of its own.
Status createLayout(Engine& engine);

/// Done when the database holds a set of books this program can work with; else foreign,
/// newerVersion, damaged or a failure of the connection.
Status checkLayout(Engine& engine);

}  // namespace chengheng
