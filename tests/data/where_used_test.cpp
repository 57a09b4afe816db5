#include "accounts/screen/where_used.h"

#include <gtest/gtest.h>

#include "accounts/chart/account_sql.h"
#include "data/tables/accounts.h"
#include "tests/support/account_books.h"
#include "tests/support/engine_cases.h"
#include "tests/support/no_books.h"

using namespace chengheng;

namespace {

class WhereUsed : public testing::TestWithParam<EngineCase> {
  protected:
    std::vector<UseSection> uses(const std::string& code) {
        std::vector<UseSection> sections;
        EXPECT_TRUE(findUses(code, sections)) << m_books.database().lastStatus().detail;
        return sections;
    }

    AccountBooks m_books{freshLocation(GetParam())};
};

using Row = std::vector<std::string>;

}  // namespace

TEST_P(WhereUsed, IsNowhereForAnUnusedAccountAndForNone) {
    m_books.add("1001");
    EXPECT_TRUE(uses("1001").empty());
    EXPECT_TRUE(uses("9999").empty());
}

TEST_P(WhereUsed, ListsEveryPlaceInItsOrderWithItsRows) {
    m_books.add("1001");
    for (const UsePlace place : usePlaces) m_books.use(place, "1001");
    const auto sections = uses("1001");
    ASSERT_EQ(sections.size(), usePlaces.size());
    const Row voucher{"1001", "1", "2026-01-05", "记", "1", "付款", "借", "1,234.50"};
    const std::vector<std::pair<std::string, Row>> expected{
        {"未记帐凭证", voucher},
        {"已记帐凭证", voucher},
        {"总帐", {"1001", "1", "500.00", "0.00", "0.00"}},
        {"常用凭证", {"1001", "1", "付款", "借", "10.00"}},
        {"常用摘要", {"1001", "付货款"}},
        {"转帐定义", {"1001", "结转", "结转成本", "贷"}},
        {"项目档案", {"1001", "01", "工程"}}};
    for (std::size_t at = 0; at < sections.size(); ++at) {
        const UseSection& section = sections[at];
        EXPECT_EQ(section.title, expected[at].first);
        EXPECT_EQ(section.count, section.place == UsePlace::sums ? 12 : 1);
        ASSERT_EQ(section.rows.size(), static_cast<std::size_t>(section.count));
        EXPECT_EQ(section.rows.front(), expected[at].second);
        EXPECT_EQ(section.headings.size(), section.rows.front().size());
    }
}

TEST_P(WhereUsed, CountsWhatTheAccountsBelowHoldToo) {
    m_books.add("1001");
    m_books.add("100101");
    m_books.add("1002");
    m_books.use(UsePlace::posted, "100101");
    m_books.use(UsePlace::posted, "1002");
    const auto sections = uses("1001");
    ASSERT_EQ(sections.size(), 1u);
    EXPECT_EQ(sections[0].count, 1);
    EXPECT_EQ(sections[0].rows[0][0], "100101");
}

TEST_P(WhereUsed, SearchesForThousandsOfAccountsBelow) {
    const int lastId = m_books.add("1001");
    std::vector<_CodeInfo> below(3000);
    for (std::size_t at = 0; at < below.size(); ++at)
        below[at].sCode = "1001" + std::to_string(10000 + at);
    m_books.run(account_sql::addAccounts(below, lastId));
    m_books.use(UsePlace::posted, below.back().sCode);
    const auto sections = uses("1001");
    ASSERT_EQ(sections.size(), 1u);
    EXPECT_EQ(sections[0].rows[0][0], below.back().sCode);
}

TEST_P(WhereUsed, ListsNoMoreThanOneReadsAndCountsAll) {
    m_books.add("1001");
    const int id = m_books.account("1001").lId;
    std::string batch;
    for (int number = 1; number <= mostUsesListed + 5; ++number)
        batch += "INSERT INTO _Digest VALUES( " + std::to_string(1000 + number) + ", " +
                 std::to_string(id) + ", '摘要' )\r\n";
    m_books.run(batch);
    const auto sections = uses("1001");
    ASSERT_EQ(sections.size(), 1u);
    EXPECT_EQ(sections[0].count, mostUsesListed + 5);
    EXPECT_EQ(sections[0].rows.size(), static_cast<std::size_t>(mostUsesListed));
}

TEST_P(WhereUsed, ForgetsWhatWasListedBefore) {
    m_books.add("1001");
    m_books.add("1002");
    m_books.use(UsePlace::posted, "1001");
    std::vector<UseSection> sections;
    ASSERT_TRUE(findUses("1001", sections));
    ASSERT_TRUE(findUses("1001", sections));
    EXPECT_EQ(sections.size(), 1u);
    ASSERT_TRUE(findUses("1002", sections));
    EXPECT_TRUE(sections.empty());
}

TEST_P(WhereUsed, IsUnknownWithoutOpenBooks) {
    std::vector<UseSection> sections;
    const NoBooks none;
    EXPECT_EQ(findUses("1001", sections).failure, Failure::notOpen);
}

TEST_P(WhereUsed, IsUnknownWhicheverReadingFails) {
    m_books.add("1001");
    for (const UsePlace place : usePlaces) m_books.use(place, "1001");
    bool hasFailed = true;
    int call = 1;
    for (; hasFailed && call < 100; ++call) {
        std::vector<UseSection> sections;
        m_books.engine().failCall(call, Failure::full);
        const Status status = findUses("1001", sections);
        hasFailed = m_books.engine().hasFailed();
        m_books.engine().failCall(0);
        EXPECT_EQ(status.failure, hasFailed ? Failure::full : Failure::none) << call;
        EXPECT_TRUE(hasFailed || sections.size() == usePlaces.size()) << call;
    }
    EXPECT_GT(call, 14);
}

CHENGHENG_ON_ALL_ENGINES(WhereUsed);
