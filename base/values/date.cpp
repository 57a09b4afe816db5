#include "base/values/date.h"

#include <array>

namespace chengheng {
namespace {

bool isLeapYear(int year) { return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0; }

/// Takes up to `most` digits off the front of the text; nothing when there is none.
std::optional<int> takeNumber(std::string_view& text, std::size_t most) {
    std::size_t length = 0;
    int number = 0;
    for (; length < text.size() && length < most; ++length) {
        if (text[length] < '0' || text[length] > '9') break;
        number = number * 10 + (text[length] - '0');
    }
    text.remove_prefix(length);
    return length > 0 ? std::optional(number) : std::nullopt;
}

}  // namespace

int daysInMonth(int year, int month) {
    static constexpr std::array<int, 13> lengths{0, 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (month < 1 || month > 12) return 0;
    return month == 2 && isLeapYear(year) ? 29 : lengths[static_cast<std::size_t>(month)];
}

std::optional<Date> parseDate(std::string_view text) {
    const auto year = takeNumber(text, 4);
    if (!year || text.empty()) return std::nullopt;
    const char separator = text.front();
    if (separator != '-' && separator != '/' && separator != '.') return std::nullopt;
    text.remove_prefix(1);
    const auto month = takeNumber(text, 2);
    if (!month || text.empty() || text.front() != separator) return std::nullopt;
    text.remove_prefix(1);
    const auto day = takeNumber(text, 2);
    if (!day || !text.empty()) return std::nullopt;
    if (*day < 1 || *day > daysInMonth(*year, *month)) return std::nullopt;
    return Date{static_cast<std::int16_t>(*year), static_cast<std::uint8_t>(*month),
                static_cast<std::uint8_t>(*day)};
}

std::string isoText(const Date& date) {
    std::string text = "0000-00-00";
    const auto put = [&text](std::size_t last, int number) {
        for (std::size_t at = last; number > 0; --at, number /= 10)
            text[at] = static_cast<char>('0' + number % 10);
    };
    put(3, date.year);
    put(6, date.month);
    put(9, date.day);
    return text;
}

}  // namespace chengheng
