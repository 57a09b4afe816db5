#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace chengheng::demo_sql {

/// A row of the item table of a project class, whose code holds letters and digits only.
std::string projectItem(std::string_view classCode, std::int32_t id, std::string_view code,
                        std::string_view name);

}  // namespace chengheng::demo_sql
