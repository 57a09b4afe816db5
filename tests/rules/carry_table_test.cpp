#include "books/carrying/carry_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace carry_tables {
namespace {

using namespace chengheng;
using testing::ElementsAre;

CarryDifference difference(const std::string& detail) {
    return {.code = "1001",
            .name = "现金",
            .measure = "金额",
            .detail = detail,
            .closing = 5,
            .opening = 4};
}

std::vector<int> widths(const CarryTable& table) {
    std::vector<int> list;
    for (const CarryTable::Column& column : table.columns) list.push_back(column.width);
    return list;
}

TEST(CarryTable, HasColumnsAsWideAsTheirTextsWithinBounds) {
    const CarryDifference plain = difference("单位 02003 顺通物流公司");
    EXPECT_THAT(widths(carryTable(std::span(&plain, 1))), ElementsAre(10, 10, 25, 6, 14, 14, 6));
    const CarryDifference vast = difference(std::string(300, 'x'));
    EXPECT_EQ(carryTable(std::span(&vast, 1)).columns[2].width, 60);
}

TEST(CarryTable, GivesItsTotalsRoom) {
    CarryPreview preview;
    preview.accounts.push_back({.code = "1001", .name = "现金", .isDebit = true, .closing = {}});
    preview.debitTotal = 123456789012.25;
    const CarryTable table = carryTable(preview);
    EXPECT_EQ(table.columns[3].heading, std::string("上年期末余额"));
    EXPECT_EQ(table.columns[3].width, 20);
}

TEST(CarryTable, OfNothingKeepsTheWidthsOfItsColumns) {
    EXPECT_THAT(widths(carryTable(std::span<const CarryDifference>())),
                ElementsAre(14, 24, 32, 6, 18, 18, 18));
}

}  // namespace
}  // namespace carry_tables
