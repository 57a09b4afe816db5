#pragma once

#include <string>
#include <string_view>

/// Conditions on the voucher types, on the tables that refer to them and on the accounts that
/// they name.
namespace chengheng::voucher_type_sql {

inline constexpr const char* inOrder = "ORDER BY lId";
/// Of a type, and of a voucher that carries it.
std::string ofNumber(std::string_view number);
/// Of a type that has a number which the loaded one has not.
std::string ofNewNumber(std::string_view number, std::string_view loadedNumber);

inline constexpr const char* firstLevelInOrder = "byGrade = 1 ORDER BY sCode";
std::string ofFirstLevelAccount(std::string_view code);

}  // namespace chengheng::voucher_type_sql
