#pragma once

#include <cstdint>
#include <string>

#include "data/sql/engine_dialect.h"

namespace chengheng::services_sql {

/// Whether an operator is a supervisor, the id of the rights, none where there are none, and the
/// rights string.
std::string rightsOf(std::int32_t userId);
/// That somebody writes now without logging on.
std::string noteAdministrator(const EngineDialect& dialect);

}  // namespace chengheng::services_sql
