#include <gmock/gmock.h>
#include <sqlite3.h>

#include "data/connection/database.h"
#include "data/layout/layout.h"
#include "data/transfer/content_copy.h"
#include "data/transfer/foreign_objects.h"
#include "tests/support/engine_cases.h"
#include "tests/support/engine_tools.h"

namespace {

using chengheng::createLayout;
using chengheng::Database;
using chengheng::Engine;
using chengheng::EngineCase;
using chengheng::Failure;
using chengheng::foreignObjects;
using chengheng::freshLocation;
using chengheng::openForTest;
using chengheng::OpenMode;
using chengheng::readSql;
using chengheng::Status;
using testing::ElementsAre;
using testing::IsEmpty;

const std::vector<std::string> touches{
    "UPDATE OperationLog SET sWords = 'x'", "DELETE FROM OperationLog",
    "UPDATE OperationLogPart SET sPacked = 'x'", "DELETE FROM OperationLogPart"};

/// Runs a statement as any program that opens the file would; empty when it did what it says.
std::string foreignRun(const std::string& path, const std::string& sql) {
    sqlite3* opened = nullptr;
    EXPECT_EQ(sqlite3_open(path.c_str(), &opened), SQLITE_OK);
    char* message = nullptr;
    sqlite3_exec(opened, sql.c_str(), nullptr, nullptr, &message);
    const std::string told = message == nullptr ? "" : message;
    sqlite3_free(message);
    sqlite3_close(opened);
    return told;
}

class OperationLogGuards : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override {
        m_location = freshLocation(GetParam());
        auto engine = openForTest(m_location);
        ASSERT_TRUE(createLayout(*engine).isDone());
        m_books = std::make_unique<Database>(std::move(engine), "books");
        m_books->keepLog({.operatorId = 1, .operatorName = "王芳", .workstation = "帐务一"});
        ASSERT_TRUE(change("1"));
    }
    Engine& engine() { return m_books->engine(); }
    bool change(const std::string& id) {
        return m_books->executeBatch("INSERT Settle VALUES( " + id + ", '1', '现金', 0 )").isDone();
    }
    std::vector<std::string> cells(const std::string& sql) {
        std::vector<std::string> found;
        for (const auto& row : readSql(engine(), sql))
            found.insert(found.end(), row.begin(), row.end());
        return found;
    }
    std::vector<std::string> objects() {
        std::vector<chengheng::ForeignObject> found;
        EXPECT_TRUE(foreignObjects(engine(), found).isDone());
        std::vector<std::string> names;
        for (const auto& object : found) names.push_back(object.name);
        return names;
    }

    std::string m_location;
    std::unique_ptr<Database> m_books;
};

class OperationLogHead : public OperationLogGuards {};

TEST_P(OperationLogGuards, LetNoProgramChangeOrTakeOutWhatIsLogged) {
    const auto before = cells("SELECT lId, sWords, sHash FROM OperationLog");
    std::vector<std::string> tried = touches;
    const bool isServer = engine().dialect().guardOff != nullptr;
    if (isServer) tried.insert(tried.end(), {"TRUNCATE OperationLog", "TRUNCATE OperationLogPart"});
    for (const std::string& sql : tried) {
        std::string told;
        if (isServer) {
            const Status status = engine().script(sql);
            told = status ? "" : status.detail;
        } else {
            told = foreignRun(m_location, sql);
        }
        EXPECT_THAT(told, testing::HasSubstr("is only added to")) << sql;
    }
    EXPECT_EQ(cells("SELECT lId, sWords, sHash FROM OperationLog"), before);
    EXPECT_THAT(cells("SELECT count(*) FROM OperationLogPart"), ElementsAre("1"));
}

TEST_P(OperationLogGuards, AreNoForeignObjectsButWhatOnlyBearsTheirNameIs) {
    EXPECT_THAT(objects(), IsEmpty());
    const bool isServer = engine().dialect().guardOff != nullptr;
    const Status planted =
        isServer ? engine().script(
                       "CREATE OR REPLACE FUNCTION OperationLog_keep() RETURNS trigger LANGUAGE "
                       "plpgsql AS $$ BEGIN RETURN NULL; END $$")
                 : engine().script(
                       "DROP TRIGGER OperationLog_keep_UPDATE; CREATE TRIGGER "
                       "OperationLog_keep_UPDATE BEFORE UPDATE ON OperationLog BEGIN SELECT "
                       "1; END");
    ASSERT_TRUE(planted.isDone()) << planted.detail;
    EXPECT_THAT(objects(),
                ElementsAre(isServer ? "operationlog_keep" : "OperationLog_keep_UPDATE"));
}

TEST_P(OperationLogGuards, LetTheLogGiveWayToThatOfOtherBooksAndStandAgain) {
    const std::string other = freshLocation(GetParam());
    const auto source = openForTest(other);
    ASSERT_TRUE(createLayout(*source).isDone());
    ASSERT_TRUE(replaceContent(*source, engine()).isDone());
    EXPECT_THAT(cells("SELECT count(*) FROM OperationLog"), ElementsAre("0"));
    EXPECT_THAT(cells("SELECT count(*) FROM OperationLogPart"), ElementsAre("0"));
    EXPECT_THAT(objects(), IsEmpty());
    ASSERT_TRUE(change("2"));
    if (engine().dialect().guardOff != nullptr)
        for (const std::string& sql : touches) EXPECT_FALSE(engine().script(sql)) << sql;
}

TEST_P(OperationLogHead, HoldsNumberAndHashOfTheLastEntry) {
    ASSERT_TRUE(change("2"));
    EXPECT_EQ(cells("SELECT lLastId, sHash FROM OperationLogHead"),
              cells("SELECT lId, sHash FROM OperationLog WHERE lId = 2"));
}

TEST_P(OperationLogHead, ThatIsMissingOrBehindTheEntriesStopsNobodyAndIsSaid) {
    ASSERT_TRUE(engine().script("DELETE FROM OperationLogHead").isDone());
    EXPECT_TRUE(change("2"));
    ASSERT_TRUE(engine().script("UPDATE OperationLogHead SET lLastId = 1").isDone());
    EXPECT_TRUE(change("3"));
    EXPECT_TRUE(change("4"));
    ASSERT_TRUE(engine().script("UPDATE OperationLogHead SET lLastId = -5").isDone());
    EXPECT_TRUE(change("5"));
    EXPECT_THAT(cells("SELECT sWords FROM OperationLog ORDER BY lId"),
                ElementsAre("Settle 1", "OperationLogHead", "Settle 1", "OperationLogHead",
                            "Settle 1", "Settle 1", "OperationLogHead", "Settle 1"));
    EXPECT_THAT(cells("SELECT lId FROM OperationLog ORDER BY lId"),
                ElementsAre("1", "2", "3", "4", "5", "6", "7", "8"));
    EXPECT_THAT(cells("SELECT lId FROM OperationLog WHERE lFunction = -1 ORDER BY lId"),
                ElementsAre("2", "4", "7"));
}

TEST_P(OperationLogHead, GoesOnBelowAnEntryPlantedAtTheEndOfAllNumbers) {
    ASSERT_TRUE(engine().script("INSERT INTO OperationLog (lId) VALUES (2147483647)").isDone());
    EXPECT_TRUE(change("2"));
    EXPECT_THAT(cells("SELECT lId FROM OperationLog ORDER BY lId"),
                ElementsAre("1", "2", "3", "2147483647"));
}

TEST_P(OperationLogHead, NotesWhatChangesNoRow) {
    ASSERT_TRUE(m_books->noteInLog({.function = 41, .text = "打印科目表"}).isDone());
    EXPECT_THAT(
        cells("SELECT lId, lFunction, sWords, lParts, lRows FROM OperationLog WHERE lId > 1"),
        ElementsAre("2", "41", "打印科目表", "0", "0"));
    ASSERT_TRUE(m_books->beginUnit().isDone());
    ASSERT_TRUE(m_books->commitUnit().isDone());
    EXPECT_THAT(cells("SELECT count(*) FROM OperationLog"), ElementsAre("2"));
}

TEST_P(OperationLogHead, IsNotedNowhereWhereNoLogIsKept) {
    Database other(openForTest(m_location, OpenMode::existing), "books");
    EXPECT_TRUE(other.noteInLog({.function = 41, .text = "打印科目表"}).isDone());
    EXPECT_THAT(cells("SELECT count(*) FROM OperationLog"), ElementsAre("1"));
}

INSTANTIATE_TEST_SUITE_P(Engines, OperationLogGuards,
                         testing::ValuesIn(chengheng::sharedEngineCases()),
                         [](const auto& each) { return each.param.name; });
INSTANTIATE_TEST_SUITE_P(Engines, OperationLogHead,
                         testing::ValuesIn(chengheng::sharedEngineCases()),
                         [](const auto& each) { return each.param.name; });

}  // namespace
