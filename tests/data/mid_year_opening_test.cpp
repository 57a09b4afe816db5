#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

#include "opening/screen/opening_work.h"
#include "opening/sheet/opening_texts.h"
#include "tests/support/engine_cases.h"
#include "tests/support/opening_books.h"

namespace {

using namespace chengheng;
using Texts = std::vector<std::string>;

constexpr auto foreign = Measure::foreign;

class OpeningLayouts : public testing::TestWithParam<EngineCase> {};

TEST_P(OpeningLayouts, AreSimpleOnlyInBooksThatBeginInJanuary) {
    OpeningTestBooks books(freshLocation(GetParam()));
    for (int month = 1; month <= 12; ++month) {
        books.books().run(formatSql("UPDATE zAccountM SET dtStart = '2026/%d/1'", month));
        EXPECT_EQ(books.work().refresh(), Outcome::done);
        EXPECT_EQ(books.work().sheet().layout() == OpeningLayout::simple, month == 1) << month;
    }
}

CHENGHENG_ON_ALL_ENGINES(OpeningLayouts);

class MidYearOpening : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override {
        m_books.addAccounts({"1002", "100201", "100202"});
        m_books.change("100202", "byExchId = 1");
        m_books.addCredit("2001");
        ASSERT_EQ(m_books.work().refresh(), Outcome::done);
    }
    bool type(const char* code, const char* text, OpeningField field,
              Measure measure = Measure::money) {
        return m_books.type(code, text, measure, field);
    }

    OpeningTestBooks m_books{freshLocation(GetParam()), OpeningLayout::midYear};
};

TEST_P(MidYearOpening, FillsTheOpeningBalanceFromTheThreeFiguresByDirection) {
    for (const char* code : {"100201", "2001"}) {
        type(code, "100", OpeningField::yearStart);
        type(code, "30", OpeningField::debit);
        type(code, "10", OpeningField::credit);
    }
    EXPECT_EQ(m_books.shown("100201"), "120.00");
    EXPECT_EQ(m_books.shown("2001"), "80.00");
    EXPECT_FALSE(m_books.work().sheet().disagrees(m_books.lineOf("2001")));
}

TEST_P(MidYearOpening, TellsAPasteOrImportWhoseFiguresDisagree) {
    OpeningWork& work = m_books.work();
    const auto marks = [](const FigurePlan& plan) {
        return std::ranges::count(plan.cells, true, &PlannedCell::disagrees);
    };
    const std::size_t first = placeOf(OpeningField::yearStart, work.sheet().layout());
    Sheet block;
    block.rows = {{Cell::of("100"), Cell::of("30"), Cell::of("10"), Cell::of("99")}};
    EXPECT_EQ(marks(work.planPaste(m_books.lineOf("100201"), first, block)), 4);
    block.rows[0][3] = Cell::of("120");
    EXPECT_EQ(marks(work.planPaste(m_books.lineOf("100201"), first, block)), 0);
    const std::string path = freshFolder() + "/in.csv";
    std::ofstream(path) << "科目编码,年初余额,累计借方,累计贷方,期初余额\n100201,100,30,10,99\n";
    const auto plan = work.planImport(path);
    ASSERT_TRUE(plan);
    EXPECT_EQ(marks(*plan), 4);
}

TEST_P(MidYearOpening, GivesPeriodOneTheYearStartAndMovementsAndTheOthersTheOpening) {
    type("100201", "100", OpeningField::yearStart);
    type("100201", "30", OpeningField::debit);
    type("100201", "10", OpeningField::credit);
    for (const char* code : {"100201", "1002"}) {
        const auto rows = m_books.rowsOf(code);
        ASSERT_EQ(rows.size(), 12u) << code;
        EXPECT_TRUE(rows[0].ends_with(" 1 begin 100 debit 30 credit 10")) << rows[0];
        EXPECT_TRUE(rows[1].ends_with(" 2 begin 120")) << rows[1];
        EXPECT_TRUE(rows[11].ends_with(" 12 begin 120")) << rows[11];
    }
    EXPECT_EQ(m_books.whatASaveWouldChange(), Texts{});
}

TEST_P(MidYearOpening, KeepsAnOpeningBalanceThatDisagreesAndMarksIt) {
    type("100201", "100", OpeningField::yearStart);
    type("100201", "99", OpeningField::opening);
    m_books.work().refresh();
    EXPECT_EQ(m_books.shown("100201"), "99.00");
    EXPECT_TRUE(m_books.work().sheet().disagrees(m_books.lineOf("100201")));
    EXPECT_FALSE(m_books.work().sheet().disagrees(m_books.lineOf("1002")));
}

TEST_P(MidYearOpening, ReplacesNoOpeningBalanceThatWasTypedBeforeTheOthers) {
    type("100201", "150", OpeningField::opening);
    EXPECT_EQ(m_books.shown("100201", Measure::money, OpeningField::yearStart), "150.00");
    type("100201", "30", OpeningField::debit);
    EXPECT_EQ(m_books.shown("100201", Measure::money, OpeningField::yearStart), "120.00");
    type("100201", "10", OpeningField::credit);
    EXPECT_EQ(m_books.shown("100201"), "150.00");
    EXPECT_EQ(m_books.shown("100201", Measure::money, OpeningField::yearStart), "130.00");
    EXPECT_EQ(m_books.work().remark(), "年初余额由 120.00 随之改为 130.00,按 Ctrl+Z 恢复。");
    type("100201", "100", OpeningField::yearStart);
    EXPECT_EQ(m_books.shown("100201"), "150.00");
    EXPECT_EQ(m_books.work().remark(), opening_texts::nothingReplaced);
    type("100201", "60", OpeningField::debit);
    EXPECT_EQ(m_books.shown("100201"), "150.00");
    EXPECT_EQ(m_books.shown("100201", Measure::money, OpeningField::yearStart), "100.00");
    EXPECT_EQ(m_books.work().remark(), "");
    EXPECT_TRUE(m_books.rowsOf("100201")[1].ends_with(" 2 begin 150"));
}

TEST_P(MidYearOpening, ReplacesNothingInALineThatDisagreesAlready) {
    type("100201", "100", OpeningField::yearStart);
    type("100201", "99", OpeningField::opening);
    m_books.work().refresh();
    type("100201", "5", OpeningField::debit);
    EXPECT_EQ(m_books.shown("100201"), "99.00");
    EXPECT_EQ(m_books.shown("100201", Measure::money, OpeningField::yearStart), "100.00");
}

TEST_P(MidYearOpening, TellsAnOpeningBalanceThatFollowed) {
    type("100201", "100", OpeningField::yearStart);
    EXPECT_EQ(m_books.work().remark(), "");
    type("100201", "30", OpeningField::debit);
    EXPECT_EQ(m_books.work().remark(), "期初余额由 100.00 随之改为 130.00,按 Ctrl+Z 恢复。");
}

TEST_P(MidYearOpening, TellsNothingThatFollowedWhereSeveralAccountsAreWritten) {
    type("100201", "100", OpeningField::yearStart);
    type("100202", "50", OpeningField::yearStart);
    const auto debit = [this](const char* code, double value) {
        return TypedFigure{m_books.idOf(code), Measure::money, &Balance::debit, value};
    };
    ASSERT_EQ(m_books.work().writeFigures({debit("100201", 30), debit("100202", 5)}),
              Outcome::done);
    EXPECT_EQ(m_books.shown("100201"), "130.00");
    EXPECT_EQ(m_books.shown("100202"), "55.00");
    EXPECT_EQ(m_books.work().remark(), "");
}

TEST_P(MidYearOpening, MissesNoRateForAFigureThatIsNoOpeningBalance) {
    type("100202", "100", OpeningField::yearStart, foreign);
    EXPECT_EQ(m_books.work().remark(), "");
    type("100202", "150", OpeningField::opening, foreign);
    EXPECT_NE(m_books.work().remark(), "");
}

TEST_P(MidYearOpening, LetsTheOpeningFollowAgainOnceItsTypingIsUndone) {
    type("100201", "150", OpeningField::opening);
    ASSERT_EQ(m_books.work().undo(), Outcome::done);
    type("100201", "30", OpeningField::debit);
    EXPECT_EQ(m_books.shown("100201"), "30.00");
    EXPECT_EQ(m_books.shown("100201", Measure::money, OpeningField::yearStart), "0.00");
}

TEST_P(MidYearOpening, UndoesAFigureAndTheOpeningItFilledTogether) {
    type("100201", "100", OpeningField::yearStart);
    type("100201", "30", OpeningField::debit);
    EXPECT_EQ(m_books.work().undo(), Outcome::done);
    EXPECT_EQ(m_books.shown("100201"), "100.00");
    EXPECT_EQ(m_books.openings("100201"), allPeriods("100"));
}

TEST_P(MidYearOpening, KeepsTheFiguresOfForeignCurrency) {
    type("100202", "5", OpeningField::yearStart, foreign);
    type("100202", "2", OpeningField::debit, foreign);
    m_books.work().refresh();
    EXPECT_EQ(m_books.shown("100202", foreign), "7.00");
    EXPECT_EQ(m_books.rowsOf("100202")[0], "1: 100202 1 foreign 5 received 2");
    EXPECT_EQ(m_books.rowsOf("100202")[1], "2: 100202 2 foreign 7");
}

TEST_P(MidYearOpening, RefusesAnOpeningThatBecomesTooLargeWithWhatAnotherWorkstationTyped) {
    type("100201", "1", OpeningField::yearStart);
    m_books.books().run("UPDATE AccSum SET mBegin = 9e12 WHERE lCodeId = " +
                        std::to_string(m_books.idOf("100201")));
    EXPECT_FALSE(type("100201", "9000000000000", OpeningField::debit));
    EXPECT_EQ(m_books.messages().texts(), Texts{opening_texts::tooLarge});
    EXPECT_EQ(m_books.rowsOf("100201")[0], "1: 100201 1 begin 9000000000000");
}

TEST_P(MidYearOpening, TurnsADirectionByTheOpeningBalanceAlone) {
    type("2001", "100", OpeningField::yearStart);
    type("2001", "100", OpeningField::debit);
    m_books.messages().willAnswer(Answer::yes);
    EXPECT_EQ(m_books.work().adjustDirection(m_books.lineOf("2001")), Outcome::done);
    EXPECT_EQ(m_books.books().account("2001").bDirect, 1);
}

CHENGHENG_ON_ALL_ENGINES(MidYearOpening);

}  // namespace
