#pragma once

#include <cstdint>
#include <string>

namespace chengheng::services_sql {

/// The rights string of an operator.
std::string rightsOf(std::int32_t userId);

}  // namespace chengheng::services_sql
