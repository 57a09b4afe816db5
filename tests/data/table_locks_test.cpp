#include "data/access/table_locks.h"

#include <gtest/gtest.h>

#include <chrono>

#include "tests/support/engine_cases.h"
#include "tests/support/made_layout.h"

namespace {

using chengheng::EngineCase;
using chengheng::Failure;
using chengheng::LockMode;
using chengheng::TableLocks;

/// Two workstations on the same books, neither of which waits for the other.
class LocksOfAnAction : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override {
        const std::string location = chengheng::freshLocation(GetParam());
        chengheng::openNewBooks(m_one, location);
        NbCwDBInfo info;
        ASSERT_NE(m_two.DBOpen(info, location.c_str(), "books", 1), 0);
        ASSERT_NE(m_two.DBSelect("books"), 0);
        m_one.setLockWaiter(&m_waiter);
        m_two.setLockWaiter(&m_waiter);
    }
    void TearDown() override {
        m_one.setLockWaiter(nullptr);
        m_two.setLockWaiter(nullptr);
    }

    chengheng::PatientWaiter m_waiter{std::chrono::milliseconds(0)};
    CNbCwDB m_one;
    CNbCwDB m_two;
};

TEST_P(LocksOfAnAction, FreeTheReferringTablesWhenTheirOwnIsRefused) {
    ASSERT_NE(m_two.SQLLock("Code", 1, 1), 0);
    const TableLocks refused(m_one, "AccSum RegSub", "Code");
    EXPECT_FALSE(refused.areGranted());
    EXPECT_EQ(refused.status().failure, Failure::busy);
    EXPECT_FALSE(m_one.lockService()->holds("AccSum", LockMode::shared));
    EXPECT_NE(m_two.SQLLock("AccSum RegSub", 2, 0), 0) << "free for others, too";
}

TEST_P(LocksOfAnAction, TakeNothingWhenAReferringTableIsRefused) {
    ASSERT_NE(m_two.SQLLock("RegSub", 2, 1), 0);
    const TableLocks refused(m_one, "AccSum RegSub", "Code");
    EXPECT_FALSE(refused.areGranted());
    EXPECT_NE(m_two.SQLLock("AccSum Code", 2, 0), 0);
}

TEST_P(LocksOfAnAction, MayNameATableInBothLists) {
    {
        const TableLocks locks(m_one, "AccSum Code", "Code");
        ASSERT_TRUE(locks.areGranted());
        EXPECT_EQ(m_two.SQLLock("Code", 1, 0), 0);
    }
    EXPECT_NE(m_two.SQLLock("AccSum Code", 2, 0), 0);
}

CHENGHENG_ON_SHARED_ENGINES(LocksOfAnAction);

}  // namespace
