#pragma once

#include <string>
#include <string_view>

/// Conditions on the table Code. A code is matched as it stands: % and _ in it are plain
/// characters.
namespace chengheng::account_sql {

/// The account of a code.
std::string ofCode(std::string_view code);
/// The accounts below a code, without the account itself.
std::string below(std::string_view code);
/// The account of a code and those below it.
std::string ofCodeAndBelow(std::string_view code);
/// The top-level accounts in code order.
inline constexpr const char* topLevel = "byGrade = 1 AND lId>0 ORDER BY sCode";

}  // namespace chengheng::account_sql
