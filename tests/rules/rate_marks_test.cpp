#include "currency/rates/rate_marks.h"

#include <gtest/gtest.h>

#include "currency/conversion.h"

using namespace chengheng;

namespace {

std::vector<RateRow> daily(const std::vector<double>& rates) {
    std::vector<RateRow> rows;
    for (const double rate : rates) {
        const auto day = static_cast<std::uint8_t>(rows.size() + 1);
        rows.push_back({.id = day,
                        .day = {2026, 1, day},
                        .period = 1,
                        .rate = rate,
                        .adjustRate = rate == 0 ? 0 : rate + 1});
    }
    return rows;
}

/// A letter for each rate: "." none, "j" jump, "d" departure.
std::string marks(const std::vector<double>& rates) {
    std::string text;
    for (const RatePoint& point : ratePoints(daily(rates)))
        text += ".jd"[static_cast<int>(point.mark)];
    return text;
}

}  // namespace

TEST(RateMarks, TellAJumpOfMoreThanATwentiethEitherWay) {
    EXPECT_EQ(markBeside(100, 105), RateMark::none);
    EXPECT_EQ(markBeside(100, 105.00001), RateMark::jump);
    EXPECT_EQ(markBeside(100, 95), RateMark::none);
    EXPECT_EQ(markBeside(100, 94.99999), RateMark::jump);
    EXPECT_EQ(markBeside(7.2, 7.56), RateMark::none);
}

TEST(RateMarks, TellADepartureByMoreThanHalf) {
    EXPECT_EQ(markBeside(100, 150), RateMark::jump);
    EXPECT_EQ(markBeside(100, 150.00001), RateMark::departure);
    EXPECT_EQ(markBeside(100, 50), RateMark::jump);
    EXPECT_EQ(markBeside(100, 49.99999), RateMark::departure);
}

TEST(RateMarks, TellNothingWhereThereIsNoRate) {
    EXPECT_EQ(markBeside(0, 7), RateMark::none);
    EXPECT_EQ(markBeside(7, 0), RateMark::none);
}

TEST(RateMarks, StandAtTheRateThatIsOutOfLineAndNotAtTheNext) {
    EXPECT_EQ(marks({7.1, 7.1, 71, 7.1, 7.2}), "..d..");
    EXPECT_EQ(marks({7.1, 7.6, 7.1}), ".j.");
}

TEST(RateMarks, StandAtTheFirstRateOfANewLevel) {
    EXPECT_EQ(marks({7.1, 8, 8.1, 8.2, 8.1}), ".j...");
}

TEST(RateMarks, LookOverDaysWithoutARate) {
    EXPECT_EQ(marks({0, 7.1, 0, 0, 8, 0}), ".j");
    EXPECT_EQ(ratePoints(daily({0, 7.1, 0, 8}))[1], (RatePoint{{2026, 1, 4}, 8, RateMark::jump}));
}

TEST(RateMarks, OfAdjustmentRatesLookAtThose) {
    const auto points = adjustmentPoints(daily({1, 1.1, 0, 5}));
    ASSERT_EQ(points.size(), 3u);
    EXPECT_EQ(points[1].rate, 2.1);
    EXPECT_EQ(points[1].mark, RateMark::none);
    EXPECT_EQ(points[2].mark, RateMark::departure);
}

TEST(RateMarks, FindTheLastRateBeforeADay) {
    const auto points = ratePoints(daily({7, 0, 7.1, 7.2}));
    EXPECT_EQ(pointBefore(points, {2026, 1, 3})->rate, 7);
    EXPECT_EQ(pointBefore(points, {2026, 1, 4})->rate, 7.1);
    EXPECT_EQ(pointBefore(points, {2026, 1, 1}), std::nullopt);
}

TEST(Conversion, MultipliesOrDividesByTheRateAsTheCurrencyIsQuoted) {
    EXPECT_EQ(homeAmount(100, 7.1055, RateMode::multiplied), 710.55);
    EXPECT_EQ(homeAmount(100, 0.14, RateMode::divided), 714.29);
    EXPECT_EQ(foreignAmount(710.55, 7.1055, RateMode::multiplied), 100);
    EXPECT_EQ(foreignAmount(100, 0.14, RateMode::divided), 14);
    EXPECT_EQ(homeAmount(-0.5, 0.01, RateMode::multiplied), -0.01);
}

TEST(Conversion, GivesNothingWithoutARateOrBeyondWhatTheBooksHold) {
    EXPECT_EQ(homeAmount(100, 0, RateMode::multiplied), std::nullopt);
    EXPECT_EQ(foreignAmount(100, -7, RateMode::multiplied), std::nullopt);
    EXPECT_EQ(homeAmount(1e12, 10, RateMode::multiplied), std::nullopt);
    EXPECT_EQ(homeAmount(9e11, 10, RateMode::multiplied), 9e12);
    EXPECT_EQ(homeAmount(1e300, 1e-300, RateMode::divided), std::nullopt);
}

TEST(Conversion, TurnsAQuotedRateIntoThatOfOneUnitTheOtherWayRound) {
    using enum RateMode;
    EXPECT_EQ(requoted(7.105555, multiplied, 1, multiplied, 4), 7.1056);
    EXPECT_EQ(requoted(4.85, multiplied, 100, multiplied, 5), 0.0485);
    EXPECT_EQ(requoted(4.85, multiplied, 100, divided, 5), 20.61856);
    EXPECT_EQ(requoted(0.14, divided, 1, multiplied, 5), 7.14286);
    EXPECT_EQ(requoted(2061.856, divided, 100, multiplied, 4), 0.0485);
}

TEST(Conversion, HasNoRateThatRoundsToNothing) {
    using enum RateMode;
    EXPECT_EQ(requoted(0.004, multiplied, 1, multiplied, 2), std::nullopt);
    EXPECT_EQ(requoted(0, multiplied, 1, divided, 2), std::nullopt);
    EXPECT_EQ(requoted(-1, multiplied, 1, divided, 2), std::nullopt);
    EXPECT_EQ(requoted(1, multiplied, 0, divided, 2), std::nullopt);
}
