#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace chengheng {

/// The number that a typed or pasted text stands for; nothing when it stands for none.
///
/// The separators of groups of three digits, the wide letters of Chinese typing and a currency
/// sign in front are read over; a comma elsewhere makes it no number. (1,200.00) is negative as
/// spreadsheets show it, a lone - is their zero. A text that begins with = is a sum of numbers with
/// + - * /, percent and brackets: "=1200+350*2", "=200*(1+13%)".
std::optional<double> readAmount(std::string_view text);

/// Whether a text is one that begins with =, finished or not.
bool isSum(std::string_view text);

/// The text with the narrow form of each wide letter of Chinese typing; what spreadsheets give for
/// a blank becomes one.
std::string narrowLetters(std::string_view text);

/// Whether a text stands for no number only because it has a comma where the point belongs.
bool isNumberWithDecimalComma(std::string_view text);

}  // namespace chengheng
