#pragma once

#include <cstdint>
#include <string>

namespace chengheng::print_sql {

/// Heading and width of a template's columns, in the order of their ids: left to itself a server
/// gives a changed row last.
std::string columnsOf(std::int32_t templateNumber);
/// The same with the field that fills each.
std::string fieldColumnsOf(std::int32_t templateNumber);

inline constexpr const char* inOrderOfIds = "lId > 0 ORDER BY lId";

}  // namespace chengheng::print_sql
