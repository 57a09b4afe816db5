#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "data/log/row_bytes.h"

namespace chengheng {

/// What operators call a table or column; its own name where nobody has another one.
std::string shownTable(std::string_view table);
std::string shownColumn(std::string_view table, std::string_view column);

/// A cell as an operator reads it: flags and choices in words.
std::string shownLogCell(std::string_view table, std::string_view column, const LoggedCell& cell);

/// "增加", "修改", "删除".
const char* shownKind(ChangeKind kind);

/// The name of a function of the rights list; empty of none.
std::string shownFunction(std::int32_t function);

}  // namespace chengheng
