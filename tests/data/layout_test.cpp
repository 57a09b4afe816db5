#include "data/layout/layout.h"

#include <gtest/gtest.h>

#include "tests/support/engine_cases.h"
#include "tests/support/engine_tools.h"

namespace chengheng {
namespace {

class Layout : public testing::TestWithParam<EngineCase> {
  protected:
    void create() {
        const Status created = createLayout(*m_engine);
        ASSERT_TRUE(created.isDone()) << created.detail;
    }

    std::unique_ptr<Engine> m_engine = openForTest(freshLocation(GetParam()));
};

TEST_P(Layout, ANewSetOfBooksPassesItsOwnCheck) {
    create();
    const Status checked = checkLayout(*m_engine);
    EXPECT_TRUE(checked.isDone()) << checked.detail;
}

TEST_P(Layout, EveryTableTakesARowOfDefaults) {
    create();
    for (const TableInfo& table : allTables()) {
        const ColumnInfo& column = table.columns.front();
        const char* value = column.type == ColumnType::text ? "'x'" : "1";
        const Status inserted = runSql(*m_engine, "INSERT INTO " + table.name + " (" + column.name +
                                                      ") VALUES (" + value + ")");
        EXPECT_TRUE(inserted.isDone()) << table.name << ": " << inserted.detail;
    }
}

TEST_P(Layout, AnIdIsGivenOnce) {
    create();
    ASSERT_TRUE(runSql(*m_engine, "INSERT INTO Settle (lId) VALUES (1)").isDone());
    EXPECT_EQ(runSql(*m_engine, "INSERT INTO Settle (lId) VALUES (1)").failure, Failure::refused);
}

TEST_P(Layout, EveryCounterStartsAtZeroUnderItsOwnSpelling) {
    create();
    for (const TableInfo& table : allTables()) {
        if (table.idRow.empty()) continue;
        const auto rows = readSql(*m_engine, "SELECT lLastId FROM ABIdTable WHERE sTable = $1",
                                  {Value::of(std::string_view(table.idRow))});
        ASSERT_EQ(rows.size(), 1U) << table.idRow;
        EXPECT_EQ(rows[0][0], "0") << table.idRow;
    }
    for (const char* row : {"UnRegMain", "UnRegSub", "AccSum", "UserAuth"})
        EXPECT_EQ(readSql(*m_engine, "SELECT 1 FROM ABIdTable WHERE sTable = $1",
                          {Value::of(std::string_view(row))})
                      .size(),
                  1U)
            << row;
}

TEST_P(Layout, TheDimensionOfAPersonMayBeUnknownAndNoOther) {
    create();
    EXPECT_TRUE(runSql(*m_engine, "INSERT INTO AssAcc (lId, lPersonId) VALUES (1, NULL)"));
    EXPECT_EQ(runSql(*m_engine, "INSERT INTO AssAcc (lId, lDeptId) VALUES (2, NULL)").failure,
              Failure::refused);
}

TEST_P(Layout, ADatabaseWithoutBooksIsForeign) {
    EXPECT_EQ(checkLayout(*m_engine).failure, Failure::foreign);
}

TEST_P(Layout, BooksOfANewerProgramAreToldByTheirVersion) {
    create();
    ASSERT_TRUE(runSql(*m_engine, "UPDATE BooksFormat SET lVersion = 99").isDone());
    const Status checked = checkLayout(*m_engine);
    EXPECT_EQ(checked.failure, Failure::newerVersion);
    EXPECT_EQ(checked.detail, "99");
}

TEST_P(Layout, BooksWithoutAVersionAreDamaged) {
    create();
    ASSERT_TRUE(runSql(*m_engine, "DELETE FROM BooksFormat").isDone());
    EXPECT_EQ(checkLayout(*m_engine).failure, Failure::damaged);
}

TEST_P(Layout, MissingTablesAndColumnsAreNamed) {
    create();
    ASSERT_TRUE(m_engine->script("DROP TABLE Settle; DROP TABLE Code;"));
    ASSERT_TRUE(m_engine->script("ALTER TABLE Sign RENAME COLUMN sSign TO sOther"));
    const Status checked = checkLayout(*m_engine);
    EXPECT_EQ(checked.failure, Failure::damaged);
    EXPECT_EQ(checked.detail, "Code Sign Settle");
}

TEST_P(Layout, ASecondLayoutInOneDatabaseIsRefusedAndChangesNothing) {
    create();
    EXPECT_EQ(createLayout(*m_engine).failure, Failure::refused);
    EXPECT_FALSE(m_engine->inTransaction());
    EXPECT_EQ(readCell(*m_engine, "SELECT count(*) FROM BooksFormat"), "1");
}

TEST_P(Layout, BooksWithoutAnIndexPassTheCheck) {
    create();
    ASSERT_TRUE(runSql(*m_engine, "DROP INDEX AccSum_lCodeId_WHERE_byPeroid_1").isDone());
    EXPECT_TRUE(checkLayout(*m_engine).isDone());
}

TEST_P(Layout, TheItemTableOfAProjectClassIsMadeTheSameWay) {
    const TableInfo items = projectItemTable("07");
    ASSERT_TRUE(m_engine->script(createTableSql(items, m_engine->dialect())));
    ASSERT_TRUE(runSql(*m_engine, "INSERT INTO ProjItems07 VALUES (1, 'P1', 'bridge')").isDone());
    EXPECT_EQ(readCell(*m_engine, "SELECT lId FROM ProjItems07 WHERE FIELD1 = 'bridge'"), "1");
}

CHENGHENG_ON_ALL_ENGINES(Layout);

TEST(CreateTableSql, NamesEachIndexAfterItsTableAndColumns) {
    const EngineDialect dialect{"", "", [](ColumnType) { return std::string("INTEGER"); }};
    const TableInfo table{"T",
                          "",
                          {{"lId", ColumnType::integer}, {"byA", ColumnType::byte}},
                          {"lId, byA", "lId WHERE byA = 1"}};
    EXPECT_EQ(createTableSql(table, dialect),
              "CREATE TABLE T (lId INTEGER PRIMARY KEY, byA INTEGER);\n"
              "CREATE INDEX T_lId_byA ON T (lId, byA);\n"
              "CREATE INDEX T_lId_WHERE_byA_1 ON T (lId) WHERE byA = 1;\n");
}

TEST(CreateTableSql, NamesTheCheckOfAColumnAfterItsTableAndItself) {
    const EngineDialect dialect{"", "", [](ColumnType) { return std::string("INTEGER"); },
                                [](const ColumnInfo& column) {
                                    return column.type == ColumnType::byte ? column.name + " < 9"
                                                                           : std::string();
                                }};
    const TableInfo table{"T", "", {{"lId", ColumnType::integer}, {"byA", ColumnType::byte}}, {}};
    EXPECT_EQ(createTableSql(table, dialect),
              "CREATE TABLE T (lId INTEGER PRIMARY KEY, "
              "byA INTEGER CONSTRAINT T_byA CHECK (byA < 9));\n");
    EXPECT_EQ(createTableSql(table, dialect, ColumnChecks::none),
              "CREATE TABLE T (lId INTEGER PRIMARY KEY, byA INTEGER);\n");
}

}  // namespace
}  // namespace chengheng
