#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

#include "books/upgrading/upgrade_texts.h"
#include "data/access/row_lease.h"
#include "data/layout/layout.h"
#include "data/layout/layout_steps.h"
#include "data/tables/directories.h"
#include "tests/support/engine_cases.h"
#include "tests/support/engine_tools.h"
#include "tests/support/older_books.h"
#include "tests/support/small_books.h"

namespace chengheng {
namespace {

using Rows = std::vector<std::vector<std::string>>;

/// Every table, column and index as the engine has them.
Rows layoutOf(Engine& engine) {
    if (engine.dialect().rowLock.empty())
        return readSql(engine, "SELECT type, name, sql FROM sqlite_schema ORDER BY name");
    return readSql(
        engine,
        "SELECT table_name::text, ordinal_position::text, column_name::text, "
        "data_type::text, is_nullable::text, column_default::text, collation_name::text "
        "FROM information_schema.columns WHERE table_schema = current_schema() "
        "UNION ALL SELECT tablename::text, '0', replace(indexdef, current_schema(), ''), "
        "'', '', '', '' FROM pg_indexes WHERE schemaname = current_schema() "
        "UNION ALL SELECT conrelid::regclass::text, '1', conname::text, "
        "replace(pg_get_constraintdef(oid), ' NOT VALID', ''), '', '', '' FROM pg_constraint "
        "WHERE connamespace = current_schema()::regnamespace "
        "ORDER BY 1, 2, 3");
}

std::string textIn(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST(LayoutSteps, LeadFromTheFirstNumberToThatOfToday) {
    int number = 1;
    for (const LayoutStep& step : layoutSteps()) EXPECT_EQ(step.from, number++);
    EXPECT_EQ(number, booksFormatVersion);
}

TEST(LayoutSteps, AreToldToTheOperatorEachInItsOwnWords) {
    ASSERT_EQ(upgrade_texts::steps.size(), layoutSteps().size());
    for (std::size_t at = 0; at < layoutSteps().size(); ++at)
        EXPECT_EQ(upgrade_texts::steps.at(at).from, layoutSteps()[at].from);
}

class OlderLayouts : public testing::TestWithParam<EngineCase> {};

TEST_P(OlderLayouts, TheTablesOfEachNumberStayWrittenDown) {
    const auto engine = openForTest(freshLocation(GetParam()));
    const std::string file = olderTablesFile(*engine, booksFormatVersion);
    const std::string made = layoutScript(engine->dialect());
    if (std::getenv("CHENGHENG_WRITE_DOCS")) std::ofstream(file, std::ios::binary) << made;
    EXPECT_TRUE(textIn(file) == made)
        << "the tables changed. Books of " << booksFormatVersion
        << " may be out: let booksFormatVersion rise, add a step to data/layout/layout_steps.cpp, "
           "and write the tables and rows of the new number down: CHENGHENG_WRITE_DOCS=1 "
           "build/dev/test_data --gtest_filter='*OlderLayouts*'";
}

TEST_P(OlderLayouts, AreToldByTheirNumberAndCanBeRead) {
    for (int number = 1; number <= booksFormatVersion; ++number) {
        const auto engine = openForTest(freshLocation(GetParam()));
        fillOlderBooks(*engine, number);
        int found = 0;
        const Status readable = checkReadable(*engine, &found);
        EXPECT_TRUE(readable.isDone()) << number << ": " << readable.detail;
        EXPECT_EQ(found, number);
        const Status checked = checkLayout(*engine);
        if (number == booksFormatVersion) {
            EXPECT_TRUE(checked.isDone());
            continue;
        }
        EXPECT_EQ(checked.failure, Failure::olderVersion);
        EXPECT_EQ(checked.detail, std::to_string(number));
    }
}

TEST_P(OlderLayouts, GiveTheirRecordsWithoutWhatCameLater) {
    for (int number = 1; number < booksFormatVersion; ++number) {
        const std::string location = freshLocation(GetParam());
        auto engine = openForTest(location);
        fillOlderBooks(*engine, number);
        CNbCwDB database;
        database.adopt(std::move(engine), location.c_str(), "books", number);
        ASSERT_NE(database.DBSelect("books"), 0);
        const RowLease<_EnterInfo> lease(database, "lId > 0 ORDER BY sEnterName");
        ASSERT_TRUE(lease.isFound()) << number << database.lastStatus().detail;
        EXPECT_EQ(lease.rows().front()->sEnterName, "大华商场");
        EXPECT_EQ(lease.rows().front()->byKind, number < 4 ? 0 : 1);
    }
}

TEST_P(OlderLayouts, AreDamagedWithoutATableOfTheirOwn) {
    const auto engine = openForTest(freshLocation(GetParam()));
    fillOlderBooks(*engine, 1);
    runScript(*engine, "DROP TABLE Settle");
    const Status checked = checkLayout(*engine);
    EXPECT_EQ(checked.failure, Failure::damaged);
    EXPECT_EQ(checked.detail, "Settle");
}

TEST_P(OlderLayouts, BecomeByTheStepsWhatNewBooksAre) {
    const auto fresh = openForTest(freshLocation(GetParam()));
    ASSERT_TRUE(createLayout(*fresh).isDone());
    for (int number = 1; number < booksFormatVersion; ++number) {
        const auto engine = openForTest(freshLocation(GetParam()));
        runScript(*engine, textIn(olderTablesFile(*engine, number)));
        const Status raised = raiseLayout(*engine, number);
        ASSERT_TRUE(raised.isDone()) << raised.detail;
        EXPECT_TRUE(checkLayout(*engine).isDone());
        EXPECT_EQ(layoutOf(*engine), layoutOf(*fresh)) << number;
        const char* counters = "SELECT sTable, lLastId FROM ABIdTable ORDER BY sTable";
        EXPECT_EQ(readSql(*engine, counters), readSql(*fresh, counters));
    }
}

CHENGHENG_ON_ALL_ENGINES(OlderLayouts);

}  // namespace
}  // namespace chengheng
