#include "currency/max_error.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

#include "base/values/text.h"

namespace chengheng {
namespace {

struct DecimalParts {
    bool isNegative = false;
    std::string_view whole;
    std::string_view fraction;
};

bool areDigits(std::string_view text) { return std::ranges::all_of(text, isDigit); }

std::optional<DecimalParts> partsOf(std::string_view text) {
    DecimalParts parts;
    parts.isNegative = text.starts_with('-');
    if (parts.isNegative) text.remove_prefix(1);
    const std::size_t point = std::min(text.find('.'), text.size());
    parts.whole = text.substr(0, point);
    parts.fraction = text.substr(std::min(point + 1, text.size()));
    const bool hasDigits = !parts.whole.empty() || !parts.fraction.empty();
    if (!hasDigits || !areDigits(parts.whole) || !areDigits(parts.fraction)) return std::nullopt;
    return parts;
}

/// Of digits with a point; what no double holds is as large or as small as one gets.
double numberIn(const DecimalParts& parts) {
    const std::string digits = fmt::format("0{}.{}0", parts.whole, parts.fraction);
    double value = 0;
    const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), value,
                                      std::chars_format::fixed);
    if (read.ec == std::errc::result_out_of_range) {
        const bool isLarge = parts.whole.find_first_not_of('0') != std::string_view::npos;
        value = isLarge ? std::numeric_limits<double>::infinity()
                        : std::numeric_limits<double>::denorm_min();
    }
    return value;
}

}  // namespace

std::optional<double> maxErrorValue(std::string_view text) {
    if (text.empty()) return 0;
    const auto parts = partsOf(text);
    if (!parts) return std::nullopt;
    const double value = numberIn(*parts);
    return parts->isNegative ? -value : value;
}

float maxErrorByDigits(std::string_view text) {
    const auto parts = partsOf(text);
    if (!parts) return 0;
    double value = 0;
    double weight = 1;
    for (auto digit = parts->whole.rbegin(); digit != parts->whole.rend(); ++digit, weight *= 10)
        value += (*digit - '0') * weight;
    weight = 0.1;
    for (const char digit : parts->fraction) {
        value += (digit - '0') * weight;
        weight /= 10;
    }
    return static_cast<float>(parts->isNegative ? -value : value);
}

float maxErrorByLibrary(std::string_view text) {
    return static_cast<float>(maxErrorValue(text).value_or(0));
}

std::string maxErrorText(float value) { return fmt::format("{:.0f}", value); }

std::string plainMaxError(float value) {
    std::array<char, 64> room{};
    const auto written =
        std::to_chars(room.data(), room.data() + room.size(), value, std::chars_format::fixed);
    return {room.data(), written.ptr};
}

}  // namespace chengheng
