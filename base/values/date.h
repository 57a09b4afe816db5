#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace chengheng {

/// A calendar day. The default value, 1899-12-31, stands for "no date" in the books.
struct Date {
    std::int16_t year = 1899;
    std::uint8_t month = 12;
    std::uint8_t day = 31;

    auto operator<=>(const Date&) const = default;
    bool isSet() const { return *this != Date{}; }
};

/// Days in a month of a year, by the Gregorian calendar; 0 for a month outside 1 to 12.
int daysInMonth(int year, int month);

/// Reads "2026-01-05", "2026/1/5" or "2026.1.5"; nothing for anything else or a day that
/// does not exist.
std::optional<Date> parseDate(std::string_view text);

/// "2026-01-05", the form in which dates are stored.
std::string isoText(const Date& date);

}  // namespace chengheng
