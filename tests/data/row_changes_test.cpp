#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "data/engines/postgres/watched_statement.h"
#include "data/engines/sqlite/plain_insert.h"
#include "data/layout/layout.h"
#include "tests/support/engine_cases.h"
#include "tests/support/engine_tools.h"

namespace chengheng::row_changes_test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

std::string textOf(const Value& value) {
    switch (value.kind) {
        case ValueKind::integer:
            return std::to_string(value.integer);
        case ValueKind::real:
            return fmt::format("{}", value.real);
        case ValueKind::text:
            return '\'' + std::string(value.text) + '\'';
        case ValueKind::null:
            break;
    }
    return "NULL";
}

std::string rowText(std::span<const Value> cells) {
    std::string text;
    for (const Value& cell : cells) text += (text.empty() ? "" : " ") + textOf(cell);
    return text;
}

/// "column before > after", for each column that differs.
std::string differences(const RowChange& change) {
    std::string text;
    for (std::size_t at = 0; at < change.before.size(); ++at)
        if (const std::string before = textOf(change.before[at]), after = textOf(change.after[at]);
            before != after)
            text += fmt::format("{}{} {} > {}", text.empty() ? "" : ", ", at, before, after);
    return text;
}

class Recorder final : public ChangeWatcher {
  public:
    bool watches(std::string_view table) const override {
        return table == "Settle" || table == "AssAcc";
    }
    void take(const RowChange& change) override {
        if (change.table == "AssAcc") takeAmounts(change.before);
        if (change.table == "AssAcc") takeAmounts(change.after);
        if (change.kind == ChangeKind::changed)
            told.push_back(fmt::format("~ {}: {}", change.before[0].integer, differences(change)));
        else
            told.push_back(change.before.empty() ? "+ " + rowText(change.after)
                                                 : "- " + rowText(change.before));
    }
    /// Of the columns of AssAcc behind the class of the item.
    static constexpr std::size_t firstAmount = 8;
    void takeAmounts(std::span<const Value> cells) {
        for (std::size_t at = firstAmount; at < cells.size(); ++at)
            if (cells[at].kind != ValueKind::null) kindsOfAmounts.push_back(cells[at].kind);
    }
    void missed() override { told.emplace_back("?"); }

    std::vector<std::string> told;
    std::vector<ValueKind> kindsOfAmounts;
};

class RowChanges : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override {
        m_engine = openForTest(freshLocation(GetParam()));
        ASSERT_TRUE(createLayout(*m_engine));
        ASSERT_TRUE(runSql(*m_engine, "INSERT INTO Settle VALUES (1, '1', '现金', 0)"));
        m_engine->watchChanges(&m_recorder);
    }
    void TearDown() override { m_engine->watchChanges(nullptr); }

    Recorder m_recorder;
    std::unique_ptr<Engine> m_engine;
};

TEST_P(RowChanges, TellWhatIsPutIn) {
    ASSERT_TRUE(runSql(*m_engine, "INSERT INTO Settle VALUES (2, '2', 'it''s (1) \"x\"', 1)"));
    ASSERT_TRUE(runSql(*m_engine,
                       "INSERT INTO Settle (lId, sSettle) SELECT 3, sSettle FROM Settle "
                       "WHERE lId = 1"));
    EXPECT_THAT(m_recorder.told, ElementsAre("+ 2 '2' 'it's (1) \"x\"' 1", "+ 3 '' '现金' 0"));
}

TEST_P(RowChanges, TellWhatWasThereBeforeAndBehindAnUpdate) {
    ASSERT_TRUE(runSql(*m_engine, "INSERT INTO Settle VALUES (2, '2', '支票', 1)"));
    m_recorder.told.clear();
    ASSERT_TRUE(
        runSql(*m_engine,
               "Update Settle Set sSettle = sSettle || '票 where set', bNote = bNote + 1 "
               "Where lId IN (SELECT lId FROM Settle WHERE lId > 0) AND sSettle <> 'where'"));
    EXPECT_THAT(m_recorder.told,
                testing::UnorderedElementsAre("~ 1: 2 '现金' > '现金票 where set', 3 0 > 1",
                                              "~ 2: 2 '支票' > '支票票 where set', 3 1 > 2"));
    m_recorder.told.clear();
    ASSERT_TRUE(runSql(*m_engine, "UPDATE Settle SET sStlId = '9'"));
    EXPECT_EQ(m_recorder.told.size(), 2u) << "without a condition";
}

TEST_P(RowChanges, TellWhatIsTakenOut) {
    ASSERT_TRUE(runSql(*m_engine, "DELETE FROM Settle WHERE lId = 7"));
    EXPECT_THAT(m_recorder.told, IsEmpty());
    ASSERT_TRUE(runSql(*m_engine, "DELETE FROM Settle;"));
    EXPECT_THAT(m_recorder.told, ElementsAre("- 1 '1' '现金' 0"));
}

/// Whatever way a statement names what it sets.
TEST_P(RowChanges, TellEachColumnThatIsSet) {
    for (const char* sql : {"UPDATE Settle SET SSETTLE = 'a', sstlid = '7' WHERE lId = 1",
                            "UPDATE Settle SET (sSettle, sStlId) = ('b', '8') WHERE lId = 1"})
        ASSERT_TRUE(runSql(*m_engine, sql)) << sql;
    EXPECT_THAT(m_recorder.told,
                ElementsAre("~ 1: 1 '1' > '7', 2 '现金' > 'a'", "~ 1: 1 '7' > '8', 2 'a' > 'b'"));
    m_recorder.told.clear();
    ASSERT_TRUE(runSql(*m_engine, "UPDATE Settle SET lId = 4 WHERE lId = 1"));
    EXPECT_THAT(m_recorder.told, ElementsAre("~ 1: 0 1 > 4"));
}

TEST_P(RowChanges, CountAsBefore) {
    std::unique_ptr<PreparedStatement> statement;
    ASSERT_TRUE(m_engine->prepare("UPDATE Settle SET sSettle = $1 WHERE lId = $2", 2, statement));
    const Value values[] = {Value::of(std::string_view("现")), Value::of(std::int64_t{1})};
    const Command commands[] = {{statement.get(), values}, {statement.get(), values}};
    std::int64_t changed = 0;
    ASSERT_TRUE(m_engine->execute(commands, &changed));
    EXPECT_EQ(changed, 2);
    EXPECT_THAT(m_recorder.told, ElementsAre("~ 1: 2 '现金' > '现'", "~ 1: "));
}

/// A whole number in a column of amounts is an amount on either side of a change.
TEST_P(RowChanges, TellAmountsAsAmounts) {
    m_recorder.kindsOfAmounts.clear();
    ASSERT_TRUE(runSql(*m_engine, "INSERT INTO AssAcc (lId, mBegin) VALUES (1, 5)"));
    ASSERT_TRUE(runSql(*m_engine, "UPDATE AssAcc SET mDebt = 7 WHERE lId = 1"));
    ASSERT_TRUE(runSql(*m_engine, "DELETE FROM AssAcc"));
    EXPECT_THAT(m_recorder.kindsOfAmounts,
                testing::AllOf(SizeIs(testing::Ge(20)), testing::Each(ValueKind::real)));
}

TEST_P(RowChanges, OfOtherTablesAreNotTold) {
    ASSERT_TRUE(runSql(*m_engine, "UPDATE ABIdTable SET lLastId = 5 WHERE sTable = 'Settle'"));
    ASSERT_TRUE(runSql(*m_engine, "DELETE FROM Code"));
    EXPECT_THAT(m_recorder.told, IsEmpty());
}

TEST_P(RowChanges, AreNotToldAnyMoreOnceNobodyWatches) {
    m_engine->watchChanges(nullptr);
    ASSERT_TRUE(runSql(*m_engine, "DELETE FROM Settle"));
    EXPECT_THAT(m_recorder.told, IsEmpty());
}

TEST_P(RowChanges, KnowWhatIsUnknown) {
    ASSERT_TRUE(runSql(*m_engine, "INSERT INTO AssAcc (lId, lPersonId) VALUES (1, NULL)"));
    EXPECT_THAT(m_recorder.told, ElementsAre("+ 1 0 0 0 0 NULL 0 '' 0 0 0 0 0 0 0 0 0"));
}

CHENGHENG_ON_SHARED_ENGINES(RowChanges);

TEST(PlainInsert, IsToldFromItsTextAlone) {
    EXPECT_EQ(plainInsertTable("INSERT INTO Settle VALUES ($1, $2, $3, $4)"), findTable("Settle"));
    EXPECT_EQ(plainInsertTable(" insert\ninto settle Values( $1,$2 ,$3,$4 ) "),
              findTable("Settle"));
    for (const char* other :
         {"INSERT INTO Settle VALUES ($1, $2, $3)",
          "INSERT INTO Settle VALUES ($1, $2, $3, $4, $5)",
          "INSERT INTO Settle VALUES ($2, $1, $3, $4)",
          "INSERT INTO Settle VALUES ($1, $2, 'x', $3)",
          "INSERT INTO Settle VALUES ($1, $2, $3, $4) ON CONFLICT DO NOTHING",
          "INSERT INTO Settle (lId, sStlId, sSettle, bNote) VALUES ($1, $2, $3, $4)",
          "INSERT OR REPLACE INTO Settle VALUES ($1, $2, $3, $4)", "INSERT INTO Nobody VALUES ($1)",
          "UPDATE Settle SET lId = $1", ""})
        EXPECT_EQ(plainInsertTable(other), nullptr) << other;
}

TEST(PlainInsert, OfOtherKindsOfValuesIsReadBackAsItIsStored) {
    const TableInfo& table = *findTable("ExchgFix");
    std::vector<Value> row;
    for (const ColumnInfo& column : table.columns) {
        const bool isReal = column.type == ColumnType::real || column.type == ColumnType::single;
        const bool isText = column.type == ColumnType::text || column.type == ColumnType::date;
        row.push_back(isText   ? Value::of(std::string_view("2026-01-01"))
                      : isReal ? Value::of(7.5)
                               : Value::of(std::int64_t{1}));
    }
    EXPECT_TRUE(areStoredAsGiven(table, row));
    for (std::size_t at = 0; at < row.size(); ++at) {
        auto other = row;
        other[at] = row[at].kind == ValueKind::text ? Value::of(std::int64_t{1})
                                                    : Value::of(std::string_view("1"));
        EXPECT_FALSE(areStoredAsGiven(table, other)) << at;
        other[at] = Value::ofNull();
        EXPECT_FALSE(areStoredAsGiven(table, other)) << at;
        const bool isReal = row[at].kind == ValueKind::real;
        other[at] = isReal ? Value::of(std::numeric_limits<double>::quiet_NaN()) : Value::of(1.5);
        EXPECT_FALSE(areStoredAsGiven(table, other)) << at;
    }
    row.pop_back();
    EXPECT_FALSE(areStoredAsGiven(table, row));
}

TEST_P(RowChanges, OfRowsOfValuesAreToldAsTheyAreStored) {
    std::unique_ptr<PreparedStatement> insert;
    ASSERT_TRUE(m_engine->prepare("INSERT INTO Settle VALUES ($1, $2, $3, $4)", 4, insert));
    const std::array first{Value::of(std::int64_t{7}), Value::of(std::string_view("7")),
                           Value::of(std::string_view("现金'")), Value::of(std::int64_t{1})};
    const std::array second{Value::of(std::int64_t{8}), Value::of(std::string_view()),
                            Value::of(std::string_view("支票")), Value::of(std::int64_t{0})};
    const std::array commands{Command{insert.get(), first}, Command{insert.get(), second}};
    ASSERT_TRUE(m_engine->execute(commands));
    EXPECT_THAT(m_recorder.told, ElementsAre("+ 7 '7' '现金'' 1", "+ 8 '' '支票' 0"));
    m_recorder.told.clear();
    // One that fails leaves nothing for what comes next.
    EXPECT_FALSE(m_engine->execute(commands));
    m_recorder.told.clear();
    ASSERT_TRUE(runSql(*m_engine, "INSERT INTO Settle VALUES (9, '9', '汇票', 0)"));
    EXPECT_THAT(m_recorder.told, ElementsAre("+ 9 '9' '汇票' 0"));
}

TEST(WatchedStatement, NamesTheTableThatAStatementChanges) {
    EXPECT_EQ(changedTable("insert Into AccSum VALUES (1)"), "AccSum");
    EXPECT_EQ(changedTable(" DELETE FROM ProjItems01"), "ProjItems01");
    EXPECT_EQ(changedTable("Update Code Set sSettle = 'UPDATE x'"), "Code");
    EXPECT_EQ(changedTable("SELECT 1 FROM Code"), "");
    EXPECT_EQ(changedTable("SAVEPOINT batch"), "");
    EXPECT_EQ(changedTable(""), "");
}

TEST(WatchedStatement, ReadsTheRowsOfAnUpdateFirst) {
    EXPECT_EQ(watchedStatement("UPDATE T SET a = (SELECT b FROM U WHERE c = $1) WHERE d = 'where'"
                               " AND lId IN (SELECT lId FROM V WHERE e = 1);")
                  .sql,
              "WITH was AS (SELECT lId AS idBefore, T AS rowBefore FROM T WHERE d = 'where' AND "
              "lId IN (SELECT lId FROM V WHERE e = 1) FOR UPDATE) UPDATE T SET a = (SELECT b FROM "
              "U WHERE c = $1)  FROM was WHERE lId = idBefore RETURNING (rowBefore).*, T.*");
}

TEST(WatchedStatement, EndsWithWhatIsNoWholeUpdate) {
    for (const char* sql : {"UPDATE", "UPDATE T", "UPDATE T SET", "UPDATE T WHERE a = 1"})
        EXPECT_FALSE(watchedStatement(sql).sql.empty()) << sql;
}

TEST(WatchedStatement, LeavesWhatChangesNoRowsAsItIs) {
    EXPECT_EQ(watchedStatement("SAVEPOINT batch").sql, "SAVEPOINT batch");
    EXPECT_EQ(watchedStatement("SAVEPOINT batch").table, "");
}

}  // namespace
}  // namespace chengheng::row_changes_test
