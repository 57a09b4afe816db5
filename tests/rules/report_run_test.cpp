#include "report/engine/report_run.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "session/GetPrintFile.h"
#include "tests/support/sample_report.h"

namespace chengheng {
namespace {

using testing::HasSubstr;

TEST(ReportRun, HandsOverMatrixHeadingsAndWidths) {
    Report report = sampleReport({10, 30});
    report.addRow({"1", "现金"});
    report.addRow({"2", {}});
    bool isPut = false;
    EXPECT_FALSE(runReport(report, [&](CReport& engine) {
        isPut = true;
        EXPECT_EQ(engine.columnCount(), 2U);
        EXPECT_EQ(engine.rowCount(), 2U);
        EXPECT_EQ(engine.heading(1), "栏2");
        EXPECT_EQ(engine.width(1), 30);
        EXPECT_EQ(engine.cell(0, 1), "现金");
        EXPECT_EQ(engine.cell(1, 1), "");
    }));
    EXPECT_TRUE(isPut);
}

TEST(ReportRun, PutsTheTitleIntoOneLineAndEmptiesThoseBesideIt) {
    withReport(sampleReport({10}), [](CReport& engine) {
        EXPECT_EQ(engine.headingLine(0), "");
        EXPECT_EQ(engine.headingLine(1), "结算方式一览表");
        EXPECT_EQ(engine.headingLine(2), "");
    });
}

TEST(ReportRun, SetsThePageByTheTemplate) {
    Report report = sampleReport({10});
    report.page = {.paper = 11, .isPortrait = false};
    withReport(report, [](CReport& engine) {
        EXPECT_EQ(engine.extension().page.byPaper, 11);
        EXPECT_EQ(engine.extension().page.bSetting, 2);
        EXPECT_EQ(engine.extension().page.bFit, 1);
        EXPECT_EQ(engine.layout().paperWidth, 148);
        EXPECT_FALSE(engine.layout().isPortrait);
    });
    report.page.isPortrait = true;
    withReport(report, [](CReport& engine) { EXPECT_EQ(engine.extension().page.bSetting, 1); });
}

TEST(ReportRun, LeavesThePaperToTheLayoutFileWhereTheTemplateNamesNoneThatIsKnown) {
    const OwnLayout layout("rpn 1\n[page]\npaper = B5\n");
    for (const std::uint8_t paper : {0, 200}) {
        Report report = sampleReport({10});
        report.page.paper = paper;
        withReport(report, [](CReport& engine) { EXPECT_EQ(engine.layout().paperWidth, 182); });
    }
}

TEST(ReportRun, KnowsPapersByTheNumbersOfThePrintSystems) {
    const std::tuple<std::uint8_t, double, double> papers[] = {
        {1, 215.9, 279.4}, {5, 215.9, 355.6}, {8, 297, 420}, {9, 210, 297},
        {11, 148, 210},    {12, 257, 364},    {13, 182, 257}};
    for (const auto& [number, width, height] : papers) {
        Report report = sampleReport({10});
        report.page.paper = number;
        withReport(report, [&](CReport& engine) {
            EXPECT_EQ(engine.layout().paperWidth, width) << int{number};
            EXPECT_EQ(engine.layout().paperHeight, height) << int{number};
        });
    }
}

TEST(ReportRun, AlignsEachColumnAsItIsRecorded) {
    Report report = sampleReport({10, 10, 10});
    report.columns[1].alignment = Alignment::right;
    report.columns[2].alignment = Alignment::center;
    withReport(report, [](CReport& engine) {
        EXPECT_EQ(engine.alignment(0), Alignment::left);
        EXPECT_EQ(engine.alignment(1), Alignment::right);
        EXPECT_EQ(engine.alignment(2), Alignment::center);
        _SetColWordAlign(0, 2);
        EXPECT_EQ(engine.alignment(1), Alignment::left);
        EXPECT_EQ(engine.alignment(2), Alignment::center);
        _SetColWordAlign(0, 0);
        EXPECT_EQ(engine.alignment(2), Alignment::left);
        _SetColWordAlign(1, 9);
        _SetColWordAlign(1, -1);
        EXPECT_EQ(engine.alignment(2), Alignment::left);
        _SetColWordAlign(1, 3);
        EXPECT_EQ(engine.alignment(1), Alignment::left);
        EXPECT_EQ(engine.alignment(2), Alignment::center);
    });
    EXPECT_EQ(CReport::current(), nullptr);
    _SetColWordAlign(1, 0);
}

TEST(ReportRun, SaysWhyAndPutsNothingWhenTheLayoutFileIsBroken) {
    const OwnLayout layout("rpn 1\n[page]\npaper = A9\n");
    const auto refusal =
        runReport(sampleReport({10}), [](CReport&) { FAIL() << "a broken layout is used"; });
    ASSERT_TRUE(refusal);
    EXPECT_THAT(refusal->notice.text, HasSubstr("Normal.rpn”第3行有误:“A9”应该是"));
}

TEST(ReportRun, SaysWhyAndPutsNothingWhenTheTemplatesPaperLeavesNoRoomForTheTable) {
    const OwnLayout layout("rpn 1\n[page]\nmargins = 10 85 10 85\n");
    Report report = sampleReport({10});
    EXPECT_FALSE(runReport(report, [](CReport&) {}));
    report.page.paper = 11;
    const auto refusal = runReport(report, [](CReport&) { FAIL() << "A5 has no room"; });
    ASSERT_TRUE(refusal);
    EXPECT_THAT(refusal->notice.text, HasSubstr("Normal.rpn"));
    EXPECT_THAT(refusal->notice.text, HasSubstr("没有地方放表格"));
}

TEST(ReportRun, TakesTheLayoutFileThatTheReportNames) {
    const OwnLayout layout("rpn 1\n[page]\npaper = A5\n", "DivideW.rpn");
    Report report = sampleReport({10});
    report.page.paper = 0;
    report.layoutFile = "DivideW.rpn";
    withReport(report, [](CReport& engine) { EXPECT_EQ(engine.layout().paperWidth, 148); });
}

TEST(ReportRun, RefusesAReportWithoutColumns) {
    const auto refusal = runReport(Report(), [](CReport&) { FAIL(); });
    ASSERT_TRUE(refusal);
    EXPECT_THAT(refusal->notice.text, HasSubstr("栏目"));
}

TEST(ReportEngine, ShrinksATableOnlyWhereThePageRecordAllowsIt) {
    const OwnLayout layout("rpn 1\n[page]\nshrink = 60\n");
    withReport(sampleReport({10}), [](CReport& engine) {
        EXPECT_DOUBLE_EQ(engine.layout().leastScale, 0.6);
        engine.extension().page.bFit = 0;
        StructRPTExt(engine);
        EXPECT_DOUBLE_EQ(engine.layout().leastScale, 1);
    });
}

TEST(ReportEngine, RefusesAMatrixThatIsNotFullRows) {
    const char* cells[] = {"1", "2", "3"};
    const char* headings[] = {"甲", "乙"};
    const int widths[] = {4, 4};
    CReport report;
    const std::string layoutFile = GetPrintFile("Normal.rpn");
    EXPECT_NE(report.StructTheRpt(layoutFile.c_str(), cells, 3, 2, headings, widths, 0), 0);
    EXPECT_EQ(report.rowCount(), 0U);
    EXPECT_EQ(report.fault(), "报表的栏目与内容不相符,没有打印。");
    EXPECT_EQ(report.StructTheRpt(layoutFile.c_str(), cells, 2, 2, headings, widths, 0), 0);
    EXPECT_EQ(report.rowCount(), 1U);
    EXPECT_EQ(report.fault(), "");
}

}  // namespace
}  // namespace chengheng
