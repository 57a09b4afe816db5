#include "currency/rates/rate_gaps.h"

#include <gtest/gtest.h>

#include "currency/rates/gap_filling.h"

using namespace chengheng;

namespace {

constexpr RateSpan noDay{};

/// A year's rows of a kind, those of the days given with a rate.
std::vector<RateRow> rowsOf(RateKind kind, int year,
                            const std::vector<std::pair<Date, double>>& rates) {
    std::vector<RateRow> rows;
    for (const Date& day : rateDays(kind, year)) {
        rows.push_back({.id = static_cast<int>(rows.size()) + 1, .day = day, .period = day.month});
        for (const auto& [rated, rate] : rates)
            if (rated == day) rows.back().rate = rate;
    }
    return rows;
}

std::vector<RateGap> months(const std::vector<std::pair<Date, double>>& rates,
                            const RateSpan& wanted) {
    return rateGaps(RateKind::fixed, 2026, rowsOf(RateKind::fixed, 2026, rates), wanted);
}

}  // namespace

TEST(RateGaps, AreTheMonthsBeforeTheLastRateThatHaveNone) {
    EXPECT_EQ(
        months({{{2026, 2, 1}, 7.1}, {{2026, 5, 1}, 7.2}}, noDay),
        (std::vector<RateGap>{{{2026, 1, 1}, {2026, 1, 1}, 1}, {{2026, 3, 1}, {2026, 4, 1}, 2}}));
}

TEST(RateGaps, ReachToTodayButNotBeyond) {
    EXPECT_EQ(months({{{2026, 1, 1}, 7.1}}, {.today = {2026, 3, 15}}),
              (std::vector<RateGap>{{{2026, 2, 1}, {2026, 3, 1}, 2}}));
    EXPECT_EQ(months({{{2026, 1, 1}, 7.1}}, {.today = {2025, 3, 15}}), std::vector<RateGap>{});
}

TEST(RateGaps, AreNoneInAYearWithoutAnyRate) {
    EXPECT_TRUE(months({}, {.today = {2026, 12, 31}}).empty());
}

TEST(RateGaps, OfAMonthAreItsDaysThoughTheLastRateIsLater) {
    const auto rows = rowsOf(RateKind::floating, 2026,
                             {{{2026, 2, 1}, 7.1}, {{2026, 2, 27}, 7.1}, {{2026, 3, 2}, 7.2}});
    const auto gaps = rateGaps(RateKind::floating, 2026, rows, noDay);
    EXPECT_EQ(gapsInMonth(gaps, 2026, 1),
              (std::vector<RateGap>{{{2026, 1, 1}, {2026, 1, 31}, 31}}));
    EXPECT_EQ(gapsInMonth(gaps, 2026, 2),
              (std::vector<RateGap>{{{2026, 2, 2}, {2026, 2, 26}, 25},
                                    {{2026, 2, 28}, {2026, 2, 28}, 1}}));
    EXPECT_EQ(gapsInMonth(gaps, 2026, 3), (std::vector<RateGap>{{{2026, 3, 1}, {2026, 3, 1}, 1}}))
        << "cut where the month begins";
    EXPECT_TRUE(gapsInMonth(gaps, 2026, 4).empty());
}

TEST(RateGaps, AreDaysWithoutARowToo) {
    auto rows = rowsOf(RateKind::fixed, 2026, {{{2026, 1, 1}, 7}, {{2026, 3, 1}, 7}});
    rows.erase(rows.begin() + 1);
    EXPECT_EQ(rateGaps(RateKind::fixed, 2026, rows, noDay),
              (std::vector<RateGap>{{{2026, 2, 1}, {2026, 2, 1}, 1}}));
}

TEST(RateGaps, ReadAsALineThatNamesTheFirstOfThem) {
    const std::vector<RateGap> gaps{{{2026, 3, 4}, {2026, 3, 5}, 2},
                                    {{2026, 3, 9}, {2026, 3, 9}, 1}};
    EXPECT_EQ(gapLine(RateKind::floating, gaps), "缺 3 天:2026.03.04 至 2026.03.05、2026.03.09");
    EXPECT_EQ(gapLine(RateKind::floating, gaps, 1), "缺 3 天:2026.03.04 至 2026.03.05等 2 处");
    EXPECT_EQ(gapLine(RateKind::fixed, std::vector<RateGap>{{{2026, 3, 1}, {2026, 4, 1}, 2}}),
              "缺 2 个月:2026.03 至 2026.04");
    EXPECT_EQ(gapLine(RateKind::fixed, {}), "");
}

TEST(RateGaps, AreVisitedOneAfterTheOtherAndFromTheFirstAgain) {
    const std::vector<RateGap> gaps{{{2026, 3, 4}, {2026, 3, 5}, 2},
                                    {{2026, 3, 9}, {2026, 3, 9}, 1}};
    const auto next = [&gaps](const Date& day) { return nextGap(gaps, day); };
    EXPECT_EQ(next({2026, 1, 1}), (Date{2026, 3, 4}));
    EXPECT_EQ(next({2026, 3, 4}), (Date{2026, 3, 9})) << "the next one, not its next day";
    EXPECT_EQ(next({2026, 3, 5}), (Date{2026, 3, 9}));
    EXPECT_EQ(next({2026, 3, 9}), (Date{2026, 3, 4}));
    EXPECT_EQ(nextGap({}, {2026, 3, 9}), std::nullopt);
}

TEST(RateGaps, BeginWithTheBooks) {
    EXPECT_EQ(months({{{2026, 6, 1}, 7.1}}, {.begin = {2026, 4, 1}}),
              (std::vector<RateGap>{{{2026, 4, 1}, {2026, 5, 1}, 2}}));
    EXPECT_EQ(months({{{2026, 6, 1}, 7.1}}, {.begin = {2026, 6, 1}}), std::vector<RateGap>{});
}

TEST(RateGaps, AreFilledWithTheLastRateBeforeEach) {
    const auto rows = rowsOf(RateKind::fixed, 2026,
                             {{{2026, 2, 1}, 7.1}, {{2026, 4, 1}, 7.2}, {{2026, 6, 1}, 7.3}});
    const auto gaps = rateGaps(RateKind::fixed, 2026, rows, {.today = {2026, 7, 31}});
    const auto filling = gapFilling(9, RateKind::fixed, rows, gaps);
    ASSERT_EQ(filling.size(), 3u);  // nothing is there before January
    const std::vector<std::pair<int, double>> expected{{3, 7.1}, {5, 7.2}, {7, 7.3}};
    for (std::size_t at = 0; at < filling.size(); ++at) {
        EXPECT_EQ(filling[at].currency, 9);
        EXPECT_EQ(filling[at].kind, RateKind::fixed);
        EXPECT_EQ(filling[at].before, rows[static_cast<std::size_t>(expected[at].first) - 1]);
        EXPECT_EQ(filling[at].after.id, expected[at].first);
        EXPECT_EQ(filling[at].after.rate, expected[at].second);
        EXPECT_EQ(filling[at].after.adjustRate, 0);
    }
}

TEST(RateGaps, StayWhereTheyAreNotToBeFilled) {
    const auto rows = rowsOf(RateKind::fixed, 2026, {{{2026, 2, 1}, 7.1}, {{2026, 4, 1}, 7.2}});
    EXPECT_TRUE(gapFilling(9, RateKind::fixed, rows, {}).empty());
    EXPECT_TRUE(gapFilling(9, RateKind::fixed, {}, months({{{2026, 2, 1}, 7.1}}, noDay)).empty());
}
