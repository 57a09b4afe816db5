#include "data/engines/sqlite/sqlite_engine.h"

#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>

#include "tests/support/engine_cases.h"
#include "tests/support/engine_tools.h"
#include "tests/support/ordinary_user.h"
#include "tests/support/small_books.h"
#include "tests/support/waiting_process.h"

namespace chengheng {
namespace {

namespace fs = std::filesystem;

Failure openingOf(const std::string& path, OpenMode mode = OpenMode::existing) {
    std::unique_ptr<Engine> engine;
    const Status status = openEngine(path, mode, engine);
    EXPECT_EQ(engine != nullptr, status.isDone());
    return status.failure;
}

std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void overwrite(const std::string& path, std::streamoff at, const std::string& bytes) {
    std::fstream file(path, std::ios::binary | std::ios::in | std::ios::out);
    file.seekp(at);
    file << bytes;
}

int modeOf(const std::string& path) {
    struct stat found {};
    return stat(path.c_str(), &found) == 0 ? static_cast<int>(found.st_mode & 07777) : -1;
}

/// A closed database with one table of some pages.
std::string filledDatabase() {
    const std::string path = freshFolder() + "/Nbzw.db";
    const std::unique_ptr<Engine> engine = openForTest(path);
    EXPECT_TRUE(engine->script("CREATE TABLE Filler (sText TEXT)").isDone());
    const std::string text(3000, 'x');
    for (int row = 0; row < 20; ++row)
        EXPECT_TRUE(runSql(*engine, "INSERT INTO Filler VALUES ($1)", {Value::of(text)}).isDone());
    return path;
}

TEST(SqliteOpening, AFileThatIsNotThereIsMissingAndIsNotMade) {
    const std::string path = freshFolder() + "/Nbzw.db";
    EXPECT_EQ(openingOf(path), Failure::missing);
    EXPECT_FALSE(fs::exists(path));
    EXPECT_EQ(openingOf(""), Failure::missing);
}

TEST(SqliteOpening, NothingThatWasPlantedInAFileRuns) {
    const std::string location = freshFolder() + "/Nbzw.db";
    {
        const auto engine = openForTest(location);
        chengheng::runScript(
            *engine,
            "CREATE TABLE one (lId INTEGER); CREATE TABLE two (lId INTEGER);"
            "CREATE TRIGGER grabs AFTER INSERT ON one BEGIN INSERT INTO two VALUES (1); END;"
            "CREATE VIEW looks AS SELECT lId FROM one");
    }
    const auto engine = openForTest(location, OpenMode::existing);
    chengheng::runScript(*engine, "INSERT INTO one VALUES (7)");
    EXPECT_EQ(readCell(*engine, "SELECT count(*) FROM two"), "0");
    EXPECT_EQ(readCell(*engine, "SELECT count(*) FROM one"), "1");
    EXPECT_FALSE(engine->script("SELECT lId FROM looks").isDone());
}

TEST(SqliteOpening, AFolderIsForeign) { EXPECT_EQ(openingOf(freshFolder()), Failure::foreign); }

TEST(SqliteOpening, AFileOfAnotherKindIsForeignAndStaysAsItIs) {
    const std::string path = freshFolder() + "/letter.txt";
    const std::string letter = "Dear Sirs,\n" + std::string(5000, '.');
    std::ofstream(path) << letter;
    EXPECT_EQ(openingOf(path), Failure::foreign);
    EXPECT_EQ(contentOf(path), letter);
}

TEST(SqliteOpening, AnEmptyFileIsForeignAndStaysEmpty) {
    const std::string path = freshFolder() + "/empty.db";
    std::ofstream(path).close();
    EXPECT_EQ(openingOf(path), Failure::foreign);
    EXPECT_EQ(fs::file_size(path), 0U);
}

TEST(SqliteOpening, ADatabaseOfAnotherProgramIsForeignAndStaysAsItIs) {
    const std::string path = filledDatabase();
    overwrite(path, 68, std::string(4, '\0'));
    const std::string before = contentOf(path);
    EXPECT_EQ(openingOf(path), Failure::foreign);
    EXPECT_EQ(contentOf(path), before);
}

TEST(SqliteOpening, ADatabaseWithAnUnreadableFirstPageIsDamaged) {
    const std::string path = filledDatabase();
    overwrite(path, 16, "\x12\x34");
    EXPECT_EQ(openingOf(path), Failure::damaged);
}

TEST(SqliteOpening, DamageFurtherInIsMetWhenItIsRead) {
    const std::string path = filledDatabase();
    for (std::streamoff page = 1; page < 10; ++page)
        overwrite(path, page * 4096, std::string(4096, '\x55'));
    const std::unique_ptr<Engine> engine = openForTest(path, OpenMode::existing);
    std::unique_ptr<PreparedStatement> statement;
    ASSERT_TRUE(engine->prepare("SELECT sText FROM Filler", 0, statement));
    std::unique_ptr<Cursor> cursor;
    ASSERT_TRUE(engine->open({statement.get(), {}}, cursor));
    Cursor::Step step = Cursor::Step::row;
    while (step == Cursor::Step::row) step = cursor->next();
    ASSERT_EQ(step, Cursor::Step::failed);
    EXPECT_EQ(cursor->status().failure, Failure::damaged);
}

TEST(SqliteOpening, AReadOnlyFileOrFolderIsToldAsSuch) {
    const std::string path = filledDatabase();
    const fs::path folder = fs::path(path).parent_path();
    fs::permissions(folder.parent_path(), fs::perms(0755));
    fs::permissions(folder, fs::perms(0777));
    fs::permissions(path, fs::perms(0444));
    const auto opening = [&path] { return static_cast<int>(openingOf(path)); };
    EXPECT_EQ(asOrdinaryUser(opening), static_cast<int>(Failure::readOnly));
    fs::permissions(path, fs::perms(0666));
    fs::permissions(folder, fs::perms(0555));
    EXPECT_EQ(asOrdinaryUser(opening), static_cast<int>(Failure::readOnly));
    fs::permissions(folder, fs::perms(0777));
    EXPECT_EQ(asOrdinaryUser(opening), static_cast<int>(Failure::none));
}

/// A database that an ordinary user cannot write, nor anything beside it.
std::string unwritableDatabase() {
    const std::string path = filledDatabase();
    const fs::path folder = fs::path(path).parent_path();
    fs::permissions(folder.parent_path(), fs::perms(0755));
    fs::permissions(path, fs::perms(0444));
    fs::permissions(folder, fs::perms(0555));
    return path;
}

Failure failureOfReading(Engine& engine) {
    std::unique_ptr<PreparedStatement> statement;
    Status status = engine.prepare("SELECT sText FROM Filler", 0, statement);
    std::unique_ptr<Cursor> cursor;
    if (status) status = engine.open({statement.get(), {}}, cursor);
    int rows = 0;
    while (status && cursor->next() == Cursor::Step::row) ++rows;
    EXPECT_EQ(rows, status ? 20 : 0);
    return status.failure;
}

TEST(SqliteReading, TakesWhatCannotBeWrittenAndWritesNothing) {
    const std::string path = unwritableDatabase();
    const auto reading = [&path] {
        std::unique_ptr<Engine> engine;
        if (!openEngine(path, OpenMode::readable, engine) || !engine->isReadOnly()) return 1;
        if (failureOfReading(*engine) != Failure::none) return 2;
        if (runSql(*engine, "DELETE FROM Filler").failure != Failure::readOnly) return 3;
        if (!engine->locks().lock("Code", LockMode::exclusive, false)) return 4;
        if (!engine->beginReading() || !engine->rollback()) return 5;
        return engine->begin().failure == Failure::readOnly ? 0 : 6;
    };
    EXPECT_EQ(asOrdinaryUser(reading), 0);
    const fs::path folder = fs::path(path).parent_path();
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), 1) << "nothing lies beside it";
    fs::permissions(folder, fs::perms(0777));
    EXPECT_EQ(asOrdinaryUser(reading), 0) << "a folder that takes files";
}

TEST(SqliteReading, OfWhatCanBeWrittenIsNoDifferentFromOpeningIt) {
    const std::unique_ptr<Engine> engine = openForTest(filledDatabase(), OpenMode::readable);
    EXPECT_FALSE(engine->isReadOnly());
    EXPECT_TRUE(runSql(*engine, "DELETE FROM Filler"));
}

TEST(SqliteReading, NoticesThatSomebodyWritesTheFileAfterAll) {
    const std::string path = unwritableDatabase();
    int ready[2];
    int written[2];
    ASSERT_EQ(pipe(ready), 0);
    ASSERT_EQ(pipe(written), 0);
    const pid_t child = fork();
    if (child == 0) {
        const int result = asOrdinaryUser([&] {
            std::unique_ptr<Engine> engine;
            if (!openEngine(path, OpenMode::readable, engine)) return 1;
            if (failureOfReading(*engine) != Failure::none) return 2;
            char byte = 'x';
            if (write(ready[1], &byte, 1) != 1 || read(written[0], &byte, 1) != 1) return 3;
            return failureOfReading(*engine) == Failure::readOnly ? 0 : 4;
        });
        _exit(result);
    }
    char byte = 0;
    ASSERT_EQ(read(ready[0], &byte, 1), 1);
    ASSERT_TRUE(runSql(*openForTest(path, OpenMode::existing), "DELETE FROM Filler"));
    ASSERT_EQ(write(written[1], &byte, 1), 1);
    int result = 0;
    waitpid(child, &result, 0);
    EXPECT_EQ(WEXITSTATUS(result), 0);
}

TEST(SqliteReading, EndsWhereTheFileIsWrittenBeforeTheLastRow) {
    const std::string path = unwritableDatabase();
    WaitingProcess writing([&path] {
        return runSql(*openForTest(path, OpenMode::existing), "DELETE FROM Filler").isDone();
    });
    const auto reading = [&] {
        std::unique_ptr<Engine> engine;
        std::unique_ptr<PreparedStatement> statement;
        std::unique_ptr<Cursor> cursor;
        Status status = openEngine(path, OpenMode::readable, engine);
        if (status) status = engine->prepare("SELECT sText FROM Filler", 0, statement);
        if (status) status = engine->open({statement.get(), {}}, cursor);
        if (!status || cursor->next() != Cursor::Step::row) return 1;
        writing.start(std::chrono::milliseconds(500));
        Cursor::Step step = Cursor::Step::row;
        while (step == Cursor::Step::row) step = cursor->next();
        return step == Cursor::Step::failed && cursor->status().failure == Failure::readOnly ? 0
                                                                                             : 2;
    };
    EXPECT_EQ(asOrdinaryUser(reading), 0);
    EXPECT_TRUE(writing.hasSucceeded());
}

TEST(SqliteReading, RefusesAFileWhoseLogIsNotBroughtIn) {
    for (const char* log : {"-wal", "-journal"}) {
        const std::string path = unwritableDatabase();
        const std::string link = freshFolder() + "/link.db";
        fs::permissions(fs::path(link).parent_path(), fs::perms(0755));
        fs::create_symlink(path, link);
        std::ofstream(path + log) << "what was written last";
        for (const std::string& name : {path, link}) {
            const auto opening = [&name] {
                return static_cast<int>(openingOf(name, OpenMode::readable));
            };
            EXPECT_EQ(asOrdinaryUser(opening), static_cast<int>(Failure::readOnly)) << name << log;
        }
    }
}

TEST(SqliteReading, WaitsForAProgramThatKeepsTheFileToItself) {
    const std::string path = unwritableDatabase();
    sqlite3* writer = nullptr;
    ASSERT_EQ(sqlite3_open(path.c_str(), &writer), SQLITE_OK);
    for (const char* sql :
         {"PRAGMA journal_mode = DELETE", "PRAGMA locking_mode = EXCLUSIVE", "BEGIN EXCLUSIVE"})
        ASSERT_EQ(sqlite3_exec(writer, sql, nullptr, nullptr, nullptr), SQLITE_OK) << sql;
    const auto opening = [&path] { return static_cast<int>(openingOf(path, OpenMode::readable)); };
    EXPECT_EQ(asOrdinaryUser(opening), static_cast<int>(Failure::busy));
    sqlite3_close(writer);
}

TEST(SqliteOpening, LocksMeetWhateverLinkLeadsToTheFile) {
    const std::string path = filledDatabase();
    const std::string link = freshFolder() + "/link.db";
    fs::create_symlink(path, link);
    const auto first = openForTest(path, OpenMode::existing);
    const auto second = openForTest(link, OpenMode::existing);
    EXPECT_TRUE(first->locks().lock("Code", LockMode::exclusive, false));
    EXPECT_EQ(second->locks().lock("Code", LockMode::exclusive, false).failure, Failure::busy);
    EXPECT_EQ(std::distance(fs::directory_iterator(fs::path(link).parent_path()), {}), 1);
}

TEST(SqliteReading, KnowsAFileOfAnotherKind) {
    const std::string path = unwritableDatabase();
    overwrite(path, 0, "something else");
    const auto opening = [&path] { return static_cast<int>(openingOf(path, OpenMode::readable)); };
    EXPECT_EQ(asOrdinaryUser(opening), static_cast<int>(Failure::foreign));
}

/// Another program that keeps the file to itself.
struct ForeignWriter {
    explicit ForeignWriter(const std::string& path) {
        EXPECT_EQ(sqlite3_open(path.c_str(), &connection), SQLITE_OK);
        run("BEGIN IMMEDIATE");
    }
    ~ForeignWriter() { sqlite3_close(connection); }
    ForeignWriter(const ForeignWriter&) = delete;
    ForeignWriter& operator=(const ForeignWriter&) = delete;

    void run(const char* sql) {
        EXPECT_EQ(sqlite3_exec(connection, sql, nullptr, nullptr, nullptr), SQLITE_OK);
    }
    sqlite3* connection = nullptr;
};

struct CountingWaiter : LockWaiter {
    bool keepWaiting(const LockHolder& holder, std::chrono::milliseconds waited) override {
        EXPECT_EQ(holder.lockName, "");
        EXPECT_GE(waited, last);
        last = waited;
        return isGoingOn(++asked);
    }
    void waitEnded() override {
        ++ended;
        last = {};
    }

    std::function<bool(int asked)> isGoingOn;
    std::chrono::milliseconds last{};
    int asked = 0;
    int ended = 0;
};

TEST(SqliteWaiting, ForAnotherProgramAsksWhetherItGoesOnUntilTheFileIsFree) {
    const std::string path = filledDatabase();
    const auto engine = openForTest(path, OpenMode::existing);
    ForeignWriter foreign(path);
    CountingWaiter waiter;
    engine->locks().setWaiter(&waiter);
    waiter.isGoingOn = [&](int asked) {
        if (asked == 3) foreign.run("COMMIT");
        return true;
    };
    EXPECT_TRUE(runSql(*engine, "DELETE FROM Filler"));
    EXPECT_EQ(waiter.asked, 3);
    EXPECT_EQ(waiter.ended, 1);
    EXPECT_TRUE(engine->begin());
    EXPECT_TRUE(engine->rollback());
    EXPECT_EQ(waiter.ended, 1) << "nobody had to wait";
}

TEST(SqliteWaiting, ForAnotherProgramEndsByItselfWhereNobodyIsAsked) {
    const std::string path = filledDatabase();
    const auto engine = openForTest(path, OpenMode::existing);
    const ForeignWriter foreign(path);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(runSql(*engine, "DELETE FROM Filler").failure, Failure::busy);
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}

TEST(SqliteWaiting, ForAnotherProgramCanBeGivenUp) {
    const std::string path = filledDatabase();
    const auto engine = openForTest(path, OpenMode::existing);
    const ForeignWriter foreign(path);
    CountingWaiter waiter;
    engine->locks().setWaiter(&waiter);
    waiter.isGoingOn = [&](int asked) {
        // Whatever runs meanwhile leaves the connection alone.
        EXPECT_EQ(runSql(*engine, "DELETE FROM Filler").failure, Failure::busy);
        EXPECT_EQ(failureOfReading(*engine), Failure::busy);
        return asked < 2;
    };
    EXPECT_EQ(runSql(*engine, "DELETE FROM Filler").failure, Failure::cancelled);
    EXPECT_EQ(waiter.asked, 2);
    EXPECT_EQ(waiter.ended, 1);
    EXPECT_EQ(engine->begin().failure, Failure::cancelled);
    EXPECT_EQ(waiter.ended, 2);
    EXPECT_EQ(failureOfReading(*engine), Failure::none);
}

TEST(SqliteWaiting, IsBusyAndNobodysWishWhereOnlyPatienceEnds) {
    const std::string path = filledDatabase();
    const auto engine = openForTest(path, OpenMode::existing);
    const ForeignWriter foreign(path);
    PatientWaiter waiter(std::chrono::milliseconds(1));
    engine->locks().setWaiter(&waiter);
    EXPECT_EQ(runSql(*engine, "DELETE FROM Filler").failure, Failure::busy);
}

TEST(SqliteCreating, MakesFilesForTheirOwnerOnly) {
    const mode_t former = umask(0);
    const std::string path = freshFolder() + "/Nbzw.db";
    const std::unique_ptr<Engine> engine = openForTest(path);
    EXPECT_TRUE(engine->script("CREATE TABLE T (x)"));
    EXPECT_TRUE(engine->locks().lock("Code", LockMode::shared, false));
    umask(former);
    for (const auto& file : fs::directory_iterator(fs::path(path).parent_path()))
        EXPECT_EQ(modeOf(file.path()), 0600) << file.path();
    EXPECT_EQ(modeOf(path + "-wal"), 0600);
}

TEST(SqliteCreating, NeverTouchesAFileThatIsThere) {
    const std::string path = freshFolder() + "/Nbzw.db";
    std::ofstream(path) << "mine";
    EXPECT_EQ(openingOf(path, OpenMode::create), Failure::refused);
    EXPECT_EQ(contentOf(path), "mine");
}

TEST(SqliteCreating, NeedsTheFolder) {
    EXPECT_EQ(openingOf(freshFolder() + "/none/Nbzw.db", OpenMode::create), Failure::missing);
}

TEST(SqliteCreating, TakesNamesThatMeanSomethingElsewhere) {
    const std::string folder = freshFolder();
    for (const char* name : {"file:a?mode=ro", "账 套%20#1.db", "a'b\"c.db"}) {
        const std::string path = folder + "/" + name;
        EXPECT_EQ(openingOf(path, OpenMode::create), Failure::none) << path;
        EXPECT_TRUE(fs::exists(path)) << path;
        EXPECT_EQ(openingOf(path), Failure::none) << path;
    }
}

TEST(SqliteEngine, ReopensWithWhatWasCommitted) {
    const std::string path = filledDatabase();
    const std::unique_ptr<Engine> engine = openForTest(path, OpenMode::existing);
    EXPECT_EQ(readCell(*engine, "SELECT count(*) FROM Filler"), "20");
}

TEST(SqliteEngine, RunsWithALogThatIsFlushedAtEveryCommit) {
    const std::unique_ptr<Engine> engine = openForTest(freshFolder() + "/Nbzw.db");
    EXPECT_EQ(readCell(*engine, "PRAGMA journal_mode"), "wal");
    EXPECT_EQ(readCell(*engine, "PRAGMA synchronous"), "2");
    EXPECT_EQ(readCell(*engine, "PRAGMA foreign_keys"), "0");
}

TEST(SqliteEngine, ReadersSeeTheOldStateWhileAnotherWrites) {
    const std::string path = filledDatabase();
    const std::unique_ptr<Engine> writer = openForTest(path, OpenMode::existing);
    const std::unique_ptr<Engine> reader = openForTest(path, OpenMode::existing);
    ASSERT_TRUE(writer->begin());
    ASSERT_TRUE(runSql(*writer, "DELETE FROM Filler").isDone());
    EXPECT_EQ(readCell(*reader, "SELECT count(*) FROM Filler"), "20");
    ASSERT_TRUE(writer->commit());
    EXPECT_EQ(readCell(*reader, "SELECT count(*) FROM Filler"), "0");
}

TEST(SqliteEngine, ASecondWriterIsBusyOnceItsPatienceIsOver) {
    const std::string path = filledDatabase();
    const std::unique_ptr<Engine> first = openForTest(path, OpenMode::existing);
    const std::unique_ptr<Engine> second = openForTest(path, OpenMode::existing);
    ASSERT_TRUE(second->script("PRAGMA busy_timeout = 50"));
    ASSERT_TRUE(first->begin());
    EXPECT_EQ(second->begin().failure, Failure::busy);
    EXPECT_FALSE(second->inTransaction());
    EXPECT_EQ(runSql(*second, "DELETE FROM Filler").failure, Failure::busy);
    ASSERT_TRUE(first->rollback());
    EXPECT_TRUE(second->begin());
}

TEST(SqliteEngine, AFileThatWasRemovedIsMissing) {
    const std::string path = filledDatabase();
    const std::unique_ptr<Engine> engine = openForTest(path, OpenMode::existing);
    ASSERT_TRUE(engine->ensureConnected());
    fs::remove(path);
    EXPECT_EQ(engine->ensureConnected().failure, Failure::missing);
}

TEST(SqliteEngine, AMisspeltNameInDoubleQuotesIsNoText) {
    const std::unique_ptr<Engine> engine = openForTest(":memory:");
    std::unique_ptr<PreparedStatement> statement;
    EXPECT_EQ(engine->prepare("SELECT \"nothing\"", 0, statement).failure, Failure::refused);
}

}  // namespace
}  // namespace chengheng
