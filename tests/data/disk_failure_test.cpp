#include <gtest/gtest.h>

#include <array>

#include "data/layout/layout.h"
#include "tests/support/engine_cases.h"
#include "tests/support/engine_tools.h"
#include "tests/support/failing_disk.h"

namespace chengheng {
namespace {

constexpr std::size_t rowSize = 6000;
constexpr const char* insertSettle =
    "INSERT INTO Settle (lId, sStlId, sSettle) VALUES ($1, $2, 'cheque')";

std::string newBooks() {
    const std::string path = freshFolder() + "/Nbzw.db";
    const std::unique_ptr<Engine> engine = openForTest(path);
    EXPECT_TRUE(createLayout(*engine).isDone());
    return path;
}

/// Ten rows of some size in one run.
Status saveTenRows(Engine& engine) {
    std::unique_ptr<PreparedStatement> statement;
    if (Status prepared = engine.prepare(insertSettle, 2, statement); !prepared) return prepared;
    const std::string text(rowSize, 'x');
    std::array<std::array<Value, 2>, 10> values;
    std::array<Command, 10> commands;
    for (std::size_t row = 0; row < commands.size(); ++row) {
        values[row] = {Value::of(static_cast<std::int64_t>(row + 1)), Value::of(text)};
        commands[row] = {statement.get(), values[row]};
    }
    return engine.execute(commands);
}

std::string settleCount(const std::string& path) {
    const std::unique_ptr<Engine> engine = openForTest(path, OpenMode::existing);
    EXPECT_TRUE(checkLayout(*engine).isDone());
    return readCell(*engine, "SELECT count(*) FROM Settle");
}

TEST(FullDatabase, TakesNoneOfASaveThatDoesNotFit) {
    const std::string path = newBooks();
    const std::unique_ptr<Engine> engine = openForTest(path, OpenMode::existing);
    const std::string pages = readCell(*engine, "PRAGMA page_count");
    const std::string limit = std::to_string(std::stoi(pages) + 5);
    ASSERT_EQ(readCell(*engine, "PRAGMA max_page_count = " + limit), limit);
    EXPECT_EQ(saveTenRows(*engine).failure, Failure::full);
    EXPECT_FALSE(engine->inTransaction());
    EXPECT_EQ(readCell(*engine, "SELECT count(*) FROM Settle"), "0");
    ASSERT_EQ(readCell(*engine, "PRAGMA max_page_count = 100000"), "100000");
    EXPECT_TRUE(saveTenRows(*engine).isDone());
}

class FailingDisks : public testing::TestWithParam<FailingDisk::Fault> {};

TEST_P(FailingDisks, EachOperationOfASaveThatFailsLeavesTheOldStateOrTheNew) {
    const bool isFull = GetParam() == FailingDisk::Fault::full;
    bool wasSaved = false;
    int failures = 0;
    for (int operation = 0; !wasSaved; ++operation) {
        FailingDisk disk;
        const std::string path = newBooks();
        Status saved;
        {
            const std::unique_ptr<Engine> engine = openForTest(path, OpenMode::existing);
            disk.fail(GetParam(), operation);
            saved = saveTenRows(*engine);
            EXPECT_FALSE(engine->inTransaction());
            disk.repair();
        }
        wasSaved = saved.isDone();
        if (!wasSaved) {
            ++failures;
            EXPECT_EQ(saved.failure, isFull ? Failure::full : Failure::lost) << saved.detail;
        }
        EXPECT_EQ(settleCount(path), wasSaved ? "10" : "0") << "operation " << operation;
        ASSERT_LT(operation, 1000);
    }
    EXPECT_GT(failures, 0);
}

INSTANTIATE_TEST_SUITE_P(Fault, FailingDisks,
                         testing::Values(FailingDisk::Fault::full, FailingDisk::Fault::writeError,
                                         FailingDisk::Fault::syncError));

TEST(FailingDisk, ATransactionThatSqliteEndedTakesNothingMore) {
    FailingDisk disk;
    const std::string path = newBooks();
    const std::unique_ptr<Engine> engine = openForTest(path, OpenMode::existing);
    ASSERT_TRUE(engine->script("PRAGMA cache_size = 2; PRAGMA cache_spill = 1"));
    ASSERT_TRUE(engine->begin());
    disk.fail(FailingDisk::Fault::full);
    EXPECT_EQ(saveTenRows(*engine).failure, Failure::full);
    disk.repair();
    const Status next =
        runSql(*engine, insertSettle, {Value::of(std::int64_t{99}), Value::of("9")});
    EXPECT_EQ(next.failure, Failure::full) << next.detail;
    EXPECT_TRUE(engine->inTransaction());
    EXPECT_EQ(engine->commit().failure, Failure::full);
    EXPECT_FALSE(engine->inTransaction());
    EXPECT_EQ(readCell(*engine, "SELECT count(*) FROM Settle"), "0");
    EXPECT_TRUE(saveTenRows(*engine).isDone());
}

TEST(FailingDisk, AReadThatFailsIsToldByTheCursor) {
    FailingDisk disk;
    const std::string path = newBooks();
    {
        const std::unique_ptr<Engine> engine = openForTest(path, OpenMode::existing);
        ASSERT_TRUE(saveTenRows(*engine).isDone());
    }
    const std::unique_ptr<Engine> engine = openForTest(path, OpenMode::existing);
    std::unique_ptr<PreparedStatement> statement;
    ASSERT_TRUE(engine->prepare("SELECT lId, sStlId FROM Settle", 0, statement));
    std::unique_ptr<Cursor> cursor;
    ASSERT_TRUE(engine->open({statement.get(), {}}, cursor));
    disk.fail(FailingDisk::Fault::readError, 3);
    Cursor::Step step = Cursor::Step::row;
    while (step == Cursor::Step::row) {
        step = cursor->next();
        const std::size_t size = step == Cursor::Step::row ? cursor->text(1).size() : rowSize;
        EXPECT_EQ(size, rowSize);
    }
    EXPECT_EQ(step, Cursor::Step::failed);
    EXPECT_EQ(cursor->status().failure, Failure::lost);
}

}  // namespace
}  // namespace chengheng
