#include "operationlog/log_reading.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "operationlog/log_rows.h"
#include "operationlog/row_history.h"
#include "tests/support/engine_tools.h"
#include "tests/support/logged_books.h"

namespace chengheng::log_reading_test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

std::string addMethod(int id) {
    return fmt::format("INSERT Settle VALUES( {}, '{}', '支票{}', 0 )", id, id % 100, id);
}

class LogReading : public LoggedBooksTest {
  protected:
    /// The numbers of the entries of a filter, read in small pages.
    std::vector<std::int64_t> numbers(const LogFilter& filter, int pageSize = 2) {
        LogPages pages(m_books.engine(), filter);
        std::vector<std::int64_t> found;
        while (!pages.isAtEnd()) {
            std::vector<LogEntry> page;
            const Status status = pages.read(pageSize, page);
            EXPECT_TRUE(status) << status.detail;
            if (!status) break;
            EXPECT_TRUE(page.size() == static_cast<std::size_t>(pageSize) || pages.isAtEnd());
            for (const LogEntry& entry : page) found.push_back(entry.number);
        }
        return found;
    }
    /// Gives an entry another time, as a clock may have shown it.
    void setTime(int number, const std::string& time) {
        m_books.tamper(fmt::format("UPDATE OperationLog SET sTime = '{}.000+08:00' WHERE lId = {}",
                                   time, number));
    }
    std::vector<std::string> historyOf(const HistorySubject& subject) {
        RowHistory history(m_books.engine(), subject);
        std::vector<std::string> words;
        while (!history.isAtEnd()) {
            std::vector<RowEvent> events;
            const Status status = history.read(1, events);
            EXPECT_TRUE(status) << status.detail;
            if (!status) break;
            for (const RowEvent& event : events) words.push_back(event.entry.words);
        }
        return words;
    }
};

TEST_P(LogReading, GivesTheNewestFirstInPages) {
    EXPECT_THAT(numbers({}), IsEmpty());
    for (int id = 1; id <= 5; ++id) m_books.change(addMethod(id));
    EXPECT_THAT(numbers({}), ElementsAre(5, 4, 3, 2, 1));
    EXPECT_THAT(numbers({}, 5), ElementsAre(5, 4, 3, 2, 1));
    EXPECT_THAT(numbers({}, 100), ElementsAre(5, 4, 3, 2, 1));
}

TEST_P(LogReading, GivesAllThatAnEntryTells) {
    m_books.actAs("陈'静", 3);
    m_books.change(addMethod(1), "增加结算方式 1", 35);
    std::vector<LogEntry> page;
    ASSERT_TRUE(LogPages(m_books.engine(), {}).read(10, page));
    ASSERT_THAT(page, SizeIs(1));
    LogEntry& entry = page[0];
    EXPECT_EQ(entry.number, 1);
    EXPECT_EQ(entry.operatorId, 3);
    EXPECT_EQ(entry.operatorName, "陈'静");
    EXPECT_EQ(entry.workstation, "财务1");
    EXPECT_EQ(entry.process, 4711);
    EXPECT_EQ(entry.program, "chengheng 1.0");
    EXPECT_EQ(entry.function, 35);
    EXPECT_EQ(entry.words, "增加结算方式 1");
    EXPECT_EQ(entry.parts, 1);
    EXPECT_EQ(entry.rows, 1);
    EXPECT_EQ(entry.hash, entryHash(noHashBefore, entry)) << "nothing of it is missing";
    LogEntry again;
    bool isFound = false;
    ASSERT_TRUE(readEntry(m_books.engine(), 1, again, isFound));
    EXPECT_TRUE(isFound);
    EXPECT_EQ(again, entry);
    for (const std::int64_t number : {std::int64_t{2}, std::int64_t{-1}, std::int64_t{1} << 40}) {
        ASSERT_TRUE(readEntry(m_books.engine(), number, again, isFound));
        EXPECT_FALSE(isFound) << number;
    }
}

TEST_P(LogReading, FiltersByOperatorFunctionAndWords) {
    m_books.change(addMethod(1), "增加结算方式 100% x", 35);
    m_books.actAs("李明");
    m_books.change(addMethod(2), "增加科目 ABC", 1);
    m_books.change(addMethod(3), "增加结算方式 1000 X", 35);
    m_books.actAs("王芳");
    m_books.change(addMethod(4));
    EXPECT_THAT(numbers({.operatorName = "王芳"}), ElementsAre(4, 1));
    EXPECT_THAT(numbers({.operatorName = "王"}), IsEmpty());
    EXPECT_THAT(numbers({.function = 35}), ElementsAre(3, 1));
    EXPECT_THAT(numbers({.function = 0}), ElementsAre(4));
    EXPECT_THAT(numbers({.text = "结算方式"}), ElementsAre(3, 1));
    EXPECT_THAT(numbers({.text = "100%"}), ElementsAre(1)) << "a percent sign is one";
    EXPECT_THAT(numbers({.text = "abc"}), ElementsAre(2)) << "letters in any case";
    EXPECT_THAT(numbers({.text = "'"}), IsEmpty());
    EXPECT_THAT(numbers({.operatorName = "李明", .function = 35, .text = "X"}), ElementsAre(3));
}

TEST_P(LogReading, FiltersByTimesThoughClocksGoBack) {
    for (int id = 1; id <= 5; ++id) m_books.change(addMethod(id));
    setTime(1, "2026-11-22T08:00:00");
    setTime(2, "2026-11-23T00:00:00");
    setTime(3, "2026-11-22T09:00:00");
    setTime(4, "2026-11-23T18:04:59");
    setTime(5, "2026-11-24T00:00:00");
    EXPECT_THAT(numbers({.from = "2026-11-23", .to = "2026-11-23"}), ElementsAre(4, 2));
    EXPECT_THAT(numbers({.from = "2026-11-23"}), ElementsAre(5, 4, 2));
    EXPECT_THAT(numbers({.to = "2026-11-22"}), ElementsAre(3, 1));
    EXPECT_THAT(numbers({.from = "2026-11-23T18:04", .to = "2026-11-23T18:04"}), ElementsAre(4));
    EXPECT_THAT(numbers({.to = "2026-11-23T18:03"}), ElementsAre(3, 2, 1));
    EXPECT_THAT(numbers({.from = "2027-01-01"}), IsEmpty());
}

TEST_P(LogReading, NamesTheOperatorsAndFunctionsThatItTellsOf) {
    std::vector<std::string> names{"x"};
    std::vector<std::int32_t> functions{1};
    ASSERT_TRUE(readLogOperators(m_books.engine(), names));
    ASSERT_TRUE(readLogFunctions(m_books.engine(), functions));
    EXPECT_THAT(names, IsEmpty());
    EXPECT_THAT(functions, IsEmpty());
    m_books.change(addMethod(1), "甲", 35);
    m_books.actAs("B");
    m_books.change(addMethod(2), "乙", 2);
    m_books.actAs("A");
    m_books.change(addMethod(3), "丙", 35);
    ASSERT_TRUE(readLogOperators(m_books.engine(), names));
    ASSERT_TRUE(readLogFunctions(m_books.engine(), functions));
    EXPECT_THAT(names, ElementsAre("A", "B", "王芳"));
    EXPECT_THAT(functions, ElementsAre(2, 35));
}

TEST_P(LogReading, GivesTheRowsOfAnEntryPartByPart) {
    m_books.change(addMethod(1) + ";INSERT Dept VALUES( 4, '01', '部' )");
    std::vector<LogEntry> page;
    ASSERT_TRUE(LogPages(m_books.engine(), {}).read(1, page));
    LogRows rows;
    ASSERT_TRUE(readPartBehind(m_books.engine(), page[0].unit, 0, rows));
    EXPECT_EQ(rows.part, 1);
    EXPECT_EQ(rows.table, "Dept");
    ASSERT_THAT(rows.rows, SizeIs(1));
    EXPECT_EQ(rows.rows[0].id, 4);
    ASSERT_TRUE(readPartBehind(m_books.engine(), page[0].unit, rows.part, rows));
    EXPECT_EQ(rows.table, "Settle");
    ASSERT_TRUE(readPartBehind(m_books.engine(), page[0].unit, rows.part, rows));
    EXPECT_EQ(rows.part, 0) << "there is none left";
    EXPECT_THAT(rows.rows, IsEmpty());
}

TEST_P(LogReading, TellsThatAPartIsDamaged) {
    m_books.change(addMethod(1), "甲");
    m_books.tamper("UPDATE OperationLogPart SET sPacked = 'x'");
    LogRows rows;
    std::vector<LogEntry> page;
    ASSERT_TRUE(LogPages(m_books.engine(), {}).read(1, page));
    EXPECT_EQ(readPartBehind(m_books.engine(), page[0].unit, 0, rows).failure, Failure::damaged);
    RowHistory history(m_books.engine(), {.table = "Settle", .id = 1});
    std::vector<RowEvent> events;
    EXPECT_EQ(history.read(1, events).failure, Failure::damaged);
}

TEST_P(LogReading, GivesTheHistoryOfARowNewestFirst) {
    m_books.change(addMethod(1), "甲");
    m_books.change(addMethod(2), "乙");
    m_books.change("Update Settle Set sSettle = '电汇' Where lId = 1", "丙");
    m_books.change("INSERT Dept VALUES( 1, '01', '部' )", "丁");
    m_books.change("Update Settle Set bNote = 1", "戊");
    m_books.change("DELETE Settle Where lId = 1", "己");
    EXPECT_THAT(historyOf({.table = "Settle", .id = 1}), ElementsAre("己", "戊", "丙", "甲"));
    EXPECT_THAT(historyOf({.table = "Settle", .id = 2}), ElementsAre("戊", "乙"));
    EXPECT_THAT(historyOf({.table = "Settle", .id = 3}), IsEmpty());
    EXPECT_THAT(historyOf({.table = "Settle", .id = 1, .column = "sSettle"}),
                ElementsAre("己", "丙", "甲"));
}

TEST_P(LogReading, GivesWhatOneUnitDidToARowNewestFirst) {
    m_books.change(addMethod(1) +
                   ";Update Settle Set sSettle = '电汇' Where lId = 1"
                   ";Update Settle Set sSettle = '汇票' Where lId = 1");
    RowHistory history(m_books.engine(), {.table = "Settle", .id = 1});
    std::vector<RowEvent> events;
    ASSERT_TRUE(history.read(1, events));
    ASSERT_THAT(events, SizeIs(3));
    EXPECT_EQ(events[0].row.columns[0].after, LoggedCell(std::string("汇票")));
    EXPECT_EQ(events[2].row.kind, ChangeKind::inserted);
}

TEST_P(LogReading, GivesAHistoryLongerThanAPage) {
    m_books.change(addMethod(1));
    for (int turn = 1; turn <= 70; ++turn)
        m_books.change(fmt::format("Update Settle Set sSettle = '{}' Where lId = 1", turn),
                       std::to_string(turn));
    const auto words = historyOf({.table = "Settle", .id = 1});
    ASSERT_THAT(words, SizeIs(71));
    EXPECT_EQ(words.front(), "70");
    EXPECT_EQ(words[69], "1");
}

std::string addAccount(int id, const std::string& code) {
    return fmt::format(
        "INSERT Code VALUES( {}, '{}', '甲', '资产', 1, 1, 1, 0, 0, '', '', 0, 0, '', 0, '' )", id,
        code);
}

std::string addSum(int id, int account) {
    return fmt::format("INSERT AccSum VALUES( {}, {}, 1, 5, 0, 0, 0, 0, 0, 0, 0, 0 )", id, account);
}

TEST_P(LogReading, FiltersByTheAccountsThatHaveOrHadACode) {
    m_books.change(addAccount(1, "1001"));
    m_books.change(addAccount(2, "1002"));
    m_books.change(addSum(10, 1));
    m_books.change(addSum(11, 2));
    m_books.change("Update AccSum Set mBegin = 7 Where lId = 10");
    m_books.change("Update Code Set sCode = '1009' Where lId = 1");
    m_books.change(addAccount(3, "1001"));
    m_books.change(addMethod(1));
    EXPECT_THAT(numbers({.account = "1001"}), ElementsAre(7, 6, 5, 3, 1));
    EXPECT_THAT(numbers({.account = "1001"}, 1), ElementsAre(7, 6, 5, 3, 1));
    EXPECT_THAT(numbers({.account = "1009"}), ElementsAre(6, 5, 3, 1));
    EXPECT_THAT(numbers({.account = "1002"}), ElementsAre(4, 2));
    EXPECT_THAT(numbers({.account = "100"}), IsEmpty()) << "a code is a whole one";
    EXPECT_THAT(numbers({.text = "AccSum", .account = "1001"}), ElementsAre(5, 3));
    m_books.change("DELETE Code Where lId = 2;DELETE AccSum Where lId = 11");
    EXPECT_THAT(numbers({.account = "1002"}), ElementsAre(9, 4, 2)) << "it is gone";
}

TEST_P(LogReading, LeavesOutEntriesThatOnlySpanAnAccount) {
    m_books.change(addAccount(1, "1001") + ";" + addAccount(3, "1003"));
    m_books.change(addAccount(2, "1002"));
    m_books.change(addSum(10, 1) + ";" + addSum(12, 3));
    m_books.change(addSum(11, 2));
    m_books.change("Update AccSum Set mBegin = 7 Where lId = 10 Or lId = 12");
    EXPECT_THAT(numbers({.account = "1002"}), ElementsAre(4, 2));
    EXPECT_THAT(numbers({.account = "1003"}), ElementsAre(5, 3, 1));
    m_books.change("DELETE AccSum Where lId = 10");
    EXPECT_THAT(numbers({.account = "1002"}), ElementsAre(5, 4, 2))
        << "whose the row was that is gone, entry 5 does not tell";
}

TEST_P(LogReading, FindsACodeAmongManyParts) {
    for (int id = 1; id <= 150; ++id) m_books.change(addAccount(id, std::to_string(1000 + id)));
    m_books.change("Update Code Set sCode = '9' Where lId = 77");
    EXPECT_THAT(numbers({.account = "1077"}), ElementsAre(151, 77));
    EXPECT_THAT(numbers({.account = "1150"}), ElementsAre(150));
}

TEST_P(LogReading, FindsWhetherThereIsALog) {
    bool isThere = false;
    ASSERT_TRUE(findLog(m_books.engine(), isThere));
    EXPECT_TRUE(isThere);
    ASSERT_TRUE(m_books.engine().script("DROP TABLE OperationLog"));
    ASSERT_TRUE(findLog(m_books.engine(), isThere));
    EXPECT_FALSE(isThere);
}

CHENGHENG_ON_ALL_ENGINES(LogReading);

}  // namespace
}  // namespace chengheng::log_reading_test
