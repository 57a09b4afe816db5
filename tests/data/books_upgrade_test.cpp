#include "books/upgrading/books_upgrade.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "base/system/workstation.h"
#include "books/checking/integrity_check.h"
#include "books/upgrading/upgrade_backup.h"
#include "data/engines/place_beside.h"
#include "data/engines/remove_database.h"
#include "data/layout/layout.h"
#include "data/transfer/content_digest.h"
#include "tests/support/engine_cases.h"
#include "tests/support/engine_tools.h"
#include "tests/support/failing_disk.h"
#include "tests/support/failing_sync.h"
#include "tests/support/killed_process.h"
#include "tests/support/older_books.h"
#include "tests/support/other_workstation.h"
#include "tests/support/private_postgres.h"
#include "tests/support/small_books.h"
#include "tests/support/small_disk.h"
#include "tests/support/waiting_process.h"

namespace chengheng {
namespace {

namespace files = std::filesystem;
using namespace std::chrono_literals;
using testing::HasSubstr;
using Digests = std::vector<TableDigest>;

std::string makeOlderBooks(const EngineCase& engineCase, int number = 1) {
    const std::string location = freshLocation(engineCase);
    fillOlderBooks(*openForTest(location), number);
    return location;
}

int layoutAt(const std::string& location) {
    int number = 0;
    const auto engine = openForTest(location, OpenMode::existing);
    EXPECT_TRUE(readLayoutNumber(*engine, number).isDone());
    return number;
}

Digests contentAt(const std::string& location) {
    Digests digests;
    const auto engine = openForTest(location, OpenMode::existing);
    EXPECT_TRUE(digestContent(*engine, digests).isDone());
    return digests;
}

/// The rows of the tables that were there before an upgrade, but for the number of the layout.
Digests keptOf(const std::string& location, const Digests& before) {
    Digests kept;
    for (const TableDigest& digest : contentAt(location))
        for (const TableDigest& old : before)
            if (old.table == digest.table)
                kept.push_back(digest.table == "BooksFormat" ? old : digest);
    return kept;
}

std::string textOf(const std::optional<Refusal>& refusal) {
    return refusal ? refusal->notice.text : "done";
}

/// Waits so many times and notes for whom.
class CountedWaiter : public LockWaiter {
  public:
    explicit CountedWaiter(int times = 0, std::function<void()> meanwhile = {})
        : m_times(times), m_meanwhile(std::move(meanwhile)) {}

    bool keepWaiting(const LockHolder& holder, std::chrono::milliseconds) override {
        names = holder.operatorName;
        stations = holder.station;
        if (m_meanwhile) m_meanwhile();
        return m_times-- > 0;
    }

    std::string names;
    std::string stations;

  private:
    int m_times;
    std::function<void()> m_meanwhile;
};

std::string upgraded(BooksUpgrade& upgrade, LoggedOn loggedOn = LoggedOn::waitFor) {
    CountedWaiter waiter;
    const auto refusal = upgrade.keepOthersOut(waiter, loggedOn);
    return textOf(refusal ? refusal : upgrade.carryOut());
}

std::string upgraded(const std::string& location, LoggedOn loggedOn = LoggedOn::waitFor) {
    BooksUpgrade upgrade(location);
    return upgraded(upgrade, loggedOn);
}

std::string backupOf(const std::string& location, const std::string& suffix = "_format1") {
    return placeBeside(location, suffix);
}

bool hasTables(const std::string& location) {
    bool found = false;
    EXPECT_TRUE(openForTest(location, OpenMode::existing)->hasTable("BooksFormat", found));
    return found;
}

class BooksUpgrades : public testing::TestWithParam<EngineCase> {
  protected:
    ~BooksUpgrades() override {
        // What lies in no schema of the tests' own is not removed with these.
        if (!isServer()) return;
        for (const char* suffix : {"_format1", "_format1_2"})
            askServer(m_location, "DROP SCHEMA IF EXISTS " +
                                      schemaOf(backupOf(m_location, suffix)) + " CASCADE");
    }

    bool isServer() const { return isServerAddress(m_location); }
    static std::string schemaOf(const std::string& address) {
        return address.substr(address.find("schema=") + 7);
    }
    bool hasBackup(const std::string& suffix = "_format1") const {
        bool isFree = false;
        EXPECT_TRUE(readIsPlaceFree(backupOf(m_location, suffix), isFree));
        return !isFree;
    }
    /// The books and nothing that an upgrade left behind; not a schema without tables either.
    void expectUntouched() {
        EXPECT_EQ(contentAt(m_location), m_before);
        EXPECT_FALSE(hasBackup());
        if (isServer()) return;
        for (const auto& entry : files::directory_iterator(files::path(m_location).parent_path()))
            EXPECT_THAT(entry.path().filename().string(), testing::StartsWith("Nbzw.db"));
    }
    BooksUpgrade withEngine(FaultyEngine*& engine, int number, Failure failure) {
        return {m_location, [this, &engine, number, failure](std::unique_ptr<Engine>& opened) {
                    auto faulty =
                        std::make_unique<FaultyEngine>(openForTest(m_location, OpenMode::existing));
                    faulty->failCall(number, failure);
                    engine = faulty.get();
                    opened = std::move(faulty);
                    return Status::done();
                }};
    }

    /// Lets an upgrade fail at many of its calls and at its last one, until it does not.
    /// Gives how many calls it makes.
    int atManyCalls(const std::function<bool(int number)>& failsAt) {
        const int stride = isServer() ? 47 : 9;
        int beyond = 1;
        while (failsAt(beyond)) beyond += stride;
        int last = std::max(beyond - stride, 0);
        startAnew();
        while (beyond - last > 1) {
            const int middle = (last + beyond) / 2;
            if (failsAt(middle)) {
                last = middle;
            } else {
                beyond = middle;
                startAnew();
            }
        }
        EXPECT_EQ(layoutAt(m_location), 1);
        return last;
    }
    void startAnew() {
        if (hasBackup()) {
            EXPECT_TRUE(removeDatabase(backupOf(m_location)).isDone());
        }
        m_location = makeOlderBooks(GetParam());
    }

    std::string m_location = makeOlderBooks(GetParam());
    Digests m_before = contentAt(m_location);
};

TEST_P(BooksUpgrades, LeadFromEachNumberToSoundBooksOfToday) {
    for (int number = 1; number < booksFormatVersion; ++number) {
        const std::string location = makeOlderBooks(GetParam(), number);
        const Digests before = contentAt(location);
        EXPECT_EQ(upgraded(location), "done");
        const auto engine = openForTest(location, OpenMode::existing);
        EXPECT_TRUE(checkLayout(*engine).isDone()) << number;
        EXPECT_EQ(keptOf(location, before), before) << number;
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
    EXPECT_EQ(contentAt(location).size(), before.size());
    EXPECT_EQ(keptOf(location, before), before);
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
    ASSERT_EQ(textOf(BooksUpgrade(m_location).plan(plan)), "done");
    EXPECT_TRUE(plan.isNeeded());
    EXPECT_EQ(plan.text(),
              "帐套“旧帐”(" + shownLocation(m_location) +
                  ")由较早版本的程序建立,数据格式为 1,要升级到 3 才能使用。\n\n升级时:\n"
                  "· 先备份到“" +
                  shownLocation(backupOf(m_location)) +
                  "”,并核对备份\n"
                  "· 增加一张表,记下每位操作员口令输错的次数和上次登录的时间\n"
                  "· 各表的数值栏只收范围之内的数,写入超出范围的数会被拒绝\n"
                  "· 各步改动一次写入:中途出错或断电,帐套仍是原来的样子\n"
                  "· 升级后较早版本的程序不能再打开它,各工作站请都用新版本\n"
                  "· 等其他人退出后才开始。列为正在使用的有:李明(PC1)");
    expectUntouched();
}

TEST_P(BooksUpgrades, HaveNothingToDoWithBooksOfToday) {
    ASSERT_EQ(upgraded(m_location), "done");
    const Digests after = contentAt(m_location);
    UpgradePlan plan;
    ASSERT_EQ(textOf(BooksUpgrade(m_location).plan(plan)), "done");
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
    EXPECT_THAT(textOf(BooksUpgrade(m_location).plan(plan)), HasSubstr("更新版本的程序"));
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

TEST_P(BooksUpgrades, FailingAnywhereLeaveTheBooksAsTheyWere) {
    for (const Failure failure : {Failure::full, Failure::lost}) {
        const auto failsAt = [&](int number) {
            FaultyEngine* engine = nullptr;
            BooksUpgrade upgrade = withEngine(engine, number, failure);
            const std::string text = upgraded(upgrade);
            if (text == "done") return false;
            EXPECT_EQ(contentAt(m_location), m_before) << "call " << number;
            if (hasBackup()) {
                EXPECT_THAT(text, HasSubstr("升级前的备份在")) << "call " << number;
                EXPECT_EQ(contentAt(backupOf(m_location)), m_before);
                EXPECT_TRUE(removeDatabase(backupOf(m_location)).isDone());
            }
            expectUntouched();
            return true;
        };
        EXPECT_GT(atManyCalls(failsAt), 100);
    }
}

TEST_P(BooksUpgrades, KilledAnywhereLeaveEitherFormWhole) {
    const auto isKilledAt = [&](int number) {
        const bool isKilled = isKilledAtWork([&] {
            BooksUpgrade upgrade(m_location, [&](std::unique_ptr<Engine>& opened) {
                auto faulty =
                    std::make_unique<FaultyEngine>(openForTest(m_location, OpenMode::existing));
                faulty->dieAtCall(number);
                opened = std::move(faulty);
                return Status::done();
            });
            if (upgraded(upgrade) != "done") throw std::runtime_error("not upgraded");
        });
        EXPECT_EQ(layoutAt(m_location), isKilled ? 1 : booksFormatVersion) << "call " << number;
        EXPECT_EQ(keptOf(m_location, m_before), m_before) << "call " << number;
        const auto engine = openForTest(m_location, OpenMode::existing);
        EXPECT_TRUE(checkReadable(*engine).isDone()) << "call " << number;
        if (hasBackup()) {
            // A schema is made before there is anything in it.
            if (!isKilled || !isServer() || hasTables(backupOf(m_location))) {
                EXPECT_TRUE(contentAt(backupOf(m_location)) == m_before) << "call " << number;
            }
            if (isKilled) {
                EXPECT_TRUE(removeDatabase(backupOf(m_location)).isDone());
            }
        }
        return isKilled;
    };
    EXPECT_GT(atManyCalls(isKilledAt), 100);
}

TEST_P(BooksUpgrades, OfTwoProgramsAtOnceAreDoneByOne) {
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

TEST_P(BooksUpgrades, WaitForThoseAtWorkAndNameThem) {
    auto colleague = openForTest(m_location, OpenMode::existing);
    runScript(*colleague,
              "INSERT INTO LoginInfoTbl VALUES (1, 1, '李明', 'PC1', 1, '2026-01-01');"
              "INSERT INTO LoginInfoTbl VALUES (2, 1, 'O''Brien', 'PC2', 1, '2026-01-01')");
    BooksUpgrade upgrade(m_location);
    CountedWaiter impatient;
    const std::string text = textOf(upgrade.keepOthersOut(impatient, LoggedOn::waitFor));
    EXPECT_THAT(text, HasSubstr("正在使用:李明(PC1)、O'Brien(PC2)。\n没有升级,什么都没有改变。"));
    EXPECT_EQ(impatient.names, "李明、O'Brien");
    EXPECT_EQ(impatient.stations, "PC1、PC2");
    EXPECT_EQ(layoutAt(m_location), 1);
    EXPECT_FALSE(hasBackup());
    CountedWaiter patient(20, [&colleague] {
        if (colleague) runScript(*colleague, "DELETE FROM LoginInfoTbl");
        colleague.reset();
    });
    EXPECT_EQ(textOf(upgrade.keepOthersOut(patient, LoggedOn::waitFor)), "done");
    EXPECT_EQ(textOf(upgrade.carryOut()), "done");
    EXPECT_EQ(layoutAt(m_location), booksFormatVersion);
}

TEST_P(BooksUpgrades, WaitForWhoHoldsALockWithoutALogon) {
    OtherWorkstation tool(m_location);
    ASSERT_TRUE(tool.lock("Code", LockMode::shared));
    CountedWaiter waiter;
    BooksUpgrade upgrade(m_location);
    EXPECT_THAT(textOf(upgrade.keepOthersOut(waiter, LoggedOn::waitFor)), HasSubstr("正在使用:"));
    expectUntouched();
    tool.kill();
    CountedWaiter again(50);
    EXPECT_EQ(textOf(upgrade.keepOthersOut(again, LoggedOn::waitFor)), "done");
}

TEST_P(BooksUpgrades, AreNotKeptWaitingByAProgramThatEnded) {
    runScript(
        *openForTest(m_location, OpenMode::existing),
        "INSERT INTO LoginInfoTbl VALUES (1, 1, '李明', '" + stationName() + "', 0, '2026-01-01')");
    EXPECT_EQ(upgraded(m_location), "done");
}

TEST_P(BooksUpgrades, LetNobodyInUntilTheyAreDone) {
    WaitingProcess opening([location = m_location] {
        return checkLayout(*openForTest(location, OpenMode::existing)).isDone();
    });
    BooksUpgrade upgrade(m_location);
    CountedWaiter waiter;
    ASSERT_EQ(textOf(upgrade.keepOthersOut(waiter, LoggedOn::waitFor)), "done");
    opening.start(300ms);
    EXPECT_EQ(textOf(upgrade.carryOut()), "done");
    EXPECT_TRUE(opening.hasSucceeded());
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

TEST(BooksUpgrade, LeavesABackupThatTheDiskDoesNotConfirm) {
    const std::string location = makeOlderBooks(EngineCase{"sqliteFile"});
    const Digests before = contentAt(location);
    {
        const FailingFolderSync failing;
        EXPECT_THAT(upgraded(location), HasSubstr("系统没有确认"));
    }
    EXPECT_EQ(contentAt(location), before);
    EXPECT_EQ(contentAt(backupOf(location)), before);
    EXPECT_EQ(upgraded(location), "done");
}

/// Older books in a file on a disk that fills up.
TEST(BooksUpgrade, OnADiskWithoutRoomForTheBackupChangesNothing) {
    const std::string location = makeOlderBooks(EngineCase{"sqliteFile"});
    const Digests before = contentAt(location);
    const std::string folder = files::path(location).parent_path();
    const auto size = files::file_size(location);
    {
        const SmallDisk disk(size / 2);
        const std::string text = upgraded(location);
        EXPECT_THAT(text, HasSubstr("没有升级,也没有改动"));
        EXPECT_THAT(text, HasSubstr("磁盘空间不足"));
    }
    EXPECT_EQ(contentAt(location), before);
    for (const auto& entry : files::directory_iterator(folder))
        EXPECT_THAT(entry.path().filename().string(), testing::StartsWith("Nbzw.db"));
    EXPECT_EQ(upgraded(location), "done");
}

TEST(BooksUpgrade, OnADiskThatFillsUpDuringTheStepsChangesNothing) {
    FailingDisk disk;
    const std::string location = makeOlderBooks(EngineCase{"sqliteFile"});
    const Digests before = contentAt(location);
    int failures = 0;
    for (int room = 0;; room += room < 30 ? 1 : 7) {
        disk.fail(FailingDisk::Fault::full, room);
        const std::string text = upgraded(location);
        disk.repair();
        if (text == "done") break;
        ++failures;
        ASSERT_EQ(contentAt(location), before) << room;
        if (files::exists(backupOf(location))) {
            EXPECT_TRUE(removeDatabase(backupOf(location)).isDone());
        }
    }
    EXPECT_GT(failures, 3);
    EXPECT_EQ(keptOf(location, before), before);
}

TEST(BooksUpgrade, OfAFileThatALinkLeadsToBacksItUpBesideTheFile) {
    const std::string location = makeOlderBooks(EngineCase{"sqliteFile"});
    const std::string link = freshFolder() + "/link.db";
    files::create_symlink(location, link);
    EXPECT_EQ(upgraded(link), "done");
    EXPECT_TRUE(files::exists(backupOf(location)));
    EXPECT_TRUE(files::is_symlink(link));
}

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
