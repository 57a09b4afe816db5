#include "currency/rate_calendar.h"

#include <fmt/format.h>

#include <algorithm>

namespace chengheng {

std::vector<Date> rateDays(RateKind kind, int year, int month) {
    std::vector<Date> days;
    const int first = month == 0 ? 1 : month;
    const int last = month == 0 ? monthsOfYear : month;
    for (int each = first; each <= last; ++each) {
        const int inMonth = daysInMonth(year, each);
        const int wanted = kind == RateKind::fixed ? std::min(inMonth, 1) : inMonth;
        for (int day = 1; day <= wanted; ++day)
            days.push_back({static_cast<std::int16_t>(year), static_cast<std::uint8_t>(each),
                            static_cast<std::uint8_t>(day)});
    }
    return days;
}

std::string monthTitle(int year, int month) { return fmt::format("{}.{:02}", year, month); }

std::string rateTitle(RateKind kind, const Date& day) {
    const std::string ofMonth = monthTitle(day.year, day.month);
    return kind == RateKind::fixed ? ofMonth : fmt::format("{}.{:02}", ofMonth, day.day);
}

}  // namespace chengheng
