#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/connection/database.h"
#include "data/tables/operation_log_tables.h"
#include "operationlog/history/figure_subject.h"
#include "operationlog/history/history_list.h"
#include "tests/support/engine_cases.h"
#include "tests/support/kept_log.h"
#include "tests/support/opening_books.h"

namespace figure_history {
namespace {

using namespace chengheng;
using testing::ElementsAre;
using testing::IsEmpty;
using Texts = std::vector<std::string>;

/// Opening balances of books whose log is kept.
class FigureHistories : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override {
        m_books.addAccounts({"1001", "1002"});
        m_log.emplace(m_books.database());
        ASSERT_EQ(m_books.work().refresh(), Outcome::done);
    }
    /// "kind before after" of each line, newest first.
    Texts historyOf(const HistorySubject& subject) {
        HistoryList list(subject);
        do {
            const Status status = list.readMore();
            EXPECT_TRUE(status.isDone()) << status.detail;
            if (!status) break;
        } while (list.hasLog() && !list.isAtEnd());
        Texts texts;
        for (const HistoryLine& line : list.lines())
            texts.push_back(line.kind + " " + line.before + " " + line.after);
        return texts;
    }
    Texts openings(const char* code) {
        return historyOf(figureSubject(m_books.idOf(code), Measure::money, &Balance::opening,
                                       OpeningLayout::simple));
    }

    OpeningTestBooks m_books{freshLocation(GetParam())};
    std::optional<KeptLog> m_log;
};

TEST_P(FigureHistories, AreThoseOfTheFigureAloneNewestFirst) {
    EXPECT_TRUE(m_books.type("1001", "5"));
    EXPECT_TRUE(m_books.type("1002", "77"));
    EXPECT_TRUE(m_books.type("1001", "8"));
    EXPECT_THAT(openings("1001"), ElementsAre("修改 5 8", "增加  5"));
    EXPECT_THAT(openings("1002"), ElementsAre("增加  77"));
}

TEST_P(FigureHistories, ReadNothingOfOtherAccounts) {
    EXPECT_TRUE(m_books.type("1001", "5"));
    EXPECT_TRUE(m_books.type("1002", "77"));
    Engine& engine = m_books.database().selectedDatabase()->engine();
    const EngineDialect& dialect = engine.dialect();
    const std::string table = operationLogPartTable().name;
    if (dialect.guardOff != nullptr) ASSERT_TRUE(engine.script(dialect.guardOff(table)));
    ASSERT_TRUE(engine.script("UPDATE OperationLogPart SET sPacked = '' WHERE lLowAccount = " +
                              std::to_string(m_books.idOf("1002"))));
    EXPECT_THAT(openings("1001"), ElementsAre("增加  5"));
}

TEST_P(FigureHistories, GoOnWhereItsRowsWentAndCameAgain) {
    EXPECT_TRUE(m_books.type("1001", "5"));
    EXPECT_TRUE(m_books.type("1001", "0"));
    ASSERT_EQ(m_books.work().refresh(), Outcome::done) << "which sweeps rows without figures";
    EXPECT_THAT(m_books.openings("1001"), "");
    EXPECT_THAT(openings("1001"), ElementsAre("删除 0 ", "修改 5 0", "增加  5"));
    EXPECT_TRUE(m_books.type("1001", "3"));
    EXPECT_THAT(openings("1001"), ElementsAre("增加  3", "删除 0 ", "修改 5 0", "增加  5"));
}

TEST_P(FigureHistories, OfAnAccountTellWhatBecameOfItsColumns) {
    const int id = m_books.idOf("1001");
    m_books.change("1001", "sName = '库存现金'");
    const auto changesOf = [this, id](const char* column) {
        Texts lines = historyOf({.table = "Code", .id = id, .column = column});
        std::erase_if(lines, [](const std::string& line) { return !line.starts_with("修改"); });
        return lines;
    };
    EXPECT_THAT(changesOf(""), ElementsAre("修改 科目1001 库存现金"));
    EXPECT_THAT(changesOf("sName"), ElementsAre("修改 科目1001 库存现金"));
    EXPECT_THAT(changesOf("sUnit"), IsEmpty());
}

TEST_P(FigureHistories, AreNoneWhereNothingWasTyped) { EXPECT_THAT(openings("1001"), IsEmpty()); }

CHENGHENG_ON_SHARED_ENGINES(FigureHistories);

}  // namespace
}  // namespace figure_history
