#pragma once

#include <cstdint>
#include <string>

namespace chengheng::print_sql {

/// Heading and width of a template's columns, in the order of their ids: left to itself a server
/// gives a changed row last.
std::string columnsOf(std::int32_t templateNumber);
/// The same with the field that fills each.
std::string fieldColumnsOf(std::int32_t templateNumber);

/// The rates of a currency: by month, and by day of a month (0: of the whole year).
std::string fixedRatesOf(std::int32_t currency);
std::string floatingRatesOf(std::int32_t currency, int month);

inline constexpr const char* inOrderOfIds = "lId > 0 ORDER BY lId";

}  // namespace chengheng::print_sql
