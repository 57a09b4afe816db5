#pragma once

#include <cstdint>
#include <string>

namespace chengheng::services_sql {

/// Whether an operator is a supervisor, the id of the rights, none where there are none, and the
/// rights string.
std::string rightsOf(std::int32_t userId);

}  // namespace chengheng::services_sql
