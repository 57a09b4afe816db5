#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/system/workstation.h"
#include "data/layout/layout.h"
#include "tests/data/upgrade_case.h"
#include "tests/support/older_books.h"
#include "tests/support/other_workstation.h"
#include "tests/support/private_postgres.h"
#include "tests/support/small_books.h"
#include "tests/support/waiting_process.h"

namespace chengheng {
namespace {

using namespace std::chrono_literals;
using testing::HasSubstr;

/// Upgrades while others work with the books.
class WaitingUpgrades : public UpgradeCase {};

TEST_P(WaitingUpgrades, OfTwoProgramsAtOnceAreDoneByOne) {
    const auto upgradeInTime = [location = m_location] {
        BooksUpgrade upgrade(location);
        PatientWaiter patience(60s);
        return !upgrade.keepOthersOut(patience, LoggedOn::waitFor) && !upgrade.carryOut();
    };
    WaitingProcess one(upgradeInTime);
    WaitingProcess other(upgradeInTime);
    one.start(0ms);
    other.start(0ms);
    EXPECT_TRUE(one.hasSucceeded());
    EXPECT_TRUE(other.hasSucceeded());
    EXPECT_EQ(layoutAt(m_location), booksFormatVersion);
    EXPECT_EQ(keptOf(m_location, m_before), m_before);
    EXPECT_TRUE(hasBackup());
    EXPECT_FALSE(hasBackup("_format1_2"));
}

TEST_P(WaitingUpgrades, WaitForThoseAtWorkAndNameThem) {
    auto colleague = openForTest(m_location, OpenMode::existing);
    runScript(*colleague,
              "INSERT INTO LoginInfoTbl VALUES (1, 1, '李明', 'PC1', 1, '2026-01-01');"
              "INSERT INTO LoginInfoTbl VALUES (2, 1, 'O''Brien', 'PC2', 1, '2026-01-01')");
    BooksUpgrade upgrade(m_location);
    CountedWaiter impatient;
    const std::string text = saidBy(upgrade.keepOthersOut(impatient, LoggedOn::waitFor));
    EXPECT_THAT(text, HasSubstr("正在使用:李明(PC1)、O'Brien(PC2)。\n没有升级,什么都没有改变。"));
    EXPECT_EQ(impatient.names, "李明、O'Brien");
    EXPECT_EQ(impatient.stations, "PC1、PC2");
    EXPECT_EQ(layoutAt(m_location), 1);
    EXPECT_FALSE(hasBackup());
    CountedWaiter patient(20, [&colleague] {
        if (colleague) runScript(*colleague, "DELETE FROM LoginInfoTbl");
        colleague.reset();
    });
    EXPECT_EQ(saidBy(upgrade.keepOthersOut(patient, LoggedOn::waitFor)), "done");
    EXPECT_EQ(saidBy(upgrade.carryOut()), "done");
    EXPECT_EQ(layoutAt(m_location), booksFormatVersion);
}

TEST_P(WaitingUpgrades, WaitForWhoHoldsALockWithoutALogon) {
    OtherWorkstation tool(m_location);
    ASSERT_TRUE(tool.lock("Code", LockMode::shared));
    CountedWaiter waiter;
    BooksUpgrade upgrade(m_location);
    EXPECT_THAT(saidBy(upgrade.keepOthersOut(waiter, LoggedOn::waitFor)), HasSubstr("正在使用:"));
    expectUntouched();
    tool.kill();
    CountedWaiter again(50);
    EXPECT_EQ(saidBy(upgrade.keepOthersOut(again, LoggedOn::waitFor)), "done");
}

TEST_P(WaitingUpgrades, AreNotKeptWaitingByAProgramThatEnded) {
    runScript(
        *openForTest(m_location, OpenMode::existing),
        "INSERT INTO LoginInfoTbl VALUES (1, 1, '李明', '" + stationName() + "', 0, '2026-01-01')");
    EXPECT_EQ(upgraded(m_location), "done");
}

TEST_P(WaitingUpgrades, LetNobodyInUntilTheyAreDone) {
    WaitingProcess opening([location = m_location] {
        return checkLayout(*openForTest(location, OpenMode::existing)).isDone();
    });
    BooksUpgrade upgrade(m_location);
    CountedWaiter waiter;
    ASSERT_EQ(saidBy(upgrade.keepOthersOut(waiter, LoggedOn::waitFor)), "done");
    opening.start(300ms);
    EXPECT_EQ(saidBy(upgrade.carryOut()), "done");
    EXPECT_TRUE(opening.hasSucceeded());
}

CHENGHENG_ON_SHARED_ENGINES(WaitingUpgrades);

TEST(BooksUpgrade, OnAServerPassesOverALogonThatIsLeftOverWhenToldSo) {
    if (!hasTestServer()) GTEST_SKIP() << "no PostgreSQL server for tests";
    PrivatePostgres server;
    const std::string location = server.address() + "?schema=old";
    fillOlderBooks(*openForTest(location), 1);
    runScript(*openForTest(location, OpenMode::existing),
              "INSERT INTO LoginInfoTbl VALUES (1, 1, '李明', 'gone', 1, '2026-01-01')");
    EXPECT_THAT(upgraded(location), HasSubstr("chbooks upgrade --force"));
    EXPECT_EQ(upgraded(location, LoggedOn::passOver), "done");
}

}  // namespace
}  // namespace chengheng
