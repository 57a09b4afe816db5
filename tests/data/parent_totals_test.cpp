#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "tests/support/engine_cases.h"
#include "tests/support/opening_books.h"

using namespace chengheng;

namespace {

constexpr const char* refusal = "科目 1001 在[总帐]中已使用,不能增加下级科目!";

/// 1001 with 100101, 100102 and 10010201 below it, whose opening balances were typed; 1001 has
/// their total.
class ParentTotals : public testing::TestWithParam<std::tuple<EngineCase, OpeningLayout>> {
  protected:
    ParentTotals() {
        m_opening.addAccounts({"1001", "100101", "100102", "10010201"});
        m_opening.addCredit("100103", "资产");
        EXPECT_EQ(m_opening.work().refresh(), Outcome::done);
        EXPECT_TRUE(m_opening.type("100101", "0.10"));
        EXPECT_TRUE(m_opening.type("10010201", "0.20"));
        EXPECT_TRUE(m_opening.type("100103", "5"));
    }
    AccountChange add(ParentSums parentSums) {
        m_opening.messages().forget();
        return m_opening.books().service().add(assetEntry("100104"), parentSums);
    }
    void expectRefusal(const AccountChange& change) {
        EXPECT_EQ(change.outcome, Outcome::refused);
        EXPECT_EQ(m_opening.messages().onlyNotice().text, refusal);
        EXPECT_EQ(change.usedCode, "1001");
        EXPECT_FALSE(m_opening.books().hasAccount("100104"));
        EXPECT_FALSE(m_opening.books().holdsLocks());
    }
    void set(const char* assignment, const std::string& code, int period) {
        m_opening.books().run("UPDATE AccSum SET " + std::string(assignment) +
                              " WHERE lCodeId = " + std::to_string(m_opening.idOf(code)) +
                              " AND byPeroid = " + std::to_string(period));
    }

    OpeningTestBooks m_opening{freshLocation(std::get<0>(GetParam())), std::get<1>(GetParam())};
};

std::string totalsCaseName(const testing::TestParamInfo<ParentTotals::ParamType>& info) {
    const bool isSimple = std::get<1>(info.param) == OpeningLayout::simple;
    return std::get<0>(info.param).name + (isSimple ? "_simple" : "_midYear");
}

}  // namespace

TEST_P(ParentTotals, AreRefusedAndThenAcceptedWithoutChangingABalance) {
    const auto rows = m_opening.rows();
    ASSERT_EQ(m_opening.rowsOf("1001").size(), 12u);
    const AccountChange change = add(ParentSums::keepOut);
    expectRefusal(change);
    EXPECT_TRUE(change.isKeptOutByTotals);
    EXPECT_EQ(add(ParentSums::mayBeTotals).outcome, Outcome::done);
    EXPECT_TRUE(m_opening.messages().texts().empty());
    EXPECT_EQ(m_opening.rows(), rows);
    EXPECT_EQ(m_opening.work().refresh(), Outcome::done);
    EXPECT_EQ(m_opening.whatASaveWouldChange(), std::vector<std::string>{});
    EXPECT_EQ(m_opening.books().faults(), std::vector<std::string>{});
}

TEST_P(ParentTotals, ThatAreNoneAreRefusedWhateverTheOperatorSays) {
    for (const auto& [assignment, code, period] :
         {std::tuple{"mBegin = mBegin + 1", "1001", 12}, {"mDebet = 1", "100101", 3}}) {
        set(assignment, code, period);
        for (const ParentSums parentSums : {ParentSums::keepOut, ParentSums::mayBeTotals}) {
            const AccountChange change = add(parentSums);
            expectRefusal(change);
            EXPECT_FALSE(change.isKeptOutByTotals) << assignment;
        }
        set(std::string(assignment).starts_with("mBegin") ? "mBegin = mBegin - 1" : "mDebet = 0",
            code, period);
    }
    EXPECT_TRUE(add(ParentSums::keepOut).isKeptOutByTotals);
}

TEST_P(ParentTotals, AreNoneWhereTheAccountHasNoOthersBelowIt) {
    const AccountChange change = m_opening.books().service().add(assetEntry("10010101"));
    EXPECT_EQ(change.outcome, Outcome::refused);
    EXPECT_FALSE(change.isKeptOutByTotals);
}

TEST_P(ParentTotals, ThatCannotBeReadAreAFailureAndNoRefusal) {
    Outcome outcome = Outcome::failed;
    for (int call = 1; outcome == Outcome::failed && call < 100; ++call) {
        m_opening.books().engine().failCall(call, Failure::full);
        const AccountChange change = add(ParentSums::keepOut);
        outcome = change.outcome;
        const bool hasFailed = m_opening.books().engine().hasFailed();
        m_opening.books().engine().failCall(0);
        EXPECT_EQ(outcome == Outcome::failed, hasFailed) << call;
        EXPECT_EQ(m_opening.messages().texts().size(), 1u) << call;
        ASSERT_NE(m_opening.database().DBSelect("books"), 0);
    }
    EXPECT_EQ(outcome, Outcome::refused);
}

INSTANTIATE_TEST_SUITE_P(On, ParentTotals,
                         testing::Combine(testing::ValuesIn(allEngineCases()),
                                          testing::Values(OpeningLayout::simple,
                                                          OpeningLayout::midYear)),
                         totalsCaseName);
