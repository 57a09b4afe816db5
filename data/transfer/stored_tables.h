#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "data/engine/engine.h"
#include "data/tables/schema.h"

namespace chengheng {

/// Which of the stored tables are meant; none given: all of them.
using TableChoice = std::function<bool(std::string_view table)>;

/// Prepares and runs one select and hands its rows over one by one; the first failure of the
/// receiver ends the reading and is the outcome.
Status forEachRow(Engine& engine, std::string_view sql, std::span<const Value> values,
                  const std::function<Status(const Cursor&)>& receive);

/// "lId, sCode, ..." of a table.
std::string columnNames(const TableInfo& table);

/// The names of all tables, parted by blanks, for a lock on the books as a whole.
std::string allTableNames();

/// The tables that make up the content of a set of books: all tables of their layout but that of
/// who is logged on, and the item tables of its project classes.
Status storedTables(Engine& engine, std::vector<TableInfo>& tables);

/// Those of them, and of their columns, that the layout of a number has.
Status storedTables(Engine& engine, int layout, std::vector<TableInfo>& tables,
                    const TableChoice& choice = {});

}  // namespace chengheng
