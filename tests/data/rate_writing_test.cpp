#include <gtest/gtest.h>

#include "currency/rates/rate_journal.h"
#include "tests/support/currency_books.h"
#include "tests/support/engine_cases.h"

namespace {

using namespace chengheng;
using Texts = std::vector<std::string>;

constexpr const char* changedMeanwhile = "汇率在此期间已有改动,没有写入。\n请核对后重试。";

class RateWritings : public testing::TestWithParam<EngineCase> {
  protected:
    RateWritings() {
        m_books.insert("USD", "美元");
        m_books.insert("EUR", "欧元");
    }

    /// Gives the rate of a day (1 January is 0) or month another value, seen as it is stored.
    RateChange change(int currency, RateKind kind, std::size_t at, double rate, double adjust = 0) {
        const RateRow row = readRates(kind, currency, 2026)->at(at);
        RateRow after = row;
        after.rate = rate;
        after.adjustRate = adjust;
        return {currency, kind, row, after};
    }
    Outcome write(const std::vector<RateChange>& changes, const ImportProgress& progress = {}) {
        m_books.messages.forget();
        return writeRates(m_books.messages, changes, progress);
    }
    Texts rates() {
        Texts all = m_books.filledRates("ExchgFix");
        for (std::string& rate : m_books.filledRates("ExchgFlt")) all.push_back(std::move(rate));
        return all;
    }

    CurrencyBooks m_books{freshLocation(GetParam())};
};

TEST_P(RateWritings, OfSeveralCurrenciesAndKindsAreOneChange) {
    const std::vector<RateChange> changes{change(1, RateKind::fixed, 0, 7.1, 7.2),
                                          change(1, RateKind::floating, 31, 7.15),
                                          change(2, RateKind::floating, 0, 8.25)};
    EXPECT_EQ(write(changes), Outcome::done);
    EXPECT_EQ(rates(), (Texts{"1 1 2026-01-01 1 7.1 7.2", "32 1 2026-02-01 2 7.15 0",
                              "366 2 2026-01-01 1 8.25 0"}));
    EXPECT_TRUE(m_books.messages.texts().empty());
    EXPECT_FALSE(m_books.holdsLocks());
    EXPECT_EQ(write(takenBack(changes)), Outcome::done);
    EXPECT_EQ(rates(), Texts{});
}

TEST_P(RateWritings, AreNoneWhereOneRateIsNoLongerAsItWasSeen) {
    const std::vector<RateChange> changes{change(1, RateKind::fixed, 0, 7.1),
                                          change(2, RateKind::fixed, 1, 8.1)};
    m_books.run("UPDATE ExchgFix SET dRate = 9 WHERE lId = 14");
    const Texts before = rates();
    EXPECT_EQ(write(changes), Outcome::stale);
    EXPECT_EQ(m_books.messages.onlyNotice().text, changedMeanwhile);
    EXPECT_EQ(rates(), before);
    EXPECT_FALSE(m_books.holdsLocks());
}

TEST_P(RateWritings, LeaveTheOtherRateOfARowAsItIsNow) {
    const std::vector<RateChange> changes{change(1, RateKind::fixed, 0, 7.1)};
    m_books.run("UPDATE ExchgFix SET dAdjustRate = 9 WHERE lId = 1");
    EXPECT_EQ(write(changes), Outcome::done);
    EXPECT_EQ(rates(), Texts{"1 1 2026-01-01 1 7.1 9"});
    m_books.run("UPDATE ExchgFix SET dAdjustRate = 8 WHERE lId = 1");
    EXPECT_EQ(write(takenBack(changes)), Outcome::done);
    EXPECT_EQ(rates(), Texts{"1 1 2026-01-01 1 0 8"});
}

TEST_P(RateWritings, AreNoneWhereARowIsGoneOrOfAnotherDay) {
    const std::vector<RateChange> first{change(1, RateKind::floating, 3, 7.1)};
    m_books.run("UPDATE ExchgFlt SET dtDate = '2025/1/4' WHERE lId = 4");
    EXPECT_EQ(write(first), Outcome::stale);
    EXPECT_EQ(m_books.messages.onlyNotice().text, changedMeanwhile);
    m_books.run("DELETE ExchgFlt WHERE lId = 4");
    EXPECT_EQ(write(first), Outcome::stale);
    EXPECT_EQ(m_books.messages.onlyNotice().text, changedMeanwhile);
    EXPECT_EQ(rates(), Texts{});
}

TEST_P(RateWritings, OfACurrencyThatIsGoneAreToldByItOnce) {
    const std::vector<RateChange> changes{change(1, RateKind::fixed, 0, 7.1),
                                          change(2, RateKind::fixed, 1, 8.1)};
    m_books.run("DELETE Cyrency WHERE lId = 2");
    EXPECT_EQ(write(changes), Outcome::stale);
    EXPECT_EQ(m_books.messages.texts().size(), 1u);
    EXPECT_EQ(rates(), Texts{});
    EXPECT_FALSE(m_books.holdsLocks());
}

TEST_P(RateWritings, CanBeGivenUpMeanwhileAndChangeNothingThen) {
    std::vector<RateChange> changes;
    for (std::size_t day = 0; day < 120; ++day)
        changes.push_back(change(1, RateKind::floating, day, 7.1));
    std::vector<std::size_t> told;
    const Outcome outcome = write(changes, [&](std::size_t done, std::size_t total) {
        EXPECT_EQ(total, 120u);
        told.push_back(done);
        return done < 100;
    });
    EXPECT_EQ(outcome, Outcome::refused);
    EXPECT_EQ(told, (std::vector<std::size_t>{0, 50, 100}));
    EXPECT_EQ(m_books.messages.onlyNotice().text, "写入已取消,汇率没有改动。");
    EXPECT_EQ(rates(), Texts{});
    EXPECT_EQ(write(changes, [](std::size_t, std::size_t) { return false; }), Outcome::refused);
    EXPECT_EQ(rates(), Texts{});
}

TEST_P(RateWritings, AreTakenBackAndDoneAgainStepByStep) {
    RateJournal journal;
    EXPECT_FALSE(journal.canUndo());
    for (const double rate : {7.1, 7.2}) {
        std::vector<RateChange> step{change(1, RateKind::fixed, 0, rate)};
        ASSERT_EQ(write(step), Outcome::done);
        journal.note(std::move(step));
    }
    EXPECT_FALSE(journal.canRedo());
    EXPECT_EQ(journal.undo(m_books.messages), Outcome::done);
    EXPECT_EQ(rates(), Texts{"1 1 2026-01-01 1 7.1 0"});
    EXPECT_EQ(journal.undoing().front().after.rate, 0);
    EXPECT_EQ(journal.undo(m_books.messages), Outcome::done);
    EXPECT_EQ(rates(), Texts{});
    EXPECT_FALSE(journal.canUndo());
    EXPECT_TRUE(journal.undoing().empty());
    EXPECT_EQ(journal.undo(m_books.messages), Outcome::done) << "nothing to do";
    EXPECT_EQ(journal.redo(m_books.messages), Outcome::done);
    EXPECT_EQ(journal.redoing().front().after.rate, 7.2);
    EXPECT_EQ(journal.redo(m_books.messages), Outcome::done);
    EXPECT_EQ(rates(), Texts{"1 1 2026-01-01 1 7.2 0"});
    EXPECT_TRUE(journal.redoing().empty());
    EXPECT_EQ(journal.redo(m_books.messages), Outcome::done);
    EXPECT_EQ(rates(), Texts{"1 1 2026-01-01 1 7.2 0"});
}

TEST_P(RateWritings, ThatWereTakenBackAreForgottenWhenAnotherFollows) {
    RateJournal journal;
    for (const double rate : {7.1, 7.2}) {
        std::vector<RateChange> step{change(1, RateKind::fixed, 0, rate)};
        ASSERT_EQ(write(step), Outcome::done);
        journal.note(std::move(step));
        if (rate == 7.1) {
            EXPECT_EQ(journal.undo(m_books.messages), Outcome::done);
            EXPECT_TRUE(journal.canRedo());
        }
    }
    EXPECT_FALSE(journal.canRedo());
    EXPECT_EQ(journal.undoing().front().before.rate, 7.2);
    EXPECT_EQ(journal.undo(m_books.messages), Outcome::done);
    EXPECT_FALSE(journal.canUndo());
}

TEST_P(RateWritings, ThatNoLongerFitTheBooksAreDroppedFromTheSteps) {
    RateJournal journal;
    for (const std::size_t month : {0u, 1u, 2u}) {
        std::vector<RateChange> step{change(1, RateKind::fixed, month, 7)};
        ASSERT_EQ(write(step), Outcome::done);
        journal.note(std::move(step));
    }
    ASSERT_EQ(journal.undo(m_books.messages), Outcome::done);
    m_books.run("UPDATE ExchgFix SET dRate = 9 WHERE lId = 2 OR lId = 3");
    EXPECT_EQ(journal.undo(m_books.messages), Outcome::stale);
    EXPECT_EQ(m_books.messages.onlyNotice().text, changedMeanwhile);
    m_books.messages.forget();
    EXPECT_EQ(journal.redo(m_books.messages), Outcome::stale);
    EXPECT_EQ(m_books.messages.onlyNotice().text, changedMeanwhile);
    EXPECT_FALSE(journal.canRedo());
    EXPECT_EQ(journal.undo(m_books.messages), Outcome::done);
    EXPECT_EQ(rates(), (Texts{"2 1 2026-02-01 2 9 0", "3 1 2026-03-01 3 9 0"}));
}

CHENGHENG_ON_ALL_ENGINES(RateWritings);

}  // namespace
