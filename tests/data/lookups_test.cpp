#include <gtest/gtest.h>

#include <array>

#include "data/access/CNbCwDB.h"
#include "data/access/row_lease.h"
#include "data/lookups/CGetData.h"
#include "data/lookups/cached_records.h"
#include "data/lookups/existence.h"
#include "data/tables/accounts.h"
#include "data/tables/currency.h"
#include "session/CyrencyIsExist.h"
#include "session/host_globals.h"
#include "session/host_messages.h"
#include "tests/support/engine_cases.h"
#include "tests/support/made_layout.h"
#include "tests/support/recording_messages.h"

namespace {

using namespace chengheng;

/// A session on new, small books of each engine.
class Lookups : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override {
        openNewBooks(m_database, freshLocation(GetParam()));
        run("INSERT INTO zAccountM VALUES(7, '澄恒贸易', '澄恒贸易有限公司', '2024/3/1', '4222', "
            "1, "
            "2024)");
        run("INSERT INTO Code (lId, sCode, sName) VALUES(0, '0000', '非科目')\r\n"
            "INSERT INTO Code (lId, sCode, sName) VALUES(2, '100201', '工商银行')\r\n"
            "INSERT INTO Code (lId, sCode, sName) VALUES(1, '1001', '库存现金')\r\n"
            "INSERT INTO Cyrency (lId, sExchCode, sExchName) VALUES(3, 'USD', '美元')\r\n"
            "INSERT INTO Dept VALUES(4, '01', '销售部')\r\n"
            "INSERT INTO Dept VALUES(5, '销售部', '怪名部')\r\n"
            "INSERT INTO Person VALUES(6, 4, 'P1', '王强')\r\n"
            "INSERT INTO Person VALUES(8, 4, 'P2', '王强')\r\n"
            "INSERT INTO Enter VALUES(9, 1, 'C1', 'O''Brien', 0)");
    }
    void run(const std::string& batch) {
        ASSERT_NE(m_database.QRYExecuteSQL(batch), 0) << m_database.lastStatus().detail;
    }
    /// The database goes away while it is in use.
    void closeDatabase() { ASSERT_NE(m_database.DBClose("books"), 0); }

    CNbCwDB m_database;
    HostSession m_session{{.database = &m_database, .databaseName = "books"}};
};

TEST_P(Lookups, PublishTheParametersOfTheBooks) {
    const BookLookups lookups("books");
    ASSERT_TRUE(lookups.status()) << lookups.status().detail;
    ASSERT_NE(CGetData::m_pzAccountMInfo, nullptr);
    EXPECT_EQ(CGetData::m_pzAccountMInfo->sCodeLen, "4222");
    EXPECT_NE(CGetData::m_pzAccountMInfo->bFgn, 0);
    EXPECT_EQ(CGetData::m_pzAccountMInfo->sCompany, "澄恒贸易有限公司");
}

TEST_P(Lookups, LeaveNothingBehindWhenTheBooksAreClosed) {
    { const BookLookups lookups("books"); }
    EXPECT_EQ(CGetData::m_pzAccountMInfo, nullptr);
    EXPECT_EQ(CGetData::GetCODEINFOByCode("1001"), nullptr);
    EXPECT_EQ(CGetData::GetCYRENCYINFOByExchId(3), nullptr);
    EXPECT_TRUE(cachedCurrencies().empty());
}

TEST_P(Lookups, FailWhenNoParametersAreThere) {
    run("DELETE zAccountM");
    const BookLookups lookups("books");
    EXPECT_EQ(lookups.status().failure, Failure::damaged);
}

TEST_P(Lookups, FailOnADatabaseThatIsNotOpen) {
    const BookLookups lookups("other");
    EXPECT_EQ(lookups.status().failure, Failure::notOpen);
}

TEST_P(Lookups, FindAnAccountByItsCode) {
    const BookLookups lookups("books");
    const _CodeInfo* const account = CGetData::GetCODEINFOByCode("100201");
    ASSERT_NE(account, nullptr);
    EXPECT_EQ(account->sName, "工商银行");
    EXPECT_EQ(CGetData::GetCODEINFOByCode("1002"), nullptr);
    EXPECT_EQ(CGetData::GetCodeId("1001"), 1);
    EXPECT_EQ(CGetData::GetCodeId("9999"), 0);
}

TEST_P(Lookups, CacheNoRowsThatAreNoAccounts) {
    EXPECT_EQ(CGetData::LoadCODEINFOMemoryMapTable("books"), 2);
    EXPECT_EQ(CGetData::GetCODEINFOByCode("0000"), nullptr);
}

TEST_P(Lookups, AskTheDatabaseForAnAccountAddedSinceTheLastLoad) {
    const BookLookups lookups("books");
    run("INSERT INTO Code (lId, sCode) VALUES(50, '1122')");
    EXPECT_EQ(CGetData::GetCodeId("1122"), 0);
    EXPECT_EQ(CGetData::GetCodeId_new("1122"), 50);
    EXPECT_EQ(CGetData::GetCodeId_new("1123"), 0);
    EXPECT_EQ(CGetData::LoadCODEINFOMemoryMapTable("books"), 3);
    EXPECT_EQ(CGetData::GetCodeId("1122"), 50);
}

TEST_P(Lookups, ForgetAnAccountDeletedBeforeAReload) {
    const BookLookups lookups("books");
    run("DELETE Code WHERE lId > 0");
    EXPECT_NE(CGetData::GetCODEINFOByCode("1001"), nullptr);
    EXPECT_EQ(CGetData::LoadCODEINFOMemoryMapTable("books"), 0);
    EXPECT_EQ(CGetData::GetCODEINFOByCode("1001"), nullptr);
}

TEST_P(Lookups, KeepWhatIsCachedWhenAReloadFails) {
    const BookLookups lookups("books");
    closeDatabase();
    EXPECT_EQ(CGetData::LoadCODEINFOMemoryMapTable("books"), -1);
    EXPECT_EQ(CGetData::LoadCYRENCYINFOMemoryMapTable("books"), -1);
    EXPECT_EQ(CGetData::LoadSignMemoryMapTable("books"), -1);
    EXPECT_EQ(CGetData::LoadSettleMemoryMapTable("books"), -1);
    EXPECT_NE(CGetData::GetCODEINFOByCode("1001"), nullptr);
    EXPECT_NE(CGetData::GetCYRENCYINFOByExchId(3), nullptr);
}

TEST_P(Lookups, TellWhetherVoucherTypesExistByLoadingThem) {
    EXPECT_EQ(CGetData::LoadSignMemoryMapTable("books"), 0);
    run("INSERT INTO Sign VALUES(1, '收', '收款凭证', 1, '1001', '1002')\r\n"
        "INSERT INTO Sign VALUES(2, '付', '付款凭证', 2, '1001', '1002')");
    EXPECT_NE(CGetData::LoadSignMemoryMapTable("books"), 0);
    EXPECT_EQ(CGetData::m_csaSignTable, (std::vector<std::string>{"收", "付"}));
    EXPECT_EQ(CGetData::m_csaSignNameTable, (std::vector<std::string>{"收款凭证", "付款凭证"}));
}

TEST_P(Lookups, CacheTheSettlementMethods) {
    run("INSERT INTO Settle VALUES(1, '01', '现金支票', 1)");
    EXPECT_EQ(CGetData::LoadSettleMemoryMapTable("books"), 1);
    ASSERT_EQ(cachedSettles().size(), 1u);
    EXPECT_EQ(cachedSettles()[0].sSettle, "现金支票");
}

TEST_P(Lookups, NameACurrencyFromTheCacheOrElseFromTheDatabase) {
    const BookLookups lookups("books");
    run("INSERT INTO Cyrency (lId, sExchCode, sExchName) VALUES(4, 'EUR', '欧元')\r\n"
        "UPDATE Cyrency SET sExchName = '美金' WHERE lId = 3");
    EXPECT_EQ(CGetData::GetExchName("books", 3), "美元");
    EXPECT_EQ(CGetData::GetExchName("books", 4), "欧元");
    EXPECT_EQ(CGetData::GetExchName("books", 99), "");
    EXPECT_EQ(CGetData::LoadCYRENCYINFOMemoryMapTable("books"), 2);
    EXPECT_EQ(CGetData::GetExchName("books", 3), "美金");
    EXPECT_EQ(CGetData::GetCYRENCYINFOByExchId(4)->sExchCode, "EUR");
}

TEST_P(Lookups, FindADirectoryEntryByCodeBeforeName) {
    EXPECT_EQ(CGetData::GetDeptID("books", "01"), 4);
    EXPECT_EQ(CGetData::GetDeptID("books", "销售部"), 5) << "a code goes before a name";
    EXPECT_EQ(CGetData::GetDeptID("books", "怪名部"), 5);
    EXPECT_EQ(CGetData::GetPersonId("books", "王强"), 6) << "the smallest id of one name";
    EXPECT_EQ(CGetData::GetPersonId("books", "P2"), 8);
    EXPECT_EQ(CGetData::GetUnitId("books", "O'Brien"), 9);
    EXPECT_EQ(CGetData::GetUnitId("books", "C1"), 9);
}

TEST_P(Lookups, GiveZeroForWhatIsNotInADirectory) {
    EXPECT_EQ(CGetData::GetDeptID("books", "无"), 0);
    EXPECT_EQ(CGetData::GetPersonId("books", ""), 0);
    EXPECT_EQ(CGetData::GetUnitId("books", "O_Brien"), 0);
    EXPECT_EQ(CGetData::GetUnitId("books", "%"), 0);
}

TEST_P(Lookups, NameADirectoryEntryByItsId) {
    EXPECT_EQ(CGetData::GetDeptName("books", 4), "销售部");
    EXPECT_EQ(CGetData::GetPersonName("books", 8), "王强");
    EXPECT_EQ(CGetData::GetUnitName("books", 9), "O'Brien");
    EXPECT_EQ(CGetData::GetUnitName("books", 10), "");
}

TEST_P(Lookups, SayWhenADirectoryCannotBeRead) {
    closeDatabase();
    EXPECT_EQ(CGetData::GetDeptID("books", "01"), -1);
    EXPECT_EQ(CGetData::GetCodeId_new("1001"), -1);
    EXPECT_EQ(CGetData::GetDeptName("books", 4), "");
}

TEST_P(Lookups, FindRecordsThatExist) {
    run("INSERT INTO Settle VALUES(1, '01', '现金支票', 1)\r\n"
        "INSERT INTO Sign VALUES(1, '记', '记帐凭证', 0, '', '')");
    EXPECT_EQ(CodeIsExist("1001"), 0);
    EXPECT_EQ(SettleIsExist("01"), 0);
    EXPECT_EQ(SignIsExist("记"), 0);
    EXPECT_EQ(CyrencyIsExist(3), 0);
}

TEST_P(Lookups, MissRecordsThatAreGoneWithoutAWord) {
    RecordingMessages messages;
    const HostMessages installed(messages);
    EXPECT_GT(CodeIsExist("100"), 0);
    EXPECT_GT(CodeIsExist("1001%"), 0);
    EXPECT_GT(SettleIsExist("01"), 0);
    EXPECT_GT(SignIsExist("记"), 0);
    EXPECT_TRUE(messages.texts().empty());
}

TEST_P(Lookups, SeeAnAccountGoneThatIsStillCached) {
    const BookLookups lookups("books");
    run("DELETE Code WHERE sCode = '1001'");
    EXPECT_NE(CGetData::GetCODEINFOByCode("1001"), nullptr);
    EXPECT_GT(CodeIsExist("1001"), 0);
}

TEST_P(Lookups, TellOfACurrencyThatIsGone) {
    RecordingMessages messages;
    const HostMessages installed(messages);
    EXPECT_GT(CyrencyIsExist(4), 0);
    ASSERT_EQ(messages.texts(), std::vector<std::string>{"该外币已经被删除!"});
    EXPECT_EQ(messages.notices()[0].icon, MessageIcon::information);
    EXPECT_EQ(messages.notices()[0].caption, "澄恒财务软件");
}

TEST_P(Lookups, TellOfACurrencyThatCannotBeRead) {
    RecordingMessages messages;
    const HostMessages installed(messages);
    closeDatabase();
    EXPECT_LT(CyrencyIsExist(3), 0);
    ASSERT_EQ(messages.texts(), std::vector<std::string>{"无法读取外币资料,操作没有进行!\n"
                                                         "帐套文件“books”没有打开。\n"
                                                         "请先打开帐套。"});
    EXPECT_EQ(messages.notices()[0].icon, MessageIcon::stop);
    EXPECT_LT(CodeIsExist("1001"), 0);
    EXPECT_LT(SettleIsExist("01"), 0);
    EXPECT_LT(SignIsExist("01"), 0);
}

TEST_P(Lookups, LeaveRowsReadBeforeReadable) {
    const RowLease<_CodeInfo> accounts(m_database, "lId > 0 ORDER BY sCode");
    const RowLease<_CyrencyInfo> currencies(m_database, nullptr);
    EXPECT_EQ(CodeIsExist("1001"), 0);
    EXPECT_EQ(CyrencyIsExist(3), 0);
    EXPECT_EQ(CGetData::GetCodeId_new("100201"), 2);
    EXPECT_EQ(CGetData::GetExchName("books", 3), "美元");
    ASSERT_TRUE(accounts.isFound());
    EXPECT_EQ(accounts.rows()[1]->sName, "工商银行");
    EXPECT_EQ(currencies.rows()[0]->sExchName, "美元");
}

TEST_P(Lookups, KnowTheDatesOfTheAccountingYear) {
    const BookLookups lookups("books");
    EXPECT_EQ(CGetData::GetStartDate(), (Date{2024, 3, 1}));
    EXPECT_EQ(CGetData::GetYMonthDay(1), (Date{2024, 1, 31}));
    EXPECT_EQ(CGetData::GetYMonthDay(2), (Date{2024, 2, 29}));
    EXPECT_EQ(CGetData::GetYMonthDay(12), (Date{2024, 12, 31}));
    EXPECT_EQ(CGetData::GetYMonthDay(0), (Date{2023, 12, 31}));
    EXPECT_FALSE(CGetData::GetYMonthDay(13).isSet());
    EXPECT_FALSE(CGetData::GetYMonthDay(-1).isSet());
}

TEST_P(Lookups, FindEveryAccountOfALargeChart) {
    constexpr int count = 5'000;
    std::string batch;
    for (int number = 0; number < count; ++number)
        batch += formatSql("INSERT INTO Code (lId, sCode) VALUES(%d, '%s')\r\n", number + 100,
                           std::to_string(2'000'000 + number));
    run(batch);
    EXPECT_EQ(CGetData::LoadCODEINFOMemoryMapTable("books"), count + 2);
    for (int number = 0; number < count; ++number)
        ASSERT_EQ(CGetData::GetCodeId(std::to_string(2'000'000 + number)), number + 100);
}

CHENGHENG_ON_ALL_ENGINES(Lookups);

}  // namespace
