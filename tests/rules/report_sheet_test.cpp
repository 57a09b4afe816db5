#include "report/output/report_sheet.h"

#include <gtest/gtest.h>

#include "tests/support/sample_report.h"

namespace chengheng {
namespace {

/// The sheet of a report with one column that stands at the right.
Sheet sheetOfFigures(const std::vector<ReportCell>& cells, Alignment alignment = Alignment::right) {
    Report report = sampleReport({10});
    report.columns[0].alignment = alignment;
    for (const ReportCell& cell : cells) report.addRow({cell});
    Sheet sheet;
    withReport(report, [&](CReport& engine) { sheet = sheetOf(engine); });
    return sheet;
}

TEST(ReportSheet, HasARowOfHeadingsThenTheRows) {
    Report report = sampleReport({10, 20});
    report.addRow({"1", {}});
    withReport(report, [](CReport& engine) {
        const Sheet sheet = sheetOf(engine);
        EXPECT_EQ(sheet.name, "结算方式一览表");
        EXPECT_TRUE(sheet.hasHeader);
        ASSERT_EQ(sheet.rows.size(), 2U);
        EXPECT_EQ(sheet.rows[0], (SheetRow{Cell::of("栏1"), Cell::of("栏2")}));
        EXPECT_EQ(sheet.rows[1], (SheetRow{Cell::of("1"), Cell()}));
    });
}

TEST(ReportSheet, MakesNumbersOfAColumnOfFigures) {
    const Sheet sheet = sheetOfFigures({"1,234.50", "-0.05", {}, "0.00", "-1,234,567.80"});
    EXPECT_EQ(sheet.columns[0].decimals, 2);
    EXPECT_EQ(sheet.at(1, 0), Cell::of(1234.5));
    EXPECT_EQ(sheet.at(2, 0), Cell::of(-0.05));
    EXPECT_TRUE(sheet.at(3, 0).isAbsent());
    EXPECT_EQ(sheet.at(4, 0), Cell::of(0.0));
    EXPECT_EQ(sheet.at(5, 0), Cell::of(-1234567.8));
}

TEST(ReportSheet, KeepsTextsWhereAColumnIsNotAllFigures) {
    for (const auto& cells : std::vector<std::vector<ReportCell>>{{"1.00", "平"},
                                                                  {"1.00", "1.0"},
                                                                  {"1e5"},
                                                                  {"1."},
                                                                  {"-"},
                                                                  {","},
                                                                  {"1,5"},
                                                                  {"0,01"},
                                                                  {"12,34.00"},
                                                                  {"-1,5"},
                                                                  {"nan"},
                                                                  {"12345678901234.56"}}) {
        const Sheet sheet = sheetOfFigures(cells);
        EXPECT_EQ(sheet.at(1, 0), Cell::of(*cells[0])) << *cells[0];
    }
}

TEST(ReportSheet, KeepsCodesAsTextsThoughTheyLookLikeFigures) {
    EXPECT_EQ(sheetOfFigures({"0101"}, Alignment::left).at(1, 0), Cell::of("0101"));
}

}  // namespace
}  // namespace chengheng
