#include <gtest/gtest.h>

#include <functional>

#include "data/access/CNbCwDB.h"
#include "data/access/row_lease.h"
#include "data/access/table_locks.h"
#include "data/access/unit_of_work.h"
#include "data/layout/layout.h"
#include "data/tables/accounts.h"
#include "data/tables/balances.h"
#include "tests/support/engine_cases.h"
#include "tests/support/faulty_engine.h"

namespace {

using chengheng::EngineCase;
using chengheng::Failure;
using chengheng::FaultyEngine;
using chengheng::LockMode;
using chengheng::TableLocks;
using chengheng::UnitOfWork;

constexpr const char* sumRow =
    "INSERT AccSum Values( 1, 1, 1, 1.00, 0, 0, 0, 0, 0, 0, 0, 0 )\n"
    "Update ABIdTable Set lLastId = 1 Where sTable = 'AccSum'\n";

/// What is read back: rows of Code and AccSum, the name of account 1, the two counters.
using State = std::vector<std::string>;

/// Books with the account 1001 on an engine that can be made to fail.
class FaultRuns : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override { makeBooks(); }

    void makeBooks() {
        auto engine = chengheng::openForTest(chengheng::freshLocation(GetParam()));
        ASSERT_TRUE(chengheng::createLayout(*engine));
        auto faulty = std::make_unique<FaultyEngine>(std::move(engine));
        m_engine = faulty.get();
        m_db = std::make_unique<CNbCwDB>();
        m_db->adopt(std::move(faulty), "books", "books");
        ASSERT_NE(m_db->DBSelect("books"), 0);
        ASSERT_TRUE(addAccount("1001"));
    }
    bool addAccount(const char* code) {
        _CodeInfo account;
        account.sCode = code;
        int id = 0;
        return m_db->Code_AddNew(account, id) == 0;
    }
    bool rename(const char* name) {
        const auto rows = chengheng::readRows<_CodeInfo>(*m_db, "sCode = '1001'");
        if (rows.size() != 1) return false;
        _CodeInfo account = rows.front();
        account.sName = name;
        return m_db->Code_Edit(account) == 0;
    }
    State state() {
        const auto accounts = chengheng::readRows<_CodeInfo>(*m_db, "lId > 0 ORDER BY sCode");
        const auto sums = chengheng::readRows<_AccSumInfo>(*m_db, nullptr);
        return {std::to_string(accounts.size()), std::to_string(sums.size()),
                accounts.empty() ? "" : accounts.front().sName,
                std::to_string(m_db->Code_GetLastId()), std::to_string(m_db->AccSum_GetLastId())};
    }

    /// Lets the n-th call fail, n = 1, 2, ..., until the work is done; after each failure
    /// everything is as before, and no lock is held.
    void failEachCall(const std::function<bool()>& work, const State& done) {
        for (const Failure failure : {Failure::full, Failure::lost}) {
            makeBooks();
            const State before = state();
            bool isDone = false;
            int failures = 0;
            for (int number = 1; !isDone && number < 100; ++number) {
                m_engine->failCall(number, failure);
                {
                    const TableLocks locks(*m_db, "AccSum", "Code");
                    ASSERT_TRUE(locks.areGranted());
                    isDone = work();
                }
                const bool hasFailed = m_engine->hasFailed();
                m_engine->failCall(0);
                EXPECT_NE(isDone, hasFailed) << "call " << number;
                EXPECT_FALSE(m_engine->inTransaction()) << "call " << number;
                EXPECT_FALSE(m_db->lockService()->holds("Code", LockMode::exclusive));
                EXPECT_FALSE(m_db->lockService()->holds("AccSum", LockMode::shared));
                ASSERT_NE(m_db->DBSelect("books"), 0);
                ASSERT_EQ(state(), isDone ? done : before) << "call " << number;
                if (!isDone) ++failures;
            }
            EXPECT_TRUE(isDone);
            EXPECT_GT(failures, 0);
        }
    }

    std::unique_ptr<CNbCwDB> m_db;
    FaultyEngine* m_engine = nullptr;
};

TEST_P(FaultRuns, AddARecordWithItsIdOrNothing) {
    failEachCall([&] { return addAccount("1002"); }, {"2", "0", "", "2", "0"});
}

TEST_P(FaultRuns, EditARecordOrLeaveIt) {
    failEachCall([&] { return rename("现金"); }, {"1", "0", "现金", "1", "0"});
}

TEST_P(FaultRuns, RunABatchWholeOrNotAtAll) {
    failEachCall(
        [&] {
            return m_db->QRYExecuteSQL(std::string(sumRow) +
                                       "UPDATE Code SET sName = '现金' WHERE sCode = '1001'") != 0;
        },
        {"1", "1", "现金", "1", "1"});
}

TEST_P(FaultRuns, CommitAUnitOfWorkWholeOrNotAtAll) {
    const auto work = [&] {
        UnitOfWork unit(*m_db);
        return unit.isOpen() && m_db->QRYExecuteSQL(sumRow) != 0 && addAccount("1002") &&
               rename("现金") && unit.commit().isDone();
    };
    failEachCall(work, {"2", "1", "现金", "2", "1"});
}

CHENGHENG_ON_ALL_ENGINES(FaultRuns);

}  // namespace
