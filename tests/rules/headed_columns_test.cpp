#include "sheets/headed_columns.h"

#include <gtest/gtest.h>

#include <array>

#include "sheets/delimited/delimited_text.h"

namespace {

using namespace chengheng;

constexpr std::array wanted{WantedColumn{"编码", "code", true}, WantedColumn{"名称", "name", true},
                            WantedColumn{"备注"}};

Sheet sheetOf(const char* csv) {
    Sheet sheet;
    EXPECT_FALSE(readCsv(csv, sheet));
    return sheet;
}

std::string failureOf(const char* csv) {
    HeadedColumns columns;
    const auto failure = findHeadings(sheetOf(csv), wanted, "缺", columns);
    return failure ? failure->text() : "";
}

}  // namespace

TEST(HeadedColumns, StandInAnyOrderBelowTitles) {
    HeadedColumns columns;
    const Sheet sheet = sheetOf("\n编码表\n NAME ,其他,,编码\n甲,,,1\n");
    ASSERT_FALSE(findHeadings(sheet, wanted, "缺", columns));
    EXPECT_EQ(columns.headingRow, 3u);
    EXPECT_EQ(columns.places, (std::vector<std::size_t>{4, 1, 0}));
    EXPECT_EQ(columns.ignored, std::vector<std::string>{"其他"});
    EXPECT_TRUE(isHeadingRow(sheet.rows[2], wanted));
    EXPECT_FALSE(isHeadingRow(sheet.rows[1], wanted));
}

TEST(HeadedColumns, AreToldWhenOneIsMissingOrStandsTwice) {
    EXPECT_EQ(failureOf(""), "缺");
    EXPECT_EQ(failureOf("\n编码,备注\n"), "第 2 行:缺");
    EXPECT_EQ(failureOf("编码,名称,备注,备注\n"), "第 1 行 D 列:标题“备注”重复。");
    EXPECT_EQ(failureOf("编码,名称,code\n"), "第 1 行 C 列:标题“code”重复。");
    EXPECT_EQ(failureOf("编码,名称,其他,其他\n"), "");
}
