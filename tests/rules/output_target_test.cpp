#include "base/system/output_target.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <thread>

#include "base/system/staged_file.h"
#include "tests/support/engine_cases.h"
#include "tests/support/engine_tools.h"
#include "tests/support/ordinary_user.h"

namespace chengheng {
namespace {

namespace targets = std::filesystem;

const std::string booksStart("SQLite format 3\0 and pages", 26);

void put(const std::string& path, const std::string& text) {
    std::ofstream(path, std::ios::binary) << text;
}

std::string contentOf(const std::string& path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

mode_t modeOf(const std::string& path) {
    struct stat entry {};
    EXPECT_EQ(stat(path.c_str(), &entry), 0) << path;
    return entry.st_mode & 0777;
}

/// Writes a text as every writer writes its file.
Status writeTo(const std::string& path, Overwrite overwrite, const std::string& text = "new") {
    StagedFile staged(path, overwrite);
    Status status = staged.status();
    if (status) status = staged.write(text);
    return status ? staged.place() : status;
}

class OutputTargets : public testing::Test {
  protected:
    std::string at(const std::string& name) const { return m_folder + "/" + name; }

    std::string m_folder = freshFolder();
};

TEST_F(OutputTargets, AreNeverBooksNorWhatLiesBesideThem) {
    put(at("n.db"), booksStart);
    put(at("n.db-wal"), "log");
    for (const char* name : {"n.db", "n.db-wal", "n.db-shm", "n.db-journal"})
        for (const Overwrite overwrite : {Overwrite::refuse, Overwrite::replace})
            EXPECT_EQ(writeTo(at(name), overwrite).failure, Failure::foreign) << name;
    EXPECT_EQ(contentOf(at("n.db")), booksStart);
    EXPECT_EQ(contentOf(at("n.db-wal")), "log");
    EXPECT_FALSE(targets::exists(at("n.db-shm")));
}

/// A handle that is closed takes the locks of the whole process on its file with it.
TEST_F(OutputTargets, ThatThisProgramHasOpenAreNotTouched) {
    const auto books = openForTest(at("n.db"));
    ASSERT_TRUE(books->script("CREATE TABLE T (x)"));
    EXPECT_EQ(writeTo(at("n.db"), Overwrite::replace).failure, Failure::foreign);
    targets::permissions(targets::path(m_folder).parent_path(), targets::perms(0755));
    targets::permissions(m_folder, targets::perms(0755));
    targets::permissions(at("n.db"), targets::perms(0644));
    const auto lockOfAnother = [this] {
        const int file = open(at("n.db").c_str(), O_RDONLY | O_CLOEXEC);
        struct flock lock {};
        lock.l_type = F_WRLCK;
        return file >= 0 && fcntl(file, F_GETLK, &lock) == 0 ? lock.l_type : -1;
    };
    EXPECT_EQ(asOrdinaryUser(lockOfAnother), F_RDLCK);
}

TEST_F(OutputTargets, AreNotBooksBehindALinkEither) {
    put(at("n.db"), booksStart);
    targets::create_symlink("n.db", at("a.csv"));
    EXPECT_EQ(writeTo(at("a.csv"), Overwrite::replace).failure, Failure::foreign);
    EXPECT_EQ(contentOf(at("n.db")), booksStart);
}

TEST_F(OutputTargets, MayBeBooksForACopyOfBooksOnly) {
    put(at("n.db"), booksStart);
    EXPECT_TRUE(writeTo(at("n.db"), Overwrite::replaceBooks));
    EXPECT_EQ(contentOf(at("n.db")), "new");
}

TEST_F(OutputTargets, AreNotWhatLiesBesideBooksForACopyOfBooksEither) {
    put(at("n.db"), booksStart);
    put(at("n.db-wal"), "log");
    EXPECT_EQ(writeTo(at("n.db-wal"), Overwrite::replaceBooks).failure, Failure::foreign);
    EXPECT_EQ(contentOf(at("n.db-wal")), "log");
}

TEST_F(OutputTargets, AreNotFilesThatMayNotBeLookedInto) {
    put(at("n.db"), booksStart);
    // Of another, whom the folder lets replace it; without an administrator there is no other.
    ASSERT_EQ(chmod(at("n.db").c_str(), geteuid() == 0 ? 0600 : 0), 0);
    targets::permissions(targets::path(m_folder).parent_path(), targets::perms(0755));
    ASSERT_EQ(chmod(m_folder.c_str(), 0777), 0);
    const auto failureAt = [this](const char* name) {
        return static_cast<Failure>(asOrdinaryUser([this, name] {
            return static_cast<int>(writeTo(at(name), Overwrite::replace).failure);
        }));
    };
    EXPECT_EQ(failureAt("new.csv"), Failure::none);
    EXPECT_EQ(failureAt("n.db"), Failure::readOnly);
    ASSERT_EQ(chmod(at("n.db").c_str(), 0600), 0);
    EXPECT_EQ(contentOf(at("n.db")), booksStart);
}

TEST_F(OutputTargets, MayBeAFileBesideAFolderOrAPipeOfThatName) {
    targets::create_directory(at("a"));
    ASSERT_EQ(mkfifo(at("b").c_str(), 0600), 0);
    EXPECT_TRUE(writeTo(at("a-wal"), Overwrite::refuse));
    EXPECT_TRUE(writeTo(at("b-wal"), Overwrite::refuse));
}

TEST_F(OutputTargets, MayBeAFileThatOnlyLooksLikeALogOfBooks) {
    put(at("a.csv"), "old");
    EXPECT_TRUE(writeTo(at("a.csv-wal"), Overwrite::refuse));
}

TEST_F(OutputTargets, BooksThatComeWhileTheFileIsMadeStay) {
    StagedFile staged(at("n.db"), Overwrite::replace);
    ASSERT_TRUE(staged.write("new"));
    put(at("n.db"), booksStart);
    EXPECT_EQ(staged.place().failure, Failure::foreign);
    EXPECT_EQ(contentOf(at("n.db")), booksStart);
}

TEST_F(OutputTargets, StayAsTheyAreUnlessTheyMayBeReplaced) {
    put(at("a.csv"), "old");
    EXPECT_EQ(writeTo(at("a.csv"), Overwrite::refuse).failure, Failure::refused);
    EXPECT_EQ(contentOf(at("a.csv")), "old");
    EXPECT_TRUE(writeTo(at("a.csv"), Overwrite::replace));
    EXPECT_EQ(contentOf(at("a.csv")), "new");
}

TEST_F(OutputTargets, LinksStayAndWhatTheyLeadToIsWritten) {
    targets::create_directory(at("far"));
    put(at("far/a.csv"), "old");
    targets::create_symlink("far/a.csv", at("near.csv"));
    targets::create_symlink(at("near.csv"), at("second.csv"));
    EXPECT_TRUE(writeTo(at("second.csv"), Overwrite::replace));
    EXPECT_TRUE(targets::is_symlink(at("second.csv")));
    EXPECT_TRUE(targets::is_symlink(at("near.csv")));
    EXPECT_EQ(contentOf(at("far/a.csv")), "new");
}

TEST_F(OutputTargets, LinkToNothingLeadsToANewFile) {
    targets::create_symlink("new.csv", at("link.csv"));
    EXPECT_TRUE(writeTo(at("link.csv"), Overwrite::refuse));
    EXPECT_TRUE(targets::is_symlink(at("link.csv")));
    EXPECT_EQ(contentOf(at("new.csv")), "new");
}

TEST_F(OutputTargets, LinksInACircleAreAFailure) {
    targets::create_symlink("b.csv", at("a.csv"));
    targets::create_symlink("a.csv", at("b.csv"));
    EXPECT_EQ(writeTo(at("a.csv"), Overwrite::replace).failure, Failure::lost);
}

TEST_F(OutputTargets, FolderIsAFailureAndStays) {
    targets::create_directory(at("a.csv"));
    EXPECT_EQ(writeTo(at("a.csv"), Overwrite::replace).failure, Failure::lost);
    EXPECT_TRUE(targets::is_directory(at("a.csv")));
}

TEST_F(OutputTargets, PipesAreWrittenThrough) {
    ASSERT_EQ(mkfifo(at("pipe").c_str(), 0600), 0);
    const std::string text(200'000, 'x');
    std::string read;
    std::thread reader([&] { read = contentOf(at("pipe")); });
    EXPECT_TRUE(writeTo(at("pipe"), Overwrite::refuse, text));
    reader.join();
    EXPECT_EQ(read, text);
    EXPECT_TRUE(targets::is_fifo(at("pipe")));
}

TEST_F(OutputTargets, DevicesAreWrittenThroughAndTheirFailuresTold) {
    EXPECT_TRUE(writeTo("/dev/null", Overwrite::replaceBooks));
    EXPECT_TRUE(targets::is_character_file("/dev/null"));
    EXPECT_EQ(writeTo("/dev/full", Overwrite::replace).failure, Failure::full);
}

TEST_F(OutputTargets, NewFilesAreForTheirOwnerOnlyAndReplacedOnesAsTheyWere) {
    EXPECT_TRUE(writeTo(at("a.csv"), Overwrite::refuse));
    EXPECT_EQ(modeOf(at("a.csv")), 0600u);
    ASSERT_EQ(chmod(at("a.csv").c_str(), 0644), 0);
    EXPECT_TRUE(writeTo(at("a.csv"), Overwrite::replace));
    EXPECT_EQ(modeOf(at("a.csv")), 0644u);
}

}  // namespace
}  // namespace chengheng
