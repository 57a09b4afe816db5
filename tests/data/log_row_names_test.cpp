#include "operationlog/row_names.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "operationlog/log_reading.h"
#include "operationlog/log_rows.h"
#include "tests/support/logged_books.h"

namespace chengheng::log_row_names_test {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::SizeIs;

class LogRowNaming : public LoggedBooksTest {
  protected:
    /// The names of the rows of the newest entry.
    std::vector<std::string> names() {
        std::vector<LogEntry> page;
        EXPECT_TRUE(LogPages(m_books.engine(), {}).read(1, page));
        std::vector<std::string> all;
        LogRowNames naming(m_books.engine());
        LogRows rows;
        do {
            std::vector<std::string> found;
            EXPECT_TRUE(readPartBehind(m_books.engine(), page.at(0).unit, rows.part, rows));
            const Status status = naming.find(rows.table, rows.rows, found);
            EXPECT_TRUE(status) << status.detail;
            EXPECT_EQ(found.size(), rows.rows.size());
            all.insert(all.end(), found.begin(), found.end());
        } while (rows.part != 0);
        return all;
    }
    std::vector<std::string> namesBehind(const std::string& batch) {
        m_books.change(batch);
        return names();
    }
};

constexpr const char* account =
    "INSERT Code VALUES( 7, '1001', '库存现金', '资产', 1, 1, 1, 0, 0, '', '', 0, 0, '', 0, '' )";

TEST_P(LogRowNaming, NamesRowsByWhatTellsThemApart) {
    EXPECT_THAT(namesBehind(account), ElementsAre("1001 库存现金"));
    EXPECT_THAT(namesBehind("INSERT Settle VALUES( 1, '1', '支票', 0 )"), ElementsAre("1 支票"));
    EXPECT_THAT(namesBehind("INSERT Users VALUES( 3, 3, '李明', 0, '' )"), ElementsAre("李明"));
    EXPECT_THAT(namesBehind("INSERT UserAuth VALUES( 1, 3, 'YN' )"), ElementsAre("李明"));
    EXPECT_THAT(namesBehind("INSERT Cyrency VALUES( 2, 3, 'USD', '美元', 1, 4, 0.1 )"),
                ElementsAre("USD 美元"));
    EXPECT_THAT(namesBehind("INSERT ExchgFix VALUES( 1, 2, '2026/05/01', 5, 6.8, 0 )"),
                ElementsAre("USD 5月"));
}

TEST_P(LogRowNaming, NamesChangedRowsByWhatStandsInTheBooks) {
    m_books.change(account);
    m_books.change("INSERT AccSum VALUES( 70, 7, 1, 5, 0, 0, 0, 0, 0, 0, 0, 0 )");
    EXPECT_THAT(namesBehind("Update AccSum Set mBegin = 7"), ElementsAre("1001 库存现金 1月"));
    EXPECT_THAT(namesBehind("Update Code Set sName = '现金'"), ElementsAre("1001 现金"));
}

TEST_P(LogRowNaming, NamesRowsThatAreGoneByWhatTheyWere) {
    m_books.change(account);
    m_books.change("INSERT AccSum VALUES( 70, 7, 1, 5, 0, 0, 0, 0, 0, 0, 0, 0 )");
    EXPECT_THAT(namesBehind("DELETE Code;DELETE AccSum"), ElementsAre("7 1月", "1001 库存现金"))
        << "the account of the sum is gone, too";
}

TEST_P(LogRowNaming, NamesNothingThatNobodyKnowsAnyMore) {
    m_books.change("INSERT Settle VALUES( 1, '1', '支票', 0 )");
    m_books.change("Update Settle Set sSettle = '现金'");
    m_books.tamper("DELETE FROM Settle");
    EXPECT_THAT(names(), ElementsAre(""));
    m_books.tamper("DROP TABLE Settle");
    EXPECT_THAT(names(), ElementsAre(""));
}

TEST_P(LogRowNaming, NamesManyRowsThatLieFarApart) {
    std::string batch;
    for (int row = 1; row <= 700; ++row)
        batch += "INSERT Settle VALUES( " + std::to_string(row * 1000) + ", '1', '支票', 0 );";
    batch.pop_back();
    m_books.change(batch);
    const auto found = namesBehind("Update Settle Set sSettle = '现金'");
    EXPECT_THAT(found, SizeIs(700));
    EXPECT_THAT(found, Each("1 现金"));
}

CHENGHENG_ON_ALL_ENGINES(LogRowNaming);

}  // namespace
}  // namespace chengheng::log_row_names_test
