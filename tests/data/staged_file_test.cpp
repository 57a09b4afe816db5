#include "base/system/staged_file.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <fstream>

#include "tests/support/engine_cases.h"
#include "tests/support/failing_sync.h"
#include "tests/support/killed_process.h"

namespace {

namespace files = std::filesystem;
using chengheng::Failure;
using chengheng::Overwrite;
using chengheng::StagedFile;

void write(const std::string& path, const std::string& text) { std::ofstream(path) << text; }

std::string textOf(const std::string& path) {
    std::string text;
    std::getline(std::ifstream(path) >> std::ws, text);
    return text;
}

/// A file in the making for a place in a folder of its own.
class Staging : public testing::Test {
  protected:
    std::string m_folder = chengheng::freshFolder();
    std::string m_target = m_folder + "/books.db";
};

TEST_F(Staging, NothingStandsAtThePlaceBeforeItIsFinished) {
    StagedFile staged(m_target, Overwrite::replace);
    ASSERT_TRUE(staged.status().isDone());
    write(staged.path(), "half");
    EXPECT_FALSE(files::exists(m_target));
    ASSERT_TRUE(staged.place().isDone());
    EXPECT_EQ(textOf(m_target), "half");
}

TEST_F(Staging, WhatIsNotPlacedIsRemoved) {
    {
        StagedFile staged(m_target, Overwrite::replace);
        write(staged.path(), "half");
        write(staged.path() + "-wal", "log");
    }
    EXPECT_TRUE(files::is_empty(m_folder));
}

TEST_F(Staging, WhatAKilledProcessLeftIsRemovedByTheNext) {
    ASSERT_TRUE(chengheng::isKilledAtWork([&] {
        const StagedFile staged(m_target, Overwrite::replace);
        write(staged.path(), "half");
        raise(SIGKILL);
    }));
    ASSERT_FALSE(files::is_empty(m_folder));
    files::create_directory(m_folder + "/.chengheng.other.station.abcdef");
    files::create_directory(m_folder + "/.mine");
    { const StagedFile next(m_folder + "/other", Overwrite::replace); }
    EXPECT_EQ(std::distance(files::directory_iterator(m_folder), {}), 2);
}

TEST_F(Staging, WhatAnotherWorksOnIsNotTakenForALeftOver) {
    StagedFile first(m_target, Overwrite::replace);
    write(first.path(), "first");
    { const StagedFile second(m_folder + "/other", Overwrite::replace); }
    EXPECT_TRUE(first.place().isDone());
    EXPECT_EQ(textOf(m_target), "first");
}

TEST_F(Staging, FileAlreadyThereStaysUnlessItIsToBeReplaced) {
    write(m_target, "old");
    EXPECT_EQ(StagedFile(m_target, Overwrite::refuse).status().failure, Failure::refused);
    StagedFile staged(m_target, Overwrite::replace);
    write(staged.path(), "new");
    EXPECT_EQ(textOf(m_target), "old");
    EXPECT_TRUE(staged.place().isDone());
    EXPECT_EQ(textOf(m_target), "new");
}

TEST_F(Staging, FileThatComesMeanwhileStaysUnlessItIsToBeReplaced) {
    StagedFile staged(m_target, Overwrite::refuse);
    write(staged.path(), "new");
    write(m_target, "of another");
    EXPECT_EQ(staged.place().failure, Failure::refused);
    EXPECT_EQ(textOf(m_target), "of another");
}

TEST_F(Staging, DatabaseWhoseLogIsNotBroughtInIsNotPlaced) {
    StagedFile staged(m_target, Overwrite::replace);
    write(staged.path(), "pages");
    write(staged.path() + "-wal", "more pages");
    EXPECT_EQ(staged.place().failure, Failure::lost);
    EXPECT_FALSE(files::exists(m_target));
}

TEST_F(Staging, FileWhoseFolderIsNotConfirmedStandsAndIsSaidToStand) {
    for (const Overwrite overwrite : {Overwrite::refuse, Overwrite::replace}) {
        const std::string target = chengheng::freshFolder() + "/books.db";
        StagedFile staged(target, overwrite);
        write(staged.path(), "whole");
        const chengheng::FailingFolderSync failing;
        EXPECT_EQ(staged.place().failure, Failure::unconfirmed);
        EXPECT_EQ(textOf(target), "whole");
    }
}

TEST_F(Staging, FolderThatIsMissingIsAFailure) {
    EXPECT_EQ(StagedFile(m_folder + "/none/books.db", Overwrite::refuse).status().failure,
              Failure::missing);
}

TEST_F(Staging, OthersCannotLookIntoItsFolder) {
    const StagedFile staged(m_target, Overwrite::replace);
    EXPECT_EQ(files::status(files::path(staged.path()).parent_path()).permissions(),
              files::perms::owner_all);
}

}  // namespace
