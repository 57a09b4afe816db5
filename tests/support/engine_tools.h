#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "data/engine/engine.h"

namespace chengheng {

/// Prepares and runs one statement.
Status runSql(Engine& engine, std::string_view sql, std::initializer_list<Value> values = {});

/// The cells of a select row by row, as text, "NULL" for NULL; throws when it fails.
std::vector<std::vector<std::string>> readSql(Engine& engine, std::string_view sql,
                                              std::initializer_list<Value> values = {});

/// The only cell of a select of one row; throws when there is another number of cells.
std::string readCell(Engine& engine, std::string_view sql);

}  // namespace chengheng
