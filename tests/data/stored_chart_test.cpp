#include "accounts/chart/stored_chart.h"

#include <gtest/gtest.h>

#include "accounts/chart/account_sql.h"
#include "accounts/chart/chart_state.h"
#include "tests/support/account_books.h"
#include "tests/support/engine_cases.h"

using namespace chengheng;

namespace {

class StoredCharts : public testing::TestWithParam<EngineCase> {
  protected:
    StoredCharts() {
        m_books.add("1001");
        m_books.add("100101");
        m_books.use(UsePlace::posted, "1001");
    }
    /// What a chart tells of what is there: "yes" or "no" to each question.
    std::vector<std::string> answers() {
        const int id = 1;
        const bool questions[] = {m_chart.hasChildren("1001"),
                                  m_chart.hasAccountsBelow("1001"),
                                  m_chart.hasCurrency(1),
                                  m_chart.isUsed(UsePlace::posted, {id}, SumsUse::anyRow),
                                  m_chart.accountOf("1001").has_value(),
                                  m_chart.accountOfId(id).has_value(),
                                  !m_chart.idsWithBelow("1001").empty(),
                                  !m_chart.classes().empty(),
                                  !m_chart.accounts(account_sql::all).empty()};
        std::vector<std::string> texts;
        for (const bool isSo : questions) texts.emplace_back(isSo ? "yes" : "no");
        return texts;
    }

    AccountBooks m_books{freshLocation(GetParam())};
    StoredChart m_chart{m_books.database()};
    const std::vector<std::string> m_yes = std::vector<std::string>(9, "yes");
    const std::vector<std::string> m_no = std::vector<std::string>(9, "no");
};

}  // namespace

TEST_P(StoredCharts, AnswerNoToEverythingFromTheFirstReadingThatFails) {
    EXPECT_EQ(answers(), m_yes);
    EXPECT_TRUE(m_chart.isRead());
    m_books.engine().failCall(1, Failure::full);
    EXPECT_EQ(answers(), m_no);
    EXPECT_EQ(m_books.engine().calls(), 1) << "nothing more is read";
    m_books.engine().failCall(0);
    EXPECT_EQ(answers(), m_no);
    EXPECT_EQ(m_chart.status().failure, Failure::full);
}

TEST_P(StoredCharts, AreReadWholeIntoAStateThatHadOthers) {
    ChartState state;
    ASSERT_TRUE(readChartState(m_books.database(), state));
    EXPECT_FALSE(state.levelPattern.empty());
    EXPECT_EQ(state.usedIn[static_cast<std::size_t>(UsePlace::posted)].size(), 1u);
    m_books.run("DELETE zAccountM\r\nDELETE RegSub");
    ASSERT_TRUE(readChartState(m_books.database(), state));
    EXPECT_EQ(state.levelPattern, "");
    EXPECT_TRUE(state.usedIn[static_cast<std::size_t>(UsePlace::posted)].empty());
}

CHENGHENG_ON_ALL_ENGINES(StoredCharts);
