#pragma once

#include <optional>
#include <string_view>

#include "opening/sheet/opening_account.h"

namespace chengheng {

/// The number that a typed or pasted text stands for; nothing when it stands for none.
///
/// The separators of groups of three digits, the wide letters of Chinese typing and a currency
/// sign in front are read over; a comma elsewhere makes it no number. (1,200.00) is negative as
/// spreadsheets show it, a lone - is their zero. A text that begins with = is a sum of numbers with
/// + - * / and brackets: "=1200+350*2".
std::optional<double> readAmount(std::string_view text);

/// Why a text that stands for no number does not: a decimal comma is told.
const char* whyNoAmount(std::string_view text);

/// What a typed text becomes in a line of a measure: rounded to its decimals; a text that is
/// no number counts as 0.
double typedAmount(std::string_view text, Measure measure);

/// From here on an amount and its decimals do not fit a number that the books hold exactly.
inline constexpr double leastTooLarge = 1e13;

}  // namespace chengheng
