#pragma once

#include <span>
#include <vector>

#include "currency/rates/rate_gaps.h"
#include "currency/rates/rate_writing.h"

namespace chengheng {

/// Fills the gaps of a currency's rates with the last rate before each. A gap that has none before
/// it in its year stays, and so does a day that has no row.
std::vector<RateChange> gapFilling(int currency, RateKind kind, std::span<const RateRow> rows,
                                   std::span<const RateGap> gaps);

}  // namespace chengheng
