#include "operationlog/log_names.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "data/tables/schema.h"

namespace chengheng::log_names_test {
namespace {

bool isChinese(const std::string& text) {
    return !text.empty() && static_cast<unsigned char>(text.front()) >= 0xE3;
}

TEST(LogNames, EveryTableAndColumnHasAChineseOne) {
    for (const TableInfo& table : allTables()) {
        EXPECT_TRUE(isChinese(shownTable(table.name))) << table.name;
        for (const ColumnInfo& column : table.columns)
            EXPECT_TRUE(isChinese(shownColumn(table.name, column.name)))
                << table.name << "." << column.name;
    }
    const TableInfo items = projectItemTable("01");
    EXPECT_EQ(shownTable(items.name), "项目(01)");
    for (const ColumnInfo& column : items.columns)
        EXPECT_TRUE(isChinese(shownColumn(items.name, column.name))) << column.name;
}

TEST(LogNames, NoTwoColumnsOfATableHaveTheSame) {
    for (const TableInfo& table : allTables())
        for (const ColumnInfo& one : table.columns)
            for (const ColumnInfo& other : table.columns)
                if (one.name < other.name)
                    EXPECT_NE(shownColumn(table.name, one.name),
                              shownColumn(table.name, other.name))
                        << table.name << "." << one.name << " " << other.name;
}

TEST(LogNames, AColumnOfOneTableGoesBeforeThatOfAll) {
    EXPECT_EQ(shownColumn("RegMain", "sSign"), "凭证类别");
    EXPECT_EQ(shownColumn("Sign", "sSign"), "类别");
}

TEST(LogNames, WhatNobodyKnowsKeepsItsOwn) {
    EXPECT_EQ(shownTable("X"), "X");
    EXPECT_EQ(shownColumn("Code", "sWhat"), "sWhat");
}

TEST(LogCells, AreReadInWords) {
    EXPECT_EQ(shownLogCell("Code", "bDirect", std::int64_t{1}), "借");
    EXPECT_EQ(shownLogCell("Code", "bDirect", std::int64_t{0}), "贷");
    EXPECT_EQ(shownLogCell("Code", "bEnd", std::int64_t{1}), "是");
    EXPECT_EQ(shownLogCell("Code", "bEnd", std::int64_t{0}), "否");
    EXPECT_EQ(shownLogCell("Sign", "byLimit", std::int64_t{3}), "借贷必无");
    EXPECT_EQ(shownLogCell("Sign", "byLimit", std::int64_t{9}), "9") << "no word for it";
    EXPECT_EQ(shownLogCell("Code", "lNum", std::int64_t{-5}), "-5");
    EXPECT_EQ(shownLogCell("AccSum", "mBegin", 1234.5), "1234.5");
    EXPECT_EQ(shownLogCell("Code", "sName", std::string("现金")), "现金");
    EXPECT_EQ(shownLogCell("RegSub", "lPersonId", LoggedCell()), "(空)");
    EXPECT_EQ(shownLogCell("X", "bWhat", std::int64_t{1}), "1") << "a table that nobody knows";
}

TEST(LogCells, OfPasswordsTellOnlyThatTheyWereChanged) {
    EXPECT_EQ(shownLogCell("Users", "sPassword", std::string("*")), "(不记录)");
    EXPECT_EQ(shownLogCell("Users", "sPassword", std::string("**")), "(不记录,已更改)");
    EXPECT_EQ(shownLogCell("Users", "sUserName", std::string("*")), "*");
}

TEST(LogNames, KindsAndFunctionsHaveTheirs) {
    EXPECT_STREQ(shownKind(ChangeKind::inserted), "增加");
    EXPECT_STREQ(shownKind(ChangeKind::changed), "修改");
    EXPECT_STREQ(shownKind(ChangeKind::deleted), "删除");
    EXPECT_EQ(shownFunction(0), "");
    EXPECT_TRUE(isChinese(shownFunction(1)));
    EXPECT_EQ(shownFunction(-1), "日志末尾不符");
    EXPECT_EQ(shownFunction(-2), "登录");
    EXPECT_EQ(shownFunction(999), "功能 999");
}

}  // namespace
}  // namespace chengheng::log_names_test
