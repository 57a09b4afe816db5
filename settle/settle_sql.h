#pragma once

#include <string>
#include <string_view>

/// Conditions on the settlement methods and on the tables that refer to them.
namespace chengheng::settle_sql {

inline constexpr const char* inOrder = "ORDER BY lId";
/// Of a method, and of a voucher line that refers to it.
std::string ofNumber(std::string_view number);
/// Of an entry of a bank statement that refers to a method.
std::string ofNoteMethod(std::string_view number);
/// Of a method.
std::string ofName(std::string_view name);

}  // namespace chengheng::settle_sql
