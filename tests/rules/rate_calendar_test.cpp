#include "currency/rate_calendar.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using namespace chengheng;

TEST(RateCalendar, GivesEachMonthItsFirstDayForFixedRates) {
    const auto days = rateDays(RateKind::fixed, 2026);
    ASSERT_EQ(days.size(), 12u);
    EXPECT_EQ(days.front(), (Date{2026, 1, 1}));
    EXPECT_EQ(days.back(), (Date{2026, 12, 1}));
    EXPECT_EQ(rateDays(RateKind::fixed, 2026, 3), (std::vector<Date>{{2026, 3, 1}}));
}

TEST(RateCalendar, HasEveryDayOfAYearForFloatingRates) {
    for (const auto& [year, count] :
         {std::pair{2026, 365u}, {2028, 366u}, {2000, 366u}, {1900, 365u}, {2100, 365u}}) {
        const auto days = rateDays(RateKind::floating, year);
        EXPECT_EQ(days.size(), count) << year;
        EXPECT_EQ(isoText(days.front()), std::to_string(year) + "-01-01");
        EXPECT_EQ(isoText(days.back()), std::to_string(year) + "-12-31");
        EXPECT_TRUE(std::ranges::is_sorted(days));
    }
}

TEST(RateCalendar, HasTheDaysOfOneMonth) {
    const int lengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    for (int month = 1; month <= 12; ++month)
        EXPECT_EQ(rateDays(RateKind::floating, 2026, month).size(),
                  static_cast<std::size_t>(lengths[month - 1]))
            << month;
    const auto leap = rateDays(RateKind::floating, 2028, 2);
    ASSERT_EQ(leap.size(), 29u);
    EXPECT_EQ(leap.back(), (Date{2028, 2, 29}));
}

TEST(RateCalendar, HasNoDayInAMonthThatIsNone) {
    for (const int month : {-1, 13}) {
        EXPECT_TRUE(rateDays(RateKind::fixed, 2026, month).empty());
        EXPECT_TRUE(rateDays(RateKind::floating, 2026, month).empty());
    }
}

TEST(RateCalendar, TitlesMonthsAndDaysWithTwoDigitsBehindTheYear) {
    EXPECT_EQ(monthTitle(2026, 2), "2026.02");
    EXPECT_EQ(monthTitle(2026, 12), "2026.12");
    EXPECT_EQ(rateTitle(RateKind::fixed, {2026, 2, 1}), "2026.02");
    EXPECT_EQ(rateTitle(RateKind::floating, {2026, 2, 5}), "2026.02.05");
    EXPECT_EQ(rateTitle(RateKind::floating, {2026, 11, 30}), "2026.11.30");
}

}  // namespace
