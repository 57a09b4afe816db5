#include "opening/sheet/opening_texts.h"
#include "tests/data/opening_case.h"
#include "tests/support/told_failures.h"

namespace chengheng {
namespace {

/// Totals and the trial balance, and what is saved and asked when the work ends.
class OpeningClosing : public OpeningCase {};

TEST_P(OpeningClosing, ShowsTheSameTotalsInTheRunningLineAndTheTrialBalance) {
    m_books.type("1001", "100");
    m_books.type("2001", "60");
    EXPECT_EQ(work().totals().surplus(), 40);
    const TrialBalanceTexts texts = work().trialBalance().texts();
    EXPECT_EQ(texts.debitClasses, "资产 = 借\t100.00\r\n\r\n");
    EXPECT_EQ(texts.creditClasses, "负债 = 贷\t60.00\r\n\r\n");
    EXPECT_EQ(texts.result, "试算结果不平衡,差额为40.00");
}

TEST_P(OpeningClosing, ReadsTheClassesAnewInTheOrderOfTheirNumbers) {
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

TEST_P(OpeningClosing, BalancesWithoutAccountClasses) {
    m_books.type("1001", "100");
    m_books.books().run("DELETE FROM zCodeClass WHERE lId > 0");
    EXPECT_EQ(work().trialBalance().texts().result, "试算结果平衡");
    EXPECT_TRUE(messages().texts().empty());
}

TEST_P(OpeningClosing, BalancesAndTellsWhyWhenTheClassesCannotBeRead) {
    m_books.type("1001", "100");
    m_books.books().engine().failCall(1);
    EXPECT_EQ(work().trialBalance().texts().result, "试算结果平衡");
    m_books.books().engine().failCall(0);
    const Notice told = messages().onlyNotice();
    EXPECT_THAT(told.text, tellsOf(Failure::full));
    EXPECT_EQ(told.icon, MessageIcon::warning);
    EXPECT_EQ(work().trialBalance().texts().result, "试算结果不平衡,差额为100.00");
}

TEST_P(OpeningClosing, ComparesAuxiliaryAccountsWithTheirDetails) {
    m_books.change("1001", "sAssBook = 'C'");
    m_books.addRows("1001", 12, 70);
    const std::string id = std::to_string(m_books.idOf("1001"));
    for (const char* row : {"1, %, 1, 5", "2, %, 1, 6.5", "3, %, 2, 900"}) {
        std::string values(row);
        values.replace(values.find('%'), 1, id);
        m_books.books().run("INSERT INTO AssAcc (lId, lCodeId, byPeroid, mBegin) VALUES (" +
                            values + ")");
    }
    ASSERT_EQ(work().refresh(), Outcome::done);
    const auto causes = work().causes();
    ASSERT_FALSE(causes.empty());
    EXPECT_EQ(causes.front().text, "1001 科目1001:余额 70.00 与辅助明细的合计 11.50 不符。");
    m_books.books().engine().failCall(1);
    for (const ImbalanceCause& cause : work().causes())
        EXPECT_NE(cause.kind, ImbalanceKind::detailsDiffer);
    m_books.books().engine().failCall(0);
    EXPECT_THAT(messages().onlyNotice().text, tellsOf(Failure::full));
}

TEST_P(OpeningClosing, ClosesAndSavesBalancedBooksWithoutAQuestion) {
    m_books.type("1001", "100");
    m_books.type("2001", "100");
    EXPECT_TRUE(work().mayClose());
    EXPECT_TRUE(messages().texts().empty());
}

TEST_P(OpeningClosing, RefreshesAndSavesBalancedBooksOnClosing) {
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

TEST_P(OpeningClosing, KeepsTheRowsOfASumThatBecameZeroWhenItClosesBalanced) {
    m_books.addRows("1002", 12, 9);
    work().beginEdit();
    EXPECT_TRUE(work().mayClose());
    EXPECT_EQ(m_books.openings("1002"), allPeriods("0"));
}

TEST_P(OpeningClosing, TakesTheTrialBalanceOfFiguresAsTheyAreLoadedWhileBrowsing) {
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

TEST_P(OpeningClosing, AsksBeforeClosingUnbalancedBooksAndStaysOnNo) {
    m_books.type("1001", "100");
    messages().willAnswer("期初余额试算不平衡,差额为100.00,是否退出?", Answer::no);
    EXPECT_FALSE(work().mayClose());
    const Question& question = messages().questions().front();
    EXPECT_EQ(question.icon, MessageIcon::information);
    EXPECT_EQ(question.caption, "澄恒财务软件");
    EXPECT_EQ(question.buttons, AnswerButtons::yesNo);
}

TEST_P(OpeningClosing, SavesUnbalancedBooksOnYes) {
    m_books.type("100202", "100");
    m_books.books().run(formatSql("DELETE FROM AccSum WHERE lCodeId = %d", m_books.idOf("1002")));
    messages().willAnswer(Answer::yes);
    EXPECT_TRUE(work().mayClose());
    EXPECT_EQ(m_books.openings("1002"), allPeriods("100"));
}

TEST_P(OpeningClosing, SavesEveryAccountAboveOthers) {
    m_books.type("10020101", "100");
    for (const char* code : {"1002", "100201"})
        m_books.books().run(formatSql("DELETE FROM AccSum WHERE lCodeId = %d", m_books.idOf(code)));
    EXPECT_EQ(work().save(), Outcome::done);
    EXPECT_EQ(m_books.openings("1002"), allPeriods("100"));
    EXPECT_EQ(m_books.openings("100201"), allPeriods("100"));
}

TEST_P(OpeningClosing, SavesNothingWhenNothingWasChanged) {
    m_books.addRows("100202", 12, 100);
    work().refresh();
    EXPECT_EQ(work().save(), Outcome::done);
    EXPECT_EQ(m_books.openings("1002"), "");
    work().beginEdit();
    EXPECT_EQ(work().save(), Outcome::done);
    EXPECT_EQ(m_books.openings("1002"), allPeriods("100"));
}

TEST_P(OpeningClosing, TakesOverAndRollsUpWhatAnAuxiliaryWindowWrote) {
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

TEST_P(OpeningClosing, SavesAfterAPasteOrAnUndoThatFollowedAnAuxiliaryWindow) {
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

TEST_P(OpeningClosing, TellsWhyTheBooksCannotBeReadAndKeepsTheSheet) {
    const std::size_t lines = work().sheet().lineCount();
    m_books.books().engine().failCall(3);
    EXPECT_NE(work().refresh(), Outcome::done);
    m_books.books().engine().failCall(0);
    const Notice told = messages().onlyNotice();
    EXPECT_THAT(told.text, tellsOf(Failure::full));
    EXPECT_EQ(work().sheet().lineCount(), lines);
}

TEST_P(OpeningClosing, MayBeClosedUnsavedWhenSavingFails) {
    m_books.type("1001", "100");
    messages().willAnswer(Answer::yes);
    messages().willAnswer(opening_texts::closeUnsaved, Answer::yes);
    messages().whileShown([this](const std::string& text) {
        if (text.starts_with("期初余额试算")) m_books.books().engine().failCall(4);
    });
    EXPECT_TRUE(work().mayClose());
    ASSERT_EQ(messages().texts().size(), 2u);
    EXPECT_EQ(messages().texts()[0], "期初余额试算不平衡,差额为100.00,是否退出?");
    EXPECT_EQ(messages().texts()[1], opening_texts::closeUnsaved);
    EXPECT_THAT(messages().questions().back().detail, tellsOf(Failure::full));
    EXPECT_EQ(messages().questions().back().preset, std::nullopt);
}

TEST_P(OpeningClosing, ClosesUnaskedWhenNothingWasChangedThoughTheBooksCannotBeRead) {
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

TEST_P(OpeningClosing, TellsWhyWhatAnAuxiliaryWindowWroteIsNotTakenOver) {
    m_books.books().engine().failCall(1);
    EXPECT_EQ(work().afterAuxiliary(), Outcome::failed);
    m_books.books().engine().failCall(0);
    EXPECT_THAT(messages().onlyNotice().text, tellsOf(Failure::full));
}

CHENGHENG_ON_ALL_ENGINES(OpeningClosing);

}  // namespace
}  // namespace chengheng
