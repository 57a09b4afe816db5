#include "books/carrying/carry_repeat.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/access/unit_of_work.h"
#include "tests/support/carry_books.h"
#include "tests/support/killed_process.h"
#include "tests/support/other_workstation.h"
#include "tests/support/small_books.h"
#include "tests/support/sound_log.h"
#include "tests/support/told_failures.h"

namespace carry_repeats {
namespace {

using namespace chengheng;
using testing::HasSubstr;
using Texts = std::vector<std::string>;

/// Cash, a bank account on two levels, dealings by department and a loan, carried forward once.
class RepeatedCarry : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override {
        m_books.now().addAccounts({"1001", "1002", "100201", "100202", "1133"});
        m_books.now().addCredit("2001");
        m_books.now().change("1133", "sAssBook = 'C'");
        m_books.now().change("100202", "byExchId = 1, bAmount = 1, sUnit = '件'");
        m_books.mirror();
        m_books.addMembers();
        m_books.close("1001", 100, 0, 0);
        m_books.close("100201", 10, 0, 0);
        m_books.close("1133", 8, 0, 0);
        m_books.detail("1133", 1, 0, 5);
        m_books.detail("1133", 2, 0, 3);
        m_books.close("2001", 118, 0, 0);
        ASSERT_EQ(work().refresh(), Outcome::done);
        ASSERT_EQ(m_books.carry(), Outcome::done);
        m_carried = everything();
    }
    OpeningWork& work() { return m_books.now().work(); }
    RecordingMessages& messages() { return m_books.messages(); }
    std::string openings(const char* code) { return m_books.now().openings(code); }
    Texts everything() {
        Texts rows = m_books.now().rows();
        const Texts details = m_books.details();
        rows.insert(rows.end(), details.begin(), details.end());
        return rows;
    }
    /// Last year is corrected: one figure of an account.
    void correct(const char* code, const char* change) {
        m_books.last(formatSql("UPDATE AccSum SET %s WHERE lCodeId = %d", SqlFragment{change},
                               m_books.now().idOf(code)));
    }
    void correctDetail(int department, double opening) {
        m_books.last(
            formatSql("UPDATE AssAcc SET mBegin = %lf WHERE lDeptId = %d", opening, department));
    }
    void expectWhole() {
        EXPECT_EQ(m_books.now().whatASaveWouldChange(), Texts{});
        EXPECT_EQ(m_books.now().books().faults(), Texts{});
    }

    CarryBooks m_books{GetParam()};
    Texts m_carried;
};

TEST_P(RepeatedCarry, TakesWhatDiffersAndSumsItUp) {
    const Texts cash = m_books.now().rowsOf("1001");
    correct("100201", "mDebet = 2.5");
    correct("2001", "mCredit = 2.5");
    EXPECT_EQ(m_books.differences().size(), 2U);
    EXPECT_EQ(m_books.repeat(), Outcome::done);
    EXPECT_TRUE(messages().texts().empty());
    EXPECT_EQ(work().remark(), "已补转 2 处差额,共 2 个科目。");
    EXPECT_TRUE(work().remarksOnSuccess());
    EXPECT_EQ(m_books.now().shown("100201"), "12.50");
    EXPECT_EQ(openings("100201"), allPeriods("12.5"));
    EXPECT_EQ(openings("1002"), allPeriods("12.5"));
    EXPECT_EQ(openings("2001"), allPeriods("120.5"));
    EXPECT_EQ(m_books.now().rowsOf("1001"), cash) << "with its ids";
    EXPECT_EQ(m_books.differences(), Texts{});
    expectWhole();
}

TEST_P(RepeatedCarry, TakesAccountsThatHadNoBalanceAndThoseThatHaveNoneAnyMore) {
    m_books.close("100202", 7, 0, 0);
    correct("100201", "mBegin = 0");
    EXPECT_EQ(m_books.repeat(), Outcome::done);
    EXPECT_EQ(openings("100202"), allPeriods("7"));
    EXPECT_EQ(openings("1002"), allPeriods("7"));
    EXPECT_EQ(work().refresh(), Outcome::done);
    EXPECT_EQ(openings("100201"), "");
    EXPECT_EQ(m_books.differences(), Texts{});
    expectWhole();
}

TEST_P(RepeatedCarry, TakesForeignCurrencyAndQuantity) {
    m_books.last(
        formatSql("INSERT INTO AccSum VALUES (90, %d, 12, 70, 0, 0, 1.5, 0.00002, 0, 10, "
                  "2, 1)",
                  m_books.now().idOf("100202")));
    EXPECT_EQ(m_books.repeat(), Outcome::done);
    EXPECT_EQ(work().remark(), "已补转 3 处差额,共 1 个科目。");
    EXPECT_THAT(m_books.now().rowsOf("100202").back(),
                HasSubstr("begin 70 quantity 1.50002 foreign 11"));
    EXPECT_EQ(m_books.differences(), Texts{});
    expectWhole();
    EXPECT_EQ(work().undo(), Outcome::done);
    EXPECT_EQ(work().refresh(), Outcome::done);
    EXPECT_EQ(everything(), m_carried);
}

TEST_P(RepeatedCarry, TakesDetailsWithTheBalanceOfTheirAccount) {
    correct("1133", "mBegin = 9");
    correctDetail(1, 0);
    correctDetail(2, 4);
    m_books.detail("1133", 2, 1, 5);
    EXPECT_EQ(m_books.repeat(), Outcome::done);
    EXPECT_EQ(m_books.details(),
              (Texts{"2/0 4 4 4 4 4 4 4 4 4 4 4 4", "2/1 5 5 5 5 5 5 5 5 5 5 5 5"}));
    EXPECT_EQ(openings("1133"), allPeriods("9"));
    EXPECT_EQ(m_books.differences(), Texts{});
    expectWhole();
    EXPECT_EQ(work().undo(), Outcome::done);
    EXPECT_EQ(everything(), m_carried);
    EXPECT_EQ(work().redo(), Outcome::done);
    EXPECT_EQ(m_books.differences(), Texts{});
    expectWhole();
}

TEST_P(RepeatedCarry, TakesDetailsThatOnlyMovedBetweenThemselves) {
    correctDetail(1, 3);
    correctDetail(2, 5);
    EXPECT_EQ(m_books.repeat(), Outcome::done);
    EXPECT_EQ(m_books.details(),
              (Texts{"1/0 3 3 3 3 3 3 3 3 3 3 3 3", "2/0 5 5 5 5 5 5 5 5 5 5 5 5"}));
    EXPECT_EQ(openings("1133"), allPeriods("8"));
    EXPECT_EQ(work().undo(), Outcome::done);
    EXPECT_EQ(everything(), m_carried);
}

TEST_P(RepeatedCarry, SaysThatNothingDiffers) {
    EXPECT_EQ(m_books.repeat(), Outcome::done);
    EXPECT_EQ(work().remark(), "没有可以补转的差额,没有改动。");
    EXPECT_FALSE(work().canUndo());
    EXPECT_EQ(everything(), m_carried);
}

TEST_P(RepeatedCarry, IsUndoneAndDoneAgainWithWhatWasTypedBefore) {
    ASSERT_TRUE(m_books.now().type("100202", "20"));
    correct("1001", "mBegin = 101");
    correct("100202", "mBegin = 20");
    m_books.close("100202", 20, 0, 0);
    const Texts typed = everything();
    EXPECT_EQ(m_books.repeat(), Outcome::done);
    EXPECT_EQ(work().remark(), "已补转 1 处差额,共 1 个科目。");
    EXPECT_EQ(work().undo(), Outcome::done);
    EXPECT_EQ(everything(), typed);
    EXPECT_EQ(work().redo(), Outcome::done);
    EXPECT_EQ(openings("1001"), allPeriods("101"));
    EXPECT_EQ(work().undo(), Outcome::done);
    EXPECT_EQ(work().undo(), Outcome::done);
    EXPECT_EQ(m_books.now().shown("100202"), "0.00");
}

TEST_P(RepeatedCarry, IsNeitherDoneNorUndoneOnceThereAreVouchers) {
    struct Voucher {
        std::string sql;
        Outcome outcome;
        const char* text;
    };
    const std::string posted = "INSERT INTO RegMain (lId, byPeroid, sSign) VALUES (9, 1, '1');";
    const std::string unposted = "INSERT INTO UnregMain (lId, byPeroid, sSign) VALUES (9, 1, '1');";
    correct("1001", "mBegin = 101");
    ASSERT_EQ(m_books.repeat(), Outcome::done);
    const Texts repeated = everything();
    correct("1001", "mBegin = 102");
    for (const auto& [voucher, outcome, text] :
         {Voucher{posted, Outcome::stale, "帐套中已有凭证,期初余额只能浏览,本次操作没有保存。"},
          Voucher{unposted, Outcome::refused, "帐套已有凭证,不能撤销补转,没有改动。"}}) {
        m_books.now().books().run(voucher);
        messages().forget();
        EXPECT_EQ(m_books.repeat(), Outcome::refused);
        EXPECT_EQ(messages().onlyNotice().text,
                  "帐套已有凭证或只能浏览,不能补转上年差额,没有改动。");
        messages().forget();
        EXPECT_EQ(work().undo(), outcome);
        EXPECT_EQ(messages().onlyNotice().text, text);
        EXPECT_EQ(everything(), repeated);
        m_books.now().books().run(
            "DELETE FROM RegMain WHERE lId = 9;"
            "DELETE FROM UnregMain WHERE lId = 9;");
        ASSERT_EQ(work().refresh(), Outcome::done);
    }
    EXPECT_EQ(work().undo(), Outcome::done) << "they went again";
    EXPECT_EQ(everything(), m_carried);
}

TEST_P(RepeatedCarry, IsRefusedWhereNothingWasCarriedYet) {
    m_books.now().books().run("DELETE FROM AccSum WHERE lId > 0;DELETE FROM AssAcc WHERE lId > 0");
    EXPECT_EQ(m_books.repeat(), Outcome::refused);
    EXPECT_EQ(messages().onlyNotice().text, "本年还没有期初余额,请使用“结转上年余额”。");
    EXPECT_EQ(messages().onlyNotice().icon, MessageIcon::information);
}

TEST_P(RepeatedCarry, PassesOverWhatStandsInTheWayAndTakesTheRest) {
    correct("1001", "mBegin = 101");
    m_books.close("100202", 7, 0, 0);
    m_books.now().addAccounts({"100101"});
    m_books.now().books().run(formatSql("UPDATE AccSum SET lCodeId = %d WHERE lCodeId = %d",
                                        m_books.now().idOf("100101"), m_books.now().idOf("1001")));
    ASSERT_EQ(work().refresh(), Outcome::done);
    ASSERT_TRUE(save(m_books.now()));
    EXPECT_EQ(m_books.repeat(), Outcome::done);
    EXPECT_EQ(work().remark(), "已补转 1 处差额,共 1 个科目。另有 2 处差额不能补转,保持不变。");
    EXPECT_EQ(openings("100202"), allPeriods("7"));
    EXPECT_EQ(openings("100101"), allPeriods("100"));
    expectWhole();
}

TEST_P(RepeatedCarry, LeavesAccountsWhoseBalanceComesFromEntries) {
    correct("1133", "mBegin = 9");
    correctDetail(1, 6);
    m_books.now().books().run(
        formatSql("INSERT INTO RegSub (lId, lCodeId, lDeptId, bBegin) VALUES (1, %d, 1, 1)",
                  m_books.now().idOf("1133")));
    std::vector<Notice> untold;
    RepeatPlan plan;
    EXPECT_EQ(lookAtRepeat(m_books.registry(), plan, untold), Outcome::done);
    ASSERT_EQ(plan.obstacles.size(), 1U);
    EXPECT_EQ(plan.obstacles[0].text, "1133 科目1133:本年已有期初明细,请在辅助期初中修改。");
    EXPECT_EQ(plan.left.size(), 2U);
    EXPECT_TRUE(plan.carried.empty());
}

TEST_P(RepeatedCarry, TellsWhoeverCameBetweenLookingAndWriting) {
    correct("1133", "mBegin = 9");
    correctDetail(1, 6);
    std::vector<Notice> untold;
    RepeatPlan plan;
    ASSERT_EQ(lookAtRepeat(m_books.registry(), plan, untold), Outcome::done);
    const std::string account = std::to_string(m_books.now().idOf("1133"));
    const std::string others[] = {
        "UPDATE AccSum SET mBegin = 7 WHERE lCodeId = " + account,
        "UPDATE AssAcc SET mBegin = 7 WHERE lDeptId = 1",
        "INSERT INTO RegSub (lId, lCodeId, lDeptId, bBegin) VALUES (1, " + account + ", 1, 1)",
        "UPDATE Code SET bDirect = 0 WHERE sCode = '1133'",
        "UPDATE Code SET sCode = '1134' WHERE sCode = '1133'",
    };
    for (const std::string& other : others) {
        // Only what was done here is taken back.
        const UnitOfWork unit(m_books.now().database());
        m_books.now().books().run(other);
        const Texts before = everything();
        messages().forget();
        EXPECT_EQ(repeatCarry(plan, messages()), Outcome::stale) << other;
        EXPECT_THAT(messages().onlyNotice().text, HasSubstr("其他工作站修改"));
        EXPECT_EQ(everything(), before) << other;
    }
    EXPECT_EQ(repeatCarry(plan, messages()), Outcome::done);
    EXPECT_EQ(m_books.differences(), Texts{});
}

TEST_P(RepeatedCarry, FailsWholeAtWhateverCallAndTellsIt) {
    correct("1001", "mBegin = 101");
    correct("1133", "mBegin = 9");
    correctDetail(1, 6);
    FaultyEngine& engine = m_books.now().books().engine();
    for (const Failure failure : {Failure::full, Failure::lost}) {
        int number = 0;
        bool hasFailed = true;
        while (hasFailed && ++number < 200) {
            messages().forget();
            engine.failCall(number, failure);
            const Outcome outcome = m_books.repeat();
            hasFailed = engine.hasFailed();
            engine.failCall(0);
            const bool isDone = outcome == Outcome::done;
            EXPECT_TRUE(isDone || hasFailed) << number;
            EXPECT_FALSE(engine.inTransaction()) << number;
            for (const Notice& notice : messages().notices())
                EXPECT_THAT(notice.text, tellsOf(failure)) << number;
            EXPECT_EQ(messages().notices().empty(), isDone) << number;
            ASSERT_NE(m_books.now().database().DBSelect("books"), 0);
            EXPECT_EQ(everything() == m_carried, !isDone) << number;
            EXPECT_EQ(work().canUndo(), isDone);
            if (!isDone) continue;
            EXPECT_EQ(work().undo(), Outcome::done);
            EXPECT_EQ(everything(), m_carried);
        }
        EXPECT_GT(number, 20);
    }
}

TEST_P(RepeatedCarry, IsWholeOrNotAtAllAfterAKill) {
    correct("1001", "mBegin = 101");
    correct("1133", "mBegin = 9");
    correctDetail(1, 6);
    int undone = 0;
    bool isKilled = true;
    for (int number = 1; isKilled && number < 200; number = nextCallToDieAt(number)) {
        isKilled = isKilledAtWork([&] {
            OpeningTestBooks books(m_books.location(), OpeningLayout::simple, false);
            std::vector<Notice> untold;
            RepeatPlan plan;
            books.books().engine().dieAtCall(number);
            if (lookAtRepeat(m_books.registry(), plan, untold) != Outcome::done ||
                repeatCarry(plan, books.messages()) != Outcome::done)
                throw std::runtime_error("not carried");
        });
        const std::size_t left = m_books.differences().size();
        EXPECT_TRUE(left == 0 || left == 3) << number;
        EXPECT_EQ(everything() == m_carried, left == 3) << number;
        undone += left == 3;
        if (left == 0) break;
    }
    EXPECT_GT(undone, 12);
    expectSoundLogAt(m_books.location());
    expectWhole();
}

TEST_P(RepeatedCarry, IsGivenUpWithoutAChange) {
    correct("1001", "mBegin = 101");
    correct("100201", "mBegin = 11");
    std::vector<Notice> untold;
    RepeatPlan plan;
    EXPECT_EQ(lookAtRepeat(m_books.registry(), plan, untold, [](auto, auto) { return false; }),
              Outcome::refused);
    ASSERT_EQ(untold.size(), 1U);
    EXPECT_EQ(untold[0].text, "已取消,没有改动。");
    ASSERT_EQ(lookAtRepeat(m_books.registry(), plan, untold), Outcome::done);
    std::size_t calls = 0;
    const WorkRunner givingUp = [&calls](const auto& work) {
        work([&calls](std::size_t done, std::size_t total) {
            ++calls;
            EXPECT_EQ(total, 3U);
            return done < 1;
        });
    };
    EXPECT_EQ(work().carryAgain(carriedAgain(plan), givingUp), Outcome::refused);
    EXPECT_EQ(calls, 2U);
    EXPECT_EQ(messages().onlyNotice().text, "已取消,没有改动。");
    EXPECT_EQ(everything(), m_carried);
    EXPECT_EQ(m_books.now().shown("1001"), "100.00");
    EXPECT_FALSE(work().canUndo());
}

CHENGHENG_ON_SHARED_ENGINES(RepeatedCarry);

class MidYearRepeatedCarry : public testing::TestWithParam<EngineCase> {};

TEST_P(MidYearRepeatedCarry, MovesTheOpeningWithTheYearStart) {
    CarryBooks books(GetParam(), OpeningLayout::midYear);
    books.now().addAccounts({"1001"});
    books.mirror();
    books.close("1001", 10, 0, 0);
    ASSERT_EQ(books.now().work().refresh(), Outcome::done);
    ASSERT_EQ(books.carry(), Outcome::done);
    ASSERT_TRUE(books.now().type("1001", "2", Measure::money, OpeningField::debit));
    ASSERT_EQ(books.now().shown("1001"), "12.00");
    books.last("UPDATE AccSum SET mBegin = 10.1");
    EXPECT_EQ(books.repeat(), Outcome::done);
    EXPECT_EQ(books.now().shown("1001", Measure::money, OpeningField::yearStart), "10.10");
    EXPECT_EQ(books.now().shown("1001"), "12.10");
    EXPECT_EQ(books.differences(), Texts{});
    EXPECT_EQ(books.now().books().faults(), Texts{});
    EXPECT_EQ(books.now().work().undo(), Outcome::done);
    EXPECT_EQ(books.now().shown("1001"), "12.00");
    EXPECT_EQ(books.now().shown("1001", Measure::money, OpeningField::yearStart), "10.00");
}

CHENGHENG_ON_SHARED_ENGINES(MidYearRepeatedCarry);

}  // namespace
}  // namespace carry_repeats
