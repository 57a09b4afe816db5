#include "currency/rate_rows.h"

#include <gtest/gtest.h>

#include "tests/support/currency_books.h"
#include "tests/support/engine_cases.h"

namespace {

using namespace chengheng;

/// Books with two currencies and their rates of 2026, in a handful of rows.
class RateRows : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override {
        m_books.run(
            "Insert ExchgFix Values(7, 2, '2026/2/1', 2, 7.2, 7.3)\n"
            "Insert ExchgFix Values(9, 2, '2026/1/1', 1, 7.1, 0.0)\n"
            "Insert ExchgFix Values(3, 1, '2026/1/1', 1, 9.0, 9.0)\n"
            "Insert ExchgFix Values(4, 2, '2025/2/1', 2, 6.9, 0.0)\n"
            "Insert ExchgFlt Values(5, 2, '2026/2/10', 2, 7.21, 0.0)\n"
            "Insert ExchgFlt Values(2, 2, '2026/2/9', 2, 7.22, 0.0)\n"
            "Insert ExchgFlt Values(8, 2, '2026/1/31', 1, 7.23, 0.0)\n"
            "Insert ExchgFlt Values(6, 2, '2024/2/29', 2, 6.8, 0.0)\n"
            "Insert ExchgFlt Values(1, 1, '2026/2/9', 2, 9.1, 0.0)");
    }
    CurrencyBooks m_books{freshLocation(GetParam())};
};

TEST_P(RateRows, AreThoseOfTheCurrencyAndTheYearInTheOrderOfTime) {
    EXPECT_EQ(readRates(RateKind::fixed, 2, 2026),
              (std::vector<RateRow>{{9, {2026, 1, 1}, 1, 7.1, 0}, {7, {2026, 2, 1}, 2, 7.2, 7.3}}));
    EXPECT_EQ(readRates(RateKind::floating, 2, 2026),
              (std::vector<RateRow>{{8, {2026, 1, 31}, 1, 7.23, 0},
                                    {2, {2026, 2, 9}, 2, 7.22, 0},
                                    {5, {2026, 2, 10}, 2, 7.21, 0}}));
}

TEST_P(RateRows, CanBeThoseOfOneMonth) {
    EXPECT_EQ(
        readRates(RateKind::floating, 2, 2026, 2),
        (std::vector<RateRow>{{2, {2026, 2, 9}, 2, 7.22, 0}, {5, {2026, 2, 10}, 2, 7.21, 0}}));
    EXPECT_EQ(readRates(RateKind::fixed, 2, 2026, 2),
              (std::vector<RateRow>{{7, {2026, 2, 1}, 2, 7.2, 7.3}}));
}

TEST_P(RateRows, OfAYearOrCurrencyWithoutAnyAreNone) {
    EXPECT_EQ(readRates(RateKind::fixed, 2, 2030), std::vector<RateRow>{});
    EXPECT_EQ(readRates(RateKind::floating, 3, 2026), std::vector<RateRow>{});
    EXPECT_EQ(readRates(RateKind::floating, 2, 2026, 12), std::vector<RateRow>{});
}

TEST_P(RateRows, PutTheOlderOfTwoForOneDayFirst) {
    m_books.run("Insert ExchgFlt Values(90, 2, '2026/2/9', 2, 1.0, 0.0)");
    const auto rows = readRates(RateKind::floating, 2, 2026, 2);
    ASSERT_TRUE(rows.has_value());
    ASSERT_EQ(rows->size(), 3u);
    EXPECT_EQ(rows->at(0).id, 2);
    EXPECT_EQ(rows->at(1).id, 90);
}

TEST_P(RateRows, ThatCannotBeReadAreNotNoRows) {
    ASSERT_NE(m_books.database.DBClose("books"), 0);
    EXPECT_EQ(readRates(RateKind::fixed, 2, 2026), std::nullopt);
    EXPECT_EQ(readRates(RateKind::floating, 2, 2026), std::nullopt);
}

CHENGHENG_ON_ALL_ENGINES(RateRows);

}  // namespace
