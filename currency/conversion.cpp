#include "currency/conversion.h"

#include <cmath>

#include "base/values/numbers.h"

namespace chengheng {
namespace {

constexpr int moneyDecimals = 2;
/// Beyond that a double does not hold an amount to the cent.
constexpr double leastTooLarge = 1e13;

std::optional<double> heldAmount(double amount) {
    if (!(std::fabs(amount) < leastTooLarge)) return std::nullopt;
    Round(amount, moneyDecimals);
    return amount;
}

std::optional<double> converted(double amount, double rate, bool multiplies) {
    if (!(rate > 0)) return std::nullopt;
    return heldAmount(multiplies ? amount * rate : amount / rate);
}

}  // namespace

std::optional<double> homeAmount(double foreign, double rate, RateMode mode) {
    return converted(foreign, rate, mode == RateMode::multiplied);
}

std::optional<double> foreignAmount(double home, double rate, RateMode mode) {
    return converted(home, rate, mode == RateMode::divided);
}

std::optional<double> requoted(double rate, RateMode from, double units, RateMode to,
                               int decimals) {
    if (!(rate > 0) || !(units > 0)) return std::nullopt;
    double single = rate / units;
    if (from != to) single = 1 / single;
    Round(single, decimals);
    if (!(single > 0) || !std::isfinite(single)) return std::nullopt;
    return single;
}

}  // namespace chengheng
