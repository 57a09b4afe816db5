#include "books/upgrading/books_upgrade.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "books/checking/integrity_check.h"
#include "books/upgrading/upgrade_backup.h"
#include "data/layout/layout.h"
#include "tests/data/upgrade_case.h"
#include "tests/support/engine_cases.h"
#include "tests/support/engine_tools.h"
#include "tests/support/older_books.h"
#include "tests/support/private_postgres.h"
#include "tests/support/small_books.h"

namespace chengheng {
namespace {

namespace files = std::filesystem;
using testing::HasSubstr;

class BooksUpgrades : public UpgradeCase {};

TEST_P(BooksUpgrades, LeadFromEachNumberToSoundBooksOfToday) {
    for (int number = 1; number < booksFormatVersion; ++number) {
        const std::string location = makeOlderBooks(GetParam(), number);
        const Digests before = contentAt(location);
        EXPECT_EQ(upgraded(location), "done");
        const auto engine = openForTest(location, OpenMode::existing);
        EXPECT_TRUE(checkLayout(*engine).isDone()) << number;
        EXPECT_EQ(keptOf(location, before, number), before) << number;
        std::vector<IntegrityFault> faults;
        EXPECT_TRUE(checkIntegrity(*engine, faults).isDone());
        for (const IntegrityFault& fault : faults) ADD_FAILURE() << number << ": " << fault.text;
        const std::string backup = backupOf(location, "_format" + std::to_string(number));
        EXPECT_EQ(contentAt(backup), before) << number;
        EXPECT_EQ(layoutAt(backup), number);
        if (isServer()) askServer(location, "DROP SCHEMA " + schemaOf(backup) + " CASCADE");
    }
}

TEST_P(BooksUpgrades, KeepRowsThatNobodyCouldWriteAnyMore) {
    const std::string location = makeOlderBooks(GetParam(), 2);
    runScript(*openForTest(location, OpenMode::existing),
              "UPDATE AccSum SET byPeroid = 300 WHERE lId = 1");
    const Digests before = contentAt(location);
    EXPECT_EQ(upgraded(location), "done");
    EXPECT_EQ(contentAt(location).size(), before.size() + 3) << "the log's";
    EXPECT_EQ(keptOf(location, before, 2), before);
    const auto engine = openForTest(location, OpenMode::existing);
    EXPECT_EQ(runSql(*engine, "UPDATE AccSum SET byPeroid = 300 WHERE lId = 2").failure,
              Failure::notStorable);
    EXPECT_TRUE(runSql(*engine, "UPDATE AccSum SET byPeroid = 1 WHERE lId = 1"));
    if (isServer())
        askServer(location, "DROP SCHEMA " + schemaOf(backupOf(location, "_format2")) + " CASCADE");
}

TEST_P(BooksUpgrades, TellBeforehandWhatWillHappen) {
    runScript(*openForTest(m_location, OpenMode::existing),
              "INSERT INTO LoginInfoTbl VALUES (1, 1, '李明', 'PC1', 1, '2026-01-01')");
    UpgradePlan plan;
    ASSERT_EQ(saidBy(BooksUpgrade(m_location).plan(plan)), "done");
    EXPECT_TRUE(plan.isNeeded());
    EXPECT_EQ(plan.text(),
              "帐套“旧帐”(" + shownLocation(m_location) +
                  ")由较早版本的程序建立,数据格式为 1,要升级到 7 才能使用。\n\n升级时:\n"
                  "· 先备份到“" +
                  shownLocation(backupOf(m_location)) +
                  "”,并核对备份\n"
                  "· 增加一张表,记下每位操作员口令输错的次数和上次登录的时间\n"
                  "· 各表的数值栏只收范围之内的数,写入超出范围的数会被拒绝\n"
                  "· 单位目录增加一栏,记下单位是客户、供应商还是两者都是\n"
                  "· 已登录的人另记编号;每位操作员可以记下“下次登录时须更改口令”\n"
                  "· 增加操作日志,从此每次改动都记下是谁、何时、从哪台工作站改的,改前改后各是什么\n"
                  "· 没有数的科目余额和辅助余额记录另立索引,打开期初余额时不必逐条去找\n"
                  "· 各步改动一次写入:中途出错或断电,帐套仍是原来的样子\n"
                  "· 升级后较早版本的程序不能再打开它,各工作站请都用新版本\n"
                  "· 等其他人退出后才开始。列为正在使用的有:李明(PC1)");
    expectUntouched();
}

TEST_P(BooksUpgrades, HaveNothingToDoWithBooksOfToday) {
    ASSERT_EQ(upgraded(m_location), "done");
    const Digests after = contentAt(m_location);
    UpgradePlan plan;
    ASSERT_EQ(saidBy(BooksUpgrade(m_location).plan(plan)), "done");
    EXPECT_FALSE(plan.isNeeded());
    BooksUpgrade again(m_location);
    EXPECT_EQ(upgraded(again), "done");
    EXPECT_EQ(again.backup(), "");
    EXPECT_EQ(contentAt(m_location), after);
    EXPECT_FALSE(hasBackup("_format1_2"));
}

TEST_P(BooksUpgrades, RefuseBooksOfANewerProgramAndWhatIsDamaged) {
    runScript(*openForTest(m_location, OpenMode::existing), "UPDATE BooksFormat SET lVersion = 99");
    UpgradePlan plan;
    EXPECT_THAT(saidBy(BooksUpgrade(m_location).plan(plan)), HasSubstr("更新版本的程序"));
    EXPECT_THAT(upgraded(m_location), HasSubstr("更新版本的程序"));
    runScript(*openForTest(m_location, OpenMode::existing),
              "UPDATE BooksFormat SET lVersion = 1; DROP TABLE Settle");
    EXPECT_THAT(upgraded(m_location), HasSubstr("已损坏"));
    EXPECT_EQ(layoutAt(m_location), 1);
    EXPECT_FALSE(hasBackup());
}

TEST_P(BooksUpgrades, FailWholeWhereATableOfAnotherBearsTheNewName) {
    runScript(*openForTest(m_location, OpenMode::existing), "CREATE TABLE LogonTries (x INTEGER)");
    EXPECT_NE(upgraded(m_location), "done");
    expectUntouched();
}

TEST_P(BooksUpgrades, GiveTheirBackupsAnotherNameThanWhatIsThere) {
    const std::string first = backupOf(m_location);
    fillSmallBooks(*openForTest(first));
    const Digests kept = contentAt(first);
    EXPECT_EQ(upgraded(m_location), "done");
    EXPECT_EQ(contentAt(first), kept);
    EXPECT_EQ(contentAt(backupOf(m_location, "_format1_2")), m_before);
}

CHENGHENG_ON_SHARED_ENGINES(BooksUpgrades);

TEST(BackupPlace, OnAServerIsNoSchemaThatIsThereWhateverIsInIt) {
    if (!hasTestServer()) GTEST_SKIP() << "no PostgreSQL server for tests";
    const PrivatePostgres server;
    const std::string location = server.address() + "?schema=old";
    askServer(location, "CREATE SCHEMA old_format1");
    std::string place;
    EXPECT_TRUE(findPlaceOfBackup(location, 1, place));
    EXPECT_EQ(place, server.address() + "?schema=old_format1_2");
}

TEST(BackupPlace, IsNotLookedForWithoutEnd) {
    const std::string location = freshFolder() + "/Nbzw.db";
    std::ofstream(backupOf(location)) << "taken";
    for (int number = 2; number <= 1000; ++number)
        std::ofstream(backupOf(location, "_format1_" + std::to_string(number))) << "taken";
    std::string place;
    EXPECT_EQ(findPlaceOfBackup(location, 1, place).failure, Failure::refused);
    EXPECT_EQ(findPlaceOfBackup("postgresql://localhost:1/books?schema=a", 1, place).failure,
              Failure::unreachable);
}

TEST(BooksUpgrade, OfAFileThatALinkLeadsToBacksItUpBesideTheFile) {
    const std::string location = makeOlderBooks(EngineCase{"sqliteFile"});
    const std::string link = freshFolder() + "/link.db";
    files::create_symlink(location, link);
    EXPECT_EQ(upgraded(link), "done");
    EXPECT_TRUE(files::exists(backupOf(location)));
    EXPECT_TRUE(files::is_symlink(link));
}

TEST(BooksUpgrade, OnAServerGivesTheNewTableToThoseWhoWorkWithTheBooks) {
    if (!hasTestServer()) GTEST_SKIP() << "no PostgreSQL server for tests";
    PrivatePostgres server;
    const std::string location = server.address() + "?schema=old";
    fillOlderBooks(*openForTest(location), 1);
    askServer(location,
              "CREATE ROLE \"clerk \"\"x\"\"\"; GRANT USAGE ON SCHEMA old TO \"clerk \"\"x\"\"\"; "
              "GRANT SELECT, INSERT, UPDATE ON ALL TABLES IN SCHEMA old TO \"clerk \"\"x\"\"\"; "
              "CREATE ROLE stranger");
    ASSERT_EQ(upgraded(location), "done");
    const auto mayUse = [&](const std::string& role, const std::string& right) {
        return askServer(location, "SELECT has_table_privilege('" + role +
                                       "', 'old.logontries', '" + right + "')");
    };
    for (const char* right : {"SELECT", "INSERT", "UPDATE"})
        EXPECT_EQ(mayUse("clerk \"x\"", right), "t") << right;
    EXPECT_EQ(mayUse("clerk \"x\"", "DELETE"), "f");
    EXPECT_EQ(mayUse("stranger", "SELECT"), "f");
}

}  // namespace
}  // namespace chengheng
