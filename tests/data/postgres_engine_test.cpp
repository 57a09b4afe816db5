#include <gtest/gtest.h>

#include <array>
#include <future>
#include <limits>
#include <vector>

#include "tests/support/engine_cases.h"
#include "tests/support/engine_tools.h"
#include "tests/support/private_postgres.h"

namespace chengheng {
namespace {

constexpr const char* noServer = "CHENGHENG_TEST_POSTGRES names no server";

Status opening(const std::string& address, OpenMode mode = OpenMode::existing) {
    std::unique_ptr<Engine> engine;
    return openEngine(address, mode, engine);
}

class PostgresOpening : public testing::Test {
  protected:
    void SetUp() override {
        if (!hasTestServer()) GTEST_SKIP() << noServer;
        m_address = freshSchema();
    }

    std::string m_address;
};

TEST_F(PostgresOpening, ASchemaThatIsNotThereIsMissing) {
    EXPECT_EQ(opening(m_address).failure, Failure::missing);
    EXPECT_EQ(opening(m_address, OpenMode::create).failure, Failure::none);
    EXPECT_EQ(opening(m_address).failure, Failure::none);
}

TEST_F(PostgresOpening, ADatabaseThatIsNotThereIsMissing) {
    const Status status = opening(replaced(m_address, "/postgres?", "/nothing?"));
    EXPECT_EQ(status.failure, Failure::missing);
    EXPECT_EQ(status.detail, "database \"nothing\" does not exist");
}

TEST_F(PostgresOpening, AnEmptySchemaIsTakenForNewBooksAndAFilledOneIsNot) {
    openForTest(m_address);
    const auto engine = openForTest(m_address);
    ASSERT_TRUE(engine->script("CREATE TABLE Mine (lId integer)"));
    EXPECT_EQ(opening(m_address, OpenMode::create).failure, Failure::refused);
    EXPECT_EQ(readCell(*engine, "SELECT count(*) FROM Mine"), "0");
}

TEST_F(PostgresOpening, AWrongPasswordIsNotLetIn) {
    const std::size_t at = m_address.find('@');
    std::string address = m_address;
    const Status status = opening(address.insert(at, "wrong"));
    EXPECT_EQ(status.failure, Failure::passwordNeeded);
    EXPECT_NE(status.detail.find("password authentication failed"), std::string::npos);
    EXPECT_EQ(status.detail.find('\n'), std::string::npos) << status.detail;
}

TEST_F(PostgresOpening, AMissingPasswordIsWanted) {
    EXPECT_EQ(opening(shownLocation(m_address)).failure, Failure::passwordNeeded);
}

TEST_F(PostgresOpening, AServerThatIsNotThereIsUnreachable) {
    for (const char* address :
         {"postgresql://me@127.0.0.1:1/books", "postgresql://me@no-such-host.invalid/books",
          "postgresql://me@127.0.0.1:99999/books", "postgresql://h/d?nonsense=1"})
        EXPECT_EQ(opening(address).failure, Failure::unreachable) << address;
}

TEST_F(PostgresOpening, ASchemaOfAnyNameWorks) {
    const std::string address = m_address + "%20%22%E8%B4%A6'x";
    {
        const auto engine = openForTest(address);
        ASSERT_TRUE(engine->script("CREATE TABLE Mine (lId integer)"));
    }
    const auto engine = openForTest(address, OpenMode::existing);
    bool isFound = false;
    ASSERT_TRUE(engine->hasTable("mine", isFound));
    EXPECT_TRUE(isFound);
    EXPECT_TRUE(engine->locks().lock("Code", LockMode::exclusive, false));
    const std::string schema = readCell(*engine, "SELECT quote_ident(current_schema())");
    ASSERT_TRUE(engine->script("DROP SCHEMA " + schema + " CASCADE"));
}

TEST_F(PostgresOpening, TablesOfOtherSchemasAreNotSeen) {
    const auto other = openForTest(freshSchema());
    ASSERT_TRUE(other->script("CREATE TABLE Mine (lId integer)"));
    const auto engine = openForTest(m_address);
    bool isFound = true;
    ASSERT_TRUE(engine->hasTable("Mine", isFound));
    EXPECT_FALSE(isFound);
    EXPECT_EQ(runSql(*engine, "INSERT INTO Mine VALUES (1)").failure, Failure::refused);
}

TEST_F(PostgresOpening, ATableThatStatementsCannotNameIsNone) {
    const auto engine = openForTest(m_address);
    ASSERT_TRUE(engine->script("CREATE TABLE \"Mine\" (lId integer)"));
    bool isFound = true;
    ASSERT_TRUE(engine->hasTable("Mine", isFound));
    EXPECT_FALSE(isFound);
    EXPECT_EQ(runSql(*engine, "INSERT INTO Mine VALUES (1)").failure, Failure::refused);
}

class PostgresEngines : public testing::Test {
  protected:
    void SetUp() override {
        if (!hasTestServer()) GTEST_SKIP() << noServer;
        m_address = freshSchema();
        m_engine = openForTest(m_address);
        ASSERT_TRUE(
            m_engine->script("CREATE TABLE Goods (lId integer PRIMARY KEY DEFAULT 0, "
                             "sName text COLLATE \"C\" DEFAULT '', mPrice double precision "
                             "DEFAULT 0, byKind smallint DEFAULT 0)"));
        ASSERT_TRUE(
            m_engine->prepare("INSERT INTO Goods (lId, sName) VALUES ($1, $2)", 2, m_insert));
    }

    Status insert(std::int64_t id, std::string_view name = "bolt") {
        const std::array<Value, 2> values{Value::of(id), Value::of(name)};
        const Command command{m_insert.get(), values};
        return m_engine->execute({&command, 1});
    }
    std::string count() { return readCell(*m_engine, "SELECT count(*) FROM Goods"); }
    std::string session() { return readCell(*m_engine, "SELECT pg_backend_pid()"); }
    void loseConnection() { endSession(m_address, session()); }

    std::string m_address;
    std::unique_ptr<Engine> m_engine;
    std::unique_ptr<PreparedStatement> m_insert;
};

TEST_F(PostgresEngines, AHundredThousandCommandsAreOneTransaction) {
    constexpr std::int64_t many = 100'000;
    std::vector<Value> values;
    values.reserve(2 * many);
    std::vector<Command> commands;
    for (std::int64_t id = 1; id <= many; ++id) {
        values.push_back(Value::of(id));
        values.push_back(Value::of("库存商品 O'Brien"));
        commands.push_back({m_insert.get(), std::span(values).last(2)});
    }
    std::int64_t changed = 0;
    const Status done = m_engine->execute(commands, &changed);
    ASSERT_TRUE(done.isDone()) << done.detail;
    EXPECT_EQ(changed, many);
    EXPECT_EQ(count(), "100000");
    ASSERT_TRUE(m_engine->script("DELETE FROM Goods"));
    values[2 * 90'000] = Value::of(std::int64_t{1});
    EXPECT_EQ(m_engine->execute(commands, &changed).failure, Failure::refused);
    EXPECT_EQ(changed, 0);
    EXPECT_EQ(count(), "0");
    EXPECT_TRUE(insert(1)) << "the connection goes on";
}

TEST_F(PostgresEngines, LongTextsBothWaysDoNotBlockEachOther) {
    const std::string text(1'000'000, 'x');
    std::unique_ptr<PreparedStatement> store;
    ASSERT_TRUE(m_engine->prepare("INSERT INTO Goods (lId, sName) VALUES ($1, $2) RETURNING sName",
                                  2, store));
    std::vector<Value> values;
    values.reserve(60);
    std::vector<Command> commands;
    for (std::int64_t id = 1; id <= 30; ++id) {
        values.push_back(Value::of(id));
        values.push_back(Value::of(text));
        commands.push_back({store.get(), std::span(values).last(2)});
    }
    ASSERT_TRUE(m_engine->execute(commands));
    EXPECT_EQ(readCell(*m_engine, "SELECT sum(length(sName)) FROM Goods"), "30000000");
}

TEST_F(PostgresEngines, ABatchMayUseATableThatItMakes) {
    ASSERT_TRUE(m_engine->begin());
    std::unique_ptr<PreparedStatement> make;
    std::unique_ptr<PreparedStatement> fill;
    ASSERT_TRUE(m_engine->prepare("CREATE TABLE Made (lId integer)", 0, make));
    ASSERT_TRUE(m_engine->prepare("INSERT INTO Made VALUES (5)", 0, fill));
    const std::array<Command, 2> commands{Command{make.get(), {}}, Command{fill.get(), {}}};
    ASSERT_TRUE(m_engine->execute(commands));
    ASSERT_TRUE(m_engine->commit());
    EXPECT_EQ(readCell(*m_engine, "SELECT lId FROM Made"), "5");
}

TEST_F(PostgresEngines, TextThatTheServerCannotHoldIsRefusedAndNothingStored) {
    const std::array<Value, 4> values{Value::of(std::int64_t{1}), Value::of("good"),
                                      Value::of(std::int64_t{2}),
                                      Value::of(std::string_view("a\0b", 3))};
    const std::array<Command, 2> commands{Command{m_insert.get(), {&values[0], 2}},
                                          Command{m_insert.get(), {&values[2], 2}}};
    EXPECT_EQ(m_engine->execute(commands).failure, Failure::refused);
    EXPECT_EQ(insert(3, "\xff\xfe").failure, Failure::refused);
    EXPECT_EQ(count(), "0");
}

TEST_F(PostgresEngines, ARefusedTextDoesNotEndItsTransaction) {
    ASSERT_TRUE(m_engine->begin());
    EXPECT_EQ(insert(1, std::string_view("a\0b", 3)).failure, Failure::refused);
    EXPECT_TRUE(insert(2));
    ASSERT_TRUE(m_engine->commit());
    EXPECT_EQ(count(), "1");
}

TEST_F(PostgresEngines, NumbersComeBackToTheLastBit) {
    const std::vector<double> numbers{0.1,
                                      -1e300,
                                      1e15,
                                      123456789012345678.0,
                                      2.5e-310,
                                      1e6,
                                      -0.5,
                                      100,
                                      std::numeric_limits<double>::max()};
    for (std::size_t at = 0; at < numbers.size(); ++at)
        ASSERT_TRUE(runSql(*m_engine, "INSERT INTO Goods (lId, mPrice) VALUES ($1, $2)",
                           {Value::of(static_cast<std::int64_t>(at)), Value::of(numbers[at])}));
    std::unique_ptr<PreparedStatement> select;
    ASSERT_TRUE(m_engine->prepare("SELECT mPrice FROM Goods ORDER BY lId", 0, select));
    std::unique_ptr<Cursor> cursor;
    ASSERT_TRUE(m_engine->open({select.get(), {}}, cursor));
    for (const double number : numbers) {
        ASSERT_EQ(cursor->next(), Cursor::Step::row);
        EXPECT_EQ(cursor->real(0), number);
    }
    EXPECT_EQ(cursor->next(), Cursor::Step::end);
}

TEST_F(PostgresEngines, AWholeRealNumberFitsAnIntegerColumn) {
    ASSERT_TRUE(runSql(*m_engine, "INSERT INTO Goods (lId, byKind) VALUES ($1, $2)",
                       {Value::of(1e6), Value::of(12.0)}));
    EXPECT_EQ(readCell(*m_engine, "SELECT lId + byKind FROM Goods"), "1000012");
}

TEST_F(PostgresEngines, ResultsOfFunctionsHaveTheKindOfTheirType) {
    ASSERT_TRUE(insert(7));
    std::unique_ptr<PreparedStatement> select;
    ASSERT_TRUE(
        m_engine->prepare("SELECT count(*), avg(lId), sum(mPrice), max(byKind), lId = 7, "
                          "min(sName) FROM Goods GROUP BY lId",
                          0, select));
    std::unique_ptr<Cursor> cursor;
    ASSERT_TRUE(m_engine->open({select.get(), {}}, cursor));
    ASSERT_EQ(cursor->next(), Cursor::Step::row);
    const std::array<ValueKind, 6> kinds{ValueKind::integer, ValueKind::real,    ValueKind::real,
                                         ValueKind::integer, ValueKind::integer, ValueKind::text};
    for (int column = 0; column < 6; ++column)
        EXPECT_EQ(cursor->kind(column), kinds[static_cast<std::size_t>(column)]) << column;
    EXPECT_EQ(cursor->real(1), 7);
    EXPECT_EQ(cursor->integer(1), 7);
    EXPECT_EQ(cursor->integer(4), 1);
}

TEST_F(PostgresEngines, ACursorIsReadWhileOtherStatementsRun) {
    for (std::int64_t id = 1; id <= 3; ++id) ASSERT_TRUE(insert(id));
    std::unique_ptr<PreparedStatement> select;
    ASSERT_TRUE(m_engine->prepare("SELECT lId FROM Goods ORDER BY lId", 0, select));
    std::unique_ptr<Cursor> cursor;
    ASSERT_TRUE(m_engine->open({select.get(), {}}, cursor));
    std::int64_t sum = 0;
    while (cursor->next() == Cursor::Step::row) {
        sum += cursor->integer(0);
        ASSERT_TRUE(insert(cursor->integer(0) + 10));
    }
    EXPECT_EQ(sum, 6);
    EXPECT_EQ(count(), "6");
}

TEST_F(PostgresEngines, AReadOnlySessionIsToldAsSuch) {
    ASSERT_TRUE(m_engine->script("SET default_transaction_read_only TO on"));
    EXPECT_EQ(insert(1).failure, Failure::readOnly);
    EXPECT_EQ(count(), "0");
}

TEST_F(PostgresEngines, AStatementGivenUpIsDroppedFromTheServerInTheEnd) {
    for (int round = 0; round < 200; ++round) {
        std::unique_ptr<PreparedStatement> statement;
        ASSERT_TRUE(m_engine->prepare("SELECT " + std::to_string(round), 0, statement));
    }
    EXPECT_LT(std::stoi(readCell(*m_engine, "SELECT count(*) FROM pg_prepared_statements")), 60);
}

class PostgresTransactions : public PostgresEngines {};

TEST_F(PostgresTransactions, ThatFailedAndAreCommittedFail) {
    ASSERT_TRUE(m_engine->begin());
    ASSERT_TRUE(insert(1));
    EXPECT_EQ(insert(1).failure, Failure::refused);
    EXPECT_EQ(m_engine->commit().failure, Failure::refused);
    EXPECT_FALSE(m_engine->inTransaction());
    EXPECT_EQ(count(), "0");
}

TEST_F(PostgresTransactions, GoOnBehindASavepointWhateverFailedInIt) {
    ASSERT_TRUE(m_engine->begin());
    for (std::int64_t id = 1; id <= 3; ++id) {
        ASSERT_TRUE(m_engine->savepoint(1));
        ASSERT_TRUE(insert(id));
        EXPECT_EQ(runSql(*m_engine, "INSERT INTO Nowhere VALUES (1)").failure, Failure::refused);
        EXPECT_FALSE(m_engine->savepoint(2)) << "in what has failed";
        ASSERT_TRUE(m_engine->rollbackToSavepoint(1));
        ASSERT_TRUE(m_engine->releaseSavepoint(1));
    }
    ASSERT_TRUE(insert(9));
    ASSERT_TRUE(m_engine->commit());
    EXPECT_EQ(readCell(*m_engine, "SELECT sum(lId) FROM Goods"), "9");
}

TEST_F(PostgresTransactions, InWhichNothingHappensCostNothingAndEndWell) {
    ASSERT_TRUE(m_engine->begin());
    EXPECT_EQ(m_engine->begin().failure, Failure::refused);
    ASSERT_TRUE(m_engine->savepoint(1));
    ASSERT_TRUE(m_engine->savepoint(2));
    ASSERT_TRUE(m_engine->rollbackToSavepoint(1));
    EXPECT_EQ(m_engine->rollbackToSavepoint(2).failure, Failure::refused);
    ASSERT_TRUE(m_engine->releaseSavepoint(1));
    ASSERT_TRUE(m_engine->commit());
    EXPECT_EQ(m_engine->commit().failure, Failure::refused);
    EXPECT_EQ(m_engine->rollback().failure, Failure::refused);
    EXPECT_EQ(m_engine->savepoint(1).failure, Failure::refused);
    ASSERT_TRUE(m_engine->begin());
    ASSERT_TRUE(m_engine->rollback());
}

TEST_F(PostgresTransactions, WhoseSavepointIsUnknownFailAtTheCommitAndLeaveTheConnectionFree) {
    ASSERT_TRUE(m_engine->begin());
    ASSERT_TRUE(insert(1));
    ASSERT_TRUE(m_engine->releaseSavepoint(7));
    EXPECT_EQ(m_engine->commit().failure, Failure::refused);
    EXPECT_EQ(count(), "0");
    EXPECT_TRUE(insert(2));
    EXPECT_EQ(askServer(m_address,
                        "SELECT count(*) FROM pg_stat_activity "
                        "WHERE state LIKE 'idle in transaction%' AND pid = " +
                            session()),
              "0");
}

TEST_F(PostgresTransactions, SeeScriptsAsTheirPart) {
    ASSERT_TRUE(m_engine->begin());
    ASSERT_TRUE(m_engine->script("INSERT INTO Goods VALUES (1); INSERT INTO Goods VALUES (2)"));
    ASSERT_TRUE(m_engine->rollback());
    EXPECT_EQ(count(), "0");
    EXPECT_EQ(
        m_engine->script("INSERT INTO Goods VALUES (1); INSERT INTO Goods VALUES (1)").failure,
        Failure::refused);
    EXPECT_EQ(count(), "0");
}

TEST_F(PostgresTransactions, ThatWaitTooLongForARowAreBusy) {
    ASSERT_TRUE(insert(1));
    ASSERT_TRUE(m_engine->begin());
    ASSERT_TRUE(m_engine->script("UPDATE Goods SET sName = 'mine'; SET lock_timeout TO '100ms'"));
    const auto other = openForTest(m_address, OpenMode::existing);
    ASSERT_TRUE(other->script("SET lock_timeout TO '100ms'"));
    EXPECT_EQ(other->script("UPDATE Goods SET sName = 'yours'").failure, Failure::busy);
    ASSERT_TRUE(m_engine->commit());
    EXPECT_TRUE(other->script("UPDATE Goods SET sName = 'yours'"));
}

TEST_F(PostgresTransactions, ThatWaitForEachOtherEndForOne) {
    ASSERT_TRUE(insert(1));
    ASSERT_TRUE(insert(2));
    const auto other = openForTest(m_address, OpenMode::existing);
    ASSERT_TRUE(m_engine->begin());
    ASSERT_TRUE(other->begin());
    ASSERT_TRUE(m_engine->script("UPDATE Goods SET sName = 'a' WHERE lId = 1"));
    ASSERT_TRUE(other->script("UPDATE Goods SET sName = 'b' WHERE lId = 2"));
    auto crossing = std::async(std::launch::async, [&other] {
        const Status status = other->script("UPDATE Goods SET sName = 'b' WHERE lId = 1");
        static_cast<void>(other->rollback());
        return status.failure;
    });
    const Failure own = m_engine->script("UPDATE Goods SET sName = 'a' WHERE lId = 2").failure;
    ASSERT_TRUE(m_engine->rollback());
    const Failure others = crossing.get();
    EXPECT_TRUE((own == Failure::crossedWait && others == Failure::none) ||
                (own == Failure::none && others == Failure::crossedWait));
}

struct ServerFailure {
    const char* sqlState;
    Failure failure;
};

TEST_F(PostgresEngines, FailuresOfTheServerAreToldByTheirKind) {
    constexpr std::array<ServerFailure, 8> failures{{{"53100", Failure::full},
                                                     {"25006", Failure::readOnly},
                                                     {"XX001", Failure::damaged},
                                                     {"XX002", Failure::damaged},
                                                     {"55P03", Failure::busy},
                                                     {"40001", Failure::busy},
                                                     {"3F000", Failure::missing},
                                                     {"42601", Failure::refused}}};
    for (const ServerFailure& expected : failures) {
        const Status status =
            m_engine->script("DO $$ BEGIN RAISE EXCEPTION 'told so' USING ERRCODE = '" +
                             std::string(expected.sqlState) + "'; END $$");
        EXPECT_EQ(status.failure, expected.failure) << expected.sqlState;
        EXPECT_EQ(status.detail, "told so");
    }
    EXPECT_TRUE(insert(1)) << "the connection goes on";
}

class PostgresLosses : public PostgresEngines {};

TEST_F(PostgresLosses, AreToldAndAfterwardsTheSameStatementsRunAgain) {
    ASSERT_TRUE(insert(1));
    loseConnection();
    EXPECT_EQ(insert(2).failure, Failure::lost);
    EXPECT_EQ(insert(2).failure, Failure::lost) << "not by itself";
    EXPECT_EQ(m_engine->begin().failure, Failure::lost);
    EXPECT_EQ(m_engine->script("SELECT 1").failure, Failure::lost);
    const Status connected = m_engine->ensureConnected();
    ASSERT_TRUE(connected.isDone()) << connected.detail;
    EXPECT_TRUE(insert(3));
    EXPECT_EQ(count(), "2");
}

TEST_F(PostgresLosses, AreNoticedAndMendedByEnsureConnected) {
    loseConnection();
    EXPECT_TRUE(m_engine->ensureConnected());
    EXPECT_TRUE(insert(1));
}

TEST_F(PostgresLosses, AreNoticedByBegin) {
    loseConnection();
    EXPECT_EQ(m_engine->begin().failure, Failure::lost);
    EXPECT_FALSE(m_engine->inTransaction());
}

TEST_F(PostgresLosses, InATransactionLeaveNothingOfItAndNothingMoreOfItIsWritten) {
    ASSERT_TRUE(m_engine->begin());
    ASSERT_TRUE(insert(1));
    loseConnection();
    EXPECT_EQ(insert(2).failure, Failure::lost);
    ASSERT_TRUE(m_engine->ensureConnected());
    EXPECT_EQ(insert(3).failure, Failure::lost) << "its transaction is not there any more";
    EXPECT_EQ(m_engine->script("SELECT 1").failure, Failure::lost);
    EXPECT_EQ(m_engine->savepoint(1).failure, Failure::lost);
    EXPECT_EQ(m_engine->rollbackToSavepoint(1).failure, Failure::lost);
    EXPECT_EQ(m_engine->commit().failure, Failure::lost);
    EXPECT_FALSE(m_engine->inTransaction());
    EXPECT_EQ(count(), "0");
    EXPECT_TRUE(insert(4));
}

TEST_F(PostgresLosses, InATransactionAreForgottenByItsRollback) {
    ASSERT_TRUE(m_engine->begin());
    ASSERT_TRUE(insert(1));
    loseConnection();
    EXPECT_TRUE(m_engine->rollback());
    EXPECT_FALSE(m_engine->inTransaction());
    ASSERT_TRUE(m_engine->ensureConnected());
    EXPECT_EQ(count(), "0");
}

// The server may have taken the commit and gone before it could say so.
TEST_F(PostgresLosses, AtTheCommitLeaveItOpenWhetherItWasDone) {
    ASSERT_TRUE(m_engine->begin());
    ASSERT_TRUE(insert(1));
    loseConnection();
    EXPECT_EQ(m_engine->commit().failure, Failure::unconfirmed);
    EXPECT_FALSE(m_engine->inTransaction());
    ASSERT_TRUE(m_engine->ensureConnected());
    EXPECT_EQ(count(), "0");
}

TEST_F(PostgresLosses, OfTheSchemaAreMissing) {
    ASSERT_TRUE(m_engine->script("DROP SCHEMA " + readCell(*m_engine, "SELECT current_schema()") +
                                 " CASCADE"));
    loseConnection();
    EXPECT_EQ(m_engine->ensureConnected().failure, Failure::missing);
}

TEST(PostgresServer, ThatIsStoppedIsLostThenUnreachableAndComesBack) {
    if (!hasTestServer()) GTEST_SKIP() << noServer;
    PrivatePostgres server;
    const std::string address = server.address() + "?schema=books";
    const auto engine = openForTest(address);
    ASSERT_TRUE(engine->script("CREATE TABLE Kept (lId integer)"));
    ASSERT_TRUE(runSql(*engine, "INSERT INTO Kept VALUES (1)"));
    ASSERT_TRUE(engine->locks().lock("Code", LockMode::exclusive, true));
    server.stop();
    EXPECT_EQ(runSql(*engine, "INSERT INTO Kept VALUES (2)").failure, Failure::lost);
    EXPECT_FALSE(engine->locks().holds("Code", LockMode::exclusive));
    EXPECT_EQ(engine->ensureConnected().failure, Failure::unreachable);
    EXPECT_EQ(opening(address).failure, Failure::unreachable);
    server.startAgain();
    const Status back = engine->ensureConnected();
    ASSERT_TRUE(back.isDone()) << back.detail;
    EXPECT_EQ(readCell(*engine, "SELECT count(*) FROM Kept"), "1");
}

}  // namespace
}  // namespace chengheng
