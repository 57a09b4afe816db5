#include <gtest/gtest.h>

#include <algorithm>

#include "data/layout/layout.h"
#include "data/transfer/content_copy.h"
#include "data/transfer/content_digest.h"
#include "tests/support/engine_cases.h"
#include "tests/support/engine_tools.h"
#include "tests/support/faulty_engine.h"
#include "tests/support/small_books.h"

namespace {

using chengheng::digestContent;
using chengheng::Engine;
using chengheng::EngineCase;
using chengheng::freshLocation;
using chengheng::openForTest;
using chengheng::readCell;
using chengheng::replaceContent;
using chengheng::runSql;
using chengheng::TableDigest;

std::unique_ptr<Engine> emptyBooks(const EngineCase& kind) {
    auto engine = openForTest(freshLocation(kind));
    EXPECT_TRUE(createLayout(*engine).isDone());
    return engine;
}

void run(Engine& engine, const std::string& sql) {
    const auto status = runSql(engine, sql);
    ASSERT_TRUE(status.isDone()) << sql << ": " << status.detail;
}

std::vector<TableDigest> digestsOf(Engine& engine) {
    std::vector<TableDigest> digests;
    const auto status = digestContent(engine, digests);
    EXPECT_TRUE(status.isDone()) << status.detail;
    return digests;
}

/// Values that a careless copy would bend.
void fill(Engine& engine) {
    run(engine, "INSERT INTO Dept (lId, sDeptCode, sDeptName) VALUES (1, '01', 'O''Brien % _ \\')");
    run(engine, "INSERT INTO Dept (lId, sDeptCode, sDeptName) VALUES (2, '', '采购部𠮷')");
    run(engine,
        "INSERT INTO AccSum (lId, lCodeId, byPeroid, mBegin, mDebet) "
        "VALUES (1, 7, 12, 0.1, 4000000000000.01)");
    run(engine, "INSERT INTO AssAcc (lId, lPersonId) VALUES (1, NULL)");
    run(engine, "INSERT INTO AssAcc (lId, lPersonId) VALUES (2, 0)");
    run(engine, "INSERT INTO Cyrency (lId, fMaxError) VALUES (1, 0.00001)");
    run(engine, "INSERT INTO ExchgFlt (lId, dtDate) VALUES (1, '2026-02-28')");
    run(engine, "INSERT INTO ProjClass (lId, sClsCode) VALUES (1, 'A1')");
    const auto created =
        engine.script(createTableSql(chengheng::projectItemTable("A1"), engine.dialect()));
    ASSERT_TRUE(created.isDone()) << created.detail;
    run(engine, "INSERT INTO ProjItemsA1 (lId, FIELD0, FIELD1) VALUES (3, '001', '门店装修')");
    run(engine, "UPDATE ABIdTable SET lLastId = 1 WHERE sTable = 'AccSum'");
    run(engine, "INSERT INTO LoginInfoTbl (lId, sUser) VALUES (1, '张三')");
}

/// From one kind of database to another.
class ContentCopy : public testing::TestWithParam<std::tuple<EngineCase, EngineCase>> {
  protected:
    void SetUp() override {
        m_source = emptyBooks(std::get<0>(GetParam()));
        m_target = emptyBooks(std::get<1>(GetParam()));
        fill(*m_source);
    }

    void copy() {
        ASSERT_TRUE(m_target->begin().isDone());
        const auto status = replaceContent(*m_source, *m_target);
        ASSERT_TRUE(status.isDone()) << status.detail;
        ASSERT_TRUE(m_target->commit().isDone());
    }

    std::unique_ptr<Engine> m_source;
    std::unique_ptr<Engine> m_target;
};

TEST_P(ContentCopy, CopyHasTheDigestsOfItsSource) {
    ASSERT_NE(digestsOf(*m_source), digestsOf(*m_target));
    copy();
    EXPECT_EQ(digestsOf(*m_source), digestsOf(*m_target));
    EXPECT_EQ(readCell(*m_target, "SELECT FIELD1 FROM ProjItemsA1"), "门店装修");
    EXPECT_EQ(readCell(*m_target, "SELECT count(*) FROM AssAcc WHERE lPersonId IS NULL"), "1");
}

TEST_P(ContentCopy, TakesRowsAsTheyAreAndMindsTheChecksAfterwards) {
    if (std::get<1>(GetParam()).name == "postgres") return;  // which takes no such row
    plant(*m_source, "UPDATE AccSum SET byPeroid = 300 WHERE lId = 1");
    copy();
    EXPECT_EQ(readCell(*m_target, "SELECT byPeroid FROM AccSum WHERE lId = 1"), "300");
    const chengheng::Status written = runSql(*m_target, "UPDATE AccSum SET byPeroid = 301");
    EXPECT_EQ(written.failure, chengheng::Failure::notStorable);
}

TEST_P(ContentCopy, WhatTheTargetHeldBeforeIsGone) {
    run(*m_target, "INSERT INTO Settle (lId, sStlId) VALUES (5, '9')");
    run(*m_target, "INSERT INTO ProjClass (lId, sClsCode) VALUES (9, 'old')");
    ASSERT_TRUE(
        m_target->script(createTableSql(chengheng::projectItemTable("old"), m_target->dialect()))
            .isDone());
    copy();
    EXPECT_EQ(readCell(*m_target, "SELECT count(*) FROM Settle"), "0");
    bool isThere = true;
    ASSERT_TRUE(m_target->hasTable("ProjItemsold", isThere).isDone());
    EXPECT_FALSE(isThere);
    copy();
    EXPECT_EQ(digestsOf(*m_source), digestsOf(*m_target));
}

TEST_P(ContentCopy, WhoIsLoggedOnIsNotCopied) {
    run(*m_target, "INSERT INTO LoginInfoTbl (lId, sUser) VALUES (4, '李四')");
    copy();
    EXPECT_EQ(readCell(*m_target, "SELECT sUser FROM LoginInfoTbl"), "李四");
}

TEST_P(ContentCopy, GivenUpCopyLeavesTheTargetAsItWas) {
    const auto before = digestsOf(*m_target);
    ASSERT_TRUE(m_target->begin().isDone());
    ASSERT_TRUE(replaceContent(*m_source, *m_target).isDone());
    ASSERT_TRUE(m_target->rollback().isDone());
    EXPECT_EQ(digestsOf(*m_target), before);
}

TEST_P(ContentCopy, FailureOfAnyCallLeavesTheTargetAsItWas) {
    chengheng::FaultyEngine target(std::move(m_target));
    run(target, "INSERT INTO Settle (lId, sStlId) VALUES (5, '9')");
    const auto before = digestsOf(target);
    bool isDone = false;
    for (int call = 1; !isDone; ++call) {
        target.failCall(call);
        auto status = target.begin();
        if (status) status = replaceContent(*m_source, target);
        if (status) status = target.commit();
        isDone = status.isDone();
        EXPECT_EQ(isDone, !target.hasFailed()) << call;
        if (target.inTransaction()) {
            EXPECT_TRUE(target.rollback().isDone());
        }
        target.failCall(0);
        EXPECT_EQ(digestsOf(target) == before, !isDone) << call;
    }
    EXPECT_EQ(digestsOf(target), digestsOf(*m_source));
}

TEST_P(ContentCopy, RowsBeyondOneSendingArriveToo) {
    std::string script = "BEGIN;";
    for (int id = 10; id < 1211; ++id)
        script += "INSERT INTO Enter (lId, sEnterName) VALUES (" + std::to_string(id) + ", '客户" +
                  std::to_string(id) + "');";
    chengheng::runScript(*m_source, script + "COMMIT");
    copy();
    EXPECT_EQ(readCell(*m_target, "SELECT count(*) FROM Enter"), "1201");
    EXPECT_EQ(digestsOf(*m_source), digestsOf(*m_target));
}

INSTANTIATE_TEST_SUITE_P(Between, ContentCopy,
                         testing::Combine(testing::ValuesIn(chengheng::allEngineCases()),
                                          testing::ValuesIn(chengheng::allEngineCases())),
                         [](const auto& pair) {
                             return std::get<0>(pair.param).name + "To" +
                                    std::get<1>(pair.param).name;
                         });

/// Each difference shows.
class ContentDigest : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override {
        m_engine = emptyBooks(GetParam());
        fill(*m_engine);
        m_before = digestsOf(*m_engine);
    }

    /// The tables whose digest a change moves.
    std::vector<std::string> movedBy(const std::string& sql) {
        run(*m_engine, sql);
        const auto after = digestsOf(*m_engine);
        std::vector<std::string> moved;
        for (std::size_t at = 0; at < std::min(m_before.size(), after.size()); ++at)
            if (m_before[at] != after[at]) moved.push_back(after[at].table);
        return moved;
    }

    std::unique_ptr<Engine> m_engine;
    std::vector<TableDigest> m_before;
};

TEST_P(ContentDigest, RowsAreCounted) {
    const auto found = std::ranges::find(m_before, "Dept", &TableDigest::table);
    ASSERT_NE(found, m_before.end());
    EXPECT_EQ(found->rows, 2);
}

TEST_P(ContentDigest, EachKindOfValueCounts) {
    using Names = std::vector<std::string>;
    EXPECT_EQ(movedBy("UPDATE Dept SET sDeptName = 'x' WHERE lId = 1"), Names{"Dept"});
    m_before = digestsOf(*m_engine);
    EXPECT_EQ(movedBy("UPDATE AccSum SET mBegin = 0.10000000000000002"), Names{"AccSum"});
    m_before = digestsOf(*m_engine);
    EXPECT_EQ(movedBy("UPDATE AssAcc SET lPersonId = 0 WHERE lId = 1"), Names{"AssAcc"});
    m_before = digestsOf(*m_engine);
    EXPECT_EQ(movedBy("UPDATE ExchgFlt SET dtDate = '2026-03-01'"), Names{"ExchgFlt"});
    m_before = digestsOf(*m_engine);
    EXPECT_EQ(movedBy("UPDATE ProjItemsA1 SET FIELD0 = '002'"), Names{"ProjItemsA1"});
    m_before = digestsOf(*m_engine);
    EXPECT_EQ(movedBy("UPDATE ABIdTable SET lLastId = 2 WHERE sTable = 'AccSum'"),
              Names{"ABIdTable"});
}

TEST_P(ContentDigest, TextMovedFromOneCellToTheNextCounts) {
    EXPECT_EQ(movedBy("UPDATE Dept SET sDeptCode = sDeptName, sDeptName = sDeptCode"),
              std::vector<std::string>{"Dept"});
}

TEST_P(ContentDigest, RowAddedTwiceCounts) {
    run(*m_engine, "INSERT INTO Settle (lId, sStlId) VALUES (1, 'a')");
    m_before = digestsOf(*m_engine);
    EXPECT_EQ(movedBy("INSERT INTO Settle (lId, sStlId) VALUES (2, 'a')"),
              std::vector<std::string>{"Settle"});
}

TEST_P(ContentDigest, OrderOfTheRowsDoesNotCount) {
    run(*m_engine, "DELETE FROM Dept WHERE lId = 1");
    EXPECT_EQ(movedBy("INSERT INTO Dept (lId, sDeptCode, sDeptName) "
                      "VALUES (1, '01', 'O''Brien % _ \\')"),
              std::vector<std::string>{});
}

TEST_P(ContentDigest, NegativeZeroIsZero) {
    run(*m_engine, "UPDATE AccSum SET mCredit = 0");
    m_before = digestsOf(*m_engine);
    EXPECT_EQ(movedBy("UPDATE AccSum SET mCredit = -0.0"), std::vector<std::string>{});
}

CHENGHENG_ON_ALL_ENGINES(ContentDigest);

}  // namespace
