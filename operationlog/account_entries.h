#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "data/engine/engine.h"

namespace chengheng {

/// The ids of the accounts that have a code, or had it as far as the log tells.
Status findAccountIds(Engine& engine, const std::string& code, std::vector<std::int32_t>& ids);

/// Whether a unit of work changed a row of one of the accounts. Where nobody can tell any more,
/// as the row is gone, it counts as theirs.
Status touchesAccounts(Engine& engine, std::string_view unit,
                       const std::vector<std::int32_t>& accounts, bool& touches);

}  // namespace chengheng
