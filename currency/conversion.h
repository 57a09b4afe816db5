#pragma once

#include <optional>

#include "currency/currency_rules.h"

namespace chengheng {

/// The home amount of a foreign one, rounded to two decimals, and the other way round; nothing
/// without a rate above zero, or where the result is no number that the books hold.
std::optional<double> homeAmount(double foreign, double rate, RateMode mode);
std::optional<double> foreignAmount(double home, double rate, RateMode mode);

/// A rate that was quoted in one way for so many units (100 yen for 4.85 home, or 100 home for so
/// many yen), as it is quoted in another way for one unit, rounded to its decimals. Nothing where
/// that is not above zero.
std::optional<double> requoted(double rate, RateMode from, double units, RateMode to, int decimals);

}  // namespace chengheng
