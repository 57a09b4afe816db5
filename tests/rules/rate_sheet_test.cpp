#include "currency/rate_sheet.h"

#include <gtest/gtest.h>

namespace {

using namespace chengheng;

using enum RateSheetColumn;

RateSheet monthsOf2026() {
    RateSheet sheet;
    sheet.setDecimals(5);
    sheet.show(RateKind::fixed, 2026, 5,
               {{11, {2026, 1, 1}, 1, 7.123456, 0},
                {13, {2026, 3, 1}, 3, 1234.5, 0.001},
                {14, {2025, 4, 1}, 4, 6, 6}});
    return sheet;
}

TEST(RateSheet, HasARowForEachMonthWhetherItIsStoredOrNot) {
    const RateSheet sheet = monthsOf2026();
    ASSERT_EQ(sheet.rowCount(), 12);
    EXPECT_EQ(sheet.text({0, time}), "2026.01");
    EXPECT_EQ(sheet.text({11, time}), "2026.12");
    EXPECT_EQ(sheet.text({0, rate}), "7.12346");
    EXPECT_EQ(sheet.text({0, adjustRate}), "") << "zero is empty";
    EXPECT_EQ(sheet.text({1, rate}), "") << "not stored";
    EXPECT_EQ(sheet.text({2, rate}), "1,234.50000") << "by its month, not by its place";
    EXPECT_EQ(sheet.text({2, adjustRate}), "0.00100");
    EXPECT_EQ(sheet.text({3, rate}), "") << "another year's";
    EXPECT_EQ(sheet.idIn(2), 13);
    EXPECT_EQ(sheet.text({2, id}), "13");
    EXPECT_EQ(sheet.idIn(3), 0);
}

TEST(RateSheet, HasARowForEachDayOfAMonth) {
    RateSheet sheet;
    sheet.show(
        RateKind::floating, 2028, 2,
        {{5, {2028, 2, 1}, 2, 7.1, 0}, {7, {2028, 2, 29}, 2, 7.2, 3}, {8, {2028, 3, 1}, 3, 9, 0}});
    ASSERT_EQ(sheet.rowCount(), 29);
    EXPECT_EQ(sheet.text({0, time}), "2028.02.01");
    EXPECT_EQ(sheet.text({28, time}), "2028.02.29");
    EXPECT_EQ(sheet.text({0, rate}), "7.10");
    EXPECT_EQ(sheet.idIn(28), 7);
    EXPECT_EQ(sheet.text({28, adjustRate}), "3.00");
    EXPECT_EQ(sheet.idIn(1), 0);
}

TEST(RateSheet, TakesTheFirstOfTwoRatesForOneTime) {
    RateSheet sheet;
    sheet.show(
        RateKind::fixed, 2026, 1,
        {{4, {2026, 1, 1}, 1, 7, 0}, {9, {2026, 1, 1}, 1, 8, 0}, {5, {2026, 2, 1}, 2, 9, 0}});
    EXPECT_EQ(sheet.idIn(0), 4);
    EXPECT_EQ(sheet.idIn(1), 5);
}

TEST(RateSheet, ShowsTheDecimalsOfItsCurrencyAndKeepsWhatIsStored) {
    RateSheet sheet = monthsOf2026();
    sheet.setDecimals(2);
    EXPECT_EQ(sheet.text({0, rate}), "7.12");
    EXPECT_EQ(sheet.text({2, adjustRate}), "") << "rounded it is zero";
    EXPECT_EQ(sheet.line(0).rate, 7.123456);
    sheet.setDecimals(9);
    EXPECT_EQ(sheet.text({0, rate}), "7.123456000");
}

TEST(RateSheet, LetsStoredRatesBeTypedOver) {
    const RateSheet months = monthsOf2026();
    EXPECT_TRUE(months.isEditable({0, rate}));
    EXPECT_TRUE(months.isEditable({0, adjustRate}));
    EXPECT_FALSE(months.isEditable({0, time}));
    EXPECT_FALSE(months.isEditable({0, id}));
    EXPECT_FALSE(months.isEditable({1, rate})) << "no row is stored";
    EXPECT_FALSE(months.isEditable({12, rate}));
    EXPECT_FALSE(months.isEditable({-1, rate}));
}

TEST(RateSheet, LetsOnlyTheBookkeepingRateOfADayBeTypedOver) {
    RateSheet days;
    days.show(RateKind::floating, 2026, 2, {{5, {2026, 2, 1}, 2, 7.1, 0}});
    EXPECT_TRUE(days.isEditable({0, rate}));
    EXPECT_FALSE(days.isEditable({0, adjustRate}));
}

TEST(RateSheet, IsOneRowWithNothingInItWhileACurrencyIsAdded) {
    RateSheet sheet = monthsOf2026();
    sheet.empty(RateKind::fixed);
    ASSERT_EQ(sheet.rowCount(), 1);
    for (const RateSheetColumn column : {time, rate, adjustRate, id})
        EXPECT_EQ(sheet.text({0, column}), "");
    EXPECT_FALSE(sheet.isEditable({0, rate}));
    EXPECT_EQ(sheet.rowOf(11), std::nullopt);
}

TEST(RateSheet, GivesAnEditorTheRateAsOneTypesItAndNothingForZero) {
    const RateSheet sheet = monthsOf2026();
    EXPECT_EQ(sheet.textToEdit({2, rate}), "1234.50000");
    EXPECT_EQ(sheet.textToEdit({0, rate}), "7.12346");
    EXPECT_EQ(sheet.textToEdit({0, adjustRate}), "");
}

TEST(RateSheet, ShowsWhatWasWritten) {
    RateSheet sheet = monthsOf2026();
    sheet.put(2, {.rate = 1234.5, .adjustRate = 8.5});
    EXPECT_EQ(sheet.text({2, adjustRate}), "8.50000");
    EXPECT_EQ(sheet.text({2, rate}), "1,234.50000");
    sheet.put(2, {.rate = 0, .adjustRate = 8.5});
    EXPECT_EQ(sheet.text({2, rate}), "");
    EXPECT_EQ(sheet.text({2, RateSheetColumn::time}), "2026.03");
    EXPECT_EQ(sheet.rowOf(13), 2);
}

TEST(RateSheet, FindsTheRowOfAStoredRate) {
    const RateSheet sheet = monthsOf2026();
    EXPECT_EQ(sheet.rowOf(13), 2);
    EXPECT_EQ(sheet.rowOf(14), std::nullopt);
    EXPECT_EQ(sheet.rowOf(0), std::nullopt) << "rows without a rate have no id to be found by";
}

TEST(RateTyping, TakesDigitsAndOnePoint) {
    for (const char* text : {"", "7", "7.", ".", ".5", "7.25", "000"})
        EXPECT_TRUE(isRateBeingTyped(text)) << text;
    for (const char* text : {"-", "7-", "a", "7,1", "1.2.3", " 7", "7e1", "７"})
        EXPECT_FALSE(isRateBeingTyped(text)) << text;
}

TEST(RateTyping, TakesWideLettersForNarrowOnesAndLeavesBlanksOut) {
    EXPECT_EQ(rateTyping("７。2５"), "7.25");
    EXPECT_EQ(rateTyping(" 7.25\n"), "7.25");
    EXPECT_EQ(rateTyping("７．５"), "7.5");
    EXPECT_EQ(rateTyping("七"), "七");
    EXPECT_EQ(rateTyping(""), "");
}

TEST(RateTyping, IsRoundedToTheDecimalsOfTheCurrency) {
    EXPECT_EQ(typedRate("7.123456", 5), 7.12346);
    EXPECT_EQ(typedRate("2.675", 2), 2.68);
    EXPECT_EQ(typedRate(".5", 2), 0.5);
    EXPECT_EQ(typedRate("7.", 2), 7.0);
    EXPECT_EQ(typedRate("0.001", 2), 0.0);
    EXPECT_EQ(typedRate("", 2), 0.0) << "nothing typed takes the rate away";
    for (const char* text : {".", "-1", "1,5", "x"}) EXPECT_EQ(typedRate(text, 2), std::nullopt);
    EXPECT_EQ(typedRate(std::string(400, '9'), 2), std::nullopt) << "no double holds it";
}

TEST(RateEnter, GoesDownToTheTwelfthRowAndThenToTheFirstAdjustmentRate) {
    for (const int rows : {12, 28, 31}) {
        RateCell cell{0, rate};
        for (int row = 1; row < 12; ++row) {
            cell = cellAfterEnter(cell, rows);
            EXPECT_EQ(cell, (RateCell{row, rate}));
        }
        cell = cellAfterEnter(cell, rows);
        EXPECT_EQ(cell, (RateCell{0, adjustRate})) << rows;
        for (int row = 1; row < 12; ++row) {
            cell = cellAfterEnter(cell, rows);
            EXPECT_EQ(cell, (RateCell{row, adjustRate}));
        }
        EXPECT_EQ(cellAfterEnter(cell, rows), cell) << "the last one stays";
    }
}

TEST(RateEnter, StaysBelowTheTwelfthRowAndInTheTwelfthTitle) {
    for (int row = 12; row < 31; ++row) {
        EXPECT_EQ(cellAfterEnter({row, rate}, 31), (RateCell{row, rate}));
        EXPECT_EQ(cellAfterEnter({row, adjustRate}, 31), (RateCell{row, adjustRate}));
    }
    EXPECT_EQ(cellAfterEnter({11, time}, 31), (RateCell{11, time}));
    EXPECT_EQ(cellAfterEnter({3, time}, 12), (RateCell{4, time}));
    EXPECT_EQ(cellAfterEnter({0, rate}, 1), (RateCell{0, rate})) << "the only row";
}

}  // namespace
