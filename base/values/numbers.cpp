#include "base/values/numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string_view>

namespace chengheng {
namespace {

/// Powers of ten that a double holds exactly.
constexpr std::array<double, 23> exactPowersOfTen{1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                  1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                  1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

/// Below this a whole number has at most 15 digits. Two different decimals of 15 digits never
/// read as the same double, so the first one found that reads back is the shortest.
constexpr double fifteenDigits = 1e15;

constexpr double leastPlain = 1e-7;
constexpr double leastScientific = 1e21;
/// From here on a double stands for a range of whole numbers, and its shortest decimal ends in
/// zeros where its exact value does not.
constexpr double leastInexactWhole = 9007199254740992.0;

char* writeWhole(char* first, char* last, std::uint64_t whole) {
    return std::to_chars(first, last, whole).ptr;
}

/// Writes hundredths, 150 as "1.5".
char* writeHundredths(char* first, char* last, std::uint64_t hundredths) {
    char* end = writeWhole(first, last, hundredths / 100);
    const auto rest = static_cast<unsigned>(hundredths % 100);
    *end++ = '.';
    *end++ = static_cast<char>('0' + rest / 10);
    if (rest % 10 != 0) *end++ = static_cast<char>('0' + rest % 10);
    return end;
}

/// The digits of a finite number's shortest decimal: 0.d1d2d3... times 10 to the power `point`.
/// Zero has no digits.
struct Decimal {
    std::array<char, 20> digits{};
    int count = 0;
    int point = 0;

    char digit(int at) const {
        return at >= 0 && at < count ? digits[static_cast<std::size_t>(at)] : '0';
    }
};

Decimal shortestDecimal(double magnitude) {
    Decimal decimal;
    if (magnitude == 0) return decimal;
    std::array<char, shortestTextRoom> text{};
    const char* const end = std::to_chars(text.data(), text.data() + text.size(), magnitude,
                                          std::chars_format::scientific)
                                .ptr;
    const char* at = text.data();
    for (; *at != 'e'; ++at)
        if (*at != '.') decimal.digits[static_cast<std::size_t>(decimal.count++)] = *at;
    ++at;
    if (*at == '+') ++at;
    std::from_chars(at, end, decimal.point);
    ++decimal.point;
    return decimal;
}

char* writeLargeWhole(char* first, double magnitude) {
    const Decimal decimal = shortestDecimal(magnitude);
    for (int at = 0; at < decimal.point; ++at) *first++ = decimal.digit(at);
    return first;
}

/// Rounds half up (away from zero for a magnitude) to a number of decimals.
void roundDecimal(Decimal& decimal, int decimals) {
    const std::int64_t kept = std::int64_t{decimal.point} + decimals;
    if (kept >= decimal.count) return;
    const bool isUp = kept >= 0 && decimal.digit(static_cast<int>(kept)) >= '5';
    decimal.count = static_cast<int>(std::max<std::int64_t>(kept, 0));
    if (!isUp) return;
    while (decimal.count > 0 && decimal.digit(decimal.count - 1) == '9') --decimal.count;
    if (decimal.count == 0) {
        decimal.digits[0] = '1';
        decimal.count = 1;
        ++decimal.point;
    } else {
        ++decimal.digits[static_cast<std::size_t>(decimal.count - 1)];
    }
}

/// The double nearest to a decimal; infinity when none is.
double nearestDouble(const Decimal& decimal) {
    if (decimal.count == 0) return 0;
    std::array<char, 40> text{};
    char* end = std::copy_n(decimal.digits.data(), decimal.count, text.data());
    *end++ = 'e';
    end = std::to_chars(end, text.data() + text.size(), decimal.point - decimal.count).ptr;
    double value = 0;
    const auto read = std::from_chars(text.data(), end, value);
    return read.ec == std::errc{} ? value : std::numeric_limits<double>::infinity();
}

/// Rounds a magnitude when it is so far from a tie that its digits need not be looked at.
bool roundFarFromTie(double& magnitude, int decimals) {
    if (decimals < 0 || decimals >= static_cast<int>(exactPowersOfTen.size())) return false;
    const double power = exactPowersOfTen[static_cast<std::size_t>(decimals)];
    const double scaled = magnitude * power;
    if (!(scaled < fifteenDigits)) return false;
    const double whole = std::floor(scaled);
    const double rest = scaled - whole;
    // Twice what the multiplication and the shortest decimal can be off together.
    const double doubt = scaled * std::numeric_limits<double>::epsilon() * 4;
    if (std::abs(rest - 0.5) <= doubt) return false;
    magnitude = (rest > 0.5 ? whole + 1 : whole) / power;
    return true;
}

std::string specialText(double value) {
    return std::isnan(value) ? "nan" : value < 0 ? "-inf" : "inf";
}

/// A rounded decimal with exactly so many decimals; an empty `separator` groups nothing.
std::string fixedText(double value, int decimals, std::string_view separator) {
    if (!std::isfinite(value)) return specialText(value);
    decimals = std::max(decimals, 0);
    Decimal decimal = shortestDecimal(std::abs(value));
    roundDecimal(decimal, decimals);
    std::string text;
    if (value < 0 && decimal.count > 0) text += '-';
    const int wholeDigits = std::max(decimal.point, 1);
    const int shift = decimal.point - wholeDigits;
    for (int at = 0; at < wholeDigits; ++at) {
        if (at > 0 && (wholeDigits - at) % 3 == 0) text += separator;
        text += decimal.digit(at + shift);
    }
    if (decimals > 0) text += '.';
    for (int at = wholeDigits; at < wholeDigits + decimals; ++at) text += decimal.digit(at + shift);
    return text;
}

}  // namespace

char* writeShortest(char* first, char* last, double value) {
    if (!std::isfinite(value)) {
        const std::string text = specialText(value);
        return std::copy(text.begin(), text.end(), first);
    }
    const double magnitude = std::abs(value);
    if (value < 0) *first++ = '-';
    if (magnitude < fifteenDigits / 100) {
        // The next line refuses what this rounds wrongly.
        const auto hundredths = static_cast<std::uint64_t>(
            magnitude * 100 + 0.5);  // NOLINT(bugprone-incorrect-roundings)
        if (static_cast<double>(hundredths) / 100 == magnitude) {
            if (hundredths % 100 == 0) return writeWhole(first, last, hundredths / 100);
            return writeHundredths(first, last, hundredths);
        }
    }
    if (magnitude >= leastInexactWhole && magnitude < leastScientific)
        return writeLargeWhole(first, magnitude);
    const bool isPlain = magnitude >= leastPlain && magnitude < leastScientific;
    return std::to_chars(first, last, magnitude,
                         isPlain ? std::chars_format::fixed : std::chars_format::scientific)
        .ptr;
}

std::string shortestText(double value) {
    std::array<char, shortestTextRoom> text;
    return {text.data(), writeShortest(text.data(), text.data() + text.size(), value)};
}

}  // namespace chengheng

void Round(double& value, int decimals) {
    if (!std::isfinite(value)) return;
    double magnitude = std::abs(value);
    if (!chengheng::roundFarFromTie(magnitude, decimals)) {
        auto decimal = chengheng::shortestDecimal(magnitude);
        chengheng::roundDecimal(decimal, decimals);
        magnitude = chengheng::nearestDouble(decimal);
        if (std::isinf(magnitude)) return;
    }
    value = value < 0 && magnitude != 0 ? -magnitude : magnitude;
}

std::string ftoa(double value) { return chengheng::shortestText(value); }

std::string ftoa(double value, int decimals) { return chengheng::fixedText(value, decimals, ""); }

std::string ftoaWithSap(double value, int decimals) {
    return chengheng::fixedText(value, decimals, ",");
}
