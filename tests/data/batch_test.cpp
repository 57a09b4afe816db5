#include <gtest/gtest.h>

#include "data/access/CNbCwDB.h"
#include "data/access/row_lease.h"
#include "data/access/unit_of_work.h"
#include "data/tables/accounts.h"
#include "data/tables/balances.h"
#include "data/tables/currency.h"
#include "data/tables/directories.h"
#include "data/tables/operators.h"
#include "tests/support/engine_cases.h"
#include "tests/support/made_layout.h"

namespace {

using chengheng::EngineCase;
using chengheng::Failure;
using chengheng::formatSql;
using chengheng::UnitOfWork;

/// Batches and units of work in empty books on each engine.
class Batches : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override { chengheng::openNewBooks(m_db, chengheng::freshLocation(GetParam())); }

    std::string twelveRows(int lastId, int account) {
        std::string batch;
        for (int period = 1; period <= 12; ++period)
            batch += formatSql(
                "INSERT AccSum Values( %d, %d, %d, %lf, 0.00, 0.00, %lf, 0.00, "
                "0.00, %lf, 0.00, 0.00 )\n",
                lastId + period, account, period, 12.5, 1.0, 2.0);
        batch +=
            formatSql("Update ABIdTable Set lLastId = %d Where sTable = 'AccSum'", lastId + 12);
        return batch;
    }
    int sums() { return static_cast<int>(chengheng::readRows<_AccSumInfo>(m_db, nullptr).size()); }
    int storedCounter(const std::string& row) {
        char** cells = nullptr;
        int columns = 0;
        int rows = 0;
        const std::string select =
            formatSql("SELECT lLastId FROM ABIdTable WHERE sTable = '%s'", row);
        EXPECT_EQ(m_db.QRYGetData(select, cells, columns, rows), 0) << m_db.lastStatus().detail;
        const int value = rows == 1 ? std::stoi(cells[0]) : -1;
        m_db.QRYReleaseBuffer(cells, columns, rows);
        return value;
    }

    CNbCwDB m_db;
};

TEST_P(Batches, StatementsWithoutIntoAndFromRunInOrder) {
    ASSERT_NE(m_db.QRYExecuteSQL(twelveRows(0, 7)), 0) << m_db.lastStatus().detail;
    EXPECT_EQ(sums(), 12);
    EXPECT_EQ(m_db.AccSum_GetLastId(), 12);
    ASSERT_NE(m_db.QRYExecuteSQL(
                  "DELETE AccSum\nUPDATE ABIdTable Set lLastId = 0 Where sTable = 'AccSum'"),
              0);
    EXPECT_EQ(sums(), 0);
    EXPECT_EQ(m_db.AccSum_GetLastId(), 0);
}

TEST_P(Batches, NextIdAfterEmptyingAccSumIsOne) {
    ASSERT_NE(m_db.QRYExecuteSQL(twelveRows(0, 7)), 0);
    ASSERT_NE(m_db.QRYExecuteSQL(
                  "DELETE AccSum\nUPDATE ABIdTable Set lLastId = 0 Where sTable = 'AccSum'"),
              0);
    int id = 0;
    ASSERT_EQ(m_db.AccSum_AddNew(_AccSumInfo{}, id), 0);
    EXPECT_EQ(id, 1);
}

TEST_P(Batches, FailureAtTheEndTakesEverythingBack) {
    const std::pair<const char*, Failure> ends[] = {
        {"\nDELETE NoSuchTable", Failure::refused},
        {"\nDROP TABLE Code", Failure::unreadable},
    };
    for (const auto& [end, failure] : ends) {
        EXPECT_EQ(m_db.QRYExecuteSQL(twelveRows(0, 7) + end), 0);
        EXPECT_EQ(m_db.lastStatus().failure, failure);
        EXPECT_EQ(sums(), 0);
        EXPECT_EQ(m_db.AccSum_GetLastId(), 0);
    }
}

TEST_P(Batches, UnreadableEndTakesEverythingBack) {
    for (const char* end : {"\nUPDATE Code SET sName = 'x", "\nBEGIN TRANSACTION xiugai",
                            "\nCOMMIT TRANSACTION xiugai", "\nSELECT * FROM Code"}) {
        EXPECT_EQ(m_db.QRYExecuteSQL(twelveRows(0, 7) + end), 0) << end;
        EXPECT_EQ(m_db.lastStatus().failure, Failure::unreadable) << end;
        EXPECT_EQ(sums(), 0) << end;
    }
}

TEST_P(Batches, NamedTransactionAddsAnOperator) {
    const std::string rights(255, 'N');
    ASSERT_NE(m_db.QRYExecuteSQL(formatSql(
                  "BEGIN TRANSACTION xiugai\r\nINSERT INTO Users VALUES( %d, %d, '%s', 0, '%s' )"
                  "\r\nINSERT INTO UserAuth VALUES( %d, %d, '%s' )\r\nUPDATE ABIdTable SET "
                  "lLastId = %d WHERE sTable = 'UserAuth' or sTable = 'Users'\r\nCOMMIT "
                  "TRANSACTION xiugai",
                  5, 5, "O'Brien", "散列", 5, 5, rights, 5)),
              0)
        << m_db.lastStatus().detail;
    EXPECT_EQ(chengheng::readRows<_UsersInfo>(m_db, "sUserName = 'O''Brien'").size(), 1U);
    EXPECT_EQ(chengheng::readRows<_UserAuthInfo>(m_db, "lUserId = 5").front().sAuthId, rights);
    EXPECT_EQ(m_db.Users_GetLastId(), 5);
    EXPECT_EQ(m_db.UserAuth_GetLastId(), 5);
}

TEST_P(Batches, DatesAreWrittenYearMonthDayAndSortAsDays) {
    ASSERT_NE(m_db.QRYExecuteSQL("Insert ExchgFlt Values(1, 2, '2026/10/1', 10, 0.0, 0.0)\n"
                                 "Insert ExchgFlt Values(2, 2, '2026/2/1', 2, 0.0, 0.0)\n"),
              0)
        << m_db.lastStatus().detail;
    const auto rates = chengheng::readRows<_ExchgFltInfo>(m_db, "byExchId = 2 ORDER BY dtDate");
    ASSERT_EQ(rates.size(), 2U);
    EXPECT_EQ(rates[0].dtDate, (chengheng::Date{2026, 2, 1}));
    EXPECT_EQ(chengheng::readRows<_ExchgFltInfo>(m_db, "dtDate > '2026/9/30'").size(), 1U);
}

TEST_P(Batches, HugeAndStrangeTextsComeBackAsTheyWere) {
    for (const std::string& name :
         {std::string("O'Brien"), std::string("100%"), std::string("a_b"), std::string("a\\b"),
          std::string("行一\r\n行二\nDELETE Code\n"), std::string("𠮷野家😀"), std::string("“引号”"),
          std::string(1024 * 1024, 'x') + "'"}) {
        ASSERT_NE(m_db.QRYExecuteSQL(
                      formatSql("INSERT INTO Dept VALUES( %d, '%s', '%s' )", 1, "01", name)),
                  0);
        const auto found =
            chengheng::readRows<_DeptInfo>(m_db, formatSql("sDeptName = '%s'", name).c_str());
        ASSERT_EQ(found.size(), 1U) << name.substr(0, 20);
        EXPECT_EQ(found.front().sDeptName, name);
        ASSERT_NE(m_db.QRYExecuteSQL("DELETE Dept"), 0);
    }
}

TEST_P(Batches, PercentAndUnderscoreInAPrefixAreNoWildcards) {
    for (const char* code : {"1%", "1%1", "1_", "1_1", "101", "1\\1", "aA", "AA"}) {
        _CodeInfo account;
        account.sCode = code;
        int id = 0;
        ASSERT_EQ(m_db.Code_AddNew(account, id), 0);
    }
    const auto count = [&](const std::string& prefix) {
        return chengheng::readRows<_CodeInfo>(m_db, formatSql("sCode LIKE '%s%%'", prefix).c_str())
            .size();
    };
    EXPECT_EQ(count("1%"), 2U);
    EXPECT_EQ(count("1_"), 2U);
    EXPECT_EQ(count("1\\"), 1U);
    EXPECT_EQ(count("1"), 6U);
    EXPECT_EQ(count("A"), 1U);
}

TEST_P(Batches, UnitOfWorkWritesNothingUntilItIsCommitted) {
    {
        UnitOfWork unit(m_db);
        ASSERT_TRUE(unit.isOpen());
        ASSERT_NE(m_db.QRYExecuteSQL(twelveRows(0, 7)), 0);
        EXPECT_EQ(sums(), 12);
    }
    EXPECT_EQ(sums(), 0);
    EXPECT_EQ(m_db.AccSum_GetLastId(), 0);
}

TEST_P(Batches, CountersHeldBackInAUnitAreSeenAndWrittenAtItsEnd) {
    UnitOfWork unit(m_db);
    for (int account = 1; account <= 3; ++account)
        ASSERT_NE(m_db.QRYExecuteSQL(twelveRows(m_db.AccSum_GetLastId(), account)), 0);
    EXPECT_EQ(m_db.AccSum_GetLastId(), 36);
    ASSERT_TRUE(unit.commit().isDone());
    EXPECT_EQ(m_db.AccSum_GetLastId(), 36);
    EXPECT_EQ(storedCounter("AccSum"), 36);
}

TEST_P(Batches, SelectOfTheCountersInsideAUnitSeesWhatWasHeldBack) {
    UnitOfWork unit(m_db);
    ASSERT_NE(m_db.QRYExecuteSQL(twelveRows(0, 1)), 0);
    EXPECT_EQ(storedCounter("AccSum"), 12);
}

TEST_P(Batches, FailedBatchInsideAUnitLeavesTheRestOfTheUnit) {
    UnitOfWork unit(m_db);
    ASSERT_NE(m_db.QRYExecuteSQL(twelveRows(0, 1)), 0);
    EXPECT_EQ(m_db.QRYExecuteSQL(twelveRows(12, 2) + "\nDELETE NoSuchTable"), 0);
    EXPECT_EQ(m_db.AccSum_GetLastId(), 12);
    ASSERT_NE(m_db.QRYExecuteSQL(twelveRows(12, 3)), 0) << m_db.lastStatus().detail;
    ASSERT_TRUE(unit.commit().isDone());
    EXPECT_EQ(sums(), 24);
    EXPECT_EQ(storedCounter("AccSum"), 24);
}

TEST_P(Batches, InnerUnitTakesBackOnlyItsOwnPart) {
    UnitOfWork outer(m_db);
    ASSERT_NE(m_db.QRYExecuteSQL(twelveRows(0, 1)), 0);
    {
        UnitOfWork inner(m_db);
        ASSERT_NE(m_db.QRYExecuteSQL(twelveRows(12, 2)), 0);
    }
    EXPECT_EQ(sums(), 12);
    EXPECT_EQ(m_db.AccSum_GetLastId(), 12);
    {
        UnitOfWork inner(m_db);
        ASSERT_NE(m_db.QRYExecuteSQL(twelveRows(12, 3)), 0);
        ASSERT_TRUE(inner.commit().isDone());
    }
    ASSERT_TRUE(outer.commit().isDone());
    EXPECT_EQ(sums(), 24);
}

TEST_P(Batches, NumbersOfFreeSelectsHaveOneTextOnEveryEngine) {
    ASSERT_NE(m_db.QRYExecuteSQL(
                  "INSERT AccSum Values( 1, 2, 3, 100000.000000, 0.10, -1234.56, 0.00, 1.234567, "
                  "4000000000000.01, 0.5, 1e-7, 300 )"),
              0)
        << m_db.lastStatus().detail;
    char** cells = nullptr;
    int columns = 0;
    int rows = 0;
    ASSERT_EQ(m_db.QRYGetData("SELECT * FROM AccSum", cells, columns, rows), 0);
    ASSERT_EQ(columns, 12);
    ASSERT_EQ(rows, 1);
    const std::vector<std::string> texts(cells, cells + 12);
    EXPECT_EQ(texts,
              (std::vector<std::string>{"1", "2", "3", "100000", "0.1", "-1234.56", "0", "1.234567",
                                        "4000000000000.01", "0.5", "0.0000001", "300"}));
    m_db.QRYReleaseBuffer(cells, columns, rows);
}

TEST_P(Batches, FreeSelectWithoutRowsSucceedsWithNone) {
    char** cells = nullptr;
    int columns = 0;
    int rows = 9;
    EXPECT_EQ(m_db.QRYGetData("SELECT lId FROM Code WHERE lId = 1", cells, columns, rows), 0);
    EXPECT_EQ(rows, 0);
    m_db.QRYReleaseBuffer(cells, columns, rows);
}

TEST_P(Batches, NullCellsAreNull) {
    ASSERT_NE(m_db.QRYExecuteSQL("INSERT INTO RegSub (lId, lPersonId) VALUES (1, NULL)"), 0)
        << m_db.lastStatus().detail;
    char** cells = nullptr;
    int columns = 0;
    int rows = 0;
    ASSERT_EQ(m_db.QRYGetData("SELECT lPersonId, sDigest FROM RegSub", cells, columns, rows), 0);
    ASSERT_EQ(rows, 1);
    EXPECT_EQ(cells[0], nullptr);
    EXPECT_STREQ(cells[1], "");
    m_db.QRYReleaseBuffer(cells, columns, rows);
}

CHENGHENG_ON_ALL_ENGINES(Batches);

}  // namespace
