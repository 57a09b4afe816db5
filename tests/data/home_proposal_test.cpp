#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/values/numbers.h"
#include "currency/opening_rate.h"
#include "data/access/host_database.h"
#include "opening/editing/opening_transfer.h"
#include "sheets/delimited/delimited_text.h"
#include "tests/data/opening_case.h"
#include "tests/support/faulty_engine.h"
#include "tests/support/told_failures.h"

namespace chengheng {
namespace {

/// Openings in home currency that come from those of the account 10020102 in dollars.
class HomeProposals : public OpeningCase {
  protected:
    void SetUp() override {
        OpeningCase::SetUp();
        run("UPDATE Cyrency SET bMode = 1 WHERE lId = 1\r\n"
            "DELETE ExchgFix WHERE lId > 0\r\nDELETE ExchgFlt WHERE lId > 0");
    }
    void run(const std::string& batch) { m_books.books().run(batch); }
    void addFixed(const char* day, int period, double rate) {
        addRate("ExchgFix", day, period, rate);
    }
    void addFloating(const char* day, int period, double rate) {
        addRate("ExchgFlt", day, period, rate);
    }
    std::string rateOn(const Date& start, int currency = 1) {
        std::optional<HomeRate> rate;
        EXPECT_TRUE(readOpeningRate(currency, start, rate));
        if (!rate) return "none";
        return rate->title + (rate->mode == RateMode::multiplied ? " * " : " / ") +
               ftoa(rate->rate);
    }
    bool type(const char* text) { return m_books.type("10020102", text, foreign); }
    std::string home() { return m_books.shown("10020102"); }

  private:
    void addRate(const char* table, const char* day, int period, double rate) {
        run(std::string("INSERT ") + table +
            formatSql(" (lId, byExchId, dtDate, byPeroid, dRate, dAdjustRate) "
                      "VALUES(%d, 1, '%s', %d, %lf, 9)",
                      ++m_lastId, day, period, rate));
    }

    int m_lastId = 0;
};

TEST_P(HomeProposals, GoByTheFixedRateOfTheMonthElseByAFloatingOne) {
    EXPECT_EQ(rateOn({2026, 3, 1}), "none");
    addFloating("2026/3/1", 3, 7.31);
    EXPECT_EQ(rateOn({2026, 3, 1}), "2026.03.01 * 7.31");
    addFloating("2025/12/31", 12, 6.9);
    EXPECT_EQ(rateOn({2026, 3, 1}), "2025.12.31 * 6.9");
    addFloating("2026/2/27", 2, 7.2);
    addFloating("2026/2/28", 2, 0);
    EXPECT_EQ(rateOn({2026, 3, 1}), "2026.02.27 * 7.2");
    EXPECT_EQ(rateOn({2026, 1, 1}), "2025.12.31 * 6.9");
    addFixed("2026/2/1", 2, 7.5);
    addFixed("2025/3/1", 3, 7.5);
    addFixed("2026/3/1", 3, 0);
    EXPECT_EQ(rateOn({2026, 3, 1}), "2026.02.27 * 7.2");
    addFixed("2026/3/1", 3, 7.1);
    EXPECT_EQ(rateOn({2026, 3, 1}), "2026.03 * 7.1");
    run("UPDATE Cyrency SET bMode = 0 WHERE lId = 1");
    EXPECT_EQ(rateOn({2026, 3, 1}), "2026.03 / 7.1");
    EXPECT_EQ(rateOn({2026, 3, 1}, 7), "none") << "a currency that is gone";
}

TEST_P(HomeProposals, AreInTheBooksWithTheFigureTheyComeFromAsOneStep) {
    addFixed("2026/1/1", 1, 7.1234);
    EXPECT_TRUE(type("1,000.5"));
    EXPECT_EQ(m_books.rowsOf("10020102").back(), "12: 10020102 12 begin 7126.96 foreign 1000.5");
    EXPECT_EQ(m_books.shown("1002"), "7,126.96");
    EXPECT_EQ(work().remark(), "本位币期初余额按 2026.01 的汇率 7.1234 算为 7,126.96,可以改录。");
    EXPECT_EQ(m_books.whatASaveWouldChange(), Texts{});
    EXPECT_EQ(work().undo(), Outcome::done);
    EXPECT_EQ(home(), "0.00");
    EXPECT_EQ(m_books.shown("10020102", foreign), "0.00");
    EXPECT_FALSE(work().canUndo());
    EXPECT_EQ(work().redo(), Outcome::done);
    EXPECT_EQ(home(), "7,126.96");
    EXPECT_EQ(m_books.openings("1002"), allPeriods("7126.96"));
    EXPECT_TRUE(messages().texts().empty());
}

TEST_P(HomeProposals, AreTypedOverAndThenLeftAlone) {
    addFixed("2026/1/1", 1, 7);
    EXPECT_TRUE(type("100"));
    EXPECT_EQ(home(), "700.00");
    EXPECT_TRUE(type("200"));
    EXPECT_EQ(home(), "1,400.00");
    EXPECT_TRUE(m_books.type("10020102", "1388"));
    EXPECT_TRUE(type("300"));
    EXPECT_EQ(home(), "1,388.00");
    EXPECT_EQ(work().remark(), "");
}

TEST_P(HomeProposals, NeverReplaceWhatStoodThereWhenTheWindowOpened) {
    addFixed("2026/1/1", 1, 7);
    m_books.type("10020102", "5");
    OpeningWork other(messages());
    ASSERT_EQ(other.refresh(), Outcome::done);
    EXPECT_EQ(other.endEdit(m_books.lineOf("10020102", foreign), 4, "100"), Outcome::done);
    EXPECT_EQ(m_books.openings("10020102"), allPeriods("5"));
}

TEST_P(HomeProposals, GoWithAFigureThatIsClearedAndAreNotMadeByPasting) {
    addFixed("2026/1/1", 1, 7);
    EXPECT_TRUE(type("100"));
    const int id = m_books.idOf("10020102");
    EXPECT_EQ(work().writeFigures({{id, foreign, &Balance::opening, 0}}), Outcome::done);
    EXPECT_EQ(home(), "0.00");
    Sheet block;
    ASSERT_FALSE(readClipboardBlock("250", block));
    const FigurePlan plan = work().planPaste(m_books.lineOf("10020102", foreign), 4, block);
    EXPECT_EQ(work().apply(plan), Outcome::done);
    EXPECT_EQ(m_books.shown("10020102", foreign), "250.00");
    EXPECT_EQ(home(), "0.00");
}

TEST_P(HomeProposals, SayWhereThereIsNoRate) {
    EXPECT_TRUE(type("100"));
    EXPECT_EQ(home(), "0.00");
    EXPECT_EQ(work().remark(), "“" + m_books.shown("10020102", foreign, OpeningField::unit) +
                                   "”在 2026.01 没有汇率,以前也没有,本位币期初余额没有算出,"
                                   "请自行录入。");
    EXPECT_TRUE(m_books.type("10020102", "700"));
    EXPECT_EQ(work().remark(), "");
    EXPECT_TRUE(type("200"));
    EXPECT_EQ(work().remark(), "") << "somebody gave the figure";
    EXPECT_TRUE(type("abc"));
    EXPECT_THAT(work().remark(), testing::HasSubstr("已按 0 录入"));
}

TEST_P(HomeProposals, AreMadeOnceThereIsARateForAFigureTypedAgain) {
    EXPECT_TRUE(type("100"));
    addFixed("2026/1/1", 1, 7);
    EXPECT_TRUE(type("100"));
    EXPECT_EQ(home(), "700.00");
    EXPECT_EQ(work().remark(), "本位币期初余额按 2026.01 的汇率 7 算为 700.00,可以改录。");
}

TEST_P(HomeProposals, LetTheYearStartFollowInBooksThatBeginMidYear) {
    run("UPDATE zAccountM SET dtStart = '2026/3/1' WHERE lId = 1");
    addFixed("2026/3/1", 3, 7);
    ASSERT_EQ(work().refresh(), Outcome::done);
    EXPECT_TRUE(type("100"));
    EXPECT_EQ(home(), "700.00");
    EXPECT_EQ(m_books.shown("10020102", Measure::money, OpeningField::yearStart), "700.00");
    EXPECT_EQ(m_books.rowsOf("10020102")[0], "1: 10020102 1 begin 700 foreign 100");
    EXPECT_EQ(work().remark(), "本位币期初余额按 2026.03 的汇率 7 算为 700.00,可以改录。");
}

TEST_P(HomeProposals, AreThereWithTheirFigureOrNotAtAllWhereACallFails) {
    addFixed("2026/1/1", 1, 7);
    const int calls = 200;
    for (const Failure failure : {Failure::full, Failure::lost}) {
        int failures = 0;
        bool isDone = false;
        for (int call = 1; !isDone && call < calls; ++call) {
            messages().forget();
            m_books.books().engine().failCall(call, failure);
            isDone = type("100");
            const bool hasFailed = m_books.books().engine().hasFailed();
            m_books.books().engine().failCall(0);
            ASSERT_NE(isDone, hasFailed) << call;
            EXPECT_FALSE(m_books.books().engine().inTransaction()) << call;
            EXPECT_FALSE(m_books.books().locks().holds("AccSum", LockMode::exclusive)) << call;
            ASSERT_NE(m_books.database().DBSelect("books"), 0);
            EXPECT_EQ(home(), isDone ? "700.00" : "0.00") << call;
            if (isDone) break;
            ++failures;
            ASSERT_EQ(m_books.rows(), Texts{}) << call;
            EXPECT_THAT(messages().onlyNotice().text, tellsOf(failure)) << call;
        }
        EXPECT_TRUE(isDone);
        EXPECT_GT(failures, 8) << "reading currency and rates can fail, too";
        EXPECT_EQ(m_books.openings("1002"), allPeriods("700"));
        ASSERT_EQ(work().undo(), Outcome::done);
        ASSERT_EQ(work().refresh(), Outcome::done);
    }
}

TEST_P(HomeProposals, GiveWayToAFigureThatAnotherWorkstationTyped) {
    addFixed("2026/1/1", 1, 7);
    m_books.addRows("10020102", 12, 5);
    EXPECT_TRUE(type("100"));
    EXPECT_EQ(home(), "5.00");
    EXPECT_EQ(m_books.rowsOf("10020102").back(), "12: 10020102 12 begin 5 foreign 100");
    EXPECT_EQ(work().remark(), "");
}

CHENGHENG_ON_ALL_ENGINES(HomeProposals);

}  // namespace
}  // namespace chengheng
