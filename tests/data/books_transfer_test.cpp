#include "books/copying/books_transfer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "data/layout/layout.h"
#include "data/transfer/content_digest.h"
#include "tests/support/engine_cases.h"
#include "tests/support/engine_tools.h"
#include "tests/support/failing_disk.h"
#include "tests/support/failing_sync.h"
#include "tests/support/older_books.h"
#include "tests/support/ordinary_user.h"
#include "tests/support/small_books.h"

namespace {

namespace files = std::filesystem;
using chengheng::Engine;
using chengheng::EngineCase;
using chengheng::freshFolder;
using chengheng::freshLocation;
using chengheng::LockMode;
using chengheng::openForTest;
using chengheng::OpenMode;
using chengheng::Overwrite;
using chengheng::readCell;
using chengheng::Refusal;
using chengheng::RefusalKind;
using chengheng::runScript;
using testing::HasSubstr;

std::string makeSmallBooks(const EngineCase& kind) {
    const std::string location = freshLocation(kind);
    fillSmallBooks(*openForTest(location));
    return location;
}

/// All but the log, which tells of copies.
std::vector<chengheng::TableDigest> contentOf(const std::string& location) {
    std::vector<chengheng::TableDigest> digests;
    const auto engine = openForTest(location, OpenMode::existing);
    EXPECT_TRUE(digestContent(*engine, digests).isDone());
    std::erase_if(digests,
                  [](const auto& digest) { return digest.table.starts_with("OperationLog"); });
    return digests;
}

std::string textOf(const std::optional<Refusal>& refusal) {
    return refusal ? refusal->notice.text : "done";
}

RefusalKind kindOf(const std::optional<Refusal>& refusal) {
    return refusal ? refusal->kind : throw std::logic_error("nothing was refused");
}

/// A trigger that changes the accounts when a department is changed.
void plantTrigger(const std::string& location) {
    const auto engine = openForTest(location, OpenMode::existing);
    const bool isServer = location.starts_with("postgres");
    runScript(*engine, isServer ? "CREATE RULE grabs AS ON UPDATE TO Dept DO ALSO "
                                  "UPDATE Code SET sName = 'grabbed'"
                                : "CREATE TRIGGER grabs AFTER UPDATE ON Dept "
                                  "BEGIN UPDATE Code SET sName = 'grabbed'; END");
}

/// The names in a folder.
std::vector<std::string> namesIn(const std::string& folder) {
    std::vector<std::string> names;
    for (const auto& entry : files::directory_iterator(folder))
        names.push_back(entry.path().filename());
    return names;
}

void overwriteMiddle(const std::string& file) {
    std::fstream stream(file, std::ios::in | std::ios::out | std::ios::binary);
    stream.seekp(-8 * 4096, std::ios::end);
    stream << std::string(3 * 4096, 'x');
}

/// Backups of books on each engine.
class Backup : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override {
        m_books = makeSmallBooks(GetParam());
        m_folder = freshFolder();
        m_file = m_folder + "/backup.db";
    }

    std::string m_books;
    std::string m_folder;
    std::string m_file;
};

TEST_P(Backup, IsASetOfBooksWithTheSameContent) {
    EXPECT_EQ(textOf(backUpBooks(m_books, m_file, Overwrite::refuse)), "done");
    EXPECT_EQ(contentOf(m_file), contentOf(m_books));
}

TEST_P(Backup, LeavesOneFileForItsOwnerOnly) {
    ASSERT_EQ(textOf(backUpBooks(m_books, m_file, Overwrite::refuse)), "done");
    EXPECT_THAT(namesIn(m_folder), testing::ElementsAre("backup.db"));
    EXPECT_EQ(files::status(m_file).permissions(),
              files::perms::owner_read | files::perms::owner_write);
}

TEST_P(Backup, TakesNoNoticeOfWhatIsNotYetCommitted) {
    const auto writer = openForTest(m_books, OpenMode::existing);
    ASSERT_TRUE(writer->begin().isDone());
    ASSERT_TRUE(runSql(*writer, "DELETE FROM Dept").isDone());
    EXPECT_EQ(textOf(backUpBooks(m_books, m_file, Overwrite::refuse)), "done");
    ASSERT_TRUE(writer->commit().isDone());
    EXPECT_EQ(readCell(*openForTest(m_file, OpenMode::existing), "SELECT count(*) FROM Dept"), "1");
}

TEST_P(Backup, OverAnExistingFileIsRefusedWithoutForce) {
    std::ofstream(m_file) << "kept";
    const std::optional<Refusal> refusal = backUpBooks(m_books, m_file, Overwrite::refuse);
    EXPECT_EQ(kindOf(refusal), RefusalKind::alreadyThere);
    EXPECT_THAT(textOf(refusal), HasSubstr(m_file));
    EXPECT_EQ(files::file_size(m_file), 4U);
}

TEST_P(Backup, ReplacesAnExistingFileWhenForced) {
    std::ofstream(m_file) << "old";
    EXPECT_EQ(textOf(backUpBooks(m_books, m_file, Overwrite::replaceBooks)), "done");
    EXPECT_EQ(contentOf(m_file), contentOf(m_books));
}

TEST_P(Backup, DoesNotReplaceAFileThatAProgramHasOpen) {
    const std::string other = makeSmallBooks(EngineCase{"sqliteFile"});
    const auto reader = openForTest(other, OpenMode::existing);
    EXPECT_EQ(readCell(*reader, "SELECT count(*) FROM Dept"), "1");
    const std::optional<Refusal> refusal = backUpBooks(m_books, other, Overwrite::replaceBooks);
    EXPECT_THAT(textOf(refusal), HasSubstr("正在使用"));
    EXPECT_EQ(readCell(*reader, "SELECT count(*) FROM Dept"), "1");
}

TEST_P(Backup, DoesNotReplaceAFileThatAProgramKeepsToItself) {
    const std::string other = makeSmallBooks(EngineCase{"sqliteFile"});
    sqlite3* keeper = nullptr;
    ASSERT_EQ(sqlite3_open(other.c_str(), &keeper), SQLITE_OK);
    for (const char* sql :
         {"PRAGMA journal_mode = DELETE", "PRAGMA locking_mode = EXCLUSIVE", "BEGIN EXCLUSIVE"})
        ASSERT_EQ(sqlite3_exec(keeper, sql, nullptr, nullptr, nullptr), SQLITE_OK) << sql;
    EXPECT_THAT(textOf(backUpBooks(m_books, other, Overwrite::replaceBooks)),
                HasSubstr("正在使用"));
    sqlite3_close(keeper);
}

TEST(BackupFile, OfBooksOnAMediumThatTakesNoWritesHasTheirContent) {
    const std::string books = makeSmallBooks(EngineCase{"sqliteFile"});
    const auto content = contentOf(books);
    const files::path folder = files::path(books).parent_path();
    const std::string target = freshFolder();
    files::permissions(files::path(target).parent_path(), files::perms(0755));
    files::permissions(target, files::perms(0777));
    files::permissions(folder.parent_path(), files::perms(0755));
    files::permissions(books, files::perms(0444));
    files::permissions(folder, files::perms(0555));
    const auto copying = [&] {
        if (backUpBooks(books, target + "/backup.db", Overwrite::refuse)) return 1;
        if (copyBooks(books, target + "/copy.db", Overwrite::refuse)) return 2;
        return restoreBooks(books, target + "/restored.db", Overwrite::refuse) ? 3 : 0;
    };
    EXPECT_EQ(chengheng::asOrdinaryUser(copying), 0);
    for (const char* name : {"/backup.db", "/copy.db", "/restored.db"})
        EXPECT_EQ(contentOf(target + name), content) << name;
}

TEST_P(Backup, ThatTheDiskDoesNotConfirmIsSaidToStand) {
    const chengheng::FailingFolderSync failing;
    const auto refusal = backUpBooks(m_books, m_file, Overwrite::refuse);
    EXPECT_EQ(kindOf(refusal), RefusalKind::unconfirmed);
    EXPECT_THAT(textOf(refusal), HasSubstr("文件“" + m_file + "”已经写好,但系统没有确认"));
    EXPECT_EQ(contentOf(m_file), contentOf(m_books));
}

TEST_P(Backup, IntoAFolderThatIsMissingIsRefused) {
    const std::optional<Refusal> refusal =
        backUpBooks(m_books, m_folder + "/none/b.db", Overwrite::refuse);
    EXPECT_EQ(kindOf(refusal), RefusalKind::wrongInput);
    EXPECT_THAT(textOf(refusal), HasSubstr("文件夹不存在"));
}

TEST_P(Backup, OfWhatIsNotThereSaysSoAndLeavesNothing) {
    const std::optional<Refusal> refusal =
        backUpBooks(freshLocation(GetParam()), m_file, Overwrite::refuse);
    EXPECT_EQ(kindOf(refusal), RefusalKind::failed);
    EXPECT_TRUE(namesIn(m_folder).empty());
}

CHENGHENG_ON_SHARED_ENGINES(Backup);

TEST(BackupFile, OfCorruptBooksIsRefusedAndLeavesNothing) {
    const std::string books = makeSmallBooks(EngineCase{"sqliteFile"});
    overwriteMiddle(books);
    const std::string folder = freshFolder();
    const std::optional<Refusal> refusal =
        chengheng::backUpBooks(books, folder + "/b.db", Overwrite::refuse);
    EXPECT_THAT(textOf(refusal), HasSubstr("已损坏"));
    EXPECT_TRUE(namesIn(folder).empty());
}

TEST(BackupFile, OnADiskThatFillsUpLeavesNothing) {
    const std::string books = makeSmallBooks(EngineCase{"sqliteFile"});
    const std::string folder = freshFolder();
    chengheng::FailingDisk disk;
    bool isDone = false;
    int failures = 0;
    for (int room = 0; !isDone; room += 11) {
        disk.fail(chengheng::FailingDisk::Fault::full, room);
        const std::optional<Refusal> refusal =
            chengheng::backUpBooks(books, folder + "/b.db", Overwrite::refuse);
        disk.repair();
        isDone = !refusal;
        EXPECT_EQ(namesIn(folder).empty(), !isDone) << room;
        failures += refusal ? 1 : 0;
    }
    EXPECT_GT(failures, 3);
    EXPECT_EQ(contentOf(folder + "/b.db"), contentOf(books));
}

TEST(BackupFile, OntoItselfIsRefusedEvenByAnotherSpelling) {
    const std::string books = makeSmallBooks(EngineCase{"sqliteFile"});
    const std::string folder = files::path(books).parent_path();
    const std::string other =
        folder + "/../" + files::path(folder).filename().string() + "/Nbzw.db";
    EXPECT_EQ(kindOf(chengheng::backUpBooks(books, other, Overwrite::replaceBooks)),
              RefusalKind::wrongInput);
}

TEST(BackupFile, OnAServerIsRefusedWithoutShowingThePassword) {
    const std::optional<Refusal> refusal =
        chengheng::backUpBooks("a.db", "postgresql://u:geheim@h/d?schema=s", Overwrite::refuse);
    EXPECT_EQ(kindOf(refusal), RefusalKind::wrongInput);
    EXPECT_THAT(textOf(refusal), testing::Not(HasSubstr("geheim")));
}

/// From books on one engine to a place on another.
class BooksCopy : public testing::TestWithParam<std::tuple<EngineCase, EngineCase>> {
  protected:
    void SetUp() override {
        m_source = makeSmallBooks(std::get<0>(GetParam()));
        m_target = freshLocation(std::get<1>(GetParam()));
    }
    /// Books at the target that differ from the source.
    void fillTarget() {
        const auto engine = openForTest(m_target);
        fillSmallBooks(*engine);
        runScript(*engine, "DELETE FROM Dept; DELETE FROM ProjClass; DROP TABLE ProjItems01");
    }

    std::string m_source;
    std::string m_target;
};

TEST_P(BooksCopy, NewBooksHaveTheSameContent) {
    EXPECT_EQ(textOf(copyBooks(m_source, m_target, Overwrite::refuse)), "done");
    EXPECT_EQ(contentOf(m_target), contentOf(m_source));
}

TEST_P(BooksCopy, ExistingBooksAreLeftAloneWithoutForce) {
    fillTarget();
    const auto before = contentOf(m_target);
    EXPECT_EQ(kindOf(copyBooks(m_source, m_target, Overwrite::refuse)), RefusalKind::alreadyThere);
    EXPECT_EQ(contentOf(m_target), before);
}

TEST_P(BooksCopy, ExistingBooksAreReplacedAsAWholeWhenForced) {
    fillTarget();
    EXPECT_EQ(textOf(copyBooks(m_source, m_target, Overwrite::replaceBooks)), "done");
    EXPECT_EQ(contentOf(m_target), contentOf(m_source));
}

TEST_P(BooksCopy, BooksThatSomebodyHoldsAreNotReplaced) {
    fillTarget();
    const auto before = contentOf(m_target);
    const auto holder = openForTest(m_target, OpenMode::existing);
    holder->locks().setIdentity({"王五", "会计科目"});
    ASSERT_TRUE(holder->locks().lock("Code", LockMode::shared, false).isDone());
    const std::optional<Refusal> refusal = copyBooks(m_source, m_target, Overwrite::replaceBooks);
    EXPECT_THAT(textOf(refusal), HasSubstr("王五"));
    EXPECT_EQ(contentOf(m_target), before);
    holder->locks().unlock("Code", LockMode::shared);
    EXPECT_EQ(textOf(copyBooks(m_source, m_target, Overwrite::replaceBooks)), "done");
}

TEST_P(BooksCopy, OntoItselfIsRefused) {
    EXPECT_EQ(kindOf(copyBooks(m_source, m_source, Overwrite::replaceBooks)),
              RefusalKind::wrongInput);
}

TEST_P(BooksCopy, LeavesOutAnIndexThatWouldRefuseRows) {
    {
        const auto source = openForTest(m_source, OpenMode::existing);
        runScript(*source, "CREATE UNIQUE INDEX keeps ON Dept (lId)");
    }
    ASSERT_EQ(textOf(copyBooks(m_source, m_target, Overwrite::refuse)), "done");
    const auto copy = openForTest(m_target, OpenMode::existing);
    EXPECT_TRUE(copy->script("CREATE UNIQUE INDEX keeps ON Dept (lId)").isDone());
}

TEST_P(BooksCopy, TakesOverRowsAndNoObjectsThatSomebodyPutIntoTheSource) {
    const auto before = contentOf(m_source);
    plantTrigger(m_source);
    chengheng::TransferRemarks remarks;
    EXPECT_EQ(textOf(copyBooks(m_source, m_target, Overwrite::refuse, &remarks)), "done");
    auto& leftOut = remarks.leftOut;
    ASSERT_EQ(leftOut.size(), 1u);
    EXPECT_EQ(leftOut.front().name, "grabs");
    EXPECT_FALSE(leftOut.front().isView);
    EXPECT_EQ(contentOf(m_target), before);
    const auto copy = openForTest(m_target, OpenMode::existing);
    ASSERT_TRUE(foreignObjects(*copy, leftOut).isDone());
    EXPECT_TRUE(leftOut.empty());
}

INSTANTIATE_TEST_SUITE_P(Between, BooksCopy,
                         testing::Combine(testing::ValuesIn(chengheng::sharedEngineCases()),
                                          testing::ValuesIn(chengheng::sharedEngineCases())),
                         [](const auto& pair) {
                             return std::get<0>(pair.param).name + "To" +
                                    std::get<1>(pair.param).name;
                         });

/// Books brought back from a backup.
class Restore : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override {
        m_books = makeSmallBooks(GetParam());
        m_file = freshFolder() + "/backup.db";
        m_content = contentOf(m_books);
        ASSERT_EQ(textOf(backUpBooks(m_books, m_file, Overwrite::refuse)), "done");
    }

    std::string m_books;
    std::string m_file;
    std::vector<chengheng::TableDigest> m_content;
};

TEST_P(Restore, BringsTheBooksBackToTheStateOfTheBackup) {
    runScript(*openForTest(m_books, OpenMode::existing), "DELETE FROM Code; DELETE FROM AccSum");
    EXPECT_EQ(textOf(restoreBooks(m_file, m_books, Overwrite::replaceBooks)), "done");
    EXPECT_EQ(contentOf(m_books), m_content);
}

TEST_P(Restore, MakesNewBooksWhereNoneAre) {
    const std::string place = freshLocation(GetParam());
    EXPECT_EQ(textOf(restoreBooks(m_file, place, Overwrite::refuse)), "done");
    EXPECT_EQ(contentOf(place), m_content);
}

TEST(RestoreFile, ThatTheDiskDoesNotConfirmIsSaidToStand) {
    const std::string folder = freshFolder();
    const std::string books = makeSmallBooks(EngineCase{"sqliteFile"});
    const chengheng::FailingFolderSync failing;
    const std::string target = folder + "/restored.db";
    EXPECT_THAT(textOf(restoreBooks(books, target, Overwrite::refuse)), HasSubstr("已经写好"));
    EXPECT_EQ(contentOf(target), contentOf(books));
}

TEST_P(Restore, CorruptBackupIsRefusedAndTheBooksStay) {
    overwriteMiddle(m_file);
    const std::optional<Refusal> refusal = restoreBooks(m_file, m_books, Overwrite::replaceBooks);
    EXPECT_THAT(textOf(refusal), HasSubstr("已损坏"));
    EXPECT_EQ(contentOf(m_books), m_content);
}

TEST_P(Restore, FileThatIsNoBackupIsRefused) {
    std::ofstream(m_file, std::ios::trunc) << "no books at all";
    const std::optional<Refusal> refusal = restoreBooks(m_file, m_books, Overwrite::replaceBooks);
    EXPECT_THAT(textOf(refusal), HasSubstr("不是帐套文件"));
    EXPECT_EQ(contentOf(m_books), m_content);
}

CHENGHENG_ON_SHARED_ENGINES(Restore);

/// Books of an older layout as they lie on an engine.
class OlderSource : public testing::TestWithParam<std::tuple<EngineCase, EngineCase>> {
  protected:
    void SetUp() override {
        chengheng::fillOlderBooks(*openForTest(m_source), 1);
        m_content = contentOf(m_source);
    }
    /// What the books hold that came from the source; the rest is empty.
    void expectRowsAt(const std::string& location) {
        const auto engine = openForTest(location, OpenMode::existing);
        EXPECT_TRUE(checkLayout(*engine).isDone());
        std::vector<chengheng::TableDigest> kept;
        EXPECT_TRUE(digestContent(*engine, 1, kept).isDone());
        const auto number = [](auto& digest) { return digest.table == "BooksFormat"; };
        std::erase_if(kept, number);
        std::vector<chengheng::TableDigest> old = m_content;
        std::erase_if(old, number);
        EXPECT_EQ(kept, old);
        for (const chengheng::TableDigest& digest : contentOf(location))
            if (std::ranges::count(m_content, digest.table, &chengheng::TableDigest::table) == 0) {
                EXPECT_EQ(digest.rows, 0) << digest.table;
            }
        EXPECT_EQ(readSql(*engine, "SELECT byKind FROM Enter"),
                  (std::vector<std::vector<std::string>>{{"0"}}));
    }

    std::string m_source = freshLocation(std::get<0>(GetParam()));
    std::string m_target = freshLocation(std::get<1>(GetParam()));
    std::vector<chengheng::TableDigest> m_content;
};

TEST_P(OlderSource, BecomesNewBooksOfTheLayoutOfToday) {
    EXPECT_EQ(textOf(copyBooks(m_source, m_target, Overwrite::refuse)), "done");
    expectRowsAt(m_target);
    EXPECT_EQ(contentOf(m_source), m_content);
}

TEST_P(OlderSource, ReplacesBooksOfTheLayoutOfToday) {
    {
        const auto engine = openForTest(m_target);
        fillSmallBooks(*engine);
        runScript(*engine, "INSERT INTO LogonTries VALUES (1, 9, 1, 1, 0)");
    }
    EXPECT_EQ(textOf(copyBooks(m_source, m_target, Overwrite::replaceBooks)), "done");
    expectRowsAt(m_target);
}

TEST_P(OlderSource, ReplacesNoBooksThatAreToBeUpgradedFirst) {
    chengheng::fillOlderBooks(*openForTest(m_target), 1);
    EXPECT_THAT(textOf(copyBooks(m_source, m_target, Overwrite::replaceBooks)),
                HasSubstr("要先升级才能使用"));
    EXPECT_EQ(contentOf(m_target), m_content);
}

TEST_P(OlderSource, IsBackedUp) {
    const std::string file = freshFolder() + "/b.db";
    EXPECT_EQ(textOf(backUpBooks(m_source, file, Overwrite::refuse)), "done");
    if (m_source.starts_with("postgres"))
        expectRowsAt(file);
    else
        EXPECT_EQ(contentOf(file), m_content);
    EXPECT_EQ(textOf(restoreBooks(file, m_target, Overwrite::refuse)), "done");
    expectRowsAt(m_target);
}

INSTANTIATE_TEST_SUITE_P(Between, OlderSource,
                         testing::Combine(testing::ValuesIn(chengheng::sharedEngineCases()),
                                          testing::ValuesIn(chengheng::sharedEngineCases())),
                         [](const auto& pair) {
                             return std::get<0>(pair.param).name + "To" +
                                    std::get<1>(pair.param).name;
                         });

TEST(RestoreFile, OnADiskThatFillsUpLeavesTheBooksAsTheyWere) {
    const std::string file = makeSmallBooks(EngineCase{"sqliteFile"});
    const std::string books = makeSmallBooks(EngineCase{"sqliteFile"});
    runScript(*openForTest(books, OpenMode::existing), "DELETE FROM Dept");
    const auto before = contentOf(books);
    chengheng::FailingDisk disk;
    bool isDone = false;
    int failures = 0;
    for (int room = 0; !isDone; room += 11) {
        disk.fail(chengheng::FailingDisk::Fault::full, room);
        const std::optional<Refusal> refusal =
            chengheng::restoreBooks(file, books, Overwrite::replaceBooks);
        disk.repair();
        isDone = !refusal;
        if (!refusal) break;
        ++failures;
        EXPECT_THAT(textOf(refusal), HasSubstr("磁盘")) << room;
        EXPECT_EQ(contentOf(books), before) << room;
    }
    EXPECT_GT(failures, 3);
    EXPECT_EQ(contentOf(books), contentOf(file));
}

TEST(RestoreFile, FromAServerAddressIsRefused) {
    EXPECT_EQ(kindOf(chengheng::restoreBooks("postgresql://h/d", "a.db", Overwrite::refuse)),
              RefusalKind::wrongInput);
}

}  // namespace
