#pragma once

#include <cstdint>
#include <optional>

namespace chengheng {

/// How a currency's rate is quoted.
enum class Quoting : std::uint8_t {
    homePerForeign,  ///< foreign × rate = home
    foreignPerHome,  ///< foreign ÷ rate = home
};

/// Out of the flag of a currency's record: 1 is foreign × rate = home.
Quoting quotingOf(std::int16_t mode);

/// The home amount of a foreign one, rounded to two decimals, and the other way round; nothing
/// without a rate above zero, or where the result is no number that the books hold.
std::optional<double> homeAmount(double foreign, double rate, Quoting quoting);
std::optional<double> foreignAmount(double home, double rate, Quoting quoting);

/// A rate that was quoted in one way for so many units (100 yen for 4.85 home, or 100 home for so
/// many yen), as it is quoted in another way for one unit, rounded to its decimals. Nothing where
/// that is not above zero.
std::optional<double> requoted(double rate, Quoting from, double units, Quoting to, int decimals);

}  // namespace chengheng
