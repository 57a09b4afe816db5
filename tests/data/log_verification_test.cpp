#include "operationlog/verifying/log_verification.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "operationlog/log_reading.h"
#include "tests/support/engine_tools.h"

#include "tests/support/logged_books.h"

namespace chengheng::log_verification_test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

std::string addMethod(int id) {
    return fmt::format("INSERT Settle VALUES( {}, '{}', '支票{}', 0 )", id, id % 100, id);
}

class LogVerifications : public LoggedBooksTest {
  protected:
    LogVerification verify(const std::optional<LogSeal>& seal = {}) {
        LogVerification result;
        const Status status = verifyLog(m_books.engine(), seal, result);
        EXPECT_TRUE(status) << status.detail;
        return result;
    }
    std::vector<std::string> faults() { return faultTexts(verify()); }
    LogSeal seal() {
        LogSeal seal;
        EXPECT_TRUE(readSeal(m_books.engine(), seal));
        return seal;
    }
    void addFive() {
        for (int id = 1; id <= 5; ++id) m_books.change(addMethod(id), fmt::format("第{}次", id));
    }
    std::string cell(const std::string& sql) { return readCell(m_books.engine(), sql); }
    /// The hash that an entry would have behind another hash.
    std::string hashOf(int number, const std::string& before) {
        LogEntry entry;
        bool isFound = false;
        EXPECT_TRUE(readEntry(m_books.engine(), number, entry, isFound) && isFound);
        return entryHash(before, entry);
    }
    std::string storedHash(int number) {
        return cell(fmt::format("SELECT sHash FROM OperationLog WHERE lId = {}", number));
    }
    /// Writes an entry as a copy of another one, with the hash that it has to have.
    void forge(int number, int model) {
        m_books.tamper(fmt::format(
            "INSERT INTO OperationLog SELECT {}, sTime, lUserId, sUser, sStation, lProcess, "
            "sProgram, lFunction, '假', '', 0, 0, '{}', '' FROM OperationLog WHERE lId = {}",
            number, ChainHash().text(), model));
        m_books.tamper(fmt::format("UPDATE OperationLog SET sHash = '{}' WHERE lId = {}",
                                   hashOf(number, storedHash(number - 1)), number));
    }
};

TEST_P(LogVerifications, FindNothingInBooksThatNobodyTouched) {
    EXPECT_TRUE(verify().isSound()) << "an empty log";
    addFive();
    m_books.change("Update Settle Set sSettle = '电汇' Where lId = 1");
    m_books.change("DELETE Settle Where lId = 2");
    m_books.change(addMethod(2));
    m_books.change("INSERT Users VALUES( 1, 1, '王芳', 1, '$argon2id$old' )");
    m_books.change("Update Users Set sPassword = '$argon2id$new'");
    m_books.change("INSERT AccSum VALUES( 1, 1, 1, 0.1, -2.5, 3, 0, 0, 0, 0, 0, 1e15 )");
    m_books.change("INSERT Cyrency VALUES( 1, 2, 'USD', '美元', 1, 4, 0.1 )");
    m_books.change("INSERT ExchgFix VALUES( 1, 1, '2026/01/05', 1, 6.8, 0 )");
    m_books.change(
        "INSERT RegSub VALUES( 1, 1, 1, '', 1, 1, 5.00, 0, 0, 0, 0, NULL, 0, 0, '', '', '', "
        "'1899/12/31', 0 )");
    const LogVerification result = verify();
    EXPECT_THAT(faultTexts(result), IsEmpty());
    EXPECT_TRUE(result.isSound());
    EXPECT_EQ(result.chain.entries, 14);
    EXPECT_EQ(result.chain.end, seal().end);
    EXPECT_EQ(result.rows.rows, 10);
}

TEST_P(LogVerifications, FindNothingBehindWhatWasRolledBack) {
    Database& books = m_books.database();
    m_books.change(addMethod(1));
    ASSERT_TRUE(books.beginUnit());
    ASSERT_TRUE(books.executeBatch(addMethod(2)));
    ASSERT_TRUE(books.beginUnit());
    ASSERT_TRUE(books.executeBatch("Update Settle Set sSettle = '电汇'"));
    books.rollbackUnit();
    EXPECT_FALSE(books.executeBatch(addMethod(3) + ";" + addMethod(1)).isDone());
    ASSERT_TRUE(books.commitUnit());
    ASSERT_TRUE(books.beginUnit());
    ASSERT_TRUE(books.executeBatch("DELETE Settle"));
    books.rollbackUnit();
    EXPECT_THAT(faults(), IsEmpty());
}

TEST_P(LogVerifications, FindNothingInEntriesOfManyParts) {
    Database& books = m_books.database();
    std::vector<Value> values;
    constexpr int count = 6'000;
    const std::string name(3000, 'x');
    for (int id = 1; id <= count; ++id) {
        values.push_back(Value::of(std::int64_t{id}));
        values.push_back(Value::of(std::string_view(name)));
    }
    m_books.change(addMethod(count + 1));
    ASSERT_TRUE(books.beginUnit());
    ASSERT_TRUE(
        books.executeForEach("INSERT INTO Settle (lId, sSettle) VALUES ($1, $2)", 2, values));
    ASSERT_TRUE(books.executePlain("UPDATE Settle SET sSettle = 'y' WHERE lId <= 3000", {}));
    ASSERT_TRUE(books.commitUnit());
    m_books.change("Update Settle Set bNote = 1 Where lId = 500");
    ASSERT_GT(std::stoi(cell("SELECT max(lParts) FROM OperationLog")), 128);
    const LogVerification result = verify();
    EXPECT_THAT(faultTexts(result), IsEmpty());
    EXPECT_EQ(result.rows.rows, count + 1);
    m_books.tamper("UPDATE OperationLogPart SET lRows = lRows + 1 WHERE lPart = 130");
    m_books.tamper("UPDATE Settle SET sSettle = 'z' WHERE lId = 3001");
    EXPECT_THAT(faults(), ElementsAre("第 2 条的明细被改动过,或者有增减。",
                                      "结算方式(编号 3001)的“方式名”现在是“z”,第 2 条所记的是“" +
                                          name + "”。"));
}

TEST_P(LogVerifications, NameTheEntryThatWasChanged) {
    const char* const columns[] = {"sTime", "sUser", "sStation", "sProgram", "sWords"};
    addFive();
    for (const char* column : columns) {
        const std::string before =
            cell(fmt::format("SELECT {} FROM OperationLog WHERE lId = 3", column));
        m_books.tamper(fmt::format("UPDATE OperationLog SET {} = 'x' WHERE lId = 3", column));
        EXPECT_THAT(faults(), ElementsAre("第 3 条的内容被改动过。")) << column;
        m_books.tamper(
            fmt::format("UPDATE OperationLog SET {} = '{}' WHERE lId = 3", column, before));
    }
    for (const char* column : {"lUserId", "lProcess", "lFunction", "lParts", "lRows"}) {
        m_books.tamper(fmt::format("UPDATE OperationLog SET {0} = {0} + 1 WHERE lId = 3", column));
        EXPECT_THAT(faults(), ElementsAre("第 3 条的内容被改动过。")) << column;
        m_books.tamper(fmt::format("UPDATE OperationLog SET {0} = {0} - 1 WHERE lId = 3", column));
    }
    m_books.tamper("UPDATE OperationLog SET sWords = 'x' WHERE lId = 5");
    EXPECT_THAT(faults(), ElementsAre("第 5 条的内容被改动过。")) << "the last one";
    m_books.tamper("UPDATE OperationLog SET sWords = 'x' WHERE lId = 2");
    EXPECT_THAT(faults(), ElementsAre("第 2 条的内容被改动过。")) << "the first of both";
}

TEST_P(LogVerifications, NameEntriesThatWereTakenOut) {
    addFive();
    m_books.tamper("DELETE FROM OperationLog WHERE lId = 5");
    EXPECT_EQ(faults()[0], "第 5 条不见了,被删去了。") << "the end of the log tells";
    m_books.tamper("DELETE FROM OperationLog WHERE lId IN (2, 3)");
    EXPECT_EQ(faults()[0], "第 2 至 3 条不见了,被删去了。");
    m_books.tamper("DELETE FROM OperationLog WHERE lId = 1");
    EXPECT_EQ(faults()[0], "第 1 至 3 条不见了,被删去了。");
}

TEST_P(LogVerifications, SeeThatLaterEntriesWereMovedUp) {
    addFive();
    m_books.tamper(
        "DELETE FROM OperationLogPart WHERE sUnit = (SELECT sUnit FROM OperationLog WHERE lId = 3);"
        "DELETE FROM OperationLog WHERE lId = 3;"
        "UPDATE OperationLog SET lId = 3 WHERE lId = 4; UPDATE OperationLog SET lId = 4 WHERE lId "
        "= 5");
    EXPECT_THAT(faults(), ElementsAre("第 3 条与它的前一条接不上,被换过或是后来插入的。"));
}

TEST_P(LogVerifications, SeeThatTwoEntriesWereExchanged) {
    addFive();
    m_books.tamper(
        "UPDATE OperationLog SET lId = 9 WHERE lId = 2; UPDATE OperationLog SET lId = 2 WHERE lId "
        "= 4; UPDATE OperationLog SET lId = 4 WHERE lId = 9");
    EXPECT_EQ(faults()[0], "第 2 条与它的前一条接不上,被换过或是后来插入的。");
}

TEST_P(LogVerifications, NameAnEntryThatWasPutIn) {
    addFive();
    forge(6, 5);
    EXPECT_EQ(faults()[0], "第 6 条不是程序写的,是后来插入的。") << "the end of the log tells";
    forge(7, 5);
    EXPECT_EQ(faults()[0], "第 6 至 7 条不是程序写的,是后来插入的。");
    m_books.tamper("DELETE FROM OperationLog WHERE lId = 7");
    m_books.change(addMethod(8));
    EXPECT_EQ(faults()[0], "第 6 条不是程序写的,是后来插入的。")
        << "what follows goes on from the one before";
}

TEST_P(LogVerifications, NameAnEntryBeforeTheFirst) {
    addFive();
    m_books.tamper(
        "INSERT INTO OperationLog SELECT 0, sTime, lUserId, sUser, sStation, lProcess, sProgram, "
        "lFunction, sWords, '', 0, 0, '', '' FROM OperationLog WHERE lId = 1");
    EXPECT_EQ(faults()[0], "第 0 条不是程序写的,是后来插入的。");
}

TEST_P(LogVerifications, SeeWhatWasDoneToTheEndOfTheLog) {
    addFive();
    const std::string hash = storedHash(5);
    m_books.tamper("UPDATE OperationLogHead SET sHash = '" + storedHash(4) + "'");
    EXPECT_THAT(faults(), ElementsAre("日志末尾的记载与最后一条不符,其中之一被改动过。"));
    m_books.tamper("UPDATE OperationLogHead SET sHash = '" + hash + "', lLastId = -1");
    EXPECT_THAT(faults(), ElementsAre("日志末尾的记载与最后一条不符,其中之一被改动过。"));
    m_books.tamper("DELETE FROM OperationLogHead");
    EXPECT_THAT(faults(), ElementsAre("日志末尾的记载不见了。"));
}

TEST_P(LogVerifications, SeeThatPartsWereTouched) {
    addFive();
    const std::string unit = cell("SELECT sUnit FROM OperationLog WHERE lId = 3");
    const std::string ofUnit = " WHERE sUnit = '" + unit + "'";
    const std::string words = "第 3 条的明细被改动过,或者有增减。";
    for (const char* column :
         {"lPart", "lLowest", "lHighest", "lLowAccount", "lHighAccount", "lRows"}) {
        m_books.tamper(fmt::format("UPDATE OperationLogPart SET {0} = {0} + 1{1}", column, ofUnit));
        EXPECT_THAT(faults(), ElementsAre(words)) << column;
        m_books.tamper(fmt::format("UPDATE OperationLogPart SET {0} = {0} - 1{1}", column, ofUnit));
    }
    m_books.tamper("INSERT INTO OperationLogPart SELECT * FROM OperationLogPart" + ofUnit);
    EXPECT_THAT(faults(), ElementsAre(words)) << "one more";
    m_books.tamper("DELETE FROM OperationLogPart" + ofUnit);
    EXPECT_THAT(faults(), ElementsAre(words)) << "none";
}

TEST_P(LogVerifications, SeeThatWhatAPartTellsWasExchanged) {
    addFive();
    m_books.tamper(
        "UPDATE OperationLogPart SET sPacked = (SELECT p.sPacked FROM OperationLogPart p JOIN "
        "OperationLog l ON l.sUnit = p.sUnit WHERE l.lId = 1) WHERE sUnit = (SELECT sUnit FROM "
        "OperationLog WHERE lId = 3)");
    EXPECT_EQ(faults()[0], "第 3 条的明细被改动过,或者有增减。");
    m_books.tamper("UPDATE OperationLogPart SET sPacked = 'x' WHERE lLowest = 3");
    EXPECT_THAT(faults(), ElementsAre("第 3 条的明细被改动过,或者有增减。",
                                      "第 3 条所记的结算方式读不出来,无法核对。"));
}

TEST_P(LogVerifications, CountPartsThatBelongToNoEntry) {
    addFive();
    m_books.tamper(
        "INSERT INTO OperationLogPart (sUnit, lPart, sTable) VALUES ('x', 1, 'Code'), ('x', 2, "
        "'Code'), ('y', 1, 'Code')");
    EXPECT_THAT(faults(), ElementsAre("有 3 份明细不属于任何一条。"));
}

TEST_P(LogVerifications, NameRowsThatAreNotWhatTheLogSaysLast) {
    addFive();
    m_books.change("Update Settle Set sSettle = '电汇' Where lId = 1");
    m_books.change("DELETE Settle Where lId = 2");
    m_books.tamper("UPDATE Settle SET sSettle = '现金' WHERE lId = 1");
    m_books.tamper("UPDATE Settle SET bNote = 1 WHERE lId = 1");
    m_books.tamper("INSERT INTO Settle (lId) VALUES (2)");
    m_books.tamper("DELETE FROM Settle WHERE lId = 3");
    const LogVerification result = verify();
    EXPECT_EQ(result.rows.count, 4);
    EXPECT_THAT(faultTexts(result),
                ElementsAre("结算方式(编号 2)按第 7 条所记已删除,现在却还在。",
                            "结算方式(编号 1)的“方式名”现在是“现金”,第 6 条所记的是“电汇”。",
                            "结算方式(编号 3)不见了,按第 3 条所记应当还在。",
                            "结算方式(编号 1)的“支票登记簿”现在是“是”,第 1 条所记的是“否”。"));
    EXPECT_FALSE(result.isSound());
}

TEST_P(LogVerifications, CompareOfARowThatWasThereBeforeTheLogWhatItTells) {
    m_books.tamper("INSERT INTO Settle VALUES (9, '9', '旧', 0)");
    m_books.change("Update Settle Set sSettle = '新'");
    m_books.tamper("UPDATE Settle SET bNote = 1");
    EXPECT_THAT(faults(), IsEmpty()) << "the log says nothing of it";
    m_books.tamper("UPDATE Settle SET sSettle = '旧'");
    EXPECT_THAT(faults(), SizeIs(1));
}

TEST_P(LogVerifications, NameTheRowsOfATableThatWasTakenAway) {
    addFive();
    m_books.tamper("DROP TABLE Settle");
    EXPECT_THAT(faults(), SizeIs(5));
}

TEST_P(LogVerifications, LeaveItemsOfAProjectClassThatIsGone) {
    m_books.tamper("CREATE TABLE ProjItems01 (lId integer PRIMARY KEY, FIELD0 text, FIELD1 text)");
    m_books.change("INSERT ProjItems01 VALUES( 1, '1', '甲' )");
    EXPECT_THAT(faults(), IsEmpty());
    m_books.tamper("UPDATE ProjItems01 SET FIELD1 = '乙'");
    EXPECT_THAT(faults(),
                ElementsAre("项目(01)(编号 1)的“项目名称”现在是“乙”,第 1 条所记的是“甲”。"));
    m_books.tamper("DROP TABLE ProjItems01");
    EXPECT_THAT(faults(), IsEmpty());
}

TEST_P(LogVerifications, HoldALogAgainstItsSeal) {
    addFive();
    const LogSeal sealed = seal();
    EXPECT_EQ(sealed.end.number, 5);
    EXPECT_EQ(verify(sealed).isSealWhole, true);
    m_books.change(addMethod(6));
    EXPECT_EQ(verify(sealed).isSealWhole, true) << "it has only grown";
    m_books.tamper("UPDATE OperationLog SET sWords = 'x' WHERE lId = 6");
    const LogVerification beyond = verify(sealed);
    EXPECT_EQ(beyond.isSealWhole, true);
    EXPECT_FALSE(beyond.isSound());
    m_books.tamper("UPDATE OperationLog SET sWords = 'x' WHERE lId = 5");
    EXPECT_EQ(verify(sealed).isSealWhole, false);
}

TEST_P(LogVerifications, SeeByTheSealThatAWholeChainWasWrittenAnew) {
    addFive();
    const LogSeal sealed = seal();
    m_books.tamper("UPDATE OperationLog SET sWords = 'x' WHERE lId = 2");
    std::string before = storedHash(1);
    for (int number = 2; number <= 5; ++number) {
        before = hashOf(number, before);
        m_books.tamper(
            fmt::format("UPDATE OperationLog SET sHash = '{}' WHERE lId = {}", before, number));
    }
    m_books.tamper("UPDATE OperationLogHead SET sHash = '" + before + "'");
    EXPECT_THAT(faults(), IsEmpty());
    const LogVerification result = verify(sealed);
    EXPECT_EQ(result.isSealWhole, false);
    EXPECT_FALSE(result.isSound());
}

TEST_P(LogVerifications, SeeByTheSealThatTheEndWasCutOff) {
    addFive();
    const LogSeal sealed = seal();
    m_books.tamper(
        "DELETE FROM Settle WHERE lId = 5; DELETE FROM OperationLogPart WHERE lLowest = "
        "5; DELETE FROM OperationLog WHERE lId = 5; UPDATE OperationLogHead SET lLastId "
        "= 4, sHash = '" +
        storedHash(4) + "'");
    EXPECT_THAT(faults(), IsEmpty());
    EXPECT_EQ(verify(sealed).isSealWhole, false);
}

TEST_P(LogVerifications, FailWhereTheLogCannotBeRead) {
    addFive();
    ASSERT_TRUE(m_books.engine().script("DROP TABLE OperationLogPart"));
    LogVerification result;
    EXPECT_FALSE(verifyLog(m_books.engine(), {}, result).isDone());
    EXPECT_FALSE(m_books.engine().inTransaction());
}

CHENGHENG_ON_ALL_ENGINES(LogVerifications);

}  // namespace
}  // namespace chengheng::log_verification_test
