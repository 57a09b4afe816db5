#pragma once

#include <span>

#include "data/tables/balances.h"

namespace chengheng {

/// Whether the period sums of an account hold nothing but the totals of those of the end accounts
/// below it: then it has no balance of its own. Quantities and foreign currency may be left out,
/// as accounts above others need not keep them. Directions play no part, as in the roll-up.
bool areOnlyTotals(std::span<const _AccSumInfo> own, std::span<const _AccSumInfo> below);

}  // namespace chengheng
