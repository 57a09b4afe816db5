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
/// Of a method other than the one of the id.
std::string ofOtherNumber(std::string_view number, int id);
std::string ofOtherName(std::string_view name, int id);

}  // namespace chengheng::settle_sql
