#include "data/connection/operation_log.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <memory>
#include <string>
#include <vector>

#include "data/connection/database.h"
#include "data/layout/layout.h"
#include "data/log/log_time.h"
#include "data/log/packing.h"
#include "data/log/row_bytes.h"
#include "tests/support/engine_cases.h"
#include "tests/support/engine_tools.h"
#include "tests/support/faulty_engine.h"

namespace chengheng::operation_log_test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::MatchesRegex;
using testing::SizeIs;
using testing::UnorderedElementsAre;

LogAuthor author(const std::string& name = "王芳") {
    return {.operatorId = 7,
            .operatorName = name,
            .workstation = "财务1",
            .process = 4711,
            .program = "chengheng 1.0"};
}

std::string addRow(int id) {
    return fmt::format("INSERT Settle VALUES( {}, '{}', '支票{}', 0 )", id, id % 100, id);
}

/// Books whose changes are logged, on each engine.
class OperationLogs : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override {
        m_location = freshLocation(GetParam());
        auto engine = openForTest(m_location);
        ASSERT_TRUE(createLayout(*engine));
        auto faulty = std::make_unique<FaultyEngine>(std::move(engine));
        m_faulty = faulty.get();
        m_books = std::make_unique<Database>(std::move(faulty), "books");
        m_books->keepLog(author());
    }

    std::vector<std::string> cells(const std::string& sql) {
        std::vector<std::string> found;
        for (const auto& row : readSql(m_faulty->real(), sql))
            found.insert(found.end(), row.begin(), row.end());
        return found;
    }
    std::vector<std::string> words() {
        return cells("SELECT sWords FROM OperationLog ORDER BY lId");
    }
    std::vector<LoggedRow> rowsOf(int number) {
        std::vector<LoggedRow> rows;
        for (const std::string& text : cells(fmt::format(
                 "SELECT p.sPacked FROM OperationLogPart p JOIN OperationLog l ON l.sUnit = "
                 "p.sUnit WHERE l.lId = {} ORDER BY p.lPart",
                 number))) {
            const auto bytes = unpacked(text);
            EXPECT_TRUE(bytes && readRowBytes(*bytes, rows));
        }
        return rows;
    }
    std::vector<std::int64_t> idsOf(int number) {
        std::vector<std::int64_t> ids;
        for (const LoggedRow& row : rowsOf(number)) ids.push_back(row.id);
        return ids;
    }
    /// Expects that each entry has the hash that follows from what it tells and the one before.
    void expectChain() {
        std::string before(noHashBefore);
        std::int64_t number = 0;
        for (const auto& row :
             readSql(m_faulty->real(),
                     "SELECT sTime, sUser, sStation, sProgram, sWords, sUnit, sPartsHash, sHash, "
                     "lId, lUserId, lProcess, lFunction, lParts, lRows FROM OperationLog ORDER BY "
                     "lId")) {
            ChainHash parts;
            for (const auto& part : readSql(
                     m_faulty->real(),
                     "SELECT sTable, sPacked, lLowest, lHighest, lLowAccount, lHighAccount FROM "
                     "OperationLogPart WHERE sUnit = $1 ORDER BY lPart",
                     {Value::of(std::string_view(row[5]))})) {
                addPart(parts, {.table = part[0],
                                .lowestId = std::stoll(part[2]),
                                .highestId = std::stoll(part[3]),
                                .lowestAccount = std::stoll(part[4]),
                                .highestAccount = std::stoll(part[5]),
                                .packed = part[1]});
            }
            EXPECT_EQ(row[6], parts.text());
            const LogEntry entry{.number = std::stoll(row[8]),
                                 .time = row[0],
                                 .operatorId = std::stoi(row[9]),
                                 .operatorName = row[1],
                                 .workstation = row[2],
                                 .process = std::stoll(row[10]),
                                 .program = row[3],
                                 .function = std::stoi(row[11]),
                                 .words = row[4],
                                 .unit = row[5],
                                 .parts = std::stoi(row[12]),
                                 .rows = std::stoll(row[13]),
                                 .partsHash = row[6],
                                 .hash = {}};
            EXPECT_EQ(entry.number, ++number);
            EXPECT_EQ(row[7], entryHash(before, entry));
            before = row[7];
        }
    }

    std::string m_location;
    FaultyEngine* m_faulty = nullptr;
    std::unique_ptr<Database> m_books;
};

TEST_P(OperationLogs, TellWhoChangedWhatAndWhen) {
    m_books->log()->say({.function = 35, .text = "增加结算方式 1"});
    ASSERT_TRUE(m_books->executeBatch(addRow(1)));
    EXPECT_THAT(cells("SELECT lId, lUserId, sUser, sStation, lProcess, sProgram, lFunction, "
                      "sWords, lParts, lRows FROM OperationLog"),
                ElementsAre("1", "7", "王芳", "财务1", "4711", "chengheng 1.0", "35",
                            "增加结算方式 1", "1", "1"));
    EXPECT_THAT(
        cells("SELECT sTime FROM OperationLog")[0],
        MatchesRegex("[0-9]+-[0-9]+-[0-9]+T[0-9]+:[0-9]+:[0-9]+\\.[0-9]+[+-][0-9]+:[0-9]+"));
    EXPECT_THAT(cells("SELECT sTable, lLowest, lHighest, lRows FROM OperationLogPart"),
                ElementsAre("Settle", "1", "1", "1"));
    EXPECT_THAT(rowsOf(1), ElementsAre(LoggedRow{.kind = ChangeKind::inserted,
                                                 .id = 1,
                                                 .columns = {{"lId", {}, std::int64_t{1}},
                                                             {"sStlId", {}, std::string("1")},
                                                             {"sSettle", {}, std::string("支票1")},
                                                             {"bNote", {}, std::int64_t{0}}}}));
    expectChain();
}

TEST_P(OperationLogs, TellBothSidesOfAChange) {
    ASSERT_TRUE(m_books->executeBatch(addRow(1)));
    ASSERT_TRUE(m_books->executeBatch("Update Settle Set sSettle = '电汇' Where lId = 1"));
    EXPECT_THAT(rowsOf(2), ElementsAre(LoggedRow{.kind = ChangeKind::changed,
                                                 .id = 1,
                                                 .columns = {{"sSettle", std::string("支票1"),
                                                              std::string("电汇")}}}));
}

TEST_P(OperationLogs, NameTheTablesOfAChangeThatForgotItsWords) {
    m_books->log()->say({.function = 1, .text = "甲"});
    ASSERT_TRUE(m_books->executeBatch(addRow(1)));
    ASSERT_TRUE(m_books->executeBatch(addRow(2) + ";" + addRow(3) +
                                      ";INSERT Dept VALUES( 1, '01', '部' )"));
    EXPECT_THAT(words(), ElementsAre("甲", "Dept 1, Settle 2"));
    EXPECT_THAT(cells("SELECT lFunction FROM OperationLog ORDER BY lId"), ElementsAre("1", "0"));
}

TEST_P(OperationLogs, HaveOneEntryForAUnitOfWork) {
    ASSERT_TRUE(m_books->beginUnit());
    ASSERT_TRUE(m_books->executeBatch(addRow(1)));
    ASSERT_TRUE(m_books->executePlain("UPDATE Settle SET bNote = 1 WHERE lId = 1", {}));
    ASSERT_TRUE(m_books->commitUnit());
    EXPECT_THAT(idsOf(1), ElementsAre(1, 1));
    EXPECT_THAT(words(), SizeIs(1));
}

TEST_P(OperationLogs, HaveNoEntryWhereNothingChanges) {
    ASSERT_TRUE(m_books->executeBatch("DELETE Settle WHERE lId = 5"));
    ASSERT_TRUE(m_books->executePlain("UPDATE LogonTries SET lWrong = 0", {}));
    ASSERT_TRUE(m_books->executeBatch("Update ABIdTable Set lLastId = 9 Where sTable = 'Settle'"));
    EXPECT_THAT(words(), IsEmpty());
    EXPECT_THAT(cells("SELECT lLastId FROM ABIdTable WHERE sTable = 'Settle'"), ElementsAre("9"));
}

TEST_P(OperationLogs, LeaveOutWhatIsUndone) {
    ASSERT_TRUE(m_books->beginUnit());
    ASSERT_TRUE(m_books->executeBatch(addRow(1)));
    m_books->rollbackUnit();
    EXPECT_THAT(words(), IsEmpty());
    ASSERT_TRUE(m_books->beginUnit());
    ASSERT_TRUE(m_books->executeBatch(addRow(2)));
    ASSERT_TRUE(m_books->beginUnit());
    ASSERT_TRUE(m_books->executeBatch(addRow(3)));
    m_books->rollbackUnit();
    ASSERT_TRUE(m_books->beginUnit());
    ASSERT_TRUE(m_books->executeBatch(addRow(4)));
    ASSERT_TRUE(m_books->commitUnit());
    EXPECT_FALSE(m_books->executeBatch(addRow(5) + ";" + addRow(2)).isDone()) << "the id is taken";
    ASSERT_TRUE(m_books->commitUnit());
    EXPECT_THAT(idsOf(1), ElementsAre(2, 4));
    EXPECT_THAT(cells("SELECT lId FROM Settle ORDER BY lId"), ElementsAre("2", "4"));
    expectChain();
}

TEST_P(OperationLogs, LeaveOutAChangeOutsideOfAUnitThatFails) {
    ASSERT_TRUE(m_books->executeBatch(addRow(1)));
    EXPECT_FALSE(m_books->executeBatch(addRow(2) + ";" + addRow(1)).isDone());
    EXPECT_THAT(words(), SizeIs(1));
    EXPECT_THAT(cells("SELECT lId FROM Settle"), ElementsAre("1"));
    EXPECT_FALSE(m_books->isInUnit());
}

TEST_P(OperationLogs, KeepLargeChangesInPartsThatAreWrittenOnTheWay) {
    std::vector<std::string> names;
    std::vector<Value> values;
    constexpr int count = 20'000;
    names.reserve(count);
    for (int id = 1; id <= count; ++id) {
        names.push_back("支票" + std::to_string(id));
        values.push_back(Value::of(std::int64_t{id}));
        values.push_back(Value::of(std::string_view(names.back())));
    }
    ASSERT_TRUE(m_books->beginUnit());
    ASSERT_TRUE(
        m_books->executeForEach("INSERT INTO Settle (lId, sSettle) VALUES ($1, $2)", 2, values));
    EXPECT_GE(std::stoi(readCell(*m_faulty, "SELECT count(*) FROM OperationLogPart")), 2);
    ASSERT_TRUE(m_books->executeBatch("DELETE Settle"));
    ASSERT_TRUE(m_books->commitUnit());
    EXPECT_THAT(words(), ElementsAre("Settle 40000"));
    const auto rows = rowsOf(1);
    ASSERT_THAT(rows, SizeIs(2 * count));
    EXPECT_EQ(rows.back().kind, ChangeKind::deleted);
    expectChain();
}

TEST_P(OperationLogs, NeverHoldAPassword) {
    ASSERT_TRUE(m_books->executeBatch("INSERT Users VALUES( 1, 1, '王芳', 1, '$argon2id$old' )"));
    ASSERT_TRUE(m_books->executeBatch("Update Users Set sPassword = '$argon2id$new'"));
    ASSERT_TRUE(m_books->executeBatch("Update Users Set sUserName = '方'"));
    ASSERT_TRUE(m_books->executeBatch("DELETE Users"));
    EXPECT_THAT(rowsOf(2), ElementsAre(LoggedRow{
                               .kind = ChangeKind::changed,
                               .id = 1,
                               .columns = {{"sPassword", std::string("*"), std::string("**")}}}));
    for (int number = 1; number <= 4; ++number)
        for (const LoggedRow& row : rowsOf(number))
            for (const LoggedColumn& column : row.columns)
                for (const LoggedCell& cell : {column.before, column.after})
                    if (const auto* text = std::get_if<std::string>(&cell))
                        EXPECT_THAT(*text, testing::Not(HasSubstr("argon2")));
    EXPECT_THAT(rowsOf(3)[0].columns, SizeIs(1)) << "the password stayed";
}

TEST_P(OperationLogs, AreOneChainOfAllWorkstations) {
    if (m_location == ":memory:") GTEST_SKIP() << "nobody else can be there";
    Database other(openForTest(m_location, OpenMode::existing), "books");
    other.keepLog(author("李明"));
    for (int id = 1; id <= 6; id += 2) {
        ASSERT_TRUE(m_books->executeBatch(addRow(id)));
        ASSERT_TRUE(other.executeBatch(addRow(id + 1)));
    }
    EXPECT_THAT(cells("SELECT sUser FROM OperationLog ORDER BY lId"),
                ElementsAre("王芳", "李明", "王芳", "李明", "王芳", "李明"));
    expectChain();
}

TEST_P(OperationLogs, HaveNeitherEntryNorChangeAfterAFailedCall) {
    for (const Failure failure : {Failure::full, Failure::lost}) {
        ASSERT_TRUE(m_books->ensureConnected());
        bool isDone = false;
        int number = 1;
        for (; !isDone && number < 60; ++number) {
            m_books->rollbackUnit();
            ASSERT_TRUE(m_books->ensureConnected());
            m_faulty->failCall(number, failure);
            isDone = m_books->executeBatch(addRow(100 + number) + ";DELETE Settle WHERE lId < 100")
                         .isDone();
            m_faulty->failCall(0);
            ASSERT_TRUE(m_books->ensureConnected());
            EXPECT_EQ(cells("SELECT count(*) FROM Settle"),
                      cells("SELECT count(*) FROM OperationLog"))
                << "call " << number;
        }
        EXPECT_GT(number, 5);
        EXPECT_TRUE(isDone);
    }
    EXPECT_THAT(cells("SELECT count(*) FROM OperationLog"), ElementsAre("2"));
    expectChain();
}

TEST_P(OperationLogs, RefuseTheEndOfAUnitWhosePartsCouldNotBeStored) {
    ASSERT_TRUE(m_books->beginUnit());
    ASSERT_TRUE(m_books->engine().script("DROP TABLE OperationLogPart"));
    ASSERT_TRUE(m_books->commitUnit().isDone()) << "nothing was changed";
    ASSERT_TRUE(m_books->beginUnit());
    ASSERT_TRUE(m_books->executeBatch(addRow(1)));
    EXPECT_FALSE(m_books->commitUnit().isDone());
    EXPECT_THAT(cells("SELECT count(*) FROM Settle"), ElementsAre("0"));
}

/// Whoever goes on behind a failed write cannot keep a change that the log does not tell.
TEST_P(OperationLogs, AreWholeThoughSomebodyGoesOnBehindAFailure) {
    constexpr int count = 1200;
    const std::string name(300, 'x');
    std::vector<Value> values;
    for (int id = 1; id <= count; ++id) {
        values.push_back(Value::of(std::int64_t{id}));
        values.push_back(Value::of(std::string_view(name)));
    }
    bool isWritten = false;
    for (int number = 1; !isWritten && number < 40; ++number) {
        ASSERT_TRUE(m_books->beginUnit());
        m_faulty->failCall(number);
        isWritten =
            m_books->executeForEach("INSERT INTO Settle (lId, sSettle) VALUES ($1, $2)", 2, values)
                .isDone();
        m_faulty->failCall(0);
        const bool isKept = m_books->commitUnit().isDone();
        EXPECT_TRUE(isKept || !isWritten) << "call " << number;
        EXPECT_EQ(cells("SELECT count(*) FROM Settle")[0], isWritten ? "1200" : "0");
    }
    EXPECT_TRUE(isWritten);
    EXPECT_THAT(rowsOf(1), SizeIs(count));
    expectChain();
}

TEST_P(OperationLogs, LeaveOutWhatWasDoneOutsideOfAllUnits) {
    ASSERT_TRUE(m_faulty->real().script("DELETE FROM Settle; INSERT INTO Settle (lId) VALUES (9)"));
    ASSERT_TRUE(m_books->executeBatch(addRow(1)));
    EXPECT_THAT(idsOf(1), ElementsAre(1));
}

TEST_P(OperationLogs, AreNotKeptUntilSomebodyWantsThem) {
    Database quiet(std::make_unique<FaultyEngine>(openForTest(":memory:")), "books");
    ASSERT_TRUE(createLayout(quiet.engine()));
    ASSERT_TRUE(quiet.executeBatch(addRow(1)));
    EXPECT_EQ(quiet.log(), nullptr);
}

CHENGHENG_ON_SHARED_ENGINES(OperationLogs);

TEST(LogTime, IsThatOfTheWorkstationWithItsOffset) {
    const char* const zone = std::getenv("TZ");
    const std::string before = zone == nullptr ? "" : zone;
    const auto moment =
        std::chrono::system_clock::time_point(std::chrono::milliseconds(1'764'000'123));
    const auto in = [&moment](const char* name) {
        setenv("TZ", name, 1);
        tzset();
        return logTime(moment);
    };
    EXPECT_EQ(in("Asia/Shanghai"), "1970-01-21T18:00:00.123+08:00");
    EXPECT_EQ(in("UTC"), "1970-01-21T10:00:00.123+00:00");
    EXPECT_EQ(in("America/St_Johns"), "1970-01-21T06:30:00.123-03:30");
    if (zone == nullptr)
        unsetenv("TZ");
    else
        setenv("TZ", before.c_str(), 1);
    tzset();
}

}  // namespace
}  // namespace chengheng::operation_log_test
