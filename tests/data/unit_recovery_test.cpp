#include <gtest/gtest.h>

#include "data/access/CNbCwDB.h"
#include "data/access/row_lease.h"
#include "data/access/table_locks.h"
#include "data/access/unit_of_work.h"
#include "data/tables/accounts.h"
#include "data/tables/balances.h"
#include "tests/support/engine_cases.h"
#include "tests/support/made_layout.h"
#include "tests/support/private_postgres.h"

namespace {

using chengheng::EngineCase;
using chengheng::Failure;
using chengheng::formatSql;
using chengheng::LockMode;
using chengheng::TableLocks;
using chengheng::UnitOfWork;

/// What a unit of work keeps when a part of it fails, in empty books on each engine.
class Units : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override {
        m_location = chengheng::freshLocation(GetParam());
        chengheng::openNewBooks(m_db, m_location);
    }

    int run(const std::string& batch) { return m_db.QRYExecuteSQL(batch); }
    std::string sumRow(int id) {
        return formatSql(
            "INSERT AccSum Values( %d, %d, 1, 1.00, 0.00, 0.00, 0.00, 0.00, 0.00, 0.00, 0.00, "
            "0.00 )\nUpdate ABIdTable Set lLastId = %d Where sTable = 'AccSum'\n",
            id, id, id);
    }
    int addAccount(const std::string& code) {
        _CodeInfo account;
        account.sCode = code;
        int id = 0;
        return m_db.Code_AddNew(account, id) == 0 ? id : -1;
    }
    std::size_t accounts() { return chengheng::readRows<_CodeInfo>(m_db, nullptr).size(); }
    std::size_t sums() { return chengheng::readRows<_AccSumInfo>(m_db, nullptr).size(); }
    std::string cellOf(const std::string& select) {
        char** cells = nullptr;
        int columns = 0;
        int rows = 0;
        EXPECT_EQ(m_db.QRYGetData(select, cells, columns, rows), 0) << m_db.lastStatus().detail;
        std::string cell = rows > 0 && cells[0] != nullptr ? cells[0] : "";
        m_db.QRYReleaseBuffer(cells, columns, rows);
        return cell;
    }
    std::string storedCounter(const std::string& row) {
        return cellOf(formatSql("SELECT lLastId FROM ABIdTable WHERE sTable = '%s'", row));
    }
    void openSecond() {
        NbCwDBInfo info;
        ASSERT_NE(m_db.DBOpen(info, chengheng::freshLocation(GetParam()).c_str(), "other", 0), 0);
    }

    std::string m_location;
    CNbCwDB m_db;
};

TEST_P(Units, KeepTheirCountersWhenABatchFailsThatWouldHaveWrittenThem) {
    for (const char* end : {"DELETE NoSuchTable", "UPDATE Code SET sName = 'x"}) {
        const int id = m_db.AccSum_GetLastId() + 1;
        UnitOfWork unit(m_db);
        ASSERT_NE(run(sumRow(id)), 0);
        EXPECT_EQ(run(std::string("UPDATE ABIdTable SET lLastId = 5 WHERE sTable = 'UserAuth' or "
                                  "sTable = 'Users'\n") +
                      end),
                  0);
        EXPECT_EQ(m_db.AccSum_GetLastId(), id) << end;
        ASSERT_TRUE(unit.commit()) << unit.status().detail;
        EXPECT_EQ(storedCounter("AccSum"), std::to_string(id)) << end;
        EXPECT_EQ(storedCounter("Users"), "0") << end;
    }
}

TEST_P(Units, GoOnAfterASelectThatFailed) {
    UnitOfWork unit(m_db);
    ASSERT_NE(run(sumRow(1)), 0);
    char** cells = nullptr;
    int columns = 0;
    int rows = 0;
    EXPECT_NE(m_db.QRYGetData("SELECT lId FROM ProjItems77", cells, columns, rows), 0);
    _CodeInfo** accountRows = nullptr;
    EXPECT_NE(m_db.Code_GetInfo(accountRows, rows, "noSuchColumn = 1"), 0);
    ASSERT_NE(run(sumRow(2)), 0) << m_db.lastStatus().detail;
    ASSERT_TRUE(unit.commit()) << unit.status().detail;
    EXPECT_EQ(sums(), 2U);
    EXPECT_EQ(m_db.AccSum_GetLastId(), 2);
}

TEST_P(Units, GoOnAfterARecordThatCouldNotBeAdded) {
    ASSERT_EQ(addAccount("1001"), 1);
    UnitOfWork unit(m_db);
    ASSERT_NE(run("UPDATE ABIdTable SET lLastId = 0 WHERE sTable = 'Code'"), 0);
    EXPECT_EQ(addAccount("1002"), -1) << "the id is taken";
    EXPECT_EQ(m_db.Code_GetLastId(), 0);
    ASSERT_NE(run("UPDATE ABIdTable SET lLastId = 1 WHERE sTable = 'Code'"), 0)
        << m_db.lastStatus().detail;
    EXPECT_EQ(addAccount("1002"), 2);
    ASSERT_TRUE(unit.commit());
    EXPECT_EQ(accounts(), 2U);
    EXPECT_EQ(storedCounter("Code"), "2");
}

TEST_P(Units, CountOnFromBatchesToRecordsAndBack) {
    UnitOfWork unit(m_db);
    ASSERT_NE(run(sumRow(1)), 0);
    int id = 0;
    ASSERT_EQ(m_db.AccSum_AddNew(_AccSumInfo{}, id), 0);
    EXPECT_EQ(id, 2);
    ASSERT_NE(run(sumRow(m_db.AccSum_GetLastId() + 1)), 0);
    ASSERT_EQ(m_db.AccSum_AddNew(_AccSumInfo{}, id), 0);
    EXPECT_EQ(id, 4);
    ASSERT_TRUE(unit.commit());
    EXPECT_EQ(storedCounter("AccSum"), "4");
}

TEST_P(Units, RunAStatementAgainThatFollowedAFailedOne) {
    const std::string news = "Delete From Sign Where lId = 7\nDelete From Settle Where lId = 7";
    UnitOfWork unit(m_db);
    EXPECT_EQ(run("DELETE NoSuchTable\n" + news), 0);
    EXPECT_NE(run(news), 0) << m_db.lastStatus().detail;
    EXPECT_EQ(run("DELETE NoSuchTable"), 0);
    EXPECT_TRUE(unit.commit());
}

TEST_P(Units, EndOnTheDatabaseTheyBeganOn) {
    openSecond();
    {
        UnitOfWork unit(m_db);
        ASSERT_NE(run(sumRow(1)), 0);
        ASSERT_NE(m_db.DBSelect("other"), 0);
    }
    ASSERT_NE(m_db.DBSelect("books"), 0);
    EXPECT_EQ(sums(), 0U);
    {
        UnitOfWork unit(m_db);
        ASSERT_NE(run(sumRow(1)), 0);
        ASSERT_NE(m_db.DBSelect("other"), 0);
        EXPECT_TRUE(unit.commit());
    }
    ASSERT_NE(m_db.DBClose("books"), 0);
    if (m_location == ":memory:") return;
    NbCwDBInfo info;
    ASSERT_NE(m_db.DBOpen(info, m_location.c_str(), "again", 1), 0);
    ASSERT_NE(m_db.DBSelect("again"), 0);
    EXPECT_EQ(sums(), 1U);
}

TEST_P(Units, OfADatabaseClosedInBetweenCannotBeCommitted) {
    openSecond();
    ASSERT_NE(m_db.DBSelect("other"), 0);
    UnitOfWork unit(m_db);
    ASSERT_NE(m_db.DBClose("other"), 0);
    ASSERT_NE(m_db.DBSelect("books"), 0);
    EXPECT_EQ(unit.commit().failure, Failure::notOpen);
    EXPECT_NE(run(sumRow(1)), 0);
}

TEST_P(Units, LocksAreReleasedOnTheDatabaseTheyWereTakenOn) {
    openSecond();
    {
        TableLocks locks(m_db, "AccSum", "Code");
        ASSERT_TRUE(locks.areGranted());
        ASSERT_NE(m_db.DBSelect("other"), 0);
    }
    ASSERT_NE(m_db.DBSelect("books"), 0);
    EXPECT_FALSE(m_db.lockService()->holds("AccSum", LockMode::shared));
    EXPECT_FALSE(m_db.lockService()->holds("Code", LockMode::exclusive));
}

/// The same on a server alone.
class ServerUnits : public Units {};

// Without a server for tests there are no cases.
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(ServerUnits);

TEST_P(ServerUnits, LostWithTheServerLeaveNothingAndTheNextSelectReconnects) {
    ASSERT_NE(run(sumRow(1)), 0);
    const std::string session = cellOf("SELECT pg_backend_pid()");
    TableLocks locks(m_db, "AccSum", "Code");
    {
        UnitOfWork unit(m_db);
        ASSERT_NE(run(sumRow(2)), 0);
        chengheng::endSession(m_location, session);
        EXPECT_EQ(run(sumRow(3)), 0);
        EXPECT_EQ(m_db.lastStatus().failure, Failure::lost);
        static_cast<void>(m_db.DBSelect("books"));
        EXPECT_EQ(run(sumRow(4)), 0) << "written without its unit";
        EXPECT_EQ(addAccount("1001"), -1);
        EXPECT_EQ(unit.commit().failure, Failure::lost);
    }
    EXPECT_EQ(run(sumRow(2)), 0);
    ASSERT_NE(m_db.DBSelect("books"), 0) << m_db.lastStatus().detail;
    EXPECT_EQ(sums(), 1U);
    EXPECT_EQ(m_db.AccSum_GetLastId(), 1);
    EXPECT_FALSE(m_db.lockService()->holds("Code", LockMode::exclusive));
    EXPECT_NE(run(sumRow(2)), 0);
}

CHENGHENG_ON_ALL_ENGINES(Units);

/// A file has no connection to lose.
std::vector<EngineCase> serverCases() {
    std::vector<EngineCase> cases = chengheng::allEngineCases();
    std::erase_if(cases, [](const EngineCase& each) { return each.name != "postgres"; });
    return cases;
}

INSTANTIATE_TEST_SUITE_P(On, ServerUnits, testing::ValuesIn(serverCases()),
                         chengheng::engineCaseName);

}  // namespace
