#include "opening/editing/figure_plan.h"

#include <gtest/gtest.h>

#include "opening/editing/opening_transfer.h"
#include "sheets/delimited/delimited_text.h"
#include "tests/support/opening_accounts.h"

using namespace chengheng;
using Texts = std::vector<std::string>;

namespace {

using OpeningLayout::midYear;

Sheet blockOf(std::string_view text) {
    Sheet block;
    EXPECT_FALSE(readClipboardBlock(text, block));
    return block;
}

/// "0,0 1001 changed 5" for each cell, with the reason where there is one.
Texts fatesOf(const FigurePlan& plan) {
    constexpr const char* words[] = {"changed", "unchanged", "ignored", "refused"};
    Texts texts;
    for (const PlannedCell& cell : plan.cells) {
        std::string text = std::to_string(cell.row) + "," + std::to_string(cell.column) + " " +
                           cell.code + " " + words[static_cast<int>(cell.fate)];
        if (cell.fate == CellFate::changed) text += " " + cellText(Cell::of(cell.figure.value));
        if (!cell.reason.empty()) text += " " + cell.reason;
        texts.push_back(text);
    }
    return texts;
}

/// Lines: 1001, 1002, 100201, its currency, 1122 (auxiliary), 1403, its quantity.
OpeningSheet pasteSheet(OpeningLayout layout = OpeningLayout::simple) {
    return sheetOf({{"1001", 5},
                    {"1002"},
                    AccountDraft{"100201"}.foreign(1),
                    AccountDraft{"1122", 70}.keptBy("B"),
                    AccountDraft{"1403"}.countedIn("吨")},
                   layout);
}

FigurePlan pasted(const OpeningSheet& sheet, std::size_t line, std::string_view text) {
    return planPaste(sheet, line, placeOf(OpeningField::opening, sheet.layout()), blockOf(text));
}

FigurePlan imported(const OpeningSheet& sheet, std::string_view csv) {
    Sheet file;
    EXPECT_FALSE(readCsv(csv, file));
    FigurePlan plan;
    EXPECT_FALSE(planOpeningImport(sheet, file, plan));
    return plan;
}

}  // namespace

TEST(Pastes, GoDownTheLinesAndPassOverSums) {
    const FigurePlan plan = pasted(pasteSheet(), 0, "5.00\n999\n1,200.505\n7\n70\n\n1.234567\n");
    EXPECT_EQ(fatesOf(plan), (Texts{"0,0 1001 unchanged", "1,0 1002 ignored 上级科目由下级科目汇总",
                                    "2,0 100201 changed 1200.51", "3,0 100201 changed 7",
                                    "4,0 1122 unchanged", "6,0 1403 changed 1.23457"}));
    EXPECT_TRUE(plan.mayBeApplied());
    EXPECT_EQ(plan.count(CellFate::changed), 3u);
    EXPECT_EQ(plan.figures()[2].measure, Measure::foreign);
}

TEST(Pastes, AreRefusedAsAWholeForOneCellThatIsNoNumber) {
    const FigurePlan plan = pasted(pasteSheet(), 0, "6\n\nabc\n");
    EXPECT_EQ(fatesOf(plan), (Texts{"0,0 1001 changed 6", "2,0 100201 refused 不是数字"}));
    EXPECT_FALSE(plan.mayBeApplied());
}

TEST(Pastes, AreRefusedForACommaThatPartsNoGroup) {
    const FigurePlan plan = pasted(pasteSheet(), 2, "1,5\n１２，３４\n");
    const std::string reason = "不是数字:小数点应为“.”,不能用“,”";
    EXPECT_EQ(fatesOf(plan),
              (Texts{"0,0 100201 refused " + reason, "1,0 100201 refused " + reason}));
    EXPECT_EQ(plannedCellText(plan.cells[0]), "第 1 行 A 列:100201 " + reason + "(“1,5”)");
    EXPECT_EQ(fatesOf(pasted(pasteSheet(), 0, "1,23,456")), Texts{"0,0 1001 refused 不是数字"});
    EXPECT_EQ(fatesOf(pasted(pasteSheet(), 0, "1,234")), Texts{"0,0 1001 changed 1234"});
}

TEST(Pastes, AreRefusedWhereNothingMayBeTyped) {
    EXPECT_EQ(fatesOf(pasted(pasteSheet(), 4, "71")),
              Texts{"0,0 1122 refused 辅助科目的期初余额请在辅助期初中录入"});
    EXPECT_EQ(fatesOf(pasted(pasteSheet(), 6, "1\n2")),
              (Texts{"0,0 1403 changed 1", "1,0  refused 超出了表格的最后一行"}));
    EXPECT_EQ(fatesOf(pasted(pasteSheet(), 0, "1\t2")),
              (Texts{"0,0 1001 changed 1", "0,1  refused 这一列不能录入"}));
}

TEST(Pastes, AreRefusedFromTenTrillionOnEitherSideOfZero) {
    const Texts refused{"0,0 1001 refused 数值太大,最大为9,999,999,999,999.99"};
    for (const char* text : {"1e14", "10,000,000,000,000", "-1e14", "-10,000,000,000,000"})
        EXPECT_EQ(fatesOf(pasted(pasteSheet(), 0, text)), refused) << text;
    for (const char* text : {"9,999,999,999,999.99", "-9,999,999,999,999.99"})
        EXPECT_TRUE(pasted(pasteSheet(), 0, text).mayBeApplied()) << text;
}

TEST(Pastes, AreRefusedWhileBrowsing) {
    OpeningSheet sheet = pasteSheet();
    sheet.setBrowsing(true);
    EXPECT_EQ(fatesOf(pasted(sheet, 0, "1")), Texts{"0,0 1001 refused 期初余额只能浏览"});
}

TEST(Pastes, WithoutAChangeAreNotApplied) {
    EXPECT_FALSE(pasted(pasteSheet(), 0, "5").mayBeApplied());
    EXPECT_FALSE(pasted(pasteSheet(), 0, "\n\n").mayBeApplied());
}

TEST(Pastes, FillFourColumnsInBooksThatBeginMidYear) {
    const OpeningSheet sheet = pasteSheet(midYear);
    const FigurePlan plan =
        planPaste(sheet, 2, placeOf(OpeningField::yearStart, midYear), blockOf("1\t2\t3\t4"));
    ASSERT_EQ(plan.figures().size(), 4u);
    const EditStep step = typedStep(sheet, plan.figures());
    ASSERT_EQ(step.size(), 4u);
    EXPECT_EQ(step.back().after, 4);
}

TEST(TypedFigures, FillTheOpeningOnceForAllMovementsOfALine) {
    const OpeningSheet sheet = pasteSheet(midYear);
    const FigurePlan plan =
        planPaste(sheet, 2, placeOf(OpeningField::yearStart, midYear), blockOf("10\t2\t3"));
    const EditStep step = typedStep(sheet, plan.figures());
    const EditStep expected{{3, Measure::money, &Balance::yearStart, 0, 10},
                            {3, Measure::money, &Balance::debit, 0, 2},
                            {3, Measure::money, &Balance::credit, 0, 3},
                            {3, Measure::money, &Balance::opening, 0, 9, true}};
    EXPECT_EQ(step, expected);
}

TEST(TypedFigures, StandForAnAccountThatIsGoneAsIfItHadHadNone) {
    const std::vector<TypedFigure> typed{{99, Measure::money, &Balance::opening, 5}};
    const EditStep expected{{99, Measure::money, &Balance::opening, 0, 5}};
    EXPECT_EQ(typedStep(pasteSheet(), typed), expected);
}

TEST(Pastes, KeepAnOpeningThatIsGivenAsItIsThoughItsMovementsChange) {
    OpeningSheet sheet = pasteSheet(midYear);
    const std::size_t yearStart = placeOf(OpeningField::yearStart, midYear);
    sheet.accounts()[2].balance(Measure::money) = {100, 0, 0, 100};
    const FigurePlan plan = planPaste(sheet, 2, yearStart, blockOf("100\t50\t0\t100"));
    EXPECT_EQ(fatesOf(plan), (Texts{"0,0 100201 unchanged", "0,1 100201 changed 50",
                                    "0,2 100201 unchanged", "0,3 100201 unchanged"}));
    const EditStep expected{{3, Measure::money, &Balance::yearStart, 100, 100},
                            {3, Measure::money, &Balance::debit, 0, 50},
                            {3, Measure::money, &Balance::credit, 0, 0},
                            {3, Measure::money, &Balance::opening, 100, 100}};
    EXPECT_EQ(typedStep(sheet, plan.figures()), expected);
    const FigurePlan follows = planPaste(sheet, 2, yearStart, blockOf("100\t50"));
    EXPECT_EQ(typedStep(sheet, follows.figures()).back().after, 150);
}

TEST(Pastes, ThatContradictThemselvesSaySo) {
    const OpeningSheet sheet = pasteSheet(midYear);
    const std::size_t yearStart = placeOf(OpeningField::yearStart, midYear);
    FigurePlan plan = planPaste(sheet, 2, yearStart, blockOf("100\t50\t0\t149"));
    markDisagreeing(plan, sheet);
    for (const PlannedCell& cell : plan.cells)
        EXPECT_EQ(cell.disagrees, cell.fate == CellFate::changed) << cell.column;
    EXPECT_EQ(plannedCellText(plan.cells[0]),
              "第 1 行 A 列:100201 0.00 → 100.00(期初余额与年初余额和累计发生额不符)");
    for (const char* sound : {"100\t50\t0\t150", "100\t50", "\t\t\t7"}) {
        plan = planPaste(sheet, 2, yearStart, blockOf(sound));
        markDisagreeing(plan, sheet);
        EXPECT_TRUE(std::ranges::none_of(plan.cells, &PlannedCell::disagrees)) << sound;
    }
}

TEST(TypedFigures, AreKnownToTheJournalAsLongAsTheyAreInTheBooks) {
    EditJournal journal;
    journal.add({{3, Measure::money, &Balance::debit, 0, 5},
                 {3, Measure::money, &Balance::opening, 0, 5, true}});
    EXPECT_TRUE(journal.isTyped(3, Measure::money, &Balance::debit));
    EXPECT_FALSE(journal.isTyped(3, Measure::foreign, &Balance::debit));
    EXPECT_FALSE(journal.isTyped(3, Measure::money, &Balance::opening));
    EXPECT_TRUE(journal.isWorkedOut(3, Measure::money, &Balance::opening));
    journal.undone();
    EXPECT_FALSE(journal.isTyped(3, Measure::money, &Balance::debit));
    EXPECT_FALSE(journal.isWorkedOut(3, Measure::money, &Balance::opening));
    journal.redone();
    journal.add({{3, Measure::money, &Balance::opening, 5, 6}});
    EXPECT_FALSE(journal.isWorkedOut(3, Measure::money, &Balance::opening));
    journal.forgetUndo();
    EXPECT_TRUE(journal.isWorkedOut(3, Measure::money, &Balance::opening));
}

TEST(Pastes, OfOpeningsAsTheyAreMakeNoStepWhereNothingMayBeTyped) {
    const OpeningSheet sheet = pasteSheet(midYear);
    const FigurePlan plan =
        planPaste(sheet, 4, placeOf(OpeningField::yearStart, midYear), blockOf("0\t0\t0\t70\n1"));
    EXPECT_EQ(plan.count(CellFate::refused), 0u);
    const EditStep step = typedStep(sheet, plan.figures());
    ASSERT_EQ(step.size(), 2u);
    for (const CellChange& change : step) EXPECT_EQ(change.accountId, 5);
}

TEST(TypedFigures, ThatStandThereAlreadyAreKeptForTheWritingToCompare) {
    const OpeningSheet sheet = pasteSheet();
    const TypedFigure same{1, Measure::money, &Balance::opening, 5};
    const EditStep step = typedStep(sheet, std::span(&same, 1));
    EXPECT_EQ(step, (EditStep{{1, Measure::money, &Balance::opening, 5, 5}}));
    EXPECT_TRUE(step.front().changesNothing());
}

TEST(TypedFigures, ThatMoveNothingLeaveTheOpeningAsItIs) {
    OpeningSheet sheet = pasteSheet(midYear);
    sheet.accounts()[2].balance(Measure::money) = {100, 0, 0, 77};
    const TypedFigure same{3, Measure::money, &Balance::yearStart, 100};
    EXPECT_EQ(typedStep(sheet, std::span(&same, 1)),
              (EditStep{{3, Measure::money, &Balance::yearStart, 100, 100}}));
}

TEST(TypedFigures, ThatMoveNothingLetNothingBeWorkedOut) {
    OpeningSheet sheet = pasteSheet(midYear);
    sheet.accounts()[2].balance(Measure::money) = {0, 0, 0, 77};
    const TypedFigure same{3, Measure::money, &Balance::debit, 0};
    EXPECT_EQ(typedStep(sheet, std::span(&same, 1)),
              (EditStep{{3, Measure::money, &Balance::debit, 0, 0}}));
}

TEST(OpeningExports, HaveARowForEachAccountWithItsFigures) {
    OpeningSheet sheet = pasteSheet();
    sheet.accounts()[2].balance(Measure::foreign).opening = 1.5;
    sheet.accounts()[2].balance(Measure::money).opening = 10.5;
    sheet.rollUp();
    std::string text;
    ASSERT_FALSE(csvText(exportedOpenings(sheet), text));
    EXPECT_EQ(text,
              "\xEF\xBB\xBF"
              "科目编码,科目名称,借/贷,外币币别,计量单位,期初余额,外币期初余额,数量期初余额\r\n"
              "1001,科目1001,借,,,5.00,,\r\n"
              "1002,科目1002,借,,,10.50,,\r\n"
              "100201,\" 科目100201\",借,美元,,10.50,1.50,\r\n"
              "1122,科目1122,借,,,70.00,,\r\n"
              "1403,科目1403,借,,吨,0.00,,0.00000\r\n");
}

TEST(OpeningExports, HaveFourColumnsOfEachMeasureInBooksThatBeginMidYear) {
    const Sheet file = exportedOpenings(pasteSheet(midYear));
    Texts headings;
    for (const Cell& cell : file.rows.front()) headings.push_back(cellText(cell));
    EXPECT_EQ(Texts(headings.begin() + 5, headings.end()),
              (Texts{"年初余额", "累计借方", "累计贷方", "期初余额", "外币年初余额", "外币累计借方",
                     "外币累计贷方", "外币期初余额", "数量年初余额", "数量累计借方", "数量累计贷方",
                     "数量期初余额"}));
}

TEST(OpeningExports, AreATitledSheetWithHeadings) {
    const Sheet file = exportedOpenings(pasteSheet());
    EXPECT_EQ(file.name, "期初余额录入");
    EXPECT_TRUE(file.hasHeader);
}

TEST(OpeningExports, ReadBackUnchanged) {
    for (const auto layout : {OpeningLayout::simple, midYear}) {
        OpeningSheet sheet = pasteSheet(layout);
        int cents = 1;
        for (OpeningAccount& account : sheet.accounts())
            for (const Measure measure : measures)
                for (const BalanceFigure figure : sheet.figures())
                    if (account.keeps(measure))
                        account.balance(measure).*figure = (cents += 111) / 100.0;
        sheet.rollUp();
        std::string text;
        ASSERT_FALSE(csvText(exportedOpenings(sheet), text));
        const FigurePlan plan = imported(sheet, text);
        EXPECT_EQ(plan.count(CellFate::changed), 0u);
        EXPECT_EQ(plan.count(CellFate::refused), 0u);
        EXPECT_GT(plan.count(CellFate::unchanged), 0u);
    }
}

TEST(OpeningImports, FindAccountsByCodeAndColumnsByHeading) {
    const FigurePlan plan = imported(pasteSheet(),
                                     "某公司期初,,\n"
                                     "备注,期初余额,科目编码,外币期初余额\n"
                                     "a,\"1,000.00\",100201,50\n"
                                     "b,,1122,\n"
                                     "c,8,1001,\n");
    EXPECT_EQ(fatesOf(plan),
              (Texts{"2,1 100201 changed 1000", "2,3 100201 changed 50", "4,1 1001 changed 8"}));
}

TEST(OpeningImports, RefuseACommaThatPartsNoGroup) {
    const FigurePlan plan = imported(pasteSheet(),
                                     "科目编码;期初余额;外币期初余额\n"
                                     "1001;0,01;\n"
                                     "100201;1.234,56;12,34,567\n"
                                     "1403;1,234;\n");
    EXPECT_EQ(fatesOf(plan), (Texts{"1,1 1001 refused 不是数字:小数点应为“.”,不能用“,”",
                                    "2,1 100201 refused 不是数字:小数点应为“.”,不能用“,”",
                                    "2,2 100201 refused 不是数字", "3,1 1403 changed 1234"}));
}

TEST(OpeningImports, NameRowAndColumnOfWhatTheyRefuse) {
    const FigurePlan plan = imported(pasteSheet(),
                                     "科目编码,借/贷,外币币别,计量单位,期初余额,外币期初余额\n"
                                     "9999,,,,1,\n"
                                     ",,,,1,\n"
                                     "1001,贷,,,1,\n"
                                     "100201,借,欧元,,1,\n"
                                     "1403,,,件,1,\n"
                                     "1001,借,,,6,7\n"
                                     "1403,借,,吨,x,\n"
                                     "1403,借,,吨,1,\n");
    EXPECT_EQ(
        fatesOf(plan),
        (Texts{"1,0 9999 refused 没有这个科目", "2,0  refused 没有科目编码",
               "3,1 1001 refused 余额方向与科目不符", "4,2 100201 refused 币别与科目不符",
               "5,3 1403 refused 计量单位与科目不符", "6,0 1001 refused 科目在第 4 行已经出现",
               "7,0 1403 refused 科目在第 6 行已经出现",
               "8,0 1403 refused 科目在第 6 行已经出现"}));
}

TEST(OpeningImports, PassOverTitlesAboveTheHeadings) {
    const FigurePlan plan =
        imported(pasteSheet(), "某公司,期初余额\n科目编码,制表\n\n科目编码,期初余额\n1001,7\n");
    EXPECT_EQ(fatesOf(plan), Texts{"4,1 1001 changed 7"});
}

TEST(OpeningImports, NameAccountAndColumnOfEachCell) {
    const FigurePlan plan = imported(
        pasteSheet(), "科目编码,借/贷,期初余额\n1001,,7\n1001,,8\n9999,,1\n100201,贷,5\n1403,,x\n");
    Texts told;
    for (const PlannedCell& cell : plan.cells) told.push_back(cell.name + " " + cell.heading);
    EXPECT_EQ(told, (Texts{"科目1001 期初余额", "科目1001 科目编码", " 科目编码",
                           "科目100201 借/贷", "科目1403 期初余额"}));
}

TEST(OpeningImports, RefuseFiguresThatTheAccountDoesNotKeep) {
    const FigurePlan plan = imported(pasteSheet(),
                                     "科目编码,期初余额,外币期初余额,数量期初余额\n"
                                     "1001,x,1,0\n");
    EXPECT_EQ(fatesOf(plan), (Texts{"1,1 1001 refused 不是数字", "1,2 1001 refused 科目不核算外币",
                                    "1,3 1001 unchanged"}));
}

TEST(OpeningImports, TakeCodesThatASpreadsheetKeepsAsNumbers) {
    Sheet file;
    file.rows = {{Cell::of("科目编码"), Cell::of("期初余额")},
                 {Cell::of(1001.0), Cell::of(0.1 + 0.2)},
                 {Cell::of(100201.0), Cell::of(" (1,200.00) ")}};
    FigurePlan plan;
    EXPECT_FALSE(planOpeningImport(pasteSheet(), file, plan));
    EXPECT_EQ(fatesOf(plan), (Texts{"1,1 1001 changed 0.3", "2,1 100201 changed -1200"}));
}

TEST(OpeningImports, NeedAHeadingRow) {
    FigurePlan plan;
    Sheet file;
    ASSERT_FALSE(readCsv("1001,5\n", file));
    const auto failure = planOpeningImport(pasteSheet(), file, plan);
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->reason, "没有找到标题行。标题行应有“科目编码”和至少一列金额,如“期初余额”。");
    ASSERT_FALSE(readCsv("科目编码,备注\n", file));
    EXPECT_TRUE(planOpeningImport(pasteSheet(), file, plan));
}
