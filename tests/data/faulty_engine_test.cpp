#include "tests/support/faulty_engine.h"

#include <gtest/gtest.h>

#include "tests/support/engine_cases.h"
#include "tests/support/engine_tools.h"

namespace chengheng {
namespace {

class Faults : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override {
        ASSERT_TRUE(m_engine.script("CREATE TABLE Pair (lId INTEGER)").isDone());
    }

    Status writePair() {
        Status status = m_engine.ensureConnected();
        if (status) status = m_engine.begin();
        if (status) status = runSql(m_engine, "INSERT INTO Pair VALUES (1)");
        if (status) status = runSql(m_engine, "INSERT INTO Pair VALUES (2)");
        if (status) status = m_engine.commit();
        if (!status && m_engine.inTransaction()) {
            EXPECT_TRUE(m_engine.rollback().isDone());
        }
        return status;
    }
    std::string count() { return readCell(m_engine.real(), "SELECT count(*) FROM Pair"); }

    FaultyEngine m_engine{openForTest(freshLocation(GetParam()))};
};

TEST_P(Faults, HitEachCallInTurnUntilTheWorkIsDone) {
    for (const Failure failure : {Failure::full, Failure::lost, Failure::busy}) {
        ASSERT_TRUE(m_engine.script("DELETE FROM Pair"));
        int number = 1;
        for (;; ++number) {
            m_engine.failCall(number, failure);
            const Status status = writePair();
            if (!m_engine.hasFailed()) {
                EXPECT_TRUE(status.isDone()) << status.detail;
                break;
            }
            EXPECT_EQ(status.failure, failure);
            EXPECT_FALSE(m_engine.inTransaction());
            EXPECT_EQ(count(), "0");
            m_engine.failCall(0);
            ASSERT_TRUE(m_engine.ensureConnected());
        }
        EXPECT_EQ(number, 8) << "seven calls were to fail";
        EXPECT_EQ(count(), "2");
        m_engine.failCall(0);
    }
}

TEST_P(Faults, OfALostConnectionLastUntilItIsMadeAgain) {
    ASSERT_TRUE(m_engine.begin());
    m_engine.failCall(2, Failure::lost);
    EXPECT_EQ(runSql(m_engine, "INSERT INTO Pair VALUES (1)").failure, Failure::lost);
    EXPECT_FALSE(m_engine.inTransaction());
    EXPECT_EQ(m_engine.begin().failure, Failure::lost);
    EXPECT_EQ(m_engine.rollback().failure, Failure::lost);
    ASSERT_TRUE(m_engine.ensureConnected());
    EXPECT_TRUE(writePair());
    EXPECT_EQ(count(), "2");
}

TEST_P(Faults, OfAReadAreToldByTheCursor) {
    ASSERT_TRUE(writePair());
    std::unique_ptr<PreparedStatement> statement;
    ASSERT_TRUE(m_engine.prepare("SELECT lId FROM Pair", 0, statement));
    m_engine.failCall(2, Failure::damaged);
    std::unique_ptr<Cursor> cursor;
    ASSERT_TRUE(m_engine.open({statement.get(), {}}, cursor));
    EXPECT_EQ(cursor->next(), Cursor::Step::failed);
    EXPECT_EQ(cursor->status().failure, Failure::damaged);
}

CHENGHENG_ON_ALL_ENGINES(Faults);

}  // namespace
}  // namespace chengheng
