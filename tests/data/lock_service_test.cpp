#include "data/engine/lock_service.h"

#include <gtest/gtest.h>

#include <functional>

#include "tests/support/engine_cases.h"

namespace chengheng {
namespace {

using namespace std::chrono_literals;

/// Asks a function each time whether to go on, and keeps what it was shown.
struct AskingWaiter : LockWaiter {
    bool keepWaiting(const LockHolder& holder, std::chrono::milliseconds) override {
        shown = holder;
        ++asked;
        return isGoingOn();
    }
    void waitEnded() override { ++ended; }

    std::function<bool()> isGoingOn = [] { return true; };
    LockHolder shown;
    int asked = 0;
    int ended = 0;
};

class OwnLocks : public testing::TestWithParam<EngineCase> {
  protected:
    std::unique_ptr<Engine> m_engine = openForTest(freshLocation(GetParam()));
    LockService& m_locks = m_engine->locks();
};

TEST_P(OwnLocks, AreHeldByEveryNameOfTheListInAnyCaseOfLetters) {
    ASSERT_TRUE(m_locks.lock("AssAcc AccSum RegMain RegSug", LockMode::shared, true));
    for (const char* name : {"assacc", "ACCSUM", "RegMain", "RegSug"})
        EXPECT_TRUE(m_locks.holds(name, LockMode::shared)) << name;
    EXPECT_FALSE(m_locks.holds("RegSub", LockMode::shared));
    EXPECT_FALSE(m_locks.holds("RegSug", LockMode::exclusive));
    m_locks.unlock("REGSUG assacc", LockMode::shared);
    EXPECT_FALSE(m_locks.holds("RegSug", LockMode::shared));
    EXPECT_TRUE(m_locks.holds("AccSum", LockMode::shared));
}

TEST_P(OwnLocks, OfBothModesOfANameAreReleasedEachForItself) {
    ASSERT_TRUE(m_locks.lock("Code", LockMode::shared, true));
    ASSERT_TRUE(m_locks.lock("Code", LockMode::exclusive, true));
    m_locks.unlock("Code", LockMode::exclusive);
    EXPECT_TRUE(m_locks.holds("Code", LockMode::shared));
    EXPECT_FALSE(m_locks.holds("Code", LockMode::exclusive));
}

TEST_P(OwnLocks, OfAnEmptyListAreGrantedAndMeanNothing) {
    EXPECT_TRUE(m_locks.lock("", LockMode::exclusive, true));
    EXPECT_TRUE(m_locks.lock(" ", LockMode::exclusive, false));
    m_locks.unlock("", LockMode::exclusive);
}

TEST_P(OwnLocks, ThatAreNotHeldAreReleasedWithoutHarm) {
    m_locks.unlock("Code Sign", LockMode::shared);
    ASSERT_TRUE(m_locks.lock("Code", LockMode::shared, true));
    m_locks.unlock("Code", LockMode::exclusive);
    EXPECT_TRUE(m_locks.holds("Code", LockMode::shared));
}

CHENGHENG_ON_ALL_ENGINES(OwnLocks);

class TwoConnections : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override {
        m_location = freshLocation(GetParam());
        m_first = openForTest(m_location);
        m_second = openForTest(m_location, OpenMode::existing);
    }

    LockService& first() { return m_first->locks(); }
    LockService& second() { return m_second->locks(); }

    /// Whether somebody else could take the lock now; leaves it free.
    bool isFree(const std::string& names, LockMode mode) {
        const bool isGranted = second().lock(names, mode, false).isDone();
        if (isGranted) second().unlock(names, mode);
        return isGranted;
    }

    std::string m_location;
    std::unique_ptr<Engine> m_first;
    std::unique_ptr<Engine> m_second;
};

TEST_P(TwoConnections, ShareALockInModeOneAndExcludeEachOtherOtherwise) {
    using LockMode::shared, LockMode::exclusive;
    for (const LockMode held : {shared, exclusive}) {
        for (const LockMode wanted : {shared, exclusive}) {
            ASSERT_TRUE(first().lock("Code", held, true));
            EXPECT_EQ(isFree("code", wanted), held == shared && wanted == shared);
            EXPECT_TRUE(isFree("Codes", wanted));
            first().unlock("CODE", held);
            EXPECT_TRUE(isFree("Code", wanted));
        }
    }
}

TEST_P(TwoConnections, OneReleaseFreesWhatWasAskedForTwice) {
    for (const LockMode mode : {LockMode::shared, LockMode::exclusive}) {
        ASSERT_TRUE(first().lock("Code Sign", mode, true));
        ASSERT_TRUE(first().lock("Code Sign", mode, true));
        EXPECT_FALSE(isFree("Code", LockMode::exclusive));
        first().unlock("Code Sign", mode);
        EXPECT_TRUE(isFree("Code Sign", LockMode::exclusive));
    }
}

TEST_P(TwoConnections, ReleasingTheExclusiveModeKeepsTheSharedOne) {
    ASSERT_TRUE(first().lock("Code", LockMode::shared, true));
    ASSERT_TRUE(first().lock("Code", LockMode::exclusive, true));
    EXPECT_FALSE(isFree("Code", LockMode::shared));
    first().unlock("Code", LockMode::exclusive);
    EXPECT_TRUE(isFree("Code", LockMode::shared));
    EXPECT_FALSE(isFree("Code", LockMode::exclusive));
    first().unlock("Code", LockMode::shared);
    EXPECT_TRUE(isFree("Code", LockMode::exclusive));
}

TEST_P(TwoConnections, ReleasingTheSharedModeKeepsTheExclusiveOne) {
    ASSERT_TRUE(first().lock("Code", LockMode::exclusive, true));
    ASSERT_TRUE(first().lock("Code", LockMode::shared, true));
    first().unlock("Code", LockMode::shared);
    EXPECT_FALSE(isFree("Code", LockMode::shared));
    first().unlock("Code", LockMode::exclusive);
    EXPECT_TRUE(isFree("Code", LockMode::exclusive));
}

TEST_P(TwoConnections, AListIsGrantedWholeOrNotAtAll) {
    ASSERT_TRUE(first().lock("RegMain", LockMode::exclusive, true));
    ASSERT_TRUE(second().lock("AccSum", LockMode::shared, true));
    const Status refused = second().lock("AssAcc AccSum RegMain Zoo", LockMode::shared, false);
    EXPECT_EQ(refused.failure, Failure::busy);
    for (const char* name : {"AssAcc", "RegMain", "Zoo"})
        EXPECT_FALSE(second().holds(name, LockMode::shared)) << name;
    EXPECT_TRUE(second().holds("AccSum", LockMode::shared)) << "held before";
    EXPECT_TRUE(first().lock("AssAcc Zoo", LockMode::exclusive, false));
    EXPECT_FALSE(first().lock("AccSum", LockMode::exclusive, false));
}

TEST_P(TwoConnections, ARefusedUpgradeLeavesTheSharedLock) {
    ASSERT_TRUE(first().lock("Code", LockMode::shared, true));
    ASSERT_TRUE(second().lock("Code", LockMode::shared, true));
    EXPECT_EQ(second().lock("Abc Code", LockMode::exclusive, false).failure, Failure::busy);
    EXPECT_TRUE(second().holds("Code", LockMode::shared));
    EXPECT_FALSE(second().holds("Abc", LockMode::exclusive));
    EXPECT_EQ(first().lock("Code", LockMode::exclusive, false).failure, Failure::busy);
    second().unlock("Code", LockMode::shared);
    EXPECT_TRUE(first().lock("Code", LockMode::exclusive, false));
}

TEST_P(TwoConnections, ARefusalNamesTheHolder) {
    first().setIdentity({"王芳", "会计科目"});
    const auto before = std::chrono::system_clock::now() - 2s;
    ASSERT_TRUE(first().lock("Sign Code", LockMode::exclusive, true));
    EXPECT_EQ(second().lock("code", LockMode::shared, false).failure, Failure::busy);
    const LockHolder& holder = second().lastHolder();
    EXPECT_EQ(holder.lockName, "code");
    EXPECT_EQ(holder.operatorName, "王芳");
    EXPECT_EQ(holder.function, "会计科目");
    EXPECT_FALSE(holder.station.empty());
    EXPECT_GE(holder.since, before);
    EXPECT_LE(holder.since, std::chrono::system_clock::now() + 2s);
}

TEST_P(TwoConnections, TheFunctionIsTheOneThatTookTheLock) {
    first().setIdentity({"王芳", "会计科目"});
    ASSERT_TRUE(first().lock("Code", LockMode::exclusive, true));
    first().setIdentity({"王芳", "外币"});
    EXPECT_FALSE(second().lock("Code", LockMode::shared, false));
    EXPECT_EQ(second().lastHolder().function, "会计科目");
}

TEST_P(TwoConnections, AClosedConnectionHoldsNothing) {
    ASSERT_TRUE(first().lock("Code", LockMode::exclusive, true));
    m_first.reset();
    EXPECT_TRUE(second().lock("Code", LockMode::exclusive, true));
}

TEST_P(TwoConnections, AWaitThatIsGivenUpAtOnceIsBusyAndLaterCancelled) {
    ASSERT_TRUE(first().lock("Code", LockMode::exclusive, true));
    AskingWaiter waiter;
    second().setWaiter(&waiter);
    waiter.isGoingOn = [] { return false; };
    EXPECT_EQ(second().lock("Code", LockMode::shared, true).failure, Failure::busy);
    EXPECT_EQ(waiter.ended, 1);
    waiter.isGoingOn = [&waiter] { return waiter.asked < 5; };
    EXPECT_EQ(second().lock("Abc Code", LockMode::shared, true).failure, Failure::cancelled);
    EXPECT_EQ(waiter.asked, 5);
    EXPECT_EQ(waiter.ended, 2);
    EXPECT_TRUE(first().lock("Abc", LockMode::exclusive, false));
    second().setWaiter(nullptr);
}

TEST_P(TwoConnections, AWaitEndsWhenTheLockIsFreed) {
    ASSERT_TRUE(first().lock("Code", LockMode::exclusive, true));
    AskingWaiter waiter;
    second().setWaiter(&waiter);
    waiter.isGoingOn = [&] {
        if (waiter.asked == 3) first().unlock("Code", LockMode::exclusive);
        return waiter.asked < 100;
    };
    EXPECT_TRUE(second().lock("Code", LockMode::exclusive, true));
    EXPECT_EQ(waiter.ended, 1);
    EXPECT_EQ(waiter.shown.lockName, "Code");
    EXPECT_FALSE(first().lock("Code", LockMode::shared, false));
    second().setWaiter(nullptr);
}

TEST_P(TwoConnections, ALockThatIsFreeIsGrantedWithoutAsking) {
    AskingWaiter waiter;
    second().setWaiter(&waiter);
    EXPECT_TRUE(second().lock("Code", LockMode::exclusive, true));
    EXPECT_EQ(waiter.asked + waiter.ended, 0);
    second().setWaiter(nullptr);
}

TEST_P(TwoConnections, AThirdConnectionTakesThePlaceOfOneThatLeft) {
    for (int round = 0; round < 20; ++round) {
        const std::unique_ptr<Engine> third = openForTest(m_location, OpenMode::existing);
        third->locks().setIdentity({"第三", "外币"});
        ASSERT_TRUE(third->locks().lock("Code", LockMode::exclusive, true));
        EXPECT_FALSE(second().lock("Code", LockMode::shared, false));
        EXPECT_EQ(second().lastHolder().operatorName, "第三");
    }
    EXPECT_TRUE(first().lock("Code", LockMode::exclusive, false));
}

CHENGHENG_ON_SHARED_ENGINES(TwoConnections);

}  // namespace
}  // namespace chengheng
