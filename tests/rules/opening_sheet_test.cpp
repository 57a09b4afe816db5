#include "opening/sheet/opening_sheet.h"

#include <gtest/gtest.h>

#include "opening/sheet/opening_texts.h"
#include "tests/support/opening_accounts.h"

using namespace chengheng;

namespace {

using OpeningLayout::midYear;

std::vector<std::string> headersOf(OpeningLayout layout) {
    std::vector<std::string> headers;
    for (const OpeningColumn& column : openingColumns(layout)) headers.push_back(column.header);
    return headers;
}

std::string shown(const OpeningSheet& sheet, std::size_t line, OpeningField field) {
    return sheet.text(line, placeOf(field, sheet.layout()));
}

double valueOf(const OpeningSheet& sheet, std::size_t line, OpeningField field) {
    return sheet.number(line, placeOf(field, sheet.layout()));
}

}  // namespace

TEST(OpeningColumns, StandInOrderInTheSimpleLayout) {
    EXPECT_EQ(
        headersOf(OpeningLayout::simple),
        (std::vector<std::string>{"科目编码", "科目名称", "借/贷", "币别/计量", "期初余额", "编号",
                                  "类型", "末级", "级次", "类别", "外币", "数量", "辅助"}));
}

TEST(OpeningColumns, PutThreeMoreBeforeTheOpeningBalanceInBooksThatBeginMidYear) {
    EXPECT_EQ(headersOf(midYear),
              (std::vector<std::string>{"科目编码", "科目名称", "借/贷", "币别/计量", "年初余额",
                                        "累计借方", "累计贷方", "期初余额", "编号", "类型", "末级",
                                        "级次", "类别", "外币", "数量", "辅助"}));
}

TEST(OpeningColumns, HideWhatStandsBehindTheOpeningBalance) {
    for (const auto layout : {OpeningLayout::simple, midYear}) {
        const auto columns = openingColumns(layout);
        const std::size_t opening = placeOf(OpeningField::opening, layout);
        EXPECT_EQ(opening, layout == midYear ? 7u : 4u);
        for (std::size_t at = 0; at < columns.size(); ++at)
            EXPECT_EQ(columns[at].isHidden, at > opening) << at;
    }
}

TEST(OpeningColumns, HaveTheirWidths) {
    std::vector<int> widths;
    for (const OpeningColumn& column : openingColumns(OpeningLayout::simple))
        widths.push_back(column.width);
    EXPECT_EQ(widths, (std::vector<int>{20, 30, 8, 18, 30, 10, 10, 10, 10, 10, 10, 10, 10}));
    widths.insert(widths.begin() + 4, {30, 30, 30});
    for (std::size_t at = 0; const OpeningColumn& column : openingColumns(midYear))
        EXPECT_EQ(column.width, widths[at++]) << column.header;
}

TEST(AuxiliaryKinds, AreNamedByTheFirstFittingLetters) {
    const std::pair<const char*, const char*> expected[] = {
        {"BD", "项目往来"}, {"BC", "部门往来"},  {"CD", "部门项目"}, {"A", "个人往来"},
        {"C", "部门核算"},  {"D", "项目核算"},   {"B", "单位往来"},  {"", ""},
        {"RE", ""},         {"BCD", "项目往来"}, {"DB", "项目往来"}, {"AB", "个人往来"},
        {"BR", "单位往来"}, {"ABD", "项目往来"}};
    for (const auto& [letters, text] : expected)
        EXPECT_STREQ(auxiliaryText(auxiliaryKindOf(letters)), text) << letters;
}

TEST(AuxiliaryKinds, ShowPersonAndDepartmentTogetherAsPerson) {
    EXPECT_STREQ(auxiliaryText(auxiliaryKindOf("AC")), "个人往来");
    EXPECT_STREQ(auxiliaryText(auxiliaryKindOf("CA")), "个人往来");
}

TEST(OpeningNames, AreIndentedByABlankForEachLevelBelowTheFirst) {
    EXPECT_EQ(openingName("现金", 1), "现金");
    EXPECT_EQ(openingName("现金", 2), " 现金");
    EXPECT_EQ(openingName("现金", 3), "  现金");
    EXPECT_EQ(openingName("现金", 4), "   现金");
    EXPECT_EQ(openingName("现金", 5), "    现金");
    EXPECT_EQ(openingName("现金", 6), "     现金");
}

TEST(OpeningNames, AreNotIndentedFromTheSeventhLevelOn) {
    EXPECT_EQ(openingName("现金", 7), "现金");
    EXPECT_EQ(openingName("现金", 9), "现金");
    EXPECT_EQ(openingName("现金", 0), "现金");
}

TEST(OpeningSheets, HaveNoNumberWhereTextsStand) {
    const OpeningSheet sheet = sheetOf({AccountDraft{"1001", 5}});
    for (const auto field : {OpeningField::code, OpeningField::name, OpeningField::type})
        EXPECT_EQ(valueOf(sheet, 0, field), 0);
}

TEST(OpeningSheets, GiveALineToEachCurrencyAndQuantity) {
    const OpeningSheet sheet = sheetOf({AccountDraft{"1001", 5}, AccountDraft{"1002"}.foreign(1),
                                        AccountDraft{"1403"}.countedIn("吨"),
                                        AccountDraft{"1405"}.foreign(1).countedIn("件")});
    ASSERT_EQ(sheet.lineCount(), 8u);
    std::vector<std::string> codes;
    std::vector<std::string> units;
    std::vector<int> markers;
    for (std::size_t line = 0; line < sheet.lineCount(); ++line) {
        codes.push_back(shown(sheet, line, OpeningField::code));
        units.push_back(shown(sheet, line, OpeningField::unit));
        markers.push_back(sheet.marker(line));
    }
    EXPECT_EQ(codes, (std::vector<std::string>{"1001", "1002", "", "1403", "", "1405", "", ""}));
    EXPECT_EQ(units, (std::vector<std::string>{"", "本位币", "美元", "本位币", "吨", "本位币",
                                               "美元", "件"}));
    EXPECT_EQ(markers, (std::vector<int>{0, 3, 0, 2, 2, 4, 0, 2}));
    EXPECT_EQ(sheet.lineOf(3, Measure::quantity), 7u);
    EXPECT_EQ(sheet.lineOf(2, Measure::quantity), 4u);
    EXPECT_EQ(sheet.lineOf(2, Measure::foreign), std::nullopt);
}

TEST(OpeningSheets, ShowTheDirectionOnExtraLinesToo) {
    const OpeningSheet sheet = sheetOf({creditOf("2001", 1).foreign(1)});
    EXPECT_EQ(shown(sheet, 0, OpeningField::direction), "贷");
    EXPECT_EQ(shown(sheet, 1, OpeningField::direction), "贷");
}

TEST(OpeningSheets, FormatMoneyWithTwoAndQuantitiesWithFiveDecimals) {
    OpeningSheet sheet = sheetOf({AccountDraft{"1405", -1234567.5}.foreign(1).countedIn("件")});
    sheet.accounts()[0].balance(Measure::foreign).opening = 1000;
    sheet.accounts()[0].balance(Measure::quantity).opening = 12.5;
    EXPECT_EQ(shown(sheet, 0, OpeningField::opening), "-1,234,567.50");
    EXPECT_EQ(shown(sheet, 1, OpeningField::opening), "1,000.00");
    EXPECT_EQ(shown(sheet, 2, OpeningField::opening), "12.50000");
    EXPECT_EQ(valueOf(sheet, 0, OpeningField::foreign), 1000);
    EXPECT_EQ(valueOf(sheet, 0, OpeningField::quantity), 12.5);
}

TEST(OpeningSheets, KeepTheHiddenCellsOfAnAccountOnItsMainLine) {
    OpeningSheet sheet = sheetOf({AccountDraft{"1405"}.foreign(1).countedIn("件")});
    sheet.accounts()[0].balance(Measure::foreign).opening = 1000;
    sheet.accounts()[0].balance(Measure::quantity).opening = 12.5;
    EXPECT_EQ(shown(sheet, 0, OpeningField::type), "资产");
    for (const std::size_t line : {1u, 2u}) {
        EXPECT_EQ(shown(sheet, line, OpeningField::type), "");
        EXPECT_EQ(valueOf(sheet, line, OpeningField::foreign), 0);
        EXPECT_EQ(valueOf(sheet, line, OpeningField::quantity), 0);
    }
}

TEST(OpeningSheets, MarkEndAccountsByOneOnTheirMainLineOnly) {
    const OpeningSheet sheet = sheetOf({{"1002"}, AccountDraft{"100201"}.foreign(1)});
    EXPECT_EQ(valueOf(sheet, 0, OpeningField::isEnd), 0.0);
    EXPECT_EQ(valueOf(sheet, 1, OpeningField::isEnd), 1.0);
    EXPECT_EQ(valueOf(sheet, 2, OpeningField::isEnd), 0.0);
}

TEST(OpeningSheets, TellParentsEndAccountsAndAuxiliaryAccountsApart) {
    const OpeningSheet sheet =
        sheetOf({AccountDraft{"1122"}.keptBy("B"), AccountDraft{"112201"}.keptBy("B"),
                 AccountDraft{"112202"}.keptBy("RE")});
    EXPECT_EQ(sheet.role(0), LineRole::parent);
    EXPECT_EQ(sheet.role(1), LineRole::auxiliary);
    EXPECT_EQ(sheet.role(2), LineRole::endAccount);
    EXPECT_EQ(shown(sheet, 0, OpeningField::auxiliary), "");
    EXPECT_EQ(shown(sheet, 1, OpeningField::auxiliary), "单位往来");
}

TEST(OpeningSheets, LetOnlyFiguresOfPlainEndAccountsBeTyped) {
    OpeningSheet sheet = sheetOf({{"1001"},
                                  AccountDraft{"1122"}.keptBy("B"),
                                  AccountDraft{"1403"}.countedIn("吨"),
                                  {"1405"},
                                  {"140501"}},
                                 midYear);
    const std::size_t opening = placeOf(OpeningField::opening, midYear);
    std::vector<bool> editable;
    for (std::size_t line = 0; line < sheet.lineCount(); ++line)
        editable.push_back(sheet.isEditable(line, opening));
    EXPECT_EQ(editable, (std::vector<bool>{true, false, true, true, false, true}));
    EXPECT_TRUE(sheet.isEditable(0, placeOf(OpeningField::yearStart, midYear)));
    EXPECT_FALSE(sheet.isEditable(0, placeOf(OpeningField::name, midYear)));
    sheet.setBrowsing(true);
    EXPECT_FALSE(sheet.isEditable(0, opening));
}

TEST(OpeningSheets, OpenAuxiliaryWindowsFromTheOpeningBalanceAlone) {
    const OpeningSheet sheet = sheetOf({{"1001"}, AccountDraft{"1122"}.keptBy("B").foreign(1)});
    const std::size_t opening = placeOf(OpeningField::opening, sheet.layout());
    EXPECT_FALSE(sheet.opensAuxiliary(0, opening));
    EXPECT_TRUE(sheet.opensAuxiliary(1, opening));
    EXPECT_FALSE(sheet.opensAuxiliary(2, opening));
    EXPECT_FALSE(sheet.opensAuxiliary(1, opening - 1));
}

TEST(OpeningSheets, MoveOnToTheNextEndAccountInEitherDirection) {
    const OpeningSheet sheet =
        sheetOf({{"1001"}, {"1002"}, {"100201"}, AccountDraft{"1122"}.keptBy("B"), {"1403"}});
    EXPECT_EQ(sheet.nextEditable(0, 1), 2u);
    EXPECT_EQ(sheet.nextEditable(2, 1), 4u);
    EXPECT_EQ(sheet.nextEditable(4, 1), std::nullopt);
    EXPECT_EQ(sheet.nextEditable(4, -1), 2u);
    EXPECT_EQ(sheet.nextEditable(0, -1), std::nullopt);
}

TEST(OpeningSheets, FindByTheBeginningOfACodeOrAPartOfAName) {
    const OpeningSheet sheet = sheetOf({{"1001"}, {"1002"}, {"2001"}});
    EXPECT_EQ(sheet.find("10", std::nullopt), 0u);
    EXPECT_EQ(sheet.find("10", 0), 1u);
    EXPECT_EQ(sheet.find("10", 1), 0u);
    EXPECT_EQ(sheet.find("目2001", std::nullopt), 2u);
    EXPECT_EQ(sheet.find("3", std::nullopt), std::nullopt);
    EXPECT_EQ(sheet.find("", 1), std::nullopt);
}

TEST(OpeningSheets, FindBackwardsAndRoundTheEnd) {
    const OpeningSheet sheet = sheetOf({{"1001"}, {"1002"}, {"2001"}});
    EXPECT_EQ(sheet.findBefore("10", 1), 0u);
    EXPECT_EQ(sheet.findBefore("10", 0), 1u);
    EXPECT_EQ(sheet.findBefore("10", 2), 1u);
    EXPECT_EQ(sheet.findBefore("2001", 2), 2u) << "itself, when there is no other";
    EXPECT_EQ(sheet.findBefore("3", 0), std::nullopt);
    EXPECT_EQ(sheet.findBefore("", 1), std::nullopt);
}

TEST(OpeningSheets, FindAccountsByIdAndCode) {
    const OpeningSheet sheet = sheetOf({{"2001"}, {"1001"}});
    EXPECT_EQ(sheet.placeOfId(1), 1u);
    EXPECT_EQ(sheet.placeOfId(2), 0u);
    EXPECT_EQ(sheet.placeOfId(3), std::nullopt);
    EXPECT_EQ(sheet.placeOfCode("2001"), 1u);
    EXPECT_EQ(sheet.placeOfCode("20"), std::nullopt);
}

TEST(OpeningSheets, KeepForeignAndQuantityCellsOfParentsZeroUntilRolledUp) {
    std::vector<OpeningAccount> accounts =
        accountsOf({AccountDraft{"1002"}.foreign(1), AccountDraft{"100201"}.foreign(1)});
    accounts[0].balance(Measure::foreign).opening = 70;
    accounts[1].balance(Measure::foreign).opening = 80;
    OpeningSheet sheet(OpeningLayout::simple, std::move(accounts), {});
    EXPECT_EQ(valueOf(sheet, 0, OpeningField::foreign), 0);
    sheet.rollUp();
    EXPECT_EQ(valueOf(sheet, 0, OpeningField::foreign), 80);
    EXPECT_EQ(shown(sheet, 1, OpeningField::opening), "80.00");
}

TEST(MidYearSheets, MarkLinesWhoseFourFiguresDisagree) {
    OpeningSheet sheet = sheetOf({{"1001"}, creditOf("2001", 0)}, midYear);
    const Balance moved{100, 30, 10, 0};
    sheet.accounts()[0].balance(Measure::money) = moved;
    sheet.accounts()[1].balance(Measure::money) = moved;
    EXPECT_TRUE(sheet.disagrees(0));
    sheet.accounts()[0].balance(Measure::money).opening = 120;
    sheet.accounts()[1].balance(Measure::money).opening = 80;
    EXPECT_FALSE(sheet.disagrees(0));
    EXPECT_FALSE(sheet.disagrees(1));
}

TEST(MidYearSheets, ReckonTheOpeningBalanceByTheDirection) {
    EXPECT_EQ(openingByMovements({0.3, 0.2, 0.1, 0}, true, Measure::money), 0.4);
    EXPECT_EQ(openingByMovements({0.3, 0.2, 0.1, 0}, false, Measure::money), 0.2);
    EXPECT_EQ(openingByMovements({1, 0.00001, 0.00002, 0}, true, Measure::quantity), 0.99999);
}

TEST(OpeningTexts, AreThoseOfTheWindow) {
    EXPECT_STREQ(opening_texts::title, "期初余额录入");
    EXPECT_STREQ(opening_texts::browsing, "浏览,只读");
    EXPECT_STREQ(opening_texts::parentLegend, "非末级科目");
    EXPECT_STREQ(opening_texts::endLegend, "末级科目");
    EXPECT_STREQ(opening_texts::auxiliaryLegend, "辅助科目");
}
