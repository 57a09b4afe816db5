#include "accounts/transfer/chart_sheet.h"

#include <gtest/gtest.h>

#include "data/tables/accounts.h"
#include "data/tables/currency.h"
#include "sheets/delimited/delimited_text.h"

using namespace chengheng;

namespace {

Sheet sheetOf(const std::string& csv) {
    Sheet sheet;
    EXPECT_EQ(readCsv(csv, sheet), std::nullopt);
    return sheet;
}

ChartSheet read(const std::string& csv) {
    ChartSheet chart;
    const auto failure = readChartSheet(sheetOf(csv), chart);
    EXPECT_FALSE(failure) << failure->text();
    return chart;
}

std::string failureOf(const std::string& csv) {
    ChartSheet chart;
    const auto failure = readChartSheet(sheetOf(csv), chart);
    return failure ? failure->text() : "";
}

}  // namespace

TEST(ChartSheets, AreReadByTheirHeadingsInAnyOrder) {
    const ChartSheet chart = read("\n科目名称,备注, 科目编码 \n现金,x,1001\n\n存款,,1002\n");
    ASSERT_EQ(chart.rows.size(), 2u);
    EXPECT_EQ(chart.rows[0].row, 3u);
    EXPECT_EQ(chart.rows[1].row, 5u);
    EXPECT_EQ(chart.rows[1].at(ChartField::code), "1002");
    EXPECT_EQ(chart.rows[1].at(ChartField::name), "存款");
    EXPECT_EQ(chart.rows[1].at(ChartField::mnemonic), std::nullopt) << "no such column";
    EXPECT_EQ(chart.columnOf(ChartField::code), 3u);
    EXPECT_EQ(chart.ignoredHeadings, std::vector<std::string>{"备注"});
}

TEST(ChartSheets, AreReadInEveryColumn) {
    std::string headings;
    std::string cells;
    for (const ChartColumn& column : chartColumns()) {
        headings += std::string(column.plainHeading) + ",";
        cells += std::string("<") + column.plainHeading + ">,";
    }
    const ChartSheet chart = read(headings + "\n" + cells + "\n");
    ASSERT_EQ(chart.rows.size(), 1u);
    for (const ChartColumn& column : chartColumns())
        EXPECT_EQ(chart.rows[0].at(column.field), std::string("<") + column.plainHeading + ">");
}

TEST(ChartSheets, UnderstandPlainHeadingsInAnyCase) {
    const ChartSheet chart = read("Code,NAME,class,direction\n1001,现金,资产,借\n");
    EXPECT_EQ(chart.rows[0].at(ChartField::className), "资产");
    EXPECT_TRUE(chart.ignoredHeadings.empty());
}

TEST(ChartSheets, MayHaveTitlesAboveTheirHeadings) {
    const ChartSheet chart =
        read("某公司科目编码表,,name\n制表:赵一\n\ncode,name,备注\n1001,现金,x\n");
    ASSERT_EQ(chart.rows.size(), 1u);
    EXPECT_EQ(chart.rows[0].row, 5u);
    EXPECT_EQ(chart.rows[0].at(ChartField::code), "1001");
    EXPECT_EQ(chart.ignoredHeadings, std::vector<std::string>{"备注"});
    EXPECT_EQ(read("科目编码\n科目名称\ncode,name\n1001,现金\n").rows.size(), 1u);
    EXPECT_EQ(failureOf("名册\n科目编码,科目名称,code\n"), "第 2 行 C 列:标题“code”重复。");
}

TEST(ChartSheets, WithoutCodeOrNameAreRefused) {
    const std::string missing = "没有标题行。标题行中应有“科目编码”和“科目名称”。";
    EXPECT_EQ(failureOf(""), missing);
    EXPECT_EQ(failureOf("1001,现金\n"), "第 1 行:" + missing);
    EXPECT_EQ(failureOf("科目编码,科目类型\n1001,资产\n"), "第 1 行:" + missing);
}

TEST(ChartSheets, WithAHeadingTwiceAreRefusedAtItsPlace) {
    EXPECT_EQ(failureOf("科目编码,科目名称,code\n"), "第 1 行 C 列:标题“code”重复。");
}

TEST(ChartSheets, TakeCodesThatASpreadsheetKeptAsNumbers) {
    Sheet sheet = sheetOf("科目编码,科目名称\n");
    sheet.rows.push_back({Cell::of(100101.0), Cell::of("现金")});
    ChartSheet chart;
    ASSERT_FALSE(readChartSheet(sheet, chart));
    EXPECT_EQ(chart.rows[0].at(ChartField::code), "100101");
}

TEST(ChartSheets, ShowLevelsIndentedAndCurrenciesByTheirSymbols) {
    _CodeInfo top;
    top.sCode = "1002";
    top.sName = "银行存款";
    top.sType = "资产";
    top.byGrade = 1;
    top.bDirect = 1;
    _CodeInfo below = top;
    below.sCode = "10020101";
    below.sName = "美元户";
    below.byGrade = 3;
    below.bDirect = 0;
    below.byExchId = 1;
    below.bAmount = 1;
    below.sUnit = "张";
    below.sAssBook = "BRE";
    below.sHelp = "MYH";
    below.sPage = "外币金额式";
    _CyrencyInfo dollar;
    dollar.lId = 1;
    dollar.sExchCode = "USD";
    std::string text;
    ASSERT_FALSE(csvText(chartSheet(std::array{top, below}, std::array{dollar}), text));
    EXPECT_EQ(text,
              "\xEF\xBB\xBF级次,科目编码,科目名称,科目类型,余额方向,帐页格式,助记码,币种,数量核算,"
              "计量单位,个人往来,单位往来,核算部门,核算项目,日记帐,银行帐\r\n"
              "1,1002,银行存款,资产,借,,,,,,,,,,,\r\n"
              "3,10020101,\"    美元户\",资产,贷,外币金额式,MYH,USD,是,张,,是,,,是,是\r\n");
}
