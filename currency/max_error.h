#pragma once

#include <optional>
#include <string>
#include <string_view>

// The largest difference that is accepted between an amount in home currency and what rate and
// foreign amount come to.

namespace chengheng {

/// The value of a plain decimal number, "-1" and ".5" among them; 0 of an empty text. Nothing for
/// any other text.
std::optional<double> maxErrorValue(std::string_view text);

/// As a new currency gets it: digit by digit, those before the point weighing 1, 10, 100, ... from
/// the point leftwards, those behind it 0.1, 0.01, ... rightwards.
float maxErrorByDigits(std::string_view text);
/// As a currency that is there gets it: the nearest number.
float maxErrorByLibrary(std::string_view text);

/// As a stored one is shown: without decimals, so that 0.00001 is "0".
std::string maxErrorText(float value);
/// As it is printed and told: in plain notation, as short as the single allows, "0.00001".
std::string plainMaxError(float value);

}  // namespace chengheng
