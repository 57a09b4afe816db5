#include <gtest/gtest.h>

#include "tests/support/engine_cases.h"
#include "tests/support/engine_tools.h"
#include "tests/support/other_workstation.h"

namespace chengheng {
namespace {

class Crashes : public testing::TestWithParam<EngineCase> {
  protected:
    Crashes() : m_location(freshLocation(GetParam())), m_engine(openForTest(m_location)) {
        EXPECT_TRUE(m_engine->script("CREATE TABLE Kept (lId INTEGER)").isDone());
    }

    /// How many rows there are once the dead connection's transaction is over: a writer gets
    /// through then.
    std::string settledCount() {
        EXPECT_TRUE(runSql(*m_engine, "DELETE FROM Kept WHERE lId = 0").isDone());
        return readCell(*m_engine, "SELECT count(*) FROM Kept");
    }

    std::string m_location;
    std::unique_ptr<Engine> m_engine;
};

TEST_P(Crashes, InTheMiddleOfATransactionLeaveTheOldState) {
    OtherWorkstation other(m_location);
    ASSERT_TRUE(other.ask("begin"));
    ASSERT_TRUE(other.ask("sql INSERT INTO Kept VALUES (1)"));
    ASSERT_TRUE(other.ask("sql INSERT INTO Kept VALUES (2)"));
    other.kill();
    EXPECT_EQ(settledCount(), "0");
}

TEST_P(Crashes, AfterTheCommitLeaveTheNewState) {
    OtherWorkstation other(m_location);
    ASSERT_TRUE(other.ask("begin"));
    ASSERT_TRUE(other.ask("sql INSERT INTO Kept VALUES (1)"));
    ASSERT_TRUE(other.ask("commit"));
    other.kill();
    EXPECT_EQ(settledCount(), "1");
}

CHENGHENG_ON_SHARED_ENGINES(Crashes);

}  // namespace
}  // namespace chengheng
