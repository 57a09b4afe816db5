#include <gtest/gtest.h>

#include <array>

#include "tests/support/engine_cases.h"
#include "tests/support/engine_tools.h"

namespace chengheng {
namespace {

class Engines : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override {
        const EngineDialect& dialect = m_engine->dialect();
        const std::string script =
            "CREATE TABLE Goods (lId " + dialect.columnDeclaration(ColumnType::integer) +
            " PRIMARY KEY, sName " + dialect.columnDeclaration(ColumnType::text) + ", mPrice " +
            dialect.columnDeclaration(ColumnType::real) + ", dtMade " +
            dialect.columnDeclaration(ColumnType::date) + ", lOwner " +
            dialect.columnDeclaration(ColumnType::nullableInteger) + ", byKind " +
            dialect.columnDeclaration(ColumnType::byte) + ", bSold " +
            dialect.columnDeclaration(ColumnType::flag) + ", fRate " +
            dialect.columnDeclaration(ColumnType::single) + ");";
        ASSERT_TRUE(m_engine->script(script).isDone());
    }

    Status insert(std::int64_t id, std::string_view name = "bolt") {
        return runSql(*m_engine, "INSERT INTO Goods (lId, sName) VALUES ($1, $2)",
                      {Value::of(id), Value::of(name)});
    }
    std::string count() { return readCell(*m_engine, "SELECT count(*) FROM Goods"); }

    std::unique_ptr<Engine> m_engine = openForTest(freshLocation(GetParam()));
};

TEST_P(Engines, ARowThatNamesOnlySomeColumnsGetsTheDefaultsOfTheOthers) {
    ASSERT_TRUE(insert(7).isDone());
    const std::vector<std::string> expected{"bolt", "1899-12-31", "NULL", "0", "0"};
    EXPECT_EQ(readSql(*m_engine, "SELECT sName, dtMade, lOwner, byKind, bSold FROM Goods").at(0),
              expected);
    EXPECT_EQ(readCell(*m_engine, "SELECT count(*) FROM Goods WHERE mPrice = 0 AND fRate = 0"),
              "1");
}

TEST_P(Engines, EveryKindOfValueComesBackAsItWasGiven) {
    const Status stored = runSql(
        *m_engine,
        "INSERT INTO Goods (lId, sName, mPrice, dtMade, lOwner) VALUES ($1, $2, $3, $4, $5)",
        {Value::of(std::int64_t{-2147483647}), Value::of("O'Brien % _ \\ 澄恒 \U0001F4B0\r\n"),
         Value::of(0.1), Value::of("2026-01-05"), Value::ofNull()});
    ASSERT_TRUE(stored.isDone()) << stored.detail;
    std::unique_ptr<PreparedStatement> statement;
    ASSERT_TRUE(
        m_engine->prepare("SELECT lId, sName, mPrice, dtMade, lOwner FROM Goods", 0, statement));
    std::unique_ptr<Cursor> cursor;
    ASSERT_TRUE(m_engine->open({statement.get(), {}}, cursor));
    ASSERT_EQ(cursor->next(), Cursor::Step::row);
    EXPECT_EQ(cursor->columns(), 5);
    EXPECT_EQ(cursor->integer(0), -2147483647);
    EXPECT_EQ(cursor->text(1), "O'Brien % _ \\ 澄恒 \U0001F4B0\r\n");
    EXPECT_EQ(cursor->real(2), 0.1);
    EXPECT_EQ(cursor->text(3), "2026-01-05");
    EXPECT_EQ(cursor->kind(0), ValueKind::integer);
    EXPECT_EQ(cursor->kind(1), ValueKind::text);
    EXPECT_EQ(cursor->kind(2), ValueKind::real);
    EXPECT_EQ(cursor->kind(3), ValueKind::text);
    EXPECT_EQ(cursor->kind(4), ValueKind::null);
    EXPECT_EQ(cursor->integer(4), 0);
    EXPECT_EQ(cursor->real(4), 0);
    EXPECT_EQ(cursor->text(4), "");
    EXPECT_EQ(cursor->next(), Cursor::Step::end);
}

TEST_P(Engines, AnEmptyTextIsATextAndNotNull) {
    ASSERT_TRUE(insert(1, std::string_view{}).isDone());
    EXPECT_EQ(readSql(*m_engine, "SELECT sName FROM Goods").at(0).at(0), "");
}

TEST_P(Engines, ATextOfAMegabyteComesBackWhole) {
    std::string text;
    while (text.size() < 1'000'000) text += "庫'\\\n";
    ASSERT_TRUE(insert(1, text).isDone());
    EXPECT_EQ(readSql(*m_engine, "SELECT sName FROM Goods").at(0).at(0), text);
}

TEST_P(Engines, CommandsOutsideATransactionAreAllOrNothing) {
    std::unique_ptr<PreparedStatement> statement;
    ASSERT_TRUE(m_engine->prepare("INSERT INTO Goods (lId) VALUES ($1)", 1, statement));
    const std::array<Value, 3> ids{Value::of(std::int64_t{1}), Value::of(std::int64_t{2}),
                                   Value::of(std::int64_t{1})};
    const std::array<Command, 3> commands{Command{statement.get(), {&ids[0], 1}},
                                          Command{statement.get(), {&ids[1], 1}},
                                          Command{statement.get(), {&ids[2], 1}}};
    EXPECT_EQ(m_engine->execute(commands).failure, Failure::refused);
    EXPECT_FALSE(m_engine->inTransaction());
    EXPECT_EQ(count(), "0");
    std::int64_t changed = 0;
    EXPECT_TRUE(m_engine->execute(std::span(commands).first(2), &changed));
    EXPECT_EQ(changed, 2);
    EXPECT_EQ(count(), "2");
}

TEST_P(Engines, ChangedCountsTheRowsThatMetTheCondition) {
    for (std::int64_t id = 1; id <= 3; ++id) ASSERT_TRUE(insert(id).isDone());
    std::unique_ptr<PreparedStatement> statement;
    ASSERT_TRUE(m_engine->prepare("UPDATE Goods SET sName = $1 WHERE lId > $2", 2, statement));
    const std::array<Value, 2> values{Value::of("nut"), Value::of(std::int64_t{1})};
    const Command command{statement.get(), values};
    std::int64_t changed = -1;
    ASSERT_TRUE(m_engine->execute({&command, 1}, &changed));
    EXPECT_EQ(changed, 2);
    const std::array<Value, 2> others{Value::of("nut"), Value::of(std::int64_t{9})};
    const Command none{statement.get(), others};
    ASSERT_TRUE(m_engine->execute({&none, 1}, &changed));
    EXPECT_EQ(changed, 0);
}

TEST_P(Engines, ARolledBackTransactionLeavesNothing) {
    ASSERT_TRUE(m_engine->begin());
    EXPECT_TRUE(m_engine->inTransaction());
    ASSERT_TRUE(insert(1).isDone());
    ASSERT_TRUE(m_engine->rollback());
    EXPECT_FALSE(m_engine->inTransaction());
    EXPECT_EQ(count(), "0");
    ASSERT_TRUE(m_engine->begin());
    ASSERT_TRUE(insert(1).isDone());
    ASSERT_TRUE(m_engine->commit());
    EXPECT_FALSE(m_engine->inTransaction());
    EXPECT_EQ(count(), "1");
}

TEST_P(Engines, ASavepointTakesBackOnlyItsOwnPart) {
    ASSERT_TRUE(m_engine->begin());
    ASSERT_TRUE(insert(1).isDone());
    ASSERT_TRUE(m_engine->savepoint(1));
    ASSERT_TRUE(insert(2).isDone());
    ASSERT_TRUE(m_engine->savepoint(2));
    ASSERT_TRUE(insert(3).isDone());
    ASSERT_TRUE(m_engine->releaseSavepoint(2));
    EXPECT_EQ(insert(3).failure, Failure::refused);
    ASSERT_TRUE(m_engine->rollbackToSavepoint(1));
    ASSERT_TRUE(insert(4).isDone());
    ASSERT_TRUE(m_engine->commit());
    EXPECT_EQ(readCell(*m_engine, "SELECT count(*) FROM Goods WHERE lId IN (1, 4)"), "2");
    EXPECT_EQ(count(), "2");
}

TEST_P(Engines, WhatTheEngineCannotRunIsRefused) {
    std::unique_ptr<PreparedStatement> statement;
    EXPECT_EQ(m_engine->prepare("SELECT nothing FROM nowhere", 0, statement).failure,
              Failure::refused);
    EXPECT_EQ(m_engine->prepare("SELECT lId FROM Goods; SELECT 1", 0, statement).failure,
              Failure::refused);
    EXPECT_EQ(statement, nullptr);
    EXPECT_EQ(m_engine->script("CREATE TABLE Goods (lId INTEGER)").failure, Failure::refused);
}

TEST_P(Engines, TheWrongNumberOfValuesIsRefused) {
    std::unique_ptr<PreparedStatement> statement;
    ASSERT_TRUE(m_engine->prepare("INSERT INTO Goods (lId) VALUES ($1)", 1, statement));
    const Command command{statement.get(), {}};
    EXPECT_EQ(m_engine->execute({&command, 1}).failure, Failure::refused);
    EXPECT_EQ(count(), "0");
}

TEST_P(Engines, ATableIsFoundInAnyCaseOfLetters) {
    bool isFound = false;
    ASSERT_TRUE(m_engine->hasTable("gOODS", isFound));
    EXPECT_TRUE(isFound);
    ASSERT_TRUE(m_engine->hasTable("Good", isFound));
    EXPECT_FALSE(isFound);
    ASSERT_TRUE(m_engine->hasTable("Good_", isFound));
    EXPECT_FALSE(isFound);
}

TEST_P(Engines, LikeTellsCasesApartAndABackslashTakesAMeaningOff) {
    ASSERT_TRUE(insert(1, "10%").isDone());
    ASSERT_TRUE(insert(2, "100").isDone());
    ASSERT_TRUE(insert(3, "bolt").isDone());
    const std::string like =
        "SELECT sName FROM Goods WHERE sName LIKE $1" + std::string(m_engine->dialect().likeEscape);
    EXPECT_EQ(readSql(*m_engine, like, {Value::of("10\\%%")}).size(), 1U);
    EXPECT_EQ(readSql(*m_engine, like, {Value::of("10%")}).size(), 2U);
    EXPECT_EQ(readSql(*m_engine, like, {Value::of("BOLT")}).size(), 0U);
}

TEST_P(Engines, CodesSortByTheirBytes) {
    ASSERT_TRUE(insert(1, "b").isDone());
    ASSERT_TRUE(insert(2, "B").isDone());
    ASSERT_TRUE(insert(3, "10").isDone());
    ASSERT_TRUE(insert(4, "1-").isDone());
    const auto rows = readSql(*m_engine, "SELECT sName FROM Goods ORDER BY sName");
    ASSERT_EQ(rows.size(), 4U);
    EXPECT_EQ(rows[0][0] + rows[1][0] + rows[2][0] + rows[3][0], "1-10Bb");
}

TEST_P(Engines, AStatementMayBeOpenedAgainAfterItsCursorIsGone) {
    ASSERT_TRUE(insert(1).isDone());
    ASSERT_TRUE(insert(2).isDone());
    std::unique_ptr<PreparedStatement> statement;
    ASSERT_TRUE(m_engine->prepare("SELECT lId FROM Goods ORDER BY lId", 0, statement));
    for (int time = 0; time < 2; ++time) {
        std::unique_ptr<Cursor> cursor;
        ASSERT_TRUE(m_engine->open({statement.get(), {}}, cursor));
        ASSERT_EQ(cursor->next(), Cursor::Step::row);
        EXPECT_EQ(cursor->integer(0), 1);
    }
    EXPECT_TRUE(insert(3).isDone());
}

TEST_P(Engines, AConnectionThatAnswersIsConnected) {
    EXPECT_TRUE(m_engine->ensureConnected());
    ASSERT_TRUE(m_engine->begin());
    EXPECT_TRUE(m_engine->ensureConnected());
    EXPECT_TRUE(m_engine->inTransaction());
}

CHENGHENG_ON_ALL_ENGINES(Engines);

}  // namespace
}  // namespace chengheng
