#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace chengheng::demo_sql {

/// A row of the item table of a project class, whose code holds letters and digits only.
std::string projectItem(std::string_view classCode, std::int32_t id, std::string_view code,
                        std::string_view name);

/// Posted and unposted vouchers draw their ids from one sequence.
std::string voucherCounters(std::int32_t lastHeader, std::int32_t lastLine);

}  // namespace chengheng::demo_sql
