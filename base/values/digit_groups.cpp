#include "base/values/digit_groups.h"

#include <algorithm>

#include "base/values/text.h"

namespace chengheng {
namespace {

constexpr std::size_t groupDigits = 3;

bool areDigits(std::string_view text) {
    return !text.empty() && std::ranges::all_of(text, isDigit);
}

/// The digits of a whole number with a separator in it.
std::optional<std::string> withoutGroups(std::string_view whole, char separator) {
    std::size_t end = whole.find(separator);
    std::string digits(whole.substr(0, end));
    if (!areDigits(digits) || digits.size() > groupDigits || digits.front() == '0')
        return std::nullopt;
    while (end != std::string_view::npos) {
        whole.remove_prefix(end + 1);
        end = whole.find(separator);
        const std::string_view group = whole.substr(0, end);
        if (!areDigits(group) || group.size() != groupDigits) return std::nullopt;
        digits += group;
    }
    return digits;
}

}  // namespace

std::optional<std::string> withoutDigitGroups(std::string_view number) {
    if (number.find(',') == std::string_view::npos) return std::string(number);
    const std::size_t point = std::min(number.find('.'), number.size());
    const std::string_view decimals = number.substr(point);
    if (decimals.find(',') != std::string_view::npos) return std::nullopt;
    auto digits = withoutGroups(number.substr(0, point), ',');
    if (digits) *digits += decimals;
    return digits;
}

bool hasDecimalComma(std::string_view number) {
    const std::size_t comma = number.find(',');
    if (comma == std::string_view::npos || !areDigits(number.substr(comma + 1))) return false;
    const std::string_view whole = number.substr(0, comma);
    return (areDigits(whole) || withoutGroups(whole, '.')) && !withoutDigitGroups(number);
}

}  // namespace chengheng
