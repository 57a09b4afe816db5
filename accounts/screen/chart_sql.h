#pragma once

#include <string>
#include <string_view>

/// Conditions under which the chart of accounts is listed.
namespace chengheng::chart_sql {

/// The accounts of one class, in code order.
std::string ofClass(std::string_view className);
/// Those of every other class, in code order.
std::string ofOtherClasses(std::string_view className);

}  // namespace chengheng::chart_sql
