#include "opening/sheet/changed_cells.h"

#include <gtest/gtest.h>

#include <map>

#include "tests/support/opening_accounts.h"

using namespace chengheng;

namespace {

using OpeningLayout::midYear;

/// Lines: 1001, 1405, 140501, its currency, its quantity, 140502.
OpeningSheet smallSheet(OpeningLayout layout = OpeningLayout::simple) {
    return sheetOf({{"1001", 5},
                    AccountDraft{"1405"},
                    AccountDraft{"140501"}.foreign(1).countedIn("件"),
                    {"140502", 7}},
                   layout);
}

/// "2/期初余额" for each cell: line and heading.
std::vector<std::string> cellsOf(const OpeningSheet& sheet, const EditStep& step) {
    std::vector<std::string> texts;
    for (const OpeningCell& cell : changedCells(sheet, step))
        texts.push_back(std::to_string(cell.line) + "/" + sheet.columns()[cell.column].header);
    return texts;
}

using Texts = std::vector<std::string>;

}  // namespace

TEST(ChangedCells, AreTheFigureAndTheSumsAboveIt) {
    const OpeningSheet sheet = smallSheet();
    const CellChange lowest{4, Measure::money, &Balance::opening, 7, 8};
    EXPECT_EQ(cellsOf(sheet, {lowest}), (Texts{"1/期初余额", "5/期初余额"}));
    const CellChange top{1, Measure::money, &Balance::opening, 5, 6};
    EXPECT_EQ(cellsOf(sheet, {top}), Texts{"0/期初余额"});
    EXPECT_EQ(cellsOf(sheet, {lowest, top}), (Texts{"0/期初余额", "1/期初余额", "5/期初余额"}));
}

TEST(ChangedCells, OfCurrencyAndQuantityAreRepeatedOnMainLines) {
    const OpeningSheet sheet = smallSheet();
    EXPECT_EQ(cellsOf(sheet, {{3, Measure::foreign, &Balance::opening, 0, 1}}),
              (Texts{"1/外币", "2/外币", "3/期初余额"}));
    EXPECT_EQ(cellsOf(sheet, {{3, Measure::quantity, &Balance::opening, 0, 1}}),
              (Texts{"1/数量", "2/数量", "4/期初余额"}));
}

TEST(ChangedCells, OfAMovementHoldTheOpeningBalanceThatItMayContradict) {
    const OpeningSheet sheet = smallSheet(midYear);
    EXPECT_EQ(cellsOf(sheet, {{4, Measure::money, &Balance::debit, 0, 1}}),
              (Texts{"1/累计借方", "5/累计借方", "5/期初余额"}));
    EXPECT_EQ(cellsOf(sheet, {{3, Measure::foreign, &Balance::credit, 0, 1}}),
              (Texts{"3/累计贷方", "3/期初余额"}));
}

TEST(ChangedCells, OfAccountsThatTheSheetDoesNotHoldAreNone) {
    EXPECT_EQ(cellsOf(smallSheet(), {{99, Measure::money, &Balance::opening, 0, 1}}), Texts{});
}

TEST(ChangedCells, AreAllThatARollUpAltersAndNoOthers) {
    OpeningSheet sheet = smallSheet(midYear);
    sheet.rollUp();
    const auto shownCells = [&sheet] {
        std::map<OpeningCell, std::string> texts;
        for (std::size_t line = 0; line < sheet.lineCount(); ++line)
            for (std::size_t column = 0; column < sheet.columns().size(); ++column)
                texts[{line, column}] = sheet.text(line, column);
        return texts;
    };
    for (const Measure measure : measures)
        for (const BalanceFigure figure : balanceFigures) {
            const auto before = shownCells();
            OpeningAccount& account = sheet.accounts()[2];
            const EditStep step{{account.id, measure, figure, 0, 9}};
            account.balance(measure).*figure = 9;
            sheet.rollUpAround(2);
            auto expected = changedCells(sheet, step);
            const auto marked = sheet.lineOf(2, measure);
            const OpeningCell opening{*marked, placeOf(&Balance::opening, midYear)};
            if (figure != &Balance::opening) std::erase(expected, opening);
            std::vector<OpeningCell> altered;
            for (const auto& [cell, text] : shownCells())
                if (before.at(cell) != text) altered.push_back(cell);
            EXPECT_EQ(altered, expected);
        }
}
