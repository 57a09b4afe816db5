#pragma once

#include <string>
#include <vector>

#include "base/values/status.h"
#include "data/engine/engine.h"
#include "data/tables/schema.h"

namespace chengheng {

enum class ColumnChecks { none, all };

/// "CREATE TABLE ...; CREATE INDEX ...;" for an engine.
std::string createTableSql(const TableInfo& table, const EngineDialect& dialect,
                           ColumnChecks checks = ColumnChecks::all);

/// The names of a table's indexes.
std::vector<std::string> indexNames(const TableInfo& table);

/// The statements that make a layout: its tables, their rows in ABIdTable and its number.
std::string layoutScript(const EngineDialect& dialect, int number = booksFormatVersion);

/// Makes every table of a layout in an empty database. To be called inside a transaction.
Status createTables(Engine& engine, int number = booksFormatVersion);

/// The same in a transaction of its own.
Status createLayout(Engine& engine);

/// The number that stands in BooksFormat; 0 when none does.
Status readLayoutNumber(Engine& engine, int& number);

/// Done when the database holds a set of books that this program can read: of this layout or an
/// older one. Else foreign, newerVersion, damaged or a failure of the connection.
Status checkReadable(Engine& engine, int* number = nullptr);

/// Done when the program can work with them: olderVersion for books of an older layout.
Status checkLayout(Engine& engine);

/// Takes the tables of an older layout to those of this version, step by step. To be called
/// inside a transaction.
Status raiseLayout(Engine& engine, int from);

/// The same where the tables are those of this version already and the rows of an older one.
Status raiseRows(Engine& engine, int from);

}  // namespace chengheng
