#include "books/logon/books_session.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "base/system/workstation.h"
#include "data/access/row_lease.h"
#include "data/layout/layout.h"
#include "data/lookups/CGetData.h"
#include "data/tables/operators.h"
#include "tests/data/session_case.h"
#include "tests/support/engine_cases.h"
#include "tests/support/engine_tools.h"
#include "tests/support/killed_process.h"
#include "tests/support/made_books.h"
#include "tests/support/older_books.h"
#include "tests/support/small_books.h"

namespace chengheng {
namespace {

class BooksSessions : public testing::TestWithParam<EngineCase> {
  protected:
    std::string m_location = makeBooks(freshLocation(GetParam()));
    std::string m_shown = shownLocation(m_location);
};

TEST_P(BooksSessions, PublishTheOpenBooksAndTheirOperator) {
    Shell shell;
    ASSERT_EQ(shell.refusalOf(requestFor(m_location)), "");
    EXPECT_TRUE(shell.session.isLoggedOn());
    EXPECT_EQ(g_pDB, &shell.database);
    EXPECT_NE(g_pDB->DBSelect(g_lpszNbZwDBName), 0);
    EXPECT_STREQ(g_lpszNbZwSetName, "示例帐套");
    EXPECT_EQ(g_lAccountId, 1);
    EXPECT_STREQ(g_lpArgument, "-ERPSINGLE");
    ASSERT_NE(g_lpLogonUserInfo, nullptr);
    EXPECT_EQ(g_lpLogonUserInfo->lManager, 1);
    EXPECT_EQ(g_lpLogonUserInfo->sUserName, "王芳");
    EXPECT_EQ(g_lpLogonUserInfo->lAuthId, 1);
    EXPECT_EQ(g_tmLogonTime.day, (Date{2026, 5, 31}));
    ASSERT_NE(CGetData::m_pzAccountMInfo, nullptr);
    EXPECT_EQ(CGetData::m_pzAccountMInfo->sCodeLen, "4222");
    EXPECT_GT(CGetData::GetCodeId("1001"), 0);
    EXPECT_EQ(shell.session.shownLocation(), m_shown);
    shell.session.logOff();
    EXPECT_EQ(g_pDB, nullptr);
    EXPECT_EQ(g_lpLogonUserInfo, nullptr);
    EXPECT_EQ(CGetData::m_pzAccountMInfo, nullptr);
}

TEST_P(BooksSessions, TellOtherWorkstationsWhoIsLoggedOn) {
    Shell shell;
    ASSERT_EQ(shell.refusalOf(requestFor(m_location)), "");
    const auto rows = readRows<_LoginInfo>(shell.database, nullptr);
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0].lAccId, 1);
    EXPECT_EQ(rows[0].sUser, "王芳");
    EXPECT_EQ(rows[0].lUserId, g_lpLogonUserInfo->lUserId);
    EXPECT_EQ(rows[0].sStation, stationName());
    EXPECT_EQ(rows[0].lProcess, ownProcess());
    EXPECT_EQ(rows[0].dtLogon, (Date{2026, 5, 31}));
    shell.session.logOff();
    const auto engine = openForTest(m_location, OpenMode::existing);
    EXPECT_EQ(readCell(*engine, "SELECT count(*) FROM LoginInfoTbl"), "0");
}

TEST_P(BooksSessions, RemoveWhatAKilledProgramOfThisStationLeftBehind) {
    const std::string dead = std::to_string(endedProcess());
    {
        const auto engine = openForTest(m_location, OpenMode::existing);
        ASSERT_TRUE(engine->script(
            "INSERT INTO LoginInfoTbl VALUES (1, 1, 'killed', '" + stationName() + "', " + dead +
            ", '2026-01-01', 0); INSERT INTO LoginInfoTbl VALUES (2, 1, 'elsewhere', 'other', " +
            dead +
            ", '2026-01-01', 0); UPDATE ABIdTable SET lLastId = 2 WHERE sTable = "
            "'LoginInfoTbl'"));
    }
    Shell shell;
    ASSERT_EQ(shell.refusalOf(requestFor(m_location)), "");
    const auto rows = readRows<_LoginInfo>(shell.database, "lId > 0 ORDER BY lId");
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0].sUser, "elsewhere");
    EXPECT_EQ(rows[1].sUser, "王芳");
}

TEST_P(BooksSessions, SameOperatorMayWorkTwiceAndBothAreListed) {
    const auto other = openForTest(m_location, OpenMode::existing);
    Shell shell;
    ASSERT_EQ(shell.refusalOf(requestFor(m_location)), "");
    ASSERT_EQ(shell.refusalOf(requestFor(m_location)), "");
    EXPECT_EQ(readCell(*other, "SELECT count(*) FROM LoginInfoTbl"), "1");
}

TEST_P(BooksSessions, RefuseAnUnknownOperatorAndAWrongPasswordAlike) {
    Shell shell;
    LogonRequest request = requestFor(m_location);
    request.operatorName = "李明";
    EXPECT_EQ(shell.refusalOf(request), "password|操作员姓名或口令不正确");
    request = requestFor(m_location);
    request.password = "Secret";
    EXPECT_EQ(shell.refusalOf(request), "password|操作员姓名或口令不正确");
    EXPECT_FALSE(shell.session.isLoggedOn());
    EXPECT_EQ(g_pDB, nullptr);
}

TEST_P(BooksSessions, DoNotEvenLookAtAPasswordTooSoonAfterAWrongOne) {
    Shell shell;
    LogonRequest wrong = requestFor(m_location);
    wrong.password = "guess";
    shell.refusalOf(wrong);
    EXPECT_EQ(shell.refusalOf(requestFor(m_location)), "password|口令连续输错,请在1秒后重试");
    shell.now += 1;
    shell.refusalOf(wrong);
    shell.now += 0.5;
    EXPECT_EQ(shell.refusalOf(requestFor(m_location)), "password|口令连续输错,请在2秒后重试");
    shell.now += 1.5;
    EXPECT_EQ(shell.refusalOf(requestFor(m_location)), "");
}

TEST_P(BooksSessions, AreRefusedByBooksOfAnOlderLayout) {
    const std::string older = freshLocation(GetParam());
    fillOlderBooks(*openForTest(older), 1);
    Shell shell;
    const auto refusal = shell.session.logOn(requestFor(older));
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->kind, RefusalKind::outdated);
    EXPECT_TRUE(shell.refusalOf(requestFor(older))
                    .ends_with("由较早版本的程序建立,要先升级才能使用。\n"
                               "请在登录窗口中打开它,或运行 chbooks upgrade。"));
    EXPECT_TRUE(shell.refusalOf(requestFor(older)).starts_with("location|"));
}

TEST_P(BooksSessions, OpenBooksThatWereUpgraded) {
    const std::string older = freshLocation(GetParam());
    {
        const auto engine = openForTest(older);
        fillOlderBooks(*engine, 1);
        ASSERT_TRUE(raiseLayout(*engine, 1).isDone());
    }
    Shell shell;
    for (const char* name : {"王芳", "O'Brien %_\\"}) {
        LogonRequest request = requestFor(older);
        request.operatorName = name;
        EXPECT_EQ(shell.refusalOf(request), "");
    }
}

TEST_P(BooksSessions, TakeAQuoteInAnOperatorsNameAsItStands) {
    NewBooks facts = sampleBooks();
    facts.supervisor = "O'Brien %_\\";
    const std::string location = makeBooks(freshLocation(GetParam()), facts);
    Shell shell;
    LogonRequest request = requestFor(location);
    request.operatorName = "O'Brien";
    EXPECT_NE(shell.refusalOf(request), "");
    request.operatorName = facts.supervisor;
    EXPECT_EQ(shell.refusalOf(request), "");
}

TEST_P(BooksSessions, AskForPlaceAndOperator) {
    Shell shell;
    EXPECT_EQ(shell.refusalOf({}), "location|请选择帐套,或输入帐套的路径或服务器地址");
    EXPECT_EQ(shell.refusalOf({.location = m_location}), "operatorName|请输入操作员姓名");
}

TEST_P(BooksSessions, RefuseADateOutsideTheAccountingYear) {
    Shell shell;
    LogonRequest request = requestFor(m_location);
    for (const Date day : {Date{2025, 12, 31}, Date{2027, 1, 1}}) {
        request.date = day;
        EXPECT_EQ(shell.refusalOf(request),
                  "date|登录日期" + isoText(day) +
                      "不在本帐套的会计年度内,请输入2026-01-01到2026-12-31之间的日期");
    }
    for (const Date day : {Date{2026, 1, 1}, Date{2026, 12, 31}}) {
        request.date = day;
        EXPECT_EQ(shell.refusalOf(request), "");
    }
}

TEST_P(BooksSessions, WithoutADateTakeTheDayOfTheYearNearestToToday) {
    NewBooks facts = sampleBooks();
    facts.year = 1999;
    Shell shell;
    LogonRequest request = requestFor(makeBooks(freshLocation(GetParam()), facts));
    request.date.reset();
    ASSERT_EQ(shell.refusalOf(request), "");
    EXPECT_EQ(g_tmLogonTime.day, (Date{1999, 12, 31}));
}

TEST_P(BooksSessions, RefusedChangeOfBooksLeavesTheOpenOnesOpen) {
    Shell shell;
    ASSERT_EQ(shell.refusalOf(requestFor(m_location)), "");
    const std::string name = g_lpszNbZwDBName;
    EXPECT_NE(shell.refusalOf(requestFor(m_location + "x")), "");
    LogonRequest wrong = requestFor(makeBooks(freshLocation(GetParam())));
    wrong.password = "guess";
    EXPECT_NE(shell.refusalOf(wrong), "");
    EXPECT_TRUE(shell.session.isLoggedOn());
    EXPECT_EQ(shell.database.selectedName(), name);
    EXPECT_EQ(readRows<_LoginInfo>(shell.database, nullptr).size(), 1U);
}

TEST_P(BooksSessions, ChangeToBooksThatCannotBeReadWholeLeavesTheOpenOnesOpen) {
    const std::string broken = makeBooks(freshLocation(GetParam()));
    const auto engine = openForTest(broken, OpenMode::existing);
    // Prepares like the table of settlement methods, and fails at the first row.
    ASSERT_TRUE(
        engine->script("DROP TABLE Settle; CREATE VIEW Settle AS SELECT 1 AS lId, '1' AS sStlId, "
                       "'' AS sSettle, abs(-9223372036854775807 - sOne.lId) AS bNote "
                       "FROM (SELECT lId FROM zAccountM) AS sOne"));
    Shell shell;
    ASSERT_EQ(shell.refusalOf(requestFor(m_location)), "");
    const std::string name = g_lpszNbZwDBName;
    EXPECT_TRUE(shell.refusalOf(requestFor(broken)).starts_with("location|"));
    EXPECT_TRUE(shell.session.isLoggedOn());
    EXPECT_EQ(g_lpszNbZwDBName, name);
    EXPECT_EQ(shell.database.selectedName(), name);
    EXPECT_EQ(shell.session.shownLocation(), m_shown);
    EXPECT_GT(CGetData::GetCodeId("1001"), 0);
    EXPECT_EQ(readRows<_LoginInfo>(shell.database, nullptr).size(), 1U);
    EXPECT_EQ(readCell(*engine, "SELECT count(*) FROM LoginInfoTbl"), "0");
}

TEST_P(BooksSessions, ChangeOfBooksEndsTheFirstLogon) {
    NewBooks facts = sampleBooks();
    facts.name = "另一帐套";
    const std::string other = makeBooks(freshLocation(GetParam()), facts);
    Shell shell;
    ASSERT_EQ(shell.refusalOf(requestFor(m_location)), "");
    ASSERT_EQ(shell.refusalOf(requestFor(other)), "");
    EXPECT_STREQ(g_lpszNbZwSetName, "另一帐套");
    EXPECT_EQ(shell.database.selectedName(), g_lpszNbZwDBName);
    const auto engine = openForTest(m_location, OpenMode::existing);
    EXPECT_EQ(readCell(*engine, "SELECT count(*) FROM LoginInfoTbl"), "0");
}

TEST_P(BooksSessions, RefuseBooksOfANewerProgram) {
    ASSERT_TRUE(openForTest(m_location, OpenMode::existing)
                    ->script("UPDATE BooksFormat SET lVersion = 99"));
    Shell shell;
    const std::string text = shell.refusalOf(requestFor(m_location));
    EXPECT_TRUE(text.ends_with("“" + m_shown +
                               "”由更新版本的程序建立,本程序不能打开。\n请升级本程序后再打开。"))
        << text;
}

TEST_P(BooksSessions, RefuseADatabaseThatHoldsNoBooks) {
    const std::string location = freshLocation(GetParam());
    ASSERT_TRUE(openForTest(location)->script("CREATE TABLE others (id INTEGER)"));
    Shell shell;
    const std::string text = shell.refusalOf(requestFor(location));
    EXPECT_NE(text.find(shownLocation(location)), std::string::npos);
    EXPECT_TRUE(text.find("不是帐套") != std::string::npos) << text;
}

TEST_P(BooksSessions, RefuseBooksWhoseMakingWasCutOff) {
    ASSERT_TRUE(openForTest(m_location, OpenMode::existing)->script("DELETE FROM zAccountM"));
    Shell shell;
    EXPECT_EQ(shell.refusalOf(requestFor(m_location)),
              "location|帐套“" + m_shown + "”中没有帐套参数或操作员,不能登录");
}

TEST_P(BooksSessions, TellWhatSomebodyPutIntoTheBooks) {
    Shell shell;
    ASSERT_EQ(shell.refusalOf(requestFor(m_location)), "");
    EXPECT_EQ(shell.session.warning(), "");
    const bool isServer = isServerAddress(m_location);
    {
        const auto engine = openForTest(m_location, OpenMode::existing);
        runScript(*engine, "CREATE VIEW best AS SELECT * FROM Code");
        runScript(*engine, isServer ? "CREATE RULE \"a\x07z\" AS ON DELETE TO Code DO ALSO NOTHING"
                                    : "CREATE TRIGGER \"a\x07z\" AFTER DELETE ON Code BEGIN "
                                      "DELETE FROM AccSum; END");
    }
    ASSERT_EQ(shell.refusalOf(requestFor(m_location)), "");
    const std::string text = shell.session.warning();
    EXPECT_NE(text.find(m_shown + "”中有不属于本程序的内容:触发器“a␇z”、视图“best”。"),
              std::string::npos)
        << text;
    EXPECT_NE(text.find(isServer ? "服务器会执行它们" : "它们不起作用"), std::string::npos);
    shell.session.logOff();
    EXPECT_EQ(shell.session.warning(), "");
}

TEST_P(BooksSessions, GiveBooksLeftUnderATemporaryNameTheirOwnBackAndTellIt) {
    if (isServerAddress(m_location)) return;
    const std::filesystem::path file(m_location);
    const auto temporary = file.parent_path() / "NbzwTmp.db";
    std::filesystem::rename(file, temporary);
    Shell shell;
    LogonRequest request = requestFor(m_location);
    request.date = Date{2031, 1, 1};
    EXPECT_NE(shell.refusalOf(request), "");
    EXPECT_FALSE(std::filesystem::exists(temporary));
    ASSERT_EQ(shell.refusalOf(requestFor(m_location)), "");
    EXPECT_EQ(shell.session.warning(), "上次结转中断,帐套留在临时文件“" + temporary.string() +
                                           "”中。\n已恢复为“" + m_location + "”,内容没有改变。");
    ASSERT_EQ(shell.refusalOf(requestFor(m_location)), "");
    EXPECT_EQ(shell.session.warning(), "") << "told once";
}

CHENGHENG_ON_SHARED_ENGINES(BooksSessions);

TEST(BooksSession, OpensTheFileOfBooksInAFolder) {
    const std::string folder = freshFolder();
    makeBooks(folder + "/Nbzw.db");
    Shell shell;
    EXPECT_EQ(shell.refusalOf(requestFor(folder)), "");
    EXPECT_EQ(shell.session.shownLocation(), folder + "/Nbzw.db");
}

TEST(DayRange, NearestDayLiesInTheYear) {
    const DayRange days = daysOfYear(2026);
    EXPECT_EQ(days.nearest({2025, 6, 1}), (Date{2026, 1, 1}));
    EXPECT_EQ(days.nearest({2026, 6, 1}), (Date{2026, 6, 1}));
    EXPECT_EQ(days.nearest({2027, 6, 1}), (Date{2026, 12, 31}));
}

}  // namespace
}  // namespace chengheng
