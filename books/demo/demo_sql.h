#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace chengheng::demo_sql {

/// A row of the item table of a project class, whose code holds letters and digits only.
std::string projectItem(std::string_view classCode, std::int32_t id, std::string_view code,
                        std::string_view name);

/// Each month has turned over a multiple of the opening figures, which accounts above others and
/// their details have by the same measure.
std::string turnover();

}  // namespace chengheng::demo_sql
