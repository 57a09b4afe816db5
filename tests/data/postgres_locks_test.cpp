#include <gtest/gtest.h>
#include <signal.h>

#include "tests/support/engine_cases.h"
#include "tests/support/engine_tools.h"
#include "tests/support/private_postgres.h"

namespace chengheng {
namespace {

using namespace std::chrono_literals;

using LockMode::exclusive;
using LockMode::shared;

/// Does something at each question, and goes on until the last one.
struct BusyWaiter : LockWaiter {
    bool keepWaiting(const LockHolder& holder, std::chrono::milliseconds) override {
        shown = holder;
        return act(++asked);
    }

    bool (*act)(int) = nullptr;
    LockHolder shown;
    int asked = 0;
};

class PostgresLocksTest : public testing::Test {
  protected:
    void SetUp() override {
        if (!hasTestServer()) GTEST_SKIP() << "CHENGHENG_TEST_POSTGRES names no server";
        m_address = freshSchema();
        m_first = openForTest(m_address);
        m_second = openForTest(m_address, OpenMode::existing);
        ASSERT_TRUE(m_first->script("CREATE TABLE Goods (lId integer PRIMARY KEY)"));
    }

    LockService& first() { return m_first->locks(); }
    LockService& second() { return m_second->locks(); }
    bool isFree(const std::string& name) {
        const bool isGranted = second().lock(name, exclusive, false).isDone();
        if (isGranted) second().unlock(name, exclusive);
        return isGranted;
    }
    void failInTransaction() {
        ASSERT_TRUE(m_first->begin());
        ASSERT_FALSE(runSql(*m_first, "INSERT INTO Nowhere VALUES (1)"));
    }

    std::string m_address;
    std::unique_ptr<Engine> m_first;
    std::unique_ptr<Engine> m_second;
};

TEST_F(PostgresLocksTest, OfOneSchemaAreNotThoseOfAnother) {
    const auto other = openForTest(freshSchema());
    ASSERT_TRUE(first().lock("Code", exclusive, false));
    EXPECT_TRUE(other->locks().lock("Code", exclusive, false));
}

// Temporary tables keep the server's process busy after its connection has gone.
TEST_F(PostgresLocksTest, AreFreeAsSoonAsTheirConnectionIsClosed) {
    auto leaving = openForTest(m_address, OpenMode::existing);
    for (int table = 0; table < 300; ++table)
        ASSERT_TRUE(leaving->script("CREATE TEMP TABLE t" + std::to_string(table) + " (a text)"));
    ASSERT_TRUE(leaving->locks().lock("Code", exclusive, false));
    ASSERT_TRUE(leaving->begin());
    ASSERT_TRUE(runSql(*leaving, "INSERT INTO Goods VALUES (1)"));
    leaving.reset();
    EXPECT_TRUE(isFree("Code"));
}

TEST_F(PostgresLocksTest, DoNotKeepAConnectionToASilentServerFromClosing) {
    ASSERT_TRUE(first().lock("Code", exclusive, false));
    const pid_t session = std::stoi(readCell(*m_first, "SELECT pg_backend_pid()"));
    ASSERT_EQ(kill(session, SIGSTOP), 0);
    m_first.reset();
    EXPECT_FALSE(isFree("Code")) << "the session stands still";
    ASSERT_EQ(kill(session, SIGCONT), 0);
}

TEST_F(PostgresLocksTest, AreGoneWithALostConnectionAndCanBeTakenAgain) {
    ASSERT_TRUE(first().lock("Code", exclusive, false));
    endSession(m_address, readCell(*m_first, "SELECT pg_backend_pid()"));
    EXPECT_TRUE(isFree("Code"));
    EXPECT_EQ(first().lock("Sign", shared, true).failure, Failure::lost);
    EXPECT_FALSE(first().holds("Code", exclusive));
    first().unlock("Code", exclusive);
    EXPECT_EQ(first().lock("Sign", shared, true).failure, Failure::lost);
    ASSERT_TRUE(m_first->ensureConnected());
    EXPECT_FALSE(first().holds("Code", exclusive));
    EXPECT_TRUE(first().lock("Code", exclusive, false));
    EXPECT_FALSE(isFree("Code"));
}

TEST_F(PostgresLocksTest, ReleasedInAFailedTransactionAreFreeAtItsEnd) {
    ASSERT_TRUE(first().lock("Code Sign", exclusive, false));
    failInTransaction();
    first().unlock("Code", exclusive);
    EXPECT_FALSE(first().holds("Code", exclusive));
    EXPECT_EQ(first().lock("Users", shared, false).failure, Failure::refused);
    ASSERT_TRUE(m_first->rollback());
    EXPECT_TRUE(isFree("Code"));
    EXPECT_FALSE(isFree("Sign"));
}

TEST_F(PostgresLocksTest, ReleasedInAFailedPartOfATransactionAreFreeBehindIt) {
    ASSERT_TRUE(first().lock("Code", exclusive, false));
    ASSERT_TRUE(m_first->begin());
    ASSERT_TRUE(m_first->savepoint(1));
    ASSERT_FALSE(runSql(*m_first, "INSERT INTO Nowhere VALUES (1)"));
    first().unlock("Code", exclusive);
    ASSERT_TRUE(m_first->rollbackToSavepoint(1));
    EXPECT_TRUE(isFree("Code"));
    ASSERT_TRUE(m_first->rollback());
}

TEST_F(PostgresLocksTest, TakenInATransactionOutliveItAndThenNameTheirHolder) {
    first().setIdentity({"王芳", "会计科目"});
    ASSERT_TRUE(m_first->begin());
    ASSERT_TRUE(runSql(*m_first, "INSERT INTO Goods VALUES (1)"));
    ASSERT_TRUE(first().lock("Code", exclusive, true));
    EXPECT_EQ(second().lock("Code", shared, false).failure, Failure::busy);
    ASSERT_TRUE(m_first->rollback());
    EXPECT_EQ(second().lock("Code", shared, false).failure, Failure::busy);
    EXPECT_EQ(second().lastHolder().operatorName, "王芳");
    EXPECT_EQ(second().lastHolder().function, "会计科目");
    EXPECT_EQ(readCell(*m_first, "SELECT count(*) FROM Goods"), "0");
}

TEST_F(PostgresLocksTest, WaitedForInATransactionLeaveItAsItIs) {
    ASSERT_TRUE(second().lock("Code", exclusive, false));
    ASSERT_TRUE(m_first->begin());
    ASSERT_TRUE(runSql(*m_first, "INSERT INTO Goods VALUES (1)"));
    PatientWaiter patience(200ms);
    first().setWaiter(&patience);
    EXPECT_EQ(first().lock("Abc Code", shared, true).failure, Failure::busy);
    EXPECT_FALSE(first().holds("Abc", shared));
    ASSERT_TRUE(m_first->commit());
    EXPECT_EQ(readCell(*m_first, "SELECT count(*) FROM Goods"), "1");
}

TEST_F(PostgresLocksTest, AreKeptWithoutNamesWhereTheServerRefusesWriting) {
    first().setIdentity({"王芳", "会计科目"});
    ASSERT_TRUE(m_first->script("SET default_transaction_read_only TO on"));
    ASSERT_TRUE(first().lock("Code Sign", exclusive, true));
    EXPECT_TRUE(first().holds("sign", exclusive));
    EXPECT_EQ(second().lock("Code", shared, false).failure, Failure::busy);
    EXPECT_EQ(second().lastHolder().lockName, "Code");
    EXPECT_EQ(second().lastHolder().operatorName, "");
}

TEST_F(PostgresLocksTest, AreKeptWhenTheTableOfSessionsGoesAway) {
    ASSERT_TRUE(first().lock("Code", exclusive, true));
    ASSERT_TRUE(m_first->script("DROP TABLE LockSession"));
    ASSERT_TRUE(first().lock("Sign Users", exclusive, true));
    for (const char* name : {"Code", "Sign", "Users"}) EXPECT_FALSE(isFree(name)) << name;
    first().unlock("Code Sign Users", exclusive);
    for (const char* name : {"Code", "Sign", "Users"}) EXPECT_TRUE(isFree(name)) << name;
}

TEST_F(PostgresLocksTest, AreLostWhenTheConnectionIsWhileWaiting) {
    ASSERT_TRUE(second().lock("Code", exclusive, false));
    ASSERT_TRUE(first().lock("Sign", exclusive, false));
    static std::string session;
    static std::string address;
    session = readCell(*m_first, "SELECT pg_backend_pid()");
    address = m_address;
    BusyWaiter waiter;
    waiter.act = [](int asked) {
        if (asked == 2) endSession(address, session);
        return asked < 100;
    };
    first().setWaiter(&waiter);
    EXPECT_EQ(first().lock("Code", shared, true).failure, Failure::lost);
    EXPECT_EQ(waiter.asked, 2);
    EXPECT_FALSE(first().holds("Sign", exclusive));
}

TEST_F(PostgresLocksTest, WaitedForLeaveTheConnectionToOthersMeanwhile) {
    ASSERT_TRUE(second().lock("Code", exclusive, false));
    static Engine* engine;
    engine = m_first.get();
    BusyWaiter waiter;
    waiter.act = [](int asked) {
        return runSql(*engine, "INSERT INTO Goods VALUES (" + std::to_string(asked) + ")") &&
               asked < 3;
    };
    first().setWaiter(&waiter);
    EXPECT_EQ(first().lock("Code", shared, true).failure, Failure::cancelled);
    EXPECT_EQ(readCell(*m_first, "SELECT count(*) FROM Goods"), "3");
}

TEST_F(PostgresLocksTest, LeaveNoTraceOfAWaitBehind) {
    ASSERT_TRUE(second().lock("Code", exclusive, false));
    PatientWaiter patience(150ms);
    first().setWaiter(&patience);
    ASSERT_FALSE(first().lock("Code", shared, true));
    second().unlock("Code", exclusive);
    EXPECT_EQ(askServer(m_address,
                        "SELECT count(*) FROM pg_locks WHERE locktype = 'advisory' "
                        "AND pid IN (" +
                            readCell(*m_first, "SELECT pg_backend_pid()") + ", " +
                            readCell(*m_second, "SELECT pg_backend_pid()") + ")"),
              "0");
}

TEST_F(PostgresLocksTest, OfASessionThatEndedLeaveNoRowForLong) {
    ASSERT_TRUE(first().lock("Code", exclusive, false));
    const std::string ended = readCell(*m_first, "SELECT pg_backend_pid()");
    endSession(m_address, ended);
    ASSERT_TRUE(second().lock("Code", exclusive, false));
    EXPECT_EQ(readCell(*m_second, "SELECT count(*) FROM LockSession WHERE lProcess = " + ended),
              "0");
    EXPECT_EQ(readCell(*m_second, "SELECT count(*) FROM LockSession"), "1");
}

}  // namespace
}  // namespace chengheng
