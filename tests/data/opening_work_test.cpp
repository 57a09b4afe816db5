#include "opening/screen/opening_work.h"

#include <gtest/gtest.h>

#include "opening/sheet/opening_texts.h"
#include "tests/support/engine_cases.h"
#include "tests/support/opening_books.h"
#include "tests/support/told_failures.h"

namespace {

using namespace chengheng;
using Texts = std::vector<std::string>;

constexpr auto foreign = Measure::foreign;
constexpr auto quantity = Measure::quantity;

class Opening : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override {
        m_books.addAccounts({"1001", "1002", "100201", "10020101", "10020102", "100202", "1405"});
        m_books.change("10020102", "byExchId = 1");
        m_books.change("1405", "bAmount = 1, sUnit = '件'");
        m_books.addCredit("2001");
        ASSERT_EQ(m_books.work().refresh(), Outcome::done);
    }
    OpeningWork& work() { return m_books.work(); }
    RecordingMessages& messages() { return m_books.messages(); }

    OpeningTestBooks m_books{freshLocation(GetParam())};
};

TEST_P(Opening, PutsATypedBalanceAndTheSumsAboveIntoTheBooksAtOnce) {
    EXPECT_TRUE(m_books.type("10020101", "1,200.505"));
    EXPECT_TRUE(m_books.type("100202", "=100/3"));
    EXPECT_EQ(m_books.openings("10020101"), allPeriods("1200.51"));
    EXPECT_EQ(m_books.openings("100201"), allPeriods("1200.51"));
    EXPECT_EQ(m_books.openings("1002"), allPeriods("1233.84"));
    EXPECT_EQ(m_books.openings("1001"), "");
    EXPECT_EQ(m_books.shown("1002"), "1,233.84");
    EXPECT_EQ(m_books.whatASaveWouldChange(), Texts{});
    EXPECT_TRUE(messages().texts().empty());
}

TEST_P(Opening, UpdatesRowsThatAreThereAndKeepsTheirIds) {
    m_books.type("1001", "5");
    const auto before = m_books.rowsOf("1001");
    m_books.type("1001", "6");
    const auto after = m_books.rowsOf("1001");
    ASSERT_EQ(after.size(), 12u);
    EXPECT_EQ(before.front(), "1: 1001 1 begin 5");
    EXPECT_EQ(after.front(), "1: 1001 1 begin 6");
    EXPECT_EQ(after.back(), "12: 1001 12 begin 6");
}

TEST_P(Opening, CountsATextThatIsNoNumberAsZero) {
    m_books.type("1001", "5");
    EXPECT_TRUE(m_books.type("1001", "abc"));
    EXPECT_EQ(m_books.openings("1001"), allPeriods("0"));
}

TEST_P(Opening, LandsForeignCurrencyAndQuantityInTheirColumns) {
    m_books.type("10020102", "700");
    m_books.type("10020102", "100.005", foreign);
    m_books.type("1405", "1.234567", quantity);
    EXPECT_EQ(m_books.rowsOf("10020102").front(), "1: 10020102 1 begin 700 foreign 100.01");
    EXPECT_EQ(m_books.rowsOf("1002").back(), "36: 1002 12 begin 700 foreign 100.01");
    EXPECT_EQ(m_books.rowsOf("1405").front(), "37: 1405 1 quantity 1.23457");
    EXPECT_EQ(m_books.shown("1405", quantity), "1.23457");
}

TEST_P(Opening, RoundsTheSameTextToTwoDecimalsOnAMoneyLine) {
    m_books.type("1405", "1.234567");
    EXPECT_EQ(m_books.openings("1405"), allPeriods("1.23"));
}

TEST_P(Opening, HoldsTheLocksOfValueEntryWhileItWrites) {
    m_books.books().locks().forget();
    m_books.type("1001", "5");
    EXPECT_EQ(m_books.books().locks().log(),
              (Texts{"lock Code 1", "lock AccSum 2", "unlock Code 1", "unlock AccSum 2"}));
}

TEST_P(Opening, WritesNothingWhenTheFigureStaysAsItIs) {
    m_books.type("1001", "5");
    const auto readings = work().readings();
    const Texts before = m_books.rows();
    EXPECT_TRUE(m_books.type("1001", "5.00"));
    EXPECT_EQ(m_books.rows(), before);
    EXPECT_EQ(work().readings(), readings);
    EXPECT_TRUE(work().takeChangedCells().size() == 1);
    EXPECT_EQ(work().undo(), Outcome::done);
    EXPECT_FALSE(work().canUndo());
    EXPECT_TRUE(m_books.type("100202", "0"));
    EXPECT_EQ(m_books.openings("100202"), "");
}

TEST_P(Opening, ComparesAFigureTypedAsItIsShownWithTheBooks) {
    m_books.type("100202", "100");
    OpeningWork other(messages());
    ASSERT_EQ(other.refresh(), Outcome::done);
    const auto column = placeOf(OpeningField::opening, OpeningLayout::simple);
    const auto typeTwoHundred = [&] {
        ASSERT_EQ(other.endEdit(m_books.lineOf("100202"), column, "200"), Outcome::done);
        EXPECT_EQ(m_books.openings("1002"), allPeriods("200"));
    };
    typeTwoHundred();
    EXPECT_TRUE(m_books.type("100202", "100"));
    EXPECT_EQ(m_books.openings("100202"), allPeriods("100"));
    EXPECT_EQ(m_books.openings("1002"), allPeriods("100"));
    EXPECT_EQ(work().undo(), Outcome::done);
    EXPECT_EQ(m_books.openings("100202"), allPeriods("200"));
    EXPECT_EQ(work().redo(), Outcome::done);

    typeTwoHundred();
    Sheet block;
    block.rows = {{Cell::of(100.0)}};
    const auto line = m_books.lineOf("100202");
    EXPECT_EQ(work().apply(planPaste(work().sheet(), line, column, block)), Outcome::done);
    EXPECT_EQ(m_books.openings("100202"), allPeriods("100"));

    typeTwoHundred();
    block.rows = {{Cell::of(100.0)}, {Cell::of(3.0)}};
    EXPECT_EQ(work().apply(planPaste(work().sheet(), line, column, block)), Outcome::done);
    EXPECT_EQ(m_books.openings("100202"), allPeriods("100"));
    EXPECT_EQ(m_books.openings("1405"), allPeriods("3"));
    EXPECT_EQ(m_books.whatASaveWouldChange(), Texts{});
    EXPECT_TRUE(messages().texts().empty());
}

TEST_P(Opening, TakesOverWhatTheBooksHoldWhenThatIsWhatWasTyped) {
    OpeningWork other(messages());
    ASSERT_EQ(other.refresh(), Outcome::done);
    const auto column = placeOf(OpeningField::opening, OpeningLayout::simple);
    ASSERT_EQ(other.endEdit(m_books.lineOf("100202"), column, "200"), Outcome::done);
    const Texts before = m_books.rows();
    EXPECT_TRUE(m_books.type("100202", "200"));
    EXPECT_EQ(m_books.rows(), before);
    EXPECT_EQ(m_books.shown("1002"), "200.00");
    EXPECT_FALSE(work().canUndo());
}

TEST_P(Opening, MakesAStepOnceUnlessTheSheetIsReadAnew) {
    OpeningBooks books;
    ASSERT_TRUE(readOpeningBooks(m_books.database(), books));
    int timesMade = 0;
    const auto write = [&](double opening) {
        const TypedFigure figure{m_books.idOf("1001"), Measure::money, &Balance::opening, opening};
        EditStep written;
        const auto make = [&](const OpeningSheet& sheet) {
            ++timesMade;
            return typedStep(sheet, std::span(&figure, 1));
        };
        timesMade = 0;
        return StepWriter(books).write(messages(), make, written);
    };
    EXPECT_EQ(write(5), Outcome::done);
    EXPECT_EQ(timesMade, 1);
    m_books.books().run("UPDATE AccSum SET mBegin = 9 WHERE lId > 0");
    EXPECT_EQ(write(6), Outcome::done);
    EXPECT_EQ(timesMade, 2);
    EXPECT_EQ(m_books.openings("1001"), allPeriods("6"));
}

TEST_P(Opening, TellsTheCellsThatAStepChangesOnce) {
    const auto lines = [this] {
        std::vector<std::size_t> changed;
        for (const OpeningCell& cell : work().takeChangedCells()) changed.push_back(cell.line);
        return changed;
    };
    m_books.type("10020101", "5");
    const std::vector<std::size_t> wanted{m_books.lineOf("1002"), m_books.lineOf("100201"),
                                          m_books.lineOf("10020101")};
    EXPECT_EQ(lines(), wanted);
    EXPECT_TRUE(lines().empty());
    EXPECT_EQ(work().undo(), Outcome::done);
    EXPECT_EQ(lines(), wanted);
    m_books.type("10020101", "0");
    EXPECT_TRUE(lines().empty());
}

TEST_P(Opening, TakesNothingTypedIntoParentsOrAuxiliaryAccounts) {
    m_books.change("100202", "sAssBook = 'B'");
    work().refresh();
    EXPECT_FALSE(m_books.type("1002", "5"));
    EXPECT_FALSE(m_books.type("100202", "5"));
    EXPECT_EQ(m_books.rows(), Texts{});
}

TEST_P(Opening, RefusesAmountsThatCannotBeHeldExactly) {
    EXPECT_FALSE(m_books.type("1001", "10000000000000"));
    EXPECT_EQ(messages().texts(), Texts{opening_texts::tooLarge});
    EXPECT_TRUE(m_books.type("1001", "9999999999999.99"));
    EXPECT_EQ(m_books.shown("1001"), "9,999,999,999,999.99");
}

TEST_P(Opening, UndoesAndDoesAgainStepByStep) {
    m_books.type("10020101", "5");
    m_books.type("10020101", "6");
    m_books.type("100202", "1");
    EXPECT_EQ(work().undo(), Outcome::done);
    EXPECT_EQ(work().undo(), Outcome::done);
    EXPECT_EQ(m_books.openings("1002"), allPeriods("5"));
    EXPECT_EQ(m_books.whatASaveWouldChange(), Texts{});
    EXPECT_EQ(work().redo(), Outcome::done);
    EXPECT_EQ(work().redo(), Outcome::done);
    EXPECT_NE(work().redo(), Outcome::done);
    EXPECT_EQ(m_books.openings("1002"), allPeriods("7"));
    for (int step = 0; step < 3; ++step) EXPECT_EQ(work().undo(), Outcome::done);
    EXPECT_NE(work().undo(), Outcome::done);
    EXPECT_EQ(m_books.openings("1002"), allPeriods("0"));
}

TEST_P(Opening, IsForBrowsingOnceAVoucherIsThere) {
    m_books.type("1001", "5");
    EXPECT_STREQ(work().modeText(), "");
    EXPECT_TRUE(work().mayAdjustDirection());
    m_books.addVoucher();
    ASSERT_EQ(work().refresh(), Outcome::done);
    EXPECT_STREQ(work().modeText(), "浏览,只读");
    EXPECT_FALSE(work().mayAdjustDirection());
    EXPECT_FALSE(work().mayCarryForward());
    EXPECT_FALSE(m_books.type("1001", "6"));
    EXPECT_EQ(m_books.openings("1001"), allPeriods("5"));
}

TEST_P(Opening, KeepsParentsAsTheyAreStoredWhileBrowsing) {
    m_books.type("100202", "5");
    m_books.books().run(
        formatSql("UPDATE AccSum SET mBegin = 77 WHERE lCodeId = %d", m_books.idOf("1002")));
    m_books.addVoucher();
    work().refresh();
    EXPECT_EQ(m_books.shown("1002"), "77.00");
    EXPECT_EQ(work().save(), Outcome::done);
    EXPECT_EQ(m_books.openings("1002"), allPeriods("77"));
}

TEST_P(Opening, StaysEditableWithVouchersOfNoPeriod) {
    m_books.addVoucher();
    m_books.books().run("UPDATE RegMain SET byPeroid = 0");
    work().refresh();
    EXPECT_FALSE(work().isBrowsing());
    EXPECT_TRUE(m_books.type("1001", "5"));
}

TEST_P(Opening, SavesAndSweepsNothingOnceAVoucherIsThere) {
    m_books.type("100202", "5");
    m_books.books().run(
        formatSql("UPDATE AccSum SET mBegin = 77 WHERE lCodeId = %d", m_books.idOf("1002")));
    m_books.addRows("1001", 12);
    m_books.addVoucher();
    const auto before = m_books.rows();
    EXPECT_EQ(work().save(), Outcome::done);
    EXPECT_TRUE(work().isBrowsing());
    EXPECT_EQ(work().save(), Outcome::done);
    EXPECT_EQ(work().afterAuxiliary(), Outcome::done);
    EXPECT_EQ(m_books.rows(), before);
}

TEST_P(Opening, RefusesAnEditAfterAnotherWorkstationEnteredAVoucher) {
    m_books.addVoucher();
    EXPECT_FALSE(m_books.type("1001", "5"));
    EXPECT_EQ(messages().texts(), Texts{opening_texts::vouchersMeanwhile});
    EXPECT_TRUE(work().isBrowsing());
    EXPECT_EQ(m_books.rows(), Texts{});
}

TEST_P(Opening, RefusesAnEditOfAnAccountThatGotAccountsBelowItMeanwhile) {
    m_books.books().add("100101");
    EXPECT_FALSE(m_books.type("1001", "5"));
    EXPECT_EQ(messages().texts(), Texts{opening_texts::chartMeanwhile});
    EXPECT_EQ(m_books.rows(), Texts{});
    EXPECT_TRUE(m_books.type("100101", "5"));
}

TEST_P(Opening, RefusesAnEditOfAnAccountDeletedMeanwhile) {
    const auto readings = work().readings();
    m_books.books().run("DELETE FROM Code WHERE sCode = '1001'");
    EXPECT_FALSE(m_books.type("1001", "5"));
    EXPECT_EQ(messages().texts(), Texts{opening_texts::chartMeanwhile});
    EXPECT_GT(work().readings(), readings);
    EXPECT_EQ(m_books.rows(), Texts{});
}

TEST_P(Opening, RefusesAnEditOfAnAccountWhoseMeaningAnotherWorkstationChanged) {
    for (const char* change : {"bDirect = 0", "byExchId = 1", "sCode = '1009'"}) {
        m_books.change("1001", change);
        EXPECT_FALSE(m_books.type("1001", "5")) << change;
        EXPECT_EQ(messages().texts(), Texts{opening_texts::chartMeanwhile}) << change;
        EXPECT_EQ(m_books.rows(), Texts{}) << change;
        messages().forget();
    }
    EXPECT_TRUE(m_books.type("1009", "5"));
}

TEST_P(Opening, RefusesAnEditOfAnAccountThatBecameAuxiliaryMeanwhile) {
    m_books.change("1001", "sAssBook = 'B'");
    EXPECT_FALSE(m_books.type("1001", "5"));
    EXPECT_EQ(messages().texts(), Texts{opening_texts::chartMeanwhile});
    EXPECT_EQ(m_books.rows(), Texts{});
}

TEST_P(Opening, UndoesNothingThatAnotherWorkstationTypedOver) {
    m_books.type("1001", "1");
    m_books.type("1405", "2");
    m_books.books().run("UPDATE AccSum SET mBegin = 9 WHERE lCodeId = " +
                        std::to_string(m_books.idOf("1405")));
    EXPECT_NE(work().undo(), Outcome::done);
    EXPECT_EQ(messages().texts(), Texts{opening_texts::chartMeanwhile});
    EXPECT_EQ(m_books.shown("1405"), "9.00");
    EXPECT_EQ(work().undo(), Outcome::done) << "the step before";
    EXPECT_EQ(m_books.openings("1001"), allPeriods("0"));
    m_books.books().run("UPDATE AccSum SET mBegin = 8 WHERE lCodeId = " +
                        std::to_string(m_books.idOf("1001")));
    EXPECT_NE(work().redo(), Outcome::done);
    EXPECT_EQ(m_books.openings("1001"), allPeriods("8"));
    EXPECT_FALSE(work().canRedo());
}

TEST_P(Opening, KeepsAStepToBeUndoneWhileVouchersAreThere) {
    m_books.type("1001", "1");
    m_books.addVoucher();
    EXPECT_NE(work().undo(), Outcome::done);
    EXPECT_EQ(messages().texts(), Texts{opening_texts::vouchersMeanwhile});
    m_books.books().run("DELETE FROM RegMain WHERE lId > 0");
    work().refresh();
    EXPECT_EQ(work().undo(), Outcome::done);
}

TEST_P(Opening, AllowsTheCarryForwardOnlyIntoEmptyBooks) {
    EXPECT_TRUE(work().mayCarryForward());
    m_books.type("1001", "5");
    EXPECT_FALSE(work().mayCarryForward());
    work().refresh();
    EXPECT_FALSE(work().mayCarryForward());
}

TEST_P(Opening, ForbidsTheCarryForwardWhileRowsWithoutFiguresAreThere) {
    m_books.addRows("1001", 12);
    work().refresh();
    EXPECT_FALSE(work().mayCarryForward());
    EXPECT_EQ(m_books.rows(), Texts{});
    work().refresh();
    EXPECT_TRUE(work().mayCarryForward());
}

TEST_P(Opening, ShowsTheSameTotalsInTheRunningLineAndTheTrialBalance) {
    m_books.type("1001", "100");
    m_books.type("2001", "60");
    EXPECT_EQ(work().totals().surplus(), 40);
    const TrialBalanceTexts texts = work().trialBalance().texts();
    EXPECT_EQ(texts.debitClasses, "资产 = 借\t100.00\r\n\r\n");
    EXPECT_EQ(texts.creditClasses, "负债 = 贷\t60.00\r\n\r\n");
    EXPECT_EQ(texts.result, "试算结果不平衡,差额为40.00");
}

TEST_P(Opening, ReadsTheClassesAnewInTheOrderOfTheirNumbers) {
    m_books.type("1001", "100");
    m_books.books().run(
        "DELETE FROM zCodeClass WHERE lId > 0\r\n"
        "INSERT INTO zCodeClass (lId, lNum, sClsName, bDirect) VALUES (1, 6, '资产', 1)\r\n"
        "INSERT INTO zCodeClass (lId, lNum, sClsName, bDirect) VALUES (2, 2, '乙', 1)\r\n"
        "INSERT INTO zCodeClass (lId, lNum, sClsName, bDirect) VALUES (3, 1, '甲', 1)\r\n"
        "INSERT INTO zCodeClass (lId, lNum, sClsName, bDirect) VALUES (4, 3, '丙', 1)\r\n"
        "INSERT INTO zCodeClass (lId, lNum, sClsName, bDirect) VALUES (5, 4, '丁', 1)\r\n"
        "INSERT INTO zCodeClass (lId, lNum, sClsName, bDirect) VALUES (0, 5, '无', 1)");
    EXPECT_EQ(work().trialBalance().texts().debitClasses,
              "甲 = 平\t0.00\r\n\r\n乙 = 平\t0.00\r\n\r\n丙 = 平\t0.00\r\n\r\n"
              "丁 = 平\t0.00\r\n\r\n资产 = 借\t100.00\r\n\r\n");
}

TEST_P(Opening, BalancesWithoutAccountClasses) {
    m_books.type("1001", "100");
    m_books.books().run("DELETE FROM zCodeClass WHERE lId > 0");
    EXPECT_EQ(work().trialBalance().texts().result, "试算结果平衡");
    EXPECT_TRUE(messages().texts().empty());
}

TEST_P(Opening, BalancesAndTellsWhyWhenTheClassesCannotBeRead) {
    m_books.type("1001", "100");
    m_books.books().engine().failCall(1);
    EXPECT_EQ(work().trialBalance().texts().result, "试算结果平衡");
    m_books.books().engine().failCall(0);
    const Notice told = messages().onlyNotice();
    EXPECT_THAT(told.text, tellsOf(Failure::full));
    EXPECT_EQ(told.icon, MessageIcon::warning);
    EXPECT_EQ(work().trialBalance().texts().result, "试算结果不平衡,差额为100.00");
}

TEST_P(Opening, WritesAndRollsUpManyFiguresAtOnce) {
    std::vector<TypedFigure> figures;
    for (int number = 10; number < 90; ++number) {
        const std::string code = "1002" + std::to_string(number);
        m_books.addAccounts({code});
        figures.push_back({m_books.idOf(code), Measure::money, &Balance::opening, 0.01});
    }
    ASSERT_EQ(work().refresh(), Outcome::done);
    EXPECT_EQ(work().writeFigures(figures), Outcome::done);
    EXPECT_EQ(m_books.shown("1002"), "0.80");
    EXPECT_EQ(m_books.openings("1002"), allPeriods("0.8"));
    EXPECT_EQ(m_books.whatASaveWouldChange(), Texts{});
}

TEST_P(Opening, ClosesAndSavesBalancedBooksWithoutAQuestion) {
    m_books.type("1001", "100");
    m_books.type("2001", "100");
    EXPECT_TRUE(work().mayClose());
    EXPECT_TRUE(messages().texts().empty());
}

TEST_P(Opening, RefreshesAndSavesBalancedBooksOnClosing) {
    m_books.addRows("1405", 12);
    EXPECT_TRUE(work().mayClose());
    EXPECT_EQ(m_books.rows(), Texts{}) << "swept, though nothing was changed";
    m_books.type("100202", "100");
    m_books.type("2001", "100");
    m_books.books().run(formatSql("DELETE FROM AccSum WHERE lCodeId = %d", m_books.idOf("1002")));
    const auto readings = work().readings();
    EXPECT_TRUE(work().mayClose());
    EXPECT_EQ(work().readings(), readings + 2);
    EXPECT_EQ(m_books.openings("1002"), allPeriods("100"));
}

TEST_P(Opening, KeepsTheRowsOfASumThatBecameZeroWhenItClosesBalanced) {
    m_books.addRows("1002", 12, 9);
    work().beginEdit();
    EXPECT_TRUE(work().mayClose());
    EXPECT_EQ(m_books.openings("1002"), allPeriods("0"));
}

TEST_P(Opening, TakesTheTrialBalanceOfFiguresAsTheyAreLoadedWhileBrowsing) {
    m_books.type("100202", "5");
    m_books.books().run(
        formatSql("UPDATE AccSum SET mBegin = 77 WHERE lCodeId = %d", m_books.idOf("1002")));
    m_books.addVoucher();
    work().refresh();
    EXPECT_EQ(work().trialBalance().debitTotal(), 5);
    EXPECT_EQ(m_books.shown("1002"), "77.00");
    messages().willAnswer("期初余额试算不平衡,差额为5.00,是否退出?", Answer::no);
    EXPECT_FALSE(work().mayClose());
    EXPECT_EQ(m_books.shown("1002"), "77.00");
}

TEST_P(Opening, AsksBeforeClosingUnbalancedBooksAndStaysOnNo) {
    m_books.type("1001", "100");
    messages().willAnswer("期初余额试算不平衡,差额为100.00,是否退出?", Answer::no);
    EXPECT_FALSE(work().mayClose());
    const Question& question = messages().questions().front();
    EXPECT_EQ(question.icon, MessageIcon::information);
    EXPECT_EQ(question.caption, "澄恒财务软件");
    EXPECT_EQ(question.buttons, AnswerButtons::yesNo);
}

TEST_P(Opening, SavesUnbalancedBooksOnYes) {
    m_books.type("100202", "100");
    m_books.books().run(formatSql("DELETE FROM AccSum WHERE lCodeId = %d", m_books.idOf("1002")));
    messages().willAnswer(Answer::yes);
    EXPECT_TRUE(work().mayClose());
    EXPECT_EQ(m_books.openings("1002"), allPeriods("100"));
}

TEST_P(Opening, SavesNothingWhenNothingWasChanged) {
    m_books.addRows("100202", 12, 100);
    work().refresh();
    EXPECT_EQ(work().save(), Outcome::done);
    EXPECT_EQ(m_books.openings("1002"), "");
    work().beginEdit();
    EXPECT_EQ(work().save(), Outcome::done);
    EXPECT_EQ(m_books.openings("1002"), allPeriods("100"));
}

TEST_P(Opening, TakesOverAndRollsUpWhatAnAuxiliaryWindowWrote) {
    m_books.change("100202", "sAssBook = 'B'");
    work().refresh();
    m_books.addRows("100202", 12, 250);
    EXPECT_EQ(work().afterAuxiliary(), Outcome::done);
    EXPECT_EQ(m_books.shown("100202"), "250.00");
    EXPECT_EQ(m_books.openings("1002"), allPeriods("250"));
    m_books.books().run("DELETE FROM AccSum WHERE lId > 12");
    EXPECT_EQ(work().save(), Outcome::done);
    EXPECT_EQ(m_books.openings("1002"), "");
}

TEST_P(Opening, SavesAfterAPasteOrAnUndoThatFollowedAnAuxiliaryWindow) {
    const std::string withoutParent =
        formatSql("DELETE FROM AccSum WHERE lCodeId = %d", m_books.idOf("1002"));
    EXPECT_EQ(work().afterAuxiliary(), Outcome::done);
    EXPECT_EQ(work().writeFigures({{m_books.idOf("10020101"), Measure::money, &Balance::opening, 3},
                                   {m_books.idOf("100202"), Measure::money, &Balance::opening, 5}}),
              Outcome::done);
    m_books.books().run(withoutParent);
    EXPECT_EQ(work().save(), Outcome::done);
    EXPECT_EQ(m_books.openings("1002"), allPeriods("8"));
    m_books.type("100202", "6");
    EXPECT_EQ(work().afterAuxiliary(), Outcome::done);
    EXPECT_EQ(work().undo(), Outcome::done);
    m_books.books().run(withoutParent);
    EXPECT_EQ(work().save(), Outcome::done);
    EXPECT_EQ(m_books.openings("1002"), allPeriods("8"));
}

TEST_P(Opening, TellsWhyTheBooksCannotBeReadAndKeepsTheSheet) {
    const std::size_t lines = work().sheet().lineCount();
    m_books.books().engine().failCall(3);
    EXPECT_NE(work().refresh(), Outcome::done);
    m_books.books().engine().failCall(0);
    const Notice told = messages().onlyNotice();
    EXPECT_THAT(told.text, tellsOf(Failure::full));
    EXPECT_EQ(work().sheet().lineCount(), lines);
}

TEST_P(Opening, MayBeClosedUnsavedWhenSavingFails) {
    m_books.type("1001", "100");
    messages().willAnswer(Answer::yes);
    messages().willAnswer(opening_texts::closeUnsaved, Answer::yes);
    messages().whileShown([this](const std::string& text) {
        if (text.starts_with("期初余额试算")) m_books.books().engine().failCall(4);
    });
    EXPECT_TRUE(work().mayClose());
    ASSERT_EQ(messages().texts().size(), 3u);
    EXPECT_EQ(messages().texts()[0], "期初余额试算不平衡,差额为100.00,是否退出?");
    EXPECT_THAT(messages().texts()[1], tellsOf(Failure::full));
    EXPECT_EQ(messages().texts()[2], opening_texts::closeUnsaved);
    EXPECT_EQ(messages().questions().back().preset, Answer::no);
}

TEST_P(Opening, ClosesUnaskedWhenNothingWasChangedThoughTheBooksCannotBeRead) {
    bool hasFailed = true;
    int call = 1;
    for (; hasFailed && call < 100; ++call) {
        messages().forget();
        m_books.books().engine().failCall(call);
        EXPECT_TRUE(work().mayClose()) << call;
        hasFailed = m_books.books().engine().hasFailed();
        m_books.books().engine().failCall(0);
        EXPECT_TRUE(messages().questions().empty()) << call;
        if (hasFailed) {
            EXPECT_THAT(messages().onlyNotice().text, tellsOf(Failure::full)) << call;
        } else {
            EXPECT_TRUE(messages().texts().empty()) << call;
        }
    }
    EXPECT_GT(call, 8);
}

TEST_P(Opening, TellsWhyWhatAnAuxiliaryWindowWroteIsNotTakenOver) {
    m_books.books().engine().failCall(1);
    EXPECT_EQ(work().afterAuxiliary(), Outcome::failed);
    m_books.books().engine().failCall(0);
    EXPECT_THAT(messages().onlyNotice().text, tellsOf(Failure::full));
}

TEST_P(Opening, IsReadAnewOnlyWhereRowsDoNotTellWhatTheirAccountsHold) {
    m_books.addAccounts({"6001", "600101"});
    ASSERT_EQ(work().refresh(), Outcome::done);
    const auto readings = work().readings();
    EXPECT_TRUE(m_books.type("600101", "5"));
    EXPECT_EQ(work().readings(), readings) << "there is money alone below 6001";
    EXPECT_EQ(m_books.openings("6001"), allPeriods("5"));
    EXPECT_TRUE(m_books.type("10020101", "5"));
    EXPECT_GT(work().readings(), readings) << "foreign currency below 1002 may make up no rows";
}

CHENGHENG_ON_ALL_ENGINES(Opening);

}  // namespace
