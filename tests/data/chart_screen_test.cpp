#include "accounts/screen/chart_screen.h"

#include <gtest/gtest.h>

#include "accounts/screen/chart_commands.h"
#include "accounts/screen/chart_search.h"
#include "data/lookups/cached_records.h"
#include "data/tables/accounts.h"
#include "tests/support/account_books.h"
#include "tests/support/engine_cases.h"
#include "tests/support/no_books.h"

using namespace chengheng;

namespace {

using Codes = std::vector<std::string>;

class ChartScreenTest : public testing::TestWithParam<EngineCase> {
  protected:
    ChartScreenTest() {
        for (const char* code : {"1002", "100201", "1001", "10A0", "10a0", "1122"}) books.add(code);
    }
    Codes codes() const {
        Codes listed;
        for (int row = 0; row < screen.count(); ++row) listed.push_back(screen.codeAt(row));
        return listed;
    }

    AccountBooks books{freshLocation(GetParam())};
    BookLookups lookups{g_lpszNbZwDBName};
    ChartScreen screen;
};

CHENGHENG_ON_ALL_ENGINES(ChartScreenTest);

}  // namespace

TEST_P(ChartScreenTest, ListsCodesByteByByte) {
    ASSERT_TRUE(screen.load("全部"));
    EXPECT_EQ(codes(), (Codes{"1001", "1002", "100201", "10A0", "10a0", "1122"}));
    for (int row = 0; row < screen.count(); ++row) {
        EXPECT_EQ(screen.placeOf(screen.codeAt(row)), row);
        EXPECT_EQ(screen.rowOfCode(screen.codeAt(row)), row);
    }
    EXPECT_EQ(screen.placeOf("1003"), 3);
    EXPECT_EQ(screen.rowOfCode("1003"), -1);
}

TEST_P(ChartScreenTest, ListsAClassWhateverItsNameHolds) {
    _CodeInfo account = books.account("1122");
    account.sType = "O'Brien %_\\";
    books.edit(account);
    ASSERT_TRUE(screen.load(account.sType));
    EXPECT_EQ(codes(), Codes{"1122"});
    EXPECT_TRUE(screen.isListed(account));
    EXPECT_FALSE(screen.isListed(books.account("1001")));
    ASSERT_TRUE(screen.load("没有"));
    EXPECT_TRUE(screen.isEmpty());
    EXPECT_EQ(screen.countText(), "0");
    EXPECT_EQ(screen.text(0, ListColumn::code), "");
}

TEST_P(ChartScreenTest, IsEmptyAfterAReadingThatFailed) {
    ASSERT_TRUE(screen.load("全部"));
    books.engine().failCall(2, Failure::full);
    EXPECT_FALSE(screen.load("全部"));
    EXPECT_TRUE(screen.isEmpty());
}

TEST_P(ChartScreenTest, IsEmptyWithoutOpenBooks) {
    ASSERT_TRUE(screen.load("全部"));
    const NoBooks none;
    EXPECT_EQ(screen.load("全部").failure, Failure::notOpen);
    EXPECT_TRUE(screen.isEmpty());
}

TEST_P(ChartScreenTest, HasATabForAllAccountsAndForEachOfTheFirstFiveClasses) {
    ASSERT_TRUE(screen.readClasses());
    EXPECT_EQ(screen.tabs(), (std::vector<std::string>{"全部", "资产", "负债"}));
    for (const char* number : {"3", "4", "5", "6"})
        books.run("INSERT INTO zCodeClass (lId, lNum, sClsName) VALUES (" + std::string(number) +
                  ", " + number + ", '类" + number + "')");
    ASSERT_TRUE(screen.readClasses());
    EXPECT_EQ(screen.tabs(),
              (std::vector<std::string>{"全部", "资产", "负债", "类3", "类4", "类5"}));
}

TEST_P(ChartScreenTest, FindsTheFirstWholeCodeOrNameInAnyCase) {
    ASSERT_TRUE(screen.load("全部"));
    EXPECT_EQ(screen.find(" 1122"), 5);
    EXPECT_EQ(screen.find("10a0"), 3);
    EXPECT_EQ(screen.find("科目"), 0);
    EXPECT_EQ(screen.find("112"), std::nullopt);
    EXPECT_EQ(screen.find("1122 "), std::nullopt);
    EXPECT_EQ(screen.find(""), std::nullopt);
}

TEST_P(ChartScreenTest, GoesRoundTheMatchesOfASearch) {
    ASSERT_TRUE(screen.load("全部"));
    ChartSearch search(screen);
    EXPECT_FALSE(search.isActive());
    EXPECT_EQ(search.matchFrom(0), -1);
    search.type("1002");
    EXPECT_EQ(search.matchCount(), 2);
    EXPECT_EQ(search.matchFrom(0), 1);
    EXPECT_EQ(search.matchFrom(3), 1);
    EXPECT_EQ(search.matchBefore(1), 2);
    EXPECT_EQ(search.numberOf(2), 2);
    EXPECT_EQ(search.numberOf(3), 0);
    screen.remove(1);
    search.repeat();
    EXPECT_EQ(search.matchCount(), 1);
}

TEST_P(ChartScreenTest, SearchesForNothingWithoutAText) {
    ASSERT_TRUE(screen.load("全部"));
    ChartSearch search(screen);
    search.type("1002");
    EXPECT_TRUE(search.isActive());
    EXPECT_EQ(search.matchFrom(2), 2);
    EXPECT_EQ(search.matchBefore(2), 1);
    EXPECT_EQ(search.matchBefore(0), 2);
    EXPECT_EQ(search.numberOf(1), 1);
    EXPECT_EQ(search.numberOf(0), 0);
    for (int row = 0; row < screen.count(); ++row)
        EXPECT_EQ(search.isMatch(row), row == 1 || row == 2) << row;
    search.type(" ");
    EXPECT_FALSE(search.isActive());
    EXPECT_EQ(search.matchCount(), 0);
    EXPECT_EQ(search.matchBefore(0), -1);
    EXPECT_FALSE(search.isMatch(1));
}

TEST_P(ChartScreenTest, ShowsWhatIsReadInEachCellOfARow) {
    _CodeInfo account = books.account("100201");
    account.sName = "美元户";
    account.byExchId = 1;
    account.sAssBook = "BC";
    books.edit(account);
    ASSERT_TRUE(screen.load("全部"));
    const auto cells = [this](int row) {
        Codes texts;
        for (const ListColumn column : {ListColumn::level, ListColumn::code, ListColumn::name,
                                        ListColumn::currency, ListColumn::auxiliary})
            texts.push_back(screen.text(row, column));
        return texts;
    };
    EXPECT_EQ(cells(2), (Codes{"2", "100201", "  美元户", "美元", "部门往来"}));
    EXPECT_EQ(cells(0), (Codes{"1", "1001", "科目", "", ""}));
    for (const int row : {-1, 6}) {
        EXPECT_EQ(cells(row), Codes(5)) << row;
        EXPECT_EQ(screen.path(row), "") << row;
    }
    EXPECT_EQ(screen.countText(), "6");
    EXPECT_EQ(screen.category(), "全部");
    EXPECT_EQ(screen.rowOfId(account.lId), 2);
    EXPECT_EQ(screen.rowOfId(99), -1);
    EXPECT_EQ(screen.rowOfCode("9999"), -1);
}

TEST_P(ChartScreenTest, KeepsUpWithAnAccountThatComesChangesAndGoes) {
    ASSERT_TRUE(screen.load("全部"));
    _CodeInfo account = books.account("1001");
    account.lId = 99;
    account.sCode = "1003";
    account.byExchId = 1;
    screen.insert(screen.placeOf("1003"), account);
    EXPECT_EQ(codes(), (Codes{"1001", "1002", "100201", "1003", "10A0", "10a0", "1122"}));
    EXPECT_EQ(screen.text(3, ListColumn::currency), "美元");
    account.sName = "新";
    screen.replace(3, account);
    EXPECT_EQ(screen.text(3, ListColumn::name), "新");
    _CodeInfo other = books.account("1122");
    other.byExchId = 1;
    ASSERT_TRUE(screen.load("全部"));
    screen.replace(5, other);
    EXPECT_EQ(screen.text(5, ListColumn::currency), "美元");
    screen.remove(5);
    EXPECT_EQ(codes(), (Codes{"1001", "1002", "100201", "10A0", "10a0"}));
}

TEST_P(ChartScreenTest, HasNoTabsWithoutClasses) {
    ASSERT_TRUE(screen.readClasses());
    books.run("DELETE FROM zCodeClass");
    EXPECT_EQ(screen.readClasses().failure, Failure::missing);
    EXPECT_TRUE(screen.tabs().empty());
}

TEST_P(ChartScreenTest, NamesTheAccountsAbove) {
    ASSERT_TRUE(screen.load("全部"));
    EXPECT_EQ(screen.path(2), "科目 / 科目");
    EXPECT_EQ(screen.path(0), "科目");
    EXPECT_EQ(screen.path(9), "");
}

TEST(ChartCommands, WorkOnAnAccountExceptThoseThatAnEmptyChartNeeds) {
    for (const int command : {chart_command::print, chart_command::preview, chart_command::remove,
                              chart_command::modify, chart_command::copy, chart_command::find,
                              chart_command::whereUsed, chart_command::exportChart})
        EXPECT_TRUE(ChartScreen::needsAccount(command)) << command;
    for (const int command : {chart_command::insert, chart_command::appoint, chart_command::exit,
                              chart_command::refurbish, chart_command::importChart})
        EXPECT_FALSE(ChartScreen::needsAccount(command)) << command;
}
