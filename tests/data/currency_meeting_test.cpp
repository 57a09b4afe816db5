// Two workstations at once at the same currency, the same row of rates, and the same accounts.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "currency/currency_form.h"
#include "data/access/row_lease.h"
#include "data/tables/accounts.h"
#include "tests/support/currency_books.h"
#include "tests/support/engine_cases.h"
#include "tests/support/other_goes_on.h"
#include "tests/support/other_workstation.h"
#include "tests/support/waiting_process.h"

namespace {

using namespace chengheng;

using testing::EndsWith;

using Texts = std::vector<std::string>;

class CurrencyMeetings : public testing::TestWithParam<EngineCase> {
  protected:
    using Work = std::function<Outcome(CurrencyBooks& books)>;

    std::string makeBooks() {
        const std::string location = freshLocation(GetParam());
        CurrencyBooks(location).insert("USD", "美元");
        return location;
    }
    /// The other one comes while this one holds its locks, and goes on once they are free.
    Texts meet(const Work& here, const Work& there) {
        const std::string location = makeBooks();
        WaitingProcess otherStation([&] {
            CurrencyBooks theirs(location, false);
            there(theirs);
            return true;
        });
        CurrencyBooks books(location, false);
        EXPECT_NE(books.database.SQLLock("Cyrency", 2, 1), 0);
        otherStation.start();
        here(books);
        books.database.SQLUnLock("Cyrency", 2);
        EXPECT_TRUE(otherStation.hasSucceeded());
        return books.everything();
    }
    static Outcome writeRate(CurrencyBooks& books, RateColumn column, double value) {
        RateEdit written;
        return CurrencyService(books.messages)
            .writeRate(RateKind::fixed, 1, 2, column, value, written);
    }
};

TEST_P(CurrencyMeetings, InTheTwoRatesOfOneRowLoseNeither) {
    const std::string location = makeBooks();
    WaitingProcess otherStation([&] {
        CurrencyBooks theirs(location, false);
        for (int time = 1; time <= 20; ++time)
            if (writeRate(theirs, RateColumn::adjustRate, time) != Outcome::done) return false;
        return true;
    });
    CurrencyBooks books(location, false);
    otherStation.start(std::chrono::milliseconds(1));
    for (int time = 1; time <= 20; ++time)
        EXPECT_EQ(writeRate(books, RateColumn::rate, time), Outcome::done);
    EXPECT_TRUE(otherStation.hasSucceeded());
    EXPECT_EQ(books.filledRates("ExchgFix"), (Texts{"2 1 2026-02-01 2 20 20"}));
}

TEST_P(CurrencyMeetings, WithTheSameNewCurrencyAddItOnce) {
    const Work add = [](CurrencyBooks& books) {
        _CyrencyInfo added;
        return CurrencyService(books.messages).add({"GBP", "英镑"}, 2026, added);
    };
    const Texts stored = meet(add, [&](CurrencyBooks& theirs) {
        EXPECT_EQ(add(theirs), Outcome::refused);
        EXPECT_EQ(theirs.messages.texts(), Texts{"币符不唯一!"});
        return Outcome::done;
    });
    EXPECT_EQ(stored.size(), 2 + 2 * (12 + 365) + 3u);
    EXPECT_EQ(stored.back(), "ExchgFlt 730");
}

TEST_P(CurrencyMeetings, WithTwoNewCurrenciesGiveEachItsOwnRates) {
    const Texts stored = meet(
        [](CurrencyBooks& books) {
            _CyrencyInfo added;
            return CurrencyService(books.messages).add({"GBP", "英镑"}, 2026, added);
        },
        [](CurrencyBooks& theirs) {
            _CyrencyInfo added;
            EXPECT_EQ(CurrencyService(theirs.messages).add({"EUR", "欧元"}, 2026, added),
                      Outcome::done);
            return Outcome::done;
        });
    ASSERT_EQ(stored.size(), 3 + 3 * (12 + 365) + 3u);
    EXPECT_EQ(stored[1], "2 2 GBP 英镑 1 5 1e-05");
    EXPECT_EQ(stored[2], "3 3 EUR 欧元 1 5 1e-05");
    EXPECT_EQ(stored.back(), "ExchgFlt 1095");
}

TEST_P(CurrencyMeetings, OfWhomOneDeletesTellTheOtherThatItIsGone) {
    const Work remove = [](CurrencyBooks& books) {
        books.messages.willAnswer(Answer::yes);
        return CurrencyService(books.messages).remove(1, false);
    };
    const Texts stored = meet(remove, [](CurrencyBooks& theirs) {
        EXPECT_EQ(writeRate(theirs, RateColumn::rate, 7), Outcome::stale);
        EXPECT_EQ(theirs.messages.texts(), Texts{"该外币已经被删除!"});
        return Outcome::done;
    });
    EXPECT_EQ(stored, (Texts{"Cyrency 1", "ExchgFix 12", "ExchgFlt 365"}));
}

CHENGHENG_ON_SHARED_ENGINES(CurrencyMeetings);

/// This workstation with the window open on the first currency, and another one.
class CurrencyWorkstations : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override {
        m_books.insert("USD", "美元");
        m_books.insert("JPY", "日元");
        m_form.open();
    }
    void TearDown() override { m_books.database.setLockWaiter(nullptr); }
    void otherDoes(const std::string& sql) {
        const Status status = m_other.ask("sql " + sql);
        ASSERT_TRUE(status) << status.detail;
    }
    /// What the other one does while this one waits for it.
    OtherGoesOn doing(const std::string& sql) {
        EXPECT_TRUE(m_other.lock("Code", LockMode::exclusive));
        return OtherGoesOn([this, sql] {
            otherDoes(sql);
            m_other.unlock("Code", LockMode::exclusive);
        });
    }

    std::string m_location = freshLocation(GetParam());
    CurrencyBooks m_books{m_location};
    OtherWorkstation m_other{m_location};
    CurrencyForm m_form{m_books.messages, {2026, 5, 31}};
};

TEST_P(CurrencyWorkstations, OneThatIsAtTheAccountsKeepsEveryChangeOut) {
    PatientWaiter impatient{std::chrono::milliseconds(0)};
    m_books.database.setLockWaiter(&impatient);
    ASSERT_TRUE(m_other.lock("Code", LockMode::exclusive));
    const Texts before = m_books.everything();
    m_form.input.name = "美金";
    EXPECT_FALSE(m_form.save());
    EXPECT_EQ(m_form.endEdit({0, RateSheetColumn::rate}, "7"), Outcome::failed);
    m_books.messages.willAnswer(Answer::yes);
    m_form.remove(1);
    ASSERT_EQ(m_books.messages.notices().size(), 3u);
    for (const Notice& notice : m_books.messages.notices())
        EXPECT_THAT(notice.text, EndsWith("占用。\n请稍后重试。\n详细信息:Code"));
    EXPECT_FALSE(m_books.holdsLocks());
    EXPECT_EQ(m_books.everything(), before);
    m_other.unlock("Code", LockMode::exclusive);
    EXPECT_TRUE(m_form.save());
}

TEST_P(CurrencyWorkstations, OneThatBeginsToUseACurrencyKeepsItsDeletionOut) {
    OtherGoesOn waiter = doing("INSERT INTO Code (lId, sCode, byExchId) VALUES(1, '1001', 1)");
    m_books.database.setLockWaiter(&waiter);
    m_books.messages.willAnswer(Answer::yes);
    m_form.remove(1);
    EXPECT_EQ(m_books.messages.texts().back(), "该外币已经使用,不能删除!");
    EXPECT_EQ(m_books.stored().size(), 2u);
    EXPECT_EQ(m_form.selectedId(), 1);
    EXPECT_TRUE(m_form.isUsed());
}

TEST_P(CurrencyWorkstations, OneThatModifiesFirstIsNotWrittenOver) {
    OtherGoesOn waiter = doing("UPDATE Cyrency SET sExchName = '美圆' WHERE lId = 1");
    m_books.database.setLockWaiter(&waiter);
    m_form.input.decimals = "4";
    EXPECT_FALSE(m_form.save());
    EXPECT_EQ(m_books.stored()[0], "1 1 USD 美圆 1 5 1e-05");
    EXPECT_EQ(m_form.input.name, "美圆");
    EXPECT_EQ(m_form.input.decimals, "4") << "what was typed stays";
    EXPECT_TRUE(m_form.save());
    EXPECT_EQ(m_books.stored()[0], "1 1 USD 美圆 1 4 0");
}

TEST_P(CurrencyWorkstations, OneThatDeletesTheCurrencyLeavesTheOtherWithWhatIsThere) {
    OtherGoesOn waiter = doing("DELETE FROM Cyrency WHERE lId = 1");
    m_books.database.setLockWaiter(&waiter);
    EXPECT_EQ(m_form.endEdit({0, RateSheetColumn::rate}, "7"), Outcome::stale);
    EXPECT_EQ(m_books.messages.texts(), Texts{"该外币已经被删除!"});
    EXPECT_EQ(m_form.selectedId(), 2);
    EXPECT_EQ(m_form.leaves().all().size(), 1u);
    EXPECT_EQ(m_form.sheet().idIn(0), 13);
    EXPECT_EQ(m_books.filledRates("ExchgFix"), Texts{});
}

CHENGHENG_ON_SHARED_ENGINES(CurrencyWorkstations);

}  // namespace
