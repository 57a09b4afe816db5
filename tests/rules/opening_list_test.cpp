#include "opening/printing/opening_list.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/opening_accounts.h"

using namespace chengheng;
using testing::ElementsAre;

namespace {

std::string totalOf(const OpeningTotals& totals, OpeningField field, const OpeningSheet& sheet) {
    const auto found = totals.find(static_cast<int>(placeOf(field, sheet.layout())));
    return found == totals.end() ? "none" : found->second;
}

}  // namespace

TEST(OpeningList, LeavesOutAccountsThatHaveNoFigureThemselvesNorBelow) {
    const OpeningSheet sheet = sheetOf({{"1001"},
                                        {"1002", 0},
                                        {"100201", 5},
                                        {"100202"},
                                        {"10020201"},
                                        {"1003"},
                                        {"100301"},
                                        creditOf("2001", -0.01)});
    EXPECT_THAT(linesWithoutFigures(sheet),
                ElementsAre(true, false, false, true, true, true, true, false));
}

TEST(OpeningList, KeepsAParentWhoseChildrenCancelEachOther) {
    OpeningSheet sheet = sheetOf({{"1001"}, {"100101", 5}, {"100102", -5}, {"1002"}});
    sheet.rollUp();
    EXPECT_THAT(linesWithoutFigures(sheet), ElementsAre(false, false, false, true));
}

TEST(OpeningList, KeepsAllLinesOfAnAccountThatHasOnlyQuantities) {
    OpeningSheet sheet = sheetOf({AccountDraft{"1001"}.countedIn("吨"), AccountDraft{"1002"}});
    sheet.accounts()[0].balance(Measure::quantity).opening = 3;
    EXPECT_THAT(linesWithoutFigures(sheet), ElementsAre(false, false, true));
}

TEST(OpeningList, LooksAtMovementsInBooksThatBeginMidYear) {
    for (const auto layout : {OpeningLayout::simple, OpeningLayout::midYear}) {
        OpeningSheet sheet = sheetOf({{"1001"}}, layout);
        sheet.accounts()[0].balance(Measure::money).debit = 7;
        EXPECT_EQ(linesWithoutFigures(sheet).front(), layout == OpeningLayout::simple);
    }
}

TEST(OpeningList, AddsUpTheFirstLevelByDirectionToTheCent) {
    OpeningSheet sheet = sheetOf({{"1001", 0.1},
                                  {"1002"},
                                  {"100201", 0.2},
                                  {"1003", -0.3},
                                  {"1004", 1234.5},
                                  creditOf("2001", 99),
                                  creditOf("2002", 1)},
                                 OpeningLayout::midYear);
    sheet.rollUp();
    sheet.accounts()[0].balance(Measure::money).debit = 8;
    const auto totals = openingTotals(sheet);
    ASSERT_EQ(totals.size(), 2U);
    EXPECT_EQ(totalOf(totals[0], OpeningField::name, sheet), "借方科目合计");
    EXPECT_EQ(totalOf(totals[0], OpeningField::direction, sheet), "借");
    EXPECT_EQ(totalOf(totals[0], OpeningField::opening, sheet), "1,234.50");
    EXPECT_EQ(totalOf(totals[0], OpeningField::debit, sheet), "8.00");
    EXPECT_EQ(totalOf(totals[0], OpeningField::code, sheet), "none");
    EXPECT_EQ(totalOf(totals[1], OpeningField::name, sheet), "贷方科目合计");
    EXPECT_EQ(totalOf(totals[1], OpeningField::direction, sheet), "贷");
    EXPECT_EQ(totalOf(totals[1], OpeningField::opening, sheet), "100.00");
    EXPECT_EQ(totalOf(totals[1], OpeningField::debit, sheet), "0.00");
}
