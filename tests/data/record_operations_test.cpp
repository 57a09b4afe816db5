#include <gtest/gtest.h>

#include "data/access/CNbCwDB.h"
#include "data/access/row_lease.h"
#include "data/access/unit_of_work.h"
#include "data/connection/database.h"
#include "data/tables/accounts.h"
#include "data/tables/balances.h"
#include "data/tables/settlement.h"
#include "data/tables/vouchers.h"
#include "tests/support/engine_cases.h"
#include "tests/support/engine_tools.h"
#include "tests/support/made_layout.h"
#include "tests/support/small_books.h"

namespace {

using chengheng::Date;
using chengheng::EngineCase;
using chengheng::Failure;
using chengheng::UnitOfWork;

/// Empty books on each engine.
class RecordOperations : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override { chengheng::openNewBooks(m_db, chengheng::freshLocation(GetParam())); }

    int addAccount(const std::string& code, const std::string& name = "账户") {
        _CodeInfo account;
        account.sCode = code;
        account.sName = name;
        int id = 0;
        EXPECT_EQ(m_db.Code_AddNew(account, id), 0) << m_db.lastStatus().detail;
        return id;
    }
    int countOf(const char* condition) {
        return static_cast<int>(chengheng::readRows<_CodeInfo>(m_db, condition).size());
    }

    CNbCwDB m_db;
};

TEST_P(RecordOperations, EmptyTableGivesNonZeroAndNothingToRelease) {
    _CodeInfo** rows = nullptr;
    int count = 7;
    EXPECT_NE(m_db.Code_GetInfo(rows, count, nullptr), 0);
    EXPECT_EQ(rows, nullptr);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(m_db.lastStatus().failure, Failure::missing);
}

TEST_P(RecordOperations, ListReadTakesAConditionWithAnOrder) {
    addAccount("1002");
    addAccount("1001");
    _CodeInfo** rows = nullptr;
    int count = 0;
    ASSERT_EQ(m_db.Code_GetInfo(rows, count, "lId > 0 ORDER BY sCode"), 0);
    ASSERT_EQ(count, 2);
    EXPECT_EQ(rows[0]->sCode, "1001");
    EXPECT_EQ(rows[1]->sCode, "1002");
    m_db.Code_ReleaseAllBuffer();
}

TEST_P(RecordOperations, NullConditionReadsAllRows) {
    addAccount("1001");
    addAccount("1002");
    EXPECT_EQ(countOf(nullptr), 2);
    EXPECT_EQ(countOf("ORDER BY sCode"), 2);
}

TEST_P(RecordOperations, OneRowReadFindsTheRowOfTheIdOnly) {
    const int id = addAccount("1001");
    _CodeInfo* row = nullptr;
    ASSERT_EQ(m_db.Code_GetInfo(row, id), 0);
    EXPECT_EQ(row->sCode, "1001");
    EXPECT_NE(m_db.Code_GetInfo(row, id + 1), 0);
    EXPECT_EQ(row, nullptr);
}

TEST_P(RecordOperations, TextRowsHoldEveryColumnAsText) {
    addAccount("1001", "库存现金");
    TextRow* rows = nullptr;
    int count = 0;
    ASSERT_EQ(m_db.Code_GetInfo(rows, count, "sCode = '1001'"), 0);
    ASSERT_EQ(count, 1);
    ASSERT_EQ(rows[0].count, 16);
    EXPECT_STREQ(rows[0].cells[1], "1001");
    EXPECT_STREQ(rows[0].cells[2], "库存现金");
    EXPECT_STREQ(rows[0].cells[5], "0");
    m_db.Code_ReleaseAllBuffer();
}

TEST_P(RecordOperations, AddedRecordReadsBackEqual) {
    _RegSubInfo line;
    line.lTieId = 3;
    line.sDigest = "O'Brien 100% _\\ 𠮷\r\n第二行";
    line.mMoney = 0.1 + 0.2;
    line.lPersonId = 8;
    line.dtNote = Date{2026, 2, 28};
    line.bBegin = 1;
    int id = 0;
    ASSERT_EQ(m_db.RegSub_AddNew(line, id), 0) << m_db.lastStatus().detail;
    line.lId = id;
    _RegSubInfo* stored = nullptr;
    ASSERT_EQ(m_db.RegSub_GetInfo(stored, id), 0);
    EXPECT_EQ(*stored, line);
}

TEST_P(RecordOperations, UnknownPersonIsStoredAsNull) {
    _RegSubInfo line;
    int id = 0;
    ASSERT_EQ(m_db.RegSub_AddNew(line, id), 0);
    EXPECT_TRUE(chengheng::readRows<_RegSubInfo>(m_db, "lPersonId is not NULL").empty());
    EXPECT_EQ(chengheng::readRows<_RegSubInfo>(m_db, "lPersonId is NULL").size(), 1U);
}

TEST_P(RecordOperations, IdsGrowByOneAndAreNotUsedAgain) {
    const int first = addAccount("1001");
    const int second = addAccount("1002");
    EXPECT_EQ(second, first + 1);
    EXPECT_EQ(m_db.Code_Delete(second), 0);
    EXPECT_EQ(addAccount("1003"), second + 1);
    EXPECT_EQ(m_db.Code_GetLastId(), second + 1);
}

TEST_P(RecordOperations, IdsEndAtTheLargestNumberAndNeverTurnNegative) {
    ASSERT_NE(m_db.QRYExecuteSQL("Update ABIdTable Set lLastId = 2147483646 Where sTable = 'Code'"),
              0);
    EXPECT_EQ(addAccount("1001"), 2147483647);
    int id = 0;
    EXPECT_NE(m_db.Code_AddNew(_CodeInfo{}, id), 0);
    EXPECT_EQ(m_db.lastStatus().failure, Failure::noIdLeft);
    EXPECT_EQ(id, 0);
    EXPECT_EQ(countOf(nullptr), 1);
    EXPECT_EQ(m_db.Code_GetLastId(), 2147483647);
}

TEST_P(RecordOperations, ACounterBelowNothingIsNoCounter) {
    ASSERT_NE(m_db.QRYExecuteSQL("Update ABIdTable Set lLastId = -5 Where sTable = 'Code'"), 0);
    int id = 0;
    EXPECT_NE(m_db.Code_AddNew(_CodeInfo{}, id), 0);
    EXPECT_EQ(m_db.lastStatus().failure, Failure::wrongValue);
    EXPECT_EQ(countOf(nullptr), 0);
}

TEST_P(RecordOperations, AFractionIsNoCounter) {
    if (GetParam().name == "postgres") return;  // whose column takes none
    plant(m_db.selectedDatabase()->engine(),
          "UPDATE ABIdTable SET lLastId = 5.5 WHERE sTable = 'Code'");
    int id = 0;
    EXPECT_NE(m_db.Code_AddNew(_CodeInfo{}, id), 0);
    EXPECT_EQ(m_db.lastStatus().failure, Failure::wrongValue);
    EXPECT_EQ(countOf(nullptr), 0);
}

struct Wrong {
    const char* change;
    const char* told;
    bool isTakenByServers;  ///< by the type of the column alone
};

constexpr Wrong wrongValues[] = {
    {"byPeroid = 300", "AccSum lId=1 byPeroid: 300", true},
    {"byPeroid = -1", "AccSum lId=1 byPeroid: -1", true},
    {"lCodeId = 2147483648", "AccSum lId=1 lCodeId: 2147483648", false},
    {"lCodeId = 'x'", "AccSum lId=1 lCodeId: x", false},
    {"byPeroid = 1.5", "AccSum lId=1 byPeroid: 1.5", false},
    {"mBegin = 1e308 * 1e308", "AccSum lId=1 mBegin: Inf", false},
    {"mBegin = '12x'", "AccSum lId=1 mBegin: 12x", false},
};

TEST_P(RecordOperations, WhatDoesNotFitItsFieldIsNotStored) {
    ASSERT_NE(m_db.QRYExecuteSQL("INSERT AccSum Values(1, 7, 1, 5, 0, 0, 0, 0, 0, 0, 0, 0)"), 0);
    const auto before = chengheng::readRows<_AccSumInfo>(m_db, nullptr);
    for (const Wrong& wrong : wrongValues) {
        if (GetParam().name == "postgres" && !wrong.isTakenByServers) continue;
        EXPECT_EQ(m_db.QRYExecuteSQL(std::string("UPDATE AccSum SET ") + wrong.change), 0);
        EXPECT_EQ(m_db.lastStatus().failure, Failure::notStorable) << wrong.change;
        EXPECT_EQ(chengheng::readRows<_AccSumInfo>(m_db, nullptr), before);
    }
}

TEST_P(RecordOperations, ANumberBeyondEveryColumnIsNotStored) {
    ASSERT_NE(m_db.QRYExecuteSQL("INSERT AccSum Values(1, 7, 1, 5, 0, 0, 0, 0, 0, 0, 0, 0)"), 0);
    for (const char* change : {"lCodeId = 2147483648", "byPeroid = 40000", "mBegin = 1e308 * 10"}) {
        EXPECT_EQ(m_db.QRYExecuteSQL(std::string("UPDATE AccSum SET ") + change), 0);
        EXPECT_EQ(m_db.lastStatus().failure, Failure::notStorable) << change;
    }
    chengheng::Engine& engine = m_db.selectedDatabase()->engine();
    for (const char* number : {"'Infinity'", "'-Infinity'", "'NaN'"})
        EXPECT_EQ(runSql(engine, std::string("UPDATE AccSum SET mBegin = ") + number).failure,
                  Failure::notStorable)
            << number;
}

// 300 would be read as the period 44, and a text as an amount of 0.
TEST_P(RecordOperations, WhatDoesNotFitItsFieldIsAnErrorAndNoOtherNumber) {
    for (const Wrong& wrong : wrongValues) {
        if (GetParam().name == "postgres" && !wrong.isTakenByServers) continue;
        ASSERT_NE(m_db.QRYExecuteSQL("DELETE AccSum\nINSERT AccSum Values(1, 7, 1, 5, 0, 0, 0, 0, "
                                     "0, 0, 0, 0)"),
                  0);
        ASSERT_EQ(chengheng::readRows<_AccSumInfo>(m_db, nullptr).size(), 1u);
        plant(m_db.selectedDatabase()->engine(), std::string("UPDATE AccSum SET ") + wrong.change);
        EXPECT_TRUE(chengheng::readRows<_AccSumInfo>(m_db, nullptr).empty());
        EXPECT_EQ(m_db.lastStatus().failure, Failure::wrongValue) << wrong.change;
        EXPECT_EQ(m_db.lastStatus().detail, wrong.told);
    }
}

TEST_P(RecordOperations, PostedAndUnpostedVouchersShareOneSequence) {
    ASSERT_NE(m_db.QRYExecuteSQL("Update ABIdTable Set lLastId = 40 Where sTable = 'UnRegMain'"),
              0);
    int id = 0;
    ASSERT_EQ(m_db.RegMain_AddNew(_RegMainInfo{}, id), 0);
    EXPECT_EQ(id, 41);
    EXPECT_EQ(m_db.UnregMain_GetLastId(), 41);
}

TEST_P(RecordOperations, ManyAreAddedAtOnceUnderIdsOneBehindTheOther) {
    addAccount("1001");
    std::vector<_CodeInfo> accounts(1203);
    for (std::size_t at = 0; at < accounts.size(); ++at) accounts[at].sCode = std::to_string(at);
    ASSERT_EQ(m_db.addAll<_CodeInfo>(accounts), 0) << m_db.lastStatus().detail;
    EXPECT_EQ(accounts.front().lId, 2);
    EXPECT_EQ(accounts.back().lId, 1204);
    EXPECT_EQ(m_db.Code_GetLastId(), 1204);
    EXPECT_EQ(chengheng::readRows<_CodeInfo>(m_db, "lId > 1 ORDER BY lId"), accounts);
    std::vector<_RegMainInfo> headers(3);
    ASSERT_EQ(m_db.addAll<_RegMainInfo>(headers), 0);
    EXPECT_EQ(m_db.UnregMain_GetLastId(), 3);
    std::vector<_CodeInfo> none;
    EXPECT_EQ(m_db.addAll<_CodeInfo>(none), 0);
    EXPECT_EQ(addAccount("1002"), 1205);
}

TEST_P(RecordOperations, OfManyAllAreAddedOrNone) {
    std::vector<_CodeInfo> accounts(600);
    m_db.QRYExecuteSQL("UPDATE ABIdTable SET lLastId = 2147483048 WHERE sTable = 'Code'");
    EXPECT_NE(m_db.addAll<_CodeInfo>(accounts), 0);
    EXPECT_EQ(m_db.lastStatus().failure, Failure::noIdLeft);
    EXPECT_EQ(accounts.front().lId, 0);
    EXPECT_EQ(countOf(nullptr), 0);
    m_db.QRYExecuteSQL("UPDATE ABIdTable SET lLastId = 0 WHERE sTable = 'Code'");
    ASSERT_NE(m_db.QRYExecuteSQL("INSERT INTO Code (lId, sCode) VALUES (550, 'x')"), 0);
    EXPECT_NE(m_db.addAll<_CodeInfo>(accounts), 0);
    EXPECT_EQ(accounts.front().lId, 0);
    EXPECT_EQ(countOf(nullptr), 1);
    EXPECT_EQ(m_db.Code_GetLastId(), 0);
}

TEST_P(RecordOperations, EditChangesTheRowOfItsIdAndTellsWhenThereIsNone) {
    const int id = addAccount("1001");
    auto account = chengheng::readRows<_CodeInfo>(m_db, "sCode = '1001'").front();
    account.sName = "银行存款";
    EXPECT_EQ(m_db.Code_Edit(account), 0);
    EXPECT_EQ(countOf("sName = '银行存款'"), 1);
    account.lId = id + 99;
    EXPECT_NE(m_db.Code_Edit(account), 0);
    EXPECT_EQ(m_db.lastStatus().failure, Failure::missing);
}

TEST_P(RecordOperations, DeleteTellsWhenThereIsNoSuchRow) {
    const int id = addAccount("1001");
    EXPECT_EQ(m_db.Code_Delete(id), 0);
    EXPECT_NE(m_db.Code_Delete(id), 0);
}

TEST_P(RecordOperations, BufferOfOneTableOutlivesReadsOfAnother) {
    addAccount("1001");
    _CodeInfo** rows = nullptr;
    int count = 0;
    ASSERT_EQ(m_db.Code_GetInfo(rows, count, nullptr), 0);
    _SignInfo** signs = nullptr;
    int signCount = 0;
    EXPECT_NE(m_db.Sign_GetInfo(signs, signCount, nullptr), 0);
    m_db.Sign_ReleaseAllBuffer();
    EXPECT_EQ(rows[0]->sCode, "1001");
    m_db.Code_ReleaseAllBuffer();
    m_db.Code_ReleaseAllBuffer();
}

TEST_P(RecordOperations, ConditionThatCannotBeReadIsAFailure) {
    addAccount("1001");
    _CodeInfo** rows = nullptr;
    int count = 0;
    for (const char* condition :
         {"sCode = '1001", "sCode = '1'; DELETE FROM Code", "lId = (1", "lId > 0\nDELETE Code"}) {
        EXPECT_NE(m_db.Code_GetInfo(rows, count, condition), 0) << condition;
        EXPECT_EQ(m_db.lastStatus().failure, Failure::unreadable) << condition;
    }
    EXPECT_EQ(countOf(nullptr), 1);
}

TEST_P(RecordOperations, NothingRunsWithoutASelectedDatabase) {
    CNbCwDB database;
    int id = 0;
    EXPECT_EQ(database.DBSelect("books"), 0);
    EXPECT_NE(database.Code_AddNew(_CodeInfo{}, id), 0);
    EXPECT_EQ(database.QRYExecuteSQL("DELETE Code"), 0);
    EXPECT_EQ(database.lastStatus().failure, Failure::notOpen);
    EXPECT_EQ(database.SQLLock("Code", 2, 1), 0);
}

TEST_P(RecordOperations, SecondDatabaseStandsBesideTheFirst) {
    addAccount("1001");
    NbCwDBInfo info;
    ASSERT_NE(m_db.DBOpen(info, chengheng::freshLocation(GetParam()).c_str(), "NbzwTmp", 0), 0);
    EXPECT_EQ(info.name, "NbzwTmp");
    ASSERT_NE(m_db.DBSelect("NbzwTmp"), 0);
    EXPECT_EQ(countOf(nullptr), 0);
    addAccount("2001");
    ASSERT_NE(m_db.DBSelect("books"), 0);
    EXPECT_EQ(countOf("sCode = '1001'"), 1);
    EXPECT_EQ(countOf("sCode = '2001'"), 0);
    EXPECT_NE(m_db.DBClose("NbzwTmp"), 0);
    EXPECT_EQ(m_db.DBClose("NbzwTmp"), 0);
    EXPECT_EQ(m_db.DBSelect("NbzwTmp"), 0);
}

TEST_P(RecordOperations, RowLeaseReleasesTheBufferItRead) {
    addAccount("1001");
    {
        chengheng::RowLease<_CodeInfo> lease(m_db, nullptr);
        ASSERT_TRUE(lease.isFound());
        EXPECT_EQ(lease.rows().size(), 1U);
    }
    chengheng::RowLease<_CodeInfo> none(m_db, "lId < 0");
    EXPECT_FALSE(none.isFound());
    EXPECT_TRUE(none.rows().empty());
}

TEST_P(RecordOperations, FreeEditAndDeleteTakeACondition) {
    ASSERT_EQ(m_db.QRYEdit("ABIdTable", "sTable = 'ExchgFlt'", "lLastId = %d ", 366), 0)
        << m_db.lastStatus().detail;
    EXPECT_EQ(m_db.ExchgFlt_GetLastId(), 366);
    addAccount("1001");
    addAccount("1002");
    EXPECT_EQ(m_db.QRYDelete("Code", "sCode = '1001'"), 0);
    EXPECT_EQ(countOf(nullptr), 1);
    EXPECT_NE(m_db.QRYDelete("NoTable", "lId = 1"), 0);
}

CHENGHENG_ON_ALL_ENGINES(RecordOperations);

}  // namespace
