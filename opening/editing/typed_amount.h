#pragma once

#include <string>
#include <string_view>

#include "opening/sheet/opening_account.h"

namespace chengheng {

/// Why a text that stands for no number does not: a decimal comma is told.
const char* whyNoAmount(std::string_view text);

/// What a typed text becomes in a line of a measure: rounded to its decimals; a text that is
/// no number counts as 0.
double typedAmount(std::string_view text, Measure measure);

/// What stands beside a sum while it is typed: "= 2,000.00", or "= ?" as long as it is no number;
/// empty beside any other text.
std::string shownSum(std::string_view text, Measure measure);

/// From here on an amount and its decimals do not fit a number that the books hold exactly.
inline constexpr double leastTooLarge = 1e13;

}  // namespace chengheng
