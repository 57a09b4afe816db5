#include "report/engine/report_pages.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <tuple>

#include "tests/support/plain_measure.h"
#include "tests/support/sample_report.h"

namespace chengheng {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::Ge;
using testing::Le;
using testing::Not;
using testing::UnorderedElementsAre;

/// 200 mm of width for the table, rows of 10 mm, 10 of them on a page.
constexpr const char* plainPage =
    "rpn 1\n[page]\npaper = 220 x 160\nmargins = 10 10 10 10\nstretch=100\nshrink=50\nrepeat=1\n"
    "[title]\nheight=10\n[heading]\nheight=0\n"
    "[table]\npadding=0\ncolumn-height=10\nrow-height=10\nframe=0.5\n"
    "column-rule=0.1\nrow-rule=0.2\n[footer]\nheight=20\nmiddle = {page}/{pages}\n";

struct ReportPagesTest : testing::Test {
    /// Works on the pages that a report has on the paper of a layout; none is laid out yet.
    void withPages(const Report& report, const std::string& layoutText,
                   const std::function<void(ReportPages&)>& work) {
        const OwnLayout layout(layoutText);
        withReport(report, [&](CReport& engine) {
            engine.extension().page.byPaper = 0;
            StructRPTExt(engine);
            ReportPages pages(engine, measure);
            work(pages);
        });
    }
    /// Lays a report out and draws its pages.
    std::vector<PageDrawing> draw(const Report& report, const std::string& more = {}) {
        std::vector<PageDrawing> pages;
        withPages(report, plainPage + more, [&](ReportPages& laidOut) {
            laidOut.layOut();
            for (std::size_t page = 0; page < laidOut.pageCount(); ++page)
                pages.push_back(laidOut.draw(page));
        });
        return pages;
    }
    static std::vector<std::string> texts(const PageDrawing& page, FontRole font) {
        std::vector<std::string> found;
        for (const DrawnText& text : page.texts)
            if (text.font == font) found.push_back(text.text);
        return found;
    }
    static std::vector<std::string> cells(const PageDrawing& page) {
        std::vector<std::string> found;
        for (const DrawnText& text : page.texts)
            if (text.font == FontRole::cell || text.font == FontRole::figure)
                found.push_back(text.text);
        return found;
    }
    static DrawnText textOf(const PageDrawing& page, const std::string& wanted) {
        for (const DrawnText& text : page.texts)
            if (text.text == wanted) return text;
        ADD_FAILURE() << wanted << " is not on the page";
        return {};
    }
    /// "60,20-160,20 0.5", from left and from the top.
    static std::vector<std::string> ruleTexts(const PageDrawing& page) {
        std::vector<std::string> found;
        for (const DrawnRule& rule : page.rules)
            found.push_back(fmt::format("{:g},{:g}-{:g},{:g} {:g}", rule.fromX, rule.fromY,
                                        rule.toX, rule.toY, rule.width));
        return found;
    }
    PlainMeasure measure;
};

TEST_F(ReportPagesTest, HoldHeadingsAndFrameOfAListWithoutRows) {
    const auto pages = draw(sampleReport({10, 20}));
    ASSERT_EQ(pages.size(), 1U);
    EXPECT_THAT(texts(pages[0], FontRole::title), ElementsAre("结算方式一览表"));
    EXPECT_THAT(texts(pages[0], FontRole::column), ElementsAre("栏1", "栏2"));
    EXPECT_THAT(texts(pages[0], FontRole::edge), ElementsAre("1/1"));
    EXPECT_THAT(cells(pages[0]), ElementsAre());
    EXPECT_GE(pages[0].rules.size(), 4U);
}

TEST_F(ReportPagesTest, FrameTheTableAndPartItsHeadingsColumnsAndRows) {
    Report report = sampleReport({20, 30});
    addNumberedRows(report, 2);
    EXPECT_THAT(ruleTexts(draw(report)[0]),
                UnorderedElementsAre("60,20-160,20 0.5", "60,50-160,50 0.5", "60,20-60,50 0.5",
                                     "160,20-160,50 0.5", "60,30-160,30 0.1", "60,40-160,40 0.2",
                                     "100,20-100,50 0.1"));
}

TEST_F(ReportPagesTest, CarryALongColumnHeadingOnInAHigherRowOfHeadings) {
    Report report = sampleReport({8, 8});
    report.columns[0].heading = "会计科目名称";
    addNumberedRows(report, 1);
    const PageDrawing page = draw(report)[0];
    EXPECT_THAT(texts(page, FontRole::column), ElementsAre("会计科目", "名称", "栏2"));
    EXPECT_DOUBLE_EQ(textOf(page, "会计科目").top, 20 + (14 - 8) / 2.0);
    EXPECT_DOUBLE_EQ(textOf(page, "栏2").top, 20 + (14 - 4) / 2.0);
    EXPECT_DOUBLE_EQ(textOf(page, "1-1").top, 34 + (10 - 4) / 2.0);
}

TEST_F(ReportPagesTest, MoveTheTableDownForALineAboveOrBelowTheTitle) {
    auto lines = std::string(plainPage);
    lines.replace(lines.find("[heading]\nheight=0"), 18, "[heading]\nheight=9");
    const OwnLayout layout(lines);
    for (const std::size_t line : {0U, 2U})
        withReport(sampleReport({10}), [&](CReport& engine) {
            engine.extension().page.byPaper = 0;
            engine.setHeadingLine(line, "一行");
            StructRPTExt(engine);
            const PageDrawing page = ReportPages(engine, measure).draw(0);
            EXPECT_DOUBLE_EQ(textOf(page, "一行").top, line == 0 ? 10 : 20);
            EXPECT_DOUBLE_EQ(textOf(page, "栏1").top, 29 + (10 - 4) / 2.0);
        });
}

TEST_F(ReportPagesTest, TakeAsManyRowsAsThePageHasRoomFor) {
    for (const auto& [rows, pageCount] :
         std::vector<std::pair<std::size_t, std::size_t>>{{10, 1}, {11, 2}, {20, 2}, {21, 3}}) {
        Report report = sampleReport({10});
        addNumberedRows(report, rows);
        EXPECT_EQ(draw(report).size(), pageCount) << rows;
    }
}

TEST_F(ReportPagesTest, RepeatTitleAndHeadingsAndNumberThemselves) {
    Report report = sampleReport({10, 10});
    addNumberedRows(report, 21);
    const auto pages = draw(report);
    ASSERT_EQ(pages.size(), 3U);
    for (std::size_t page = 0; page < 3; ++page) {
        EXPECT_THAT(texts(pages[page], FontRole::title), ElementsAre("结算方式一览表"));
        EXPECT_THAT(texts(pages[page], FontRole::column), ElementsAre("栏1", "栏2"));
        EXPECT_THAT(texts(pages[page], FontRole::edge),
                    ElementsAre(std::to_string(page + 1) + "/3"));
    }
    EXPECT_EQ(cells(pages[1]).front(), "11-1");
    EXPECT_THAT(cells(pages[2]), ElementsAre("21-1", "21-2"));
}

TEST_F(ReportPagesTest, LeaveNoRowOutAndRepeatNone) {
    Report report = sampleReport({10});
    addNumberedRows(report, 137);
    std::vector<std::string> all;
    for (const PageDrawing& page : draw(report))
        for (const std::string& cell : cells(page)) all.push_back(cell);
    ASSERT_EQ(all.size(), 137U);
    for (std::size_t row = 0; row < all.size(); ++row)
        EXPECT_EQ(all[row], std::to_string(row + 1) + "-1");
}

TEST_F(ReportPagesTest, StandTheTableInTheMiddleOfThePage) {
    Report report = sampleReport({20, 30});
    addNumberedRows(report, 1);
    const auto pages = draw(report);
    EXPECT_DOUBLE_EQ(textOf(pages[0], "1-1").left, 60);
    EXPECT_DOUBLE_EQ(textOf(pages[0], "1-2").left, 100);
    EXPECT_DOUBLE_EQ(textOf(pages[0], "1-2").width, 60);
}

TEST_F(ReportPagesTest, WidenANarrowTableNoFurtherThanTheLayoutAllows) {
    Report report = sampleReport({20, 20});
    addNumberedRows(report, 1);
    auto wide = std::string(plainPage);
    wide.replace(wide.find("stretch=100"), 11, "stretch=150");
    withPages(report, wide, [&](ReportPages& pages) {
        pages.layOut();
        EXPECT_DOUBLE_EQ(textOf(pages.draw(0), "1-1").width, 60);
        EXPECT_DOUBLE_EQ(textOf(pages.draw(0), "1-1").scale, 1);
    });
}

TEST_F(ReportPagesTest, ShrinkATableThatIsSomewhatTooWide) {
    Report report = sampleReport({50, 75});
    addNumberedRows(report, 1);
    const auto pages = draw(report);
    ASSERT_EQ(pages.size(), 1U);
    EXPECT_DOUBLE_EQ(textOf(pages[0], "1-1").scale, 0.8);
    EXPECT_DOUBLE_EQ(textOf(pages[0], "1-1").left, 10);
    EXPECT_DOUBLE_EQ(textOf(pages[0], "1-2").width, 120);
    EXPECT_DOUBLE_EQ(textOf(pages[0], "1-1").height, 4 * 0.8);
}

TEST_F(ReportPagesTest, CutAMuchTooWideTableIntoStripsThatBeginWithTheFirstColumn) {
    Report report = sampleReport({20, 60, 60, 60, 60, 60});
    addNumberedRows(report, 22);
    const auto pages = draw(report);
    ASSERT_EQ(pages.size(), 4U);
    EXPECT_THAT(texts(pages[0], FontRole::column), ElementsAre("栏1", "栏2", "栏3", "栏4"));
    EXPECT_THAT(texts(pages[1], FontRole::column), ElementsAre("栏1", "栏5", "栏6"));
    EXPECT_EQ(cells(pages[0]).front(), "1-1");
    EXPECT_EQ(cells(pages[1]).at(1), "1-5");
    EXPECT_THAT(cells(pages[3]), ElementsAre("22-1", "22-5", "22-6"));
    EXPECT_THAT(texts(pages[3], FontRole::edge), ElementsAre("4/4"));
}

TEST_F(ReportPagesTest, BeginEachStripWithTheColumnThatTellsTheRowsApart) {
    Report report = sampleReport({20, 60, 60, 60, 60, 60});
    report.keyColumn = 4;
    addNumberedRows(report, 2);
    const auto pages = draw(report);
    ASSERT_EQ(pages.size(), 2U);
    EXPECT_THAT(texts(pages[0], FontRole::column), ElementsAre("栏5", "栏1", "栏2", "栏3"));
    EXPECT_THAT(texts(pages[1], FontRole::column), ElementsAre("栏4", "栏5", "栏6"));
}

TEST_F(ReportPagesTest, KeepTheOrderOfAStripThatTheColumnStandsAmong) {
    Report report = sampleReport({20, 20, 60, 60, 60, 60});
    report.keyColumn = 1;
    addNumberedRows(report, 2);
    const auto pages = draw(report);
    ASSERT_GE(pages.size(), 2U);
    const auto first = texts(pages[0], FontRole::column);
    EXPECT_THAT(std::vector(first.begin(), first.begin() + 3), ElementsAre("栏1", "栏2", "栏3"));
    EXPECT_EQ(texts(pages[1], FontRole::column).front(), "栏2");
}

TEST_F(ReportPagesTest, OfAListTellTheCodeInEveryStripThoughTheLevelStandsBeforeIt) {
    Report report = sampleReport({6, 18, 40, 40, 40, 40});
    addNumberedRows(report, 3);
    withReport(report, [this](CReport& engine) {
        ReportPages pages(engine, measure);
        pages.layOut();
        ASSERT_GT(pages.pageCount(), 1U);
        for (std::size_t page = 0; page < pages.pageCount(); ++page) {
            const auto headings = texts(pages.draw(page), FontRole::column);
            EXPECT_THAT(std::vector(headings.begin(), headings.begin() + 2),
                        ElementsAre("栏1", "栏2"));
        }
    });
}

TEST_F(ReportPagesTest, ShrinkStripsOnlyWhereThatSavesPages) {
    Report report = sampleReport({90, 90, 90, 90, 90});
    addNumberedRows(report, 1);
    const auto pages = draw(report);
    ASSERT_EQ(pages.size(), 4U);
    EXPECT_LT(textOf(pages[0], "1-1").scale, 1);
}

TEST_F(ReportPagesTest, WidenTheColumnsOfStripsUntilTheyFillThePage) {
    Report report = sampleReport({90, 90, 90, 90, 90});
    addNumberedRows(report, 1);
    auto wide = std::string(plainPage);
    wide.replace(wide.find("stretch=100"), 11, "stretch=200");
    withPages(report, wide, [&](ReportPages& pages) {
        pages.layOut();
        EXPECT_EQ(pages.pageCount(), 4U);
        const DrawnText cell = textOf(pages.draw(0), "1-2");
        EXPECT_NEAR(cell.left, 110, 1e-9);
        EXPECT_NEAR(cell.width, 100, 1e-9);
        EXPECT_DOUBLE_EQ(cell.scale, 0.5);
    });
}

TEST_F(ReportPagesTest, KeepEveryStripWithinThePage) {
    for (const auto& widths : std::vector<std::vector<int>>{
             {500}, {60, 500}, {200, 3, 500, 4}, {99, 99, 99}, {1, 150, 150}}) {
        Report report = sampleReport(widths);
        addNumberedRows(report, 2);
        for (const PageDrawing& page : draw(report))
            for (const DrawnRule& rule : page.rules) {
                EXPECT_THAT(rule.fromX, AllOf(Ge(10 - 1e-9), Le(210 + 1e-9)));
                EXPECT_THAT(rule.toX, AllOf(Ge(10 - 1e-9), Le(210 + 1e-9)));
            }
    }
}

TEST_F(ReportPagesTest, NeverCutAFigure) {
    Report report = sampleReport({4, 4});
    report.columns[1].alignment = Alignment::right;
    report.addRow({"甲乙丙丁", "1,234,567,890.00"});
    const auto pages = draw(report);
    EXPECT_THAT(cells(pages[0]), ElementsAre("甲…", "1,234,567,890.00"));
    EXPECT_EQ(textOf(pages[0], "1,234,567,890.00").alignment, Alignment::right);
    EXPECT_EQ(textOf(pages[0], "1,234,567,890.00").font, FontRole::figure);
}

TEST_F(ReportPagesTest, CarryLongTextsOnWhereTheLayoutWraps) {
    Report report = sampleReport({8, 8});
    report.addRow({"南京清和商贸", "1"});
    report.addRow({"乙", "2"});
    auto wrapping = std::string(plainPage);
    wrapping.replace(wrapping.find("padding=0"), 9, "padding=0\noverflow=wrap\nmost-lines=2");
    withPages(report, wrapping, [&](ReportPages& pages) {
        pages.layOut();
        const PageDrawing page = pages.draw(0);
        EXPECT_THAT(cells(page), ElementsAre("南京清和", "商贸", "1", "乙", "2"));
        const double first = textOf(page, "1").top;
        EXPECT_DOUBLE_EQ(textOf(page, "2").top - first, (14 + 10) / 2.0);
    });
}

TEST_F(ReportPagesTest, StandsAbsentCellsEmpty) {
    Report report = sampleReport({10, 10, 10});
    report.addRow({"1", {}, "3"});
    EXPECT_THAT(cells(draw(report)[0]), ElementsAre("1", "3"));
}

TEST_F(ReportPagesTest, ShowHeadingLinesUnderTheTitle) {
    Report report = sampleReport({10});
    report.lines = {{"科目:1122", {}, "打印日期:2026.05.31"}};
    const auto page = draw(report)[0];
    EXPECT_THAT(texts(page, FontRole::heading), ElementsAre("科目:1122", "打印日期:2026.05.31"));
    EXPECT_EQ(textOf(page, "打印日期:2026.05.31").alignment, Alignment::right);
}

TEST_F(ReportPagesTest, StandHeaderTitleHeadingAndFooterInTheirOrderWithTheirRules) {
    const OwnLayout layout(
        "rpn 1\n[page]\npaper = 220 x 160\nmargins = 10 10 10 10\n"
        "[header]\nleft = {books}\nheight = 6\nrule = 0.3\n[title]\nheight = 10\n"
        "[heading]\nmiddle = {company}\nheight = 5\nrule = 0.4\n"
        "[footer]\nright = {operator}\nheight = 8\nrule = 0.5\n");
    withReport(sampleReport({10}), [&](CReport& engine) {
        engine.extension().page.byPaper = 0;
        engine.setHeadingLine(0, "上一行");
        engine.setHeadingLine(2, "下一行");
        StructRPTExt(engine);
        const PageDrawing page = ReportPages(engine, measure).draw(0);
        for (const auto& [text, top, alignment] : {std::tuple{"示例帐套", 10, Alignment::left},
                                                   {"上一行", 16, Alignment::center},
                                                   {"结算方式一览表", 21, Alignment::center},
                                                   {"下一行", 31, Alignment::center},
                                                   {"恒源公司", 36, Alignment::center},
                                                   {"栏1", 43, Alignment::center},
                                                   {"王芳", 142, Alignment::right}}) {
            EXPECT_DOUBLE_EQ(textOf(page, text).top, top) << text;
            EXPECT_EQ(textOf(page, text).alignment, alignment) << text;
        }
        for (const auto& [width, height] : {std::pair{0.3, 16}, {0.4, 41}, {0.5, 142}}) {
            const auto rule = std::ranges::find(page.rules, width, &DrawnRule::width);
            ASSERT_NE(rule, page.rules.end()) << width;
            EXPECT_DOUBLE_EQ(rule->fromY, height);
            EXPECT_DOUBLE_EQ(rule->toX - rule->fromX, 200);
        }
    });
}

TEST_F(ReportPagesTest, LeaveTheTableARowHoweverMuchStandsAboveIt) {
    Report report = sampleReport({10});
    addNumberedRows(report, 3);
    report.lines.assign(40, {"科目:1122"});
    auto lines = std::string(plainPage);
    lines.replace(lines.find("[heading]\nheight=0"), 18, "[heading]\nheight=9");
    withPages(report, lines, [&](ReportPages& pages) {
        pages.layOut();
        ASSERT_EQ(pages.pageCount(), 3U);
        EXPECT_THAT(cells(pages.draw(2)), ElementsAre("3-1"));
        EXPECT_DOUBLE_EQ(textOf(pages.draw(2), "3-1").top, 160 - 10 - 20 - 10 + 3);
    });
}

TEST_F(ReportPagesTest, CutALongTextThatWouldRunIntoTheOneBesideIt) {
    Report report = sampleReport({10});
    const std::string longName(200, 'x');
    report.lines = {
        {longName, {}, "打印日期:2026.05.31"}, {"左", {}, longName}, {longName, {}, {}}};
    const auto headings = texts(draw(report)[0], FontRole::heading);
    ASSERT_EQ(headings.size(), 5U);
    // 159 mm are left beside the date; a Latin character takes 2, the ellipsis 4.
    EXPECT_EQ(headings[0], std::string(77, 'x') + "…");
    EXPECT_EQ(headings[1], "打印日期:2026.05.31");
    EXPECT_EQ(headings[2], "左");
    EXPECT_EQ(headings[3], std::string(94, 'x') + "…");
    EXPECT_EQ(headings[4], std::string(98, 'x') + "…");
}

TEST_F(ReportPagesTest, LeaveTwoLongTextsOfALineHalfOfItEach) {
    Report report = sampleReport({10});
    report.lines = {{std::string(200, 'x'), {}, std::string(200, 'y')}};
    EXPECT_THAT(texts(draw(report)[0], FontRole::heading),
                ElementsAre(std::string(47, 'x') + "…", std::string(47, 'y') + "…"));
}

TEST_F(ReportPagesTest, KeepThePageNumberFreeOfLongNamesBesideIt) {
    Report report = sampleReport({10});
    report.facts.setName = std::string(200, 'x');
    const auto page = draw(report, "left = {books}\nright = {operator}\n")[0];
    EXPECT_THAT(texts(page, FontRole::edge),
                ElementsAre(std::string(45, 'x') + "…", "1/1", "王芳"));
}

TEST_F(ReportPagesTest, CutATitleThatIsWiderThanThePage) {
    Report report = sampleReport({10});
    report.title = std::string(200, 'x');
    EXPECT_THAT(texts(draw(report)[0], FontRole::title), ElementsAre(std::string(98, 'x') + "…"));
}

TEST_F(ReportPagesTest, LayOutAPortionAtATimeAndKnowTheirCountAtTheEnd) {
    Report report = sampleReport({10});
    addNumberedRows(report, 35);
    withPages(report, plainPage, [&](ReportPages& pages) {
        pages.layOut(12);
        EXPECT_FALSE(pages.isComplete());
        EXPECT_EQ(pages.rowsLaidOut(), 12U);
        EXPECT_EQ(pages.pageCount(), 2U);
        EXPECT_THAT(texts(pages.draw(0), FontRole::edge), ElementsAre("1/…"));
        pages.layOut();
        EXPECT_TRUE(pages.isComplete());
        EXPECT_EQ(pages.pageCount(), 4U);
        EXPECT_THAT(texts(pages.draw(0), FontRole::edge), ElementsAre("1/4"));
    });
}

TEST_F(ReportPagesTest, MeasureNoCellOfAnOrdinaryList) {
    Report report = sampleReport({20, 20});
    addNumberedRows(report, 5000);
    const OwnLayout layout(plainPage);
    withReport(report, [&](CReport& engine) {
        ReportPages pages(engine, measure);
        measure.measured = 0;
        pages.layOut();
        EXPECT_EQ(measure.measured, 0);
    });
}

}  // namespace
}  // namespace chengheng
