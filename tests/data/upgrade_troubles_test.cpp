#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "data/engines/remove_database.h"
#include "data/layout/layout.h"
#include "tests/data/upgrade_case.h"
#include "tests/support/failing_disk.h"
#include "tests/support/failing_sync.h"
#include "tests/support/killed_process.h"
#include "tests/support/older_books.h"
#include "tests/support/small_disk.h"

namespace chengheng {
namespace {

namespace files = std::filesystem;
using testing::HasSubstr;

bool hasTables(const std::string& location) {
    bool found = false;
    EXPECT_TRUE(openForTest(location, OpenMode::existing)->hasTable("BooksFormat", found));
    return found;
}

/// Upgrades that fail, or whose program is killed.
class BrokenUpgrades : public UpgradeCase {
  protected:
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
};

TEST_P(BrokenUpgrades, FailingAnywhereLeaveTheBooksAsTheyWere) {
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

TEST_P(BrokenUpgrades, KilledAnywhereLeaveEitherFormWhole) {
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

CHENGHENG_ON_SHARED_ENGINES(BrokenUpgrades);

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

}  // namespace
}  // namespace chengheng
