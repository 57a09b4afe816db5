#include <gtest/gtest.h>

#include <array>
#include <filesystem>

#include "tests/support/engine_cases.h"
#include "tests/support/engine_tools.h"
#include "tests/support/other_workstation.h"

namespace chengheng {
namespace {

using namespace std::chrono_literals;

using LockMode::exclusive;
using LockMode::shared;

class TwoWorkstations : public testing::TestWithParam<EngineCase> {
  protected:
    TwoWorkstations() : m_location(freshLocation(GetParam())), m_engine(openForTest(m_location)) {}

    LockService& locks() { return m_engine->locks(); }

    std::string m_location;
    std::unique_ptr<Engine> m_engine;
};

TEST_P(TwoWorkstations, ShareALockInModeOneAndExcludeEachOtherOtherwise) {
    OtherWorkstation other(m_location);
    for (const LockMode held : {shared, exclusive}) {
        for (const LockMode wanted : {shared, exclusive}) {
            ASSERT_TRUE(other.lock("Cyrency ExchgFix ExchgFlt", held));
            const bool isGranted = locks().lock("EXCHGFIX", wanted, false).isDone();
            EXPECT_EQ(isGranted, held == shared && wanted == shared);
            locks().unlock("ExchgFix", wanted);
            other.unlock("Cyrency ExchgFix ExchgFlt", held);
            EXPECT_TRUE(locks().lock("ExchgFix", wanted, false));
            locks().unlock("ExchgFix", wanted);
        }
    }
}

TEST_P(TwoWorkstations, AKilledOneLeavesNothingBehind) {
    OtherWorkstation other(m_location);
    ASSERT_TRUE(other.lock("AssSum AccSum Cyrency UnRegMain UnRegSug", exclusive));
    ASSERT_TRUE(other.lock("Code", shared));
    EXPECT_FALSE(locks().lock("UnRegSug", shared, false));
    other.kill();
    const Status granted =
        locks().lock("AssSum AccSum Cyrency UnRegMain UnRegSug Code", exclusive, true);
    EXPECT_TRUE(granted.isDone()) << granted.detail;
}

TEST_P(TwoWorkstations, OneThatIsKilledWhileItWaitsIsNotGrantedAnything) {
    OtherWorkstation other(m_location);
    ASSERT_TRUE(locks().lock("Code", exclusive, true));
    other.startLock("Abc Code", exclusive);
    ASSERT_FALSE(other.hasAnswered(300ms));
    other.kill();
    locks().unlock("Code", exclusive);
    EXPECT_TRUE(locks().lock("Abc Code", exclusive, true));
}

TEST_P(TwoWorkstations, AWaitIsGrantedWhenTheHolderLetsGo) {
    OtherWorkstation other(m_location);
    ASSERT_TRUE(locks().lock("Code", exclusive, true));
    other.startLock("Code", exclusive);
    EXPECT_FALSE(other.hasAnswered(300ms));
    locks().unlock("Code", exclusive);
    EXPECT_TRUE(other.answer().status.isDone());
    EXPECT_FALSE(locks().lock("Code", shared, false));
}

TEST_P(TwoWorkstations, WaitingNamesTheHolder) {
    OtherWorkstation other(m_location);
    locks().setIdentity({"王芳", "会计科目"});
    ASSERT_TRUE(locks().lock("Code", exclusive, true));
    other.startLock("Users Code", shared, 400ms);
    const OtherWorkstation::Answer given = other.answer();
    EXPECT_EQ(given.status.failure, Failure::busy);
    EXPECT_EQ(given.holder.lockName, "Code");
    EXPECT_EQ(given.holder.operatorName, "王芳");
    EXPECT_EQ(given.holder.function, "会计科目");
    EXPECT_FALSE(given.holder.station.empty());
}

TEST_P(TwoWorkstations, TheOtherIsNamedToUs) {
    OtherWorkstation other(m_location);
    ASSERT_TRUE(other.ask("identity 李四 凭证录入"));
    ASSERT_TRUE(other.lock("RegMain", shared));
    EXPECT_EQ(locks().lock("REGMAIN", exclusive, false).failure, Failure::busy);
    EXPECT_EQ(locks().lastHolder().operatorName, "李四");
    EXPECT_EQ(locks().lastHolder().function, "凭证录入");
}

struct Party {
    OtherWorkstation& station;
    const char* holds;
    LockMode mode;
};

/// Both wait for each other; exactly one is told so, and the other goes on once it let go.
void expectOneGivesWay(Party one, Party two) {
    bool isOneRefused = false;
    for (int round = 0; round < 200 && !isOneRefused && !two.station.hasAnswered(50ms); ++round)
        isOneRefused = one.station.hasAnswered(50ms);
    const Party& refused = isOneRefused ? one : two;
    const Party& granted = isOneRefused ? two : one;
    EXPECT_EQ(refused.station.answer().status.failure, Failure::crossedWait);
    EXPECT_FALSE(granted.station.hasAnswered(300ms));
    refused.station.unlock(refused.holds, refused.mode);
    const Status status = granted.station.answer().status;
    EXPECT_TRUE(status.isDone()) << status.detail;
}

TEST_P(TwoWorkstations, CrossedWaitsEndForExactlyOne) {
    OtherWorkstation one(m_location);
    OtherWorkstation two(m_location);
    ASSERT_TRUE(one.lock("Code", exclusive));
    ASSERT_TRUE(two.lock("Users", exclusive));
    two.startLock("Code", shared);
    one.startLock("Users", shared);
    expectOneGivesWay({one, "Code", exclusive}, {two, "Users", exclusive});
}

TEST_P(TwoWorkstations, TwoReadersWhoBothWantToWriteEndForExactlyOne) {
    OtherWorkstation one(m_location);
    OtherWorkstation two(m_location);
    ASSERT_TRUE(one.lock("Code", shared));
    ASSERT_TRUE(two.lock("Code", shared));
    one.startLock("Code", exclusive);
    two.startLock("Code", exclusive);
    expectOneGivesWay({one, "Code", shared}, {two, "Code", shared});
}

TEST_P(TwoWorkstations, ThreeInACircleEndForExactlyOne) {
    std::array<OtherWorkstation, 3> all{OtherWorkstation(m_location), OtherWorkstation(m_location),
                                        OtherWorkstation(m_location)};
    const std::array<const char*, 3> names{"Code", "Sign", "Users"};
    for (std::size_t own = 0; own < 3; ++own) ASSERT_TRUE(all[own].lock(names[own], exclusive));
    for (std::size_t own = 0; own < 3; ++own) all[own].startLock(names[(own + 1) % 3], exclusive);
    std::size_t refused = 3;
    for (int round = 0; round < 200 && refused == 3; ++round)
        for (std::size_t own = 0; own < 3; ++own)
            if (all[own].hasAnswered(50ms)) refused = own;
    ASSERT_LT(refused, 3U) << "nobody gave way";
    EXPECT_EQ(all[refused].answer().status.failure, Failure::crossedWait);
    EXPECT_FALSE(all[(refused + 1) % 3].hasAnswered(300ms));
    all[refused].unlock(names[refused], exclusive);
    // The one before it goes on, and then the one before that.
    const std::size_t before = (refused + 2) % 3;
    EXPECT_TRUE(all[before].answer().status.isDone());
    all[before].unlock(names[before], exclusive);
    EXPECT_TRUE(all[(refused + 1) % 3].answer().status.isDone());
}

TEST_P(TwoWorkstations, ListsInOppositeOrderNeverBlockEachOther) {
    OtherWorkstation one(m_location);
    OtherWorkstation two(m_location);
    for (int round = 0; round < 20; ++round) {
        one.startLock("RegMain AccSum Code", exclusive);
        two.startLock("Code AccSum RegMain", exclusive);
        const bool isOneFirst = one.hasAnswered(100ms);
        OtherWorkstation& first = isOneFirst ? one : two;
        OtherWorkstation& second = isOneFirst ? two : one;
        EXPECT_TRUE(first.answer().status.isDone());
        first.unlock("Code AccSum RegMain", exclusive);
        EXPECT_TRUE(second.answer().status.isDone());
        second.unlock("Code AccSum RegMain", exclusive);
    }
}

TEST_P(TwoWorkstations, LocksAndTransactionsDoNotDisturbEachOther) {
    ASSERT_TRUE(m_engine->script("CREATE TABLE Shared (lId INTEGER)"));
    OtherWorkstation other(m_location);
    ASSERT_TRUE(m_engine->begin());
    ASSERT_TRUE(runSql(*m_engine, "INSERT INTO Shared VALUES (1)").isDone());
    ASSERT_TRUE(locks().lock("Code", exclusive, true));
    EXPECT_EQ(other.lock("Code", shared).failure, Failure::busy);
    ASSERT_TRUE(m_engine->rollback());
    EXPECT_EQ(other.lock("Code", shared).failure, Failure::busy);
    locks().unlock("Code", exclusive);
    EXPECT_TRUE(other.lock("Code", exclusive));
}

CHENGHENG_ON_SHARED_ENGINES(TwoWorkstations);

TEST(LockFile, IsMadeAnewWhenItWasRemoved) {
    const std::string path = freshFolder() + "/Nbzw.db";
    const std::unique_ptr<Engine> engine = openForTest(path);
    ASSERT_TRUE(engine->locks().lock("Code", exclusive, true));
    engine->locks().unlock("Code", exclusive);
    ASSERT_TRUE(std::filesystem::remove(path + ".locks"));
    OtherWorkstation other(path);
    ASSERT_TRUE(other.lock("Code", exclusive));
    EXPECT_EQ(engine->locks().lock("Code", shared, false).failure, Failure::busy);
}

TEST(LockFile, IsTheSameThroughALink) {
    const std::string path = freshFolder() + "/Nbzw.db";
    const std::string link = freshFolder() + "/link.db";
    const std::unique_ptr<Engine> engine = openForTest(path);
    std::filesystem::create_symlink(path, link);
    OtherWorkstation other(link);
    ASSERT_TRUE(other.lock("Code", exclusive));
    EXPECT_EQ(engine->locks().lock("Code", shared, false).failure, Failure::busy);
}

TEST(LockFile, IsOpenToThoseWhomTheDatabaseIsOpenTo) {
    namespace fs = std::filesystem;
    const std::string path = freshFolder() + "/Nbzw.db";
    const std::unique_ptr<Engine> engine = openForTest(path);
    fs::permissions(path, fs::perms(0660));
    ASSERT_TRUE(engine->locks().lock("Code", exclusive, true));
    EXPECT_EQ(fs::status(path + ".locks").permissions(), fs::perms(0660));
}

TEST(LockFile, ThatCannotBeMadeIsAFailureAndNoLock) {
    const std::string path = freshFolder() + "/Nbzw.db";
    const std::unique_ptr<Engine> engine = openForTest(path);
    std::filesystem::create_directory(path + ".locks");
    const Status status = engine->locks().lock("Code", shared, true);
    EXPECT_FALSE(status);
    EXPECT_NE(status.failure, Failure::busy);
    EXPECT_FALSE(engine->locks().holds("Code", shared));
    engine->locks().unlock("Code", shared);
}

}  // namespace
}  // namespace chengheng
