#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "data/layout/layout.h"
#include "tests/support/engine_cases.h"
#include "tests/support/engine_tools.h"

namespace {

using chengheng::Engine;
using chengheng::EngineFacts;
using chengheng::Failure;
using chengheng::freshFolder;
using chengheng::freshLocation;
using chengheng::openForTest;
using chengheng::OpenMode;
using chengheng::readCell;
using chengheng::runSql;

/// What every engine offers for the care of a set of books.
class EngineUpkeep : public testing::TestWithParam<chengheng::EngineCase> {
  protected:
    void SetUp() override {
        m_location = freshLocation(GetParam());
        m_engine = openForTest(m_location);
        ASSERT_TRUE(createLayout(*m_engine).isDone());
        addDepartment("1");
    }

    void addDepartment(const std::string& id) {
        ASSERT_TRUE(runSql(*m_engine, "INSERT INTO Dept (lId) VALUES (" + id + ")").isDone());
    }

    std::string m_location;
    std::unique_ptr<Engine> m_engine;
};

TEST_P(EngineUpkeep, EngineNamesItselfAndTheRoomTheBooksTake) {
    EngineFacts facts;
    ASSERT_TRUE(m_engine->facts(facts).isDone());
    EXPECT_FALSE(facts.name.empty());
    EXPECT_FALSE(facts.version.empty());
    EXPECT_GT(facts.bytes, 10'000);
}

TEST_P(EngineUpkeep, SoundDatabaseHasNoFaults) {
    std::vector<std::string> faults;
    EXPECT_TRUE(m_engine->verify(faults).isDone());
    EXPECT_EQ(faults, std::vector<std::string>{});
}

TEST_P(EngineUpkeep, ReadingTransactionEndsWithRollback) {
    ASSERT_TRUE(m_engine->beginReading().isDone());
    EXPECT_TRUE(m_engine->inTransaction());
    EXPECT_EQ(m_engine->beginReading().failure, Failure::refused);
    EXPECT_EQ(readCell(*m_engine, "SELECT count(*) FROM Dept"), "1");
    ASSERT_TRUE(m_engine->rollback().isDone());
    EXPECT_FALSE(m_engine->inTransaction());
    addDepartment("2");
}

TEST_P(EngineUpkeep, CopyInAFileHoldsTheSameRows) {
    const std::string file = freshFolder() + "/copy.db";
    const auto copied = m_engine->copyToFile(file);
    if (!copied) return;  // an engine without files of its own
    ASSERT_TRUE(copied->isDone()) << copied->detail;
    const auto copy = openForTest(file, OpenMode::existing);
    EXPECT_TRUE(checkLayout(*copy).isDone());
    EXPECT_EQ(readCell(*copy, "SELECT count(*) FROM Dept"), "1");
}

CHENGHENG_ON_ALL_ENGINES(EngineUpkeep);

/// The same where others write meanwhile.
class SharedUpkeep : public EngineUpkeep {};

TEST_P(SharedUpkeep, ReadingTransactionSeesOneStateWhateverOthersWrite) {
    const auto reader = openForTest(m_location, OpenMode::existing);
    ASSERT_TRUE(reader->beginReading().isDone());
    EXPECT_EQ(readCell(*reader, "SELECT count(*) FROM Dept"), "1");
    addDepartment("2");
    EXPECT_EQ(readCell(*reader, "SELECT count(*) FROM Dept"), "1");
    ASSERT_TRUE(reader->rollback().isDone());
    EXPECT_EQ(readCell(*reader, "SELECT count(*) FROM Dept"), "2");
}

TEST_P(SharedUpkeep, CopyInsideAReadingTransactionHoldsTheStateItSees) {
    const auto reader = openForTest(m_location, OpenMode::existing);
    ASSERT_TRUE(reader->beginReading().isDone());
    EXPECT_EQ(readCell(*reader, "SELECT count(*) FROM Dept"), "1");
    addDepartment("2");
    const std::string file = freshFolder() + "/copy.db";
    const auto copied = reader->copyToFile(file);
    if (!copied) return;
    ASSERT_TRUE(copied->isDone()) << copied->detail;
    const auto copy = openForTest(file, OpenMode::existing);
    EXPECT_EQ(readCell(*copy, "SELECT count(*) FROM Dept"), "1");
}

CHENGHENG_ON_SHARED_ENGINES(SharedUpkeep);

/// What concerns files alone.
class FileUpkeep : public testing::Test {
  protected:
    void SetUp() override {
        m_path = freshFolder() + "/Nbzw.db";
        auto engine = openForTest(m_path);
        ASSERT_TRUE(createLayout(*engine).isDone());
    }

    std::string m_path;
};

TEST_F(FileUpkeep, CopyOverAnExistingFileIsRefusedAndLeavesItAlone) {
    const std::string file = freshFolder() + "/copy.db";
    std::ofstream(file) << "kept";
    const auto engine = openForTest(m_path, OpenMode::existing);
    EXPECT_EQ(engine->copyToFile(file)->failure, Failure::refused);
    EXPECT_EQ(std::filesystem::file_size(file), 4U);
}

TEST_F(FileUpkeep, CopyIsForItsOwnerOnly) {
    const std::string file = freshFolder() + "/copy.db";
    const auto engine = openForTest(m_path, OpenMode::existing);
    ASSERT_TRUE(engine->copyToFile(file)->isDone());
    EXPECT_EQ(std::filesystem::status(file).permissions(),
              std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
    EXPECT_FALSE(std::filesystem::exists(file + "-wal"));
}

TEST_F(FileUpkeep, OverwrittenPagesAreFaults) {
    {
        std::fstream file(m_path, std::ios::in | std::ios::out | std::ios::binary);
        file.seekp(3 * 4096);
        file << std::string(4 * 4096, 'x');
    }
    const auto engine = openForTest(m_path, OpenMode::existing);
    std::vector<std::string> faults;
    ASSERT_TRUE(engine->verify(faults).isDone());
    EXPECT_FALSE(faults.empty());
}

}  // namespace
