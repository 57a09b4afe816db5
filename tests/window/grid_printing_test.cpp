#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QHeaderView>
#include <QStandardItemModel>
#include <QTableView>
#include <array>
#include <optional>

#include "base/system/workstation.h"
#include "report/layout/page_facts.h"
#include "screen/grid/CVCF1.h"
#include "screen/grid/grid_model.h"
#include "screen/report/CNxGridControl.h"
#include "tests/support/recording_printer.h"

using namespace chengheng;
using testing::ElementsAre;

namespace {

using Headings = std::array<std::string_view, 4>;
constexpr Headings plainHeadings{"科目余额", "科目:1122", "", "第2部分"};

constexpr std::array paperColumns{
    GridColumn{"方\n向", 6, CellAlignment::centre},
    GridColumn{"科目名称", 24},
    GridColumn{"编号", 10, CellAlignment::number, true},
    GridColumn{"期初余额", 30, CellAlignment::number},
};

class TwoAccountsModel final : public GridModel {
  public:
    TwoAccountsModel() : GridModel(paperColumns) {}
    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : 2; }

  protected:
    QString text(int row, int column) const override {
        constexpr std::array<std::array<const char*, 4>, 2> texts{
            {{"借", "现金", "7", "1,234.50"}, {"贷", "应付账款", "8", ""}}};
        return QString::fromUtf8(
            texts.at(static_cast<std::size_t>(row)).at(static_cast<std::size_t>(column)));
    }
};

std::vector<std::string> cellTexts(const Report& report) {
    std::vector<std::string> cells;
    for (const ReportCell& cell : report.cells) cells.push_back(cell.value_or("absent"));
    return cells;
}

std::vector<std::string> columnHeadings(const Report& report) {
    std::vector<std::string> texts;
    for (const ReportColumn& column : report.columns) texts.push_back(column.heading);
    return texts;
}

class GridPrintingTest : public testing::Test {
  protected:
    void SetUp() override { grid.setGridModel(&model); }

    const Report& printed(const QTableView& view, const Headings& headings = plainHeadings) {
        EXPECT_TRUE(CNxGridControl::PrintOrPreview(view, headings, 0));
        return printer.outputs.back().report;
    }

    RecordingPrinter printer;
    HostReportPrinter installed{printer};
    TwoAccountsModel model;
    CVCF1 grid{"科目余额", CVCF1::Unit::row};
};

}  // namespace

TEST_F(GridPrintingTest, PrintsTheShownColumnsAsTheyRead) {
    const Report& report = printed(grid);
    EXPECT_THAT(columnHeadings(report), ElementsAre("方\n向", "科目名称", "期初余额"));
    EXPECT_THAT(cellTexts(report), ElementsAre("借", "现金", "1,234.50", "贷", "应付账款", ""));
    EXPECT_EQ(report.columns[0].alignment, Alignment::center);
    EXPECT_EQ(report.columns[1].alignment, Alignment::left);
    EXPECT_EQ(report.columns[2].alignment, Alignment::right);
}

TEST_F(GridPrintingTest, TakesTheWidthsOfAGridInCharactersAndNarrowsFigures) {
    ASSERT_TRUE(CNxGridControl::BeforePrintGrid(grid));
    ASSERT_EQ(g_lpHead->columns.size(), 3);
    EXPECT_EQ(g_lpHead->columns[0].width, 6);
    EXPECT_EQ(g_lpHead->columns[1].width, 24);
    EXPECT_EQ(g_lpHead->columns[2].width, 20);
}

TEST_F(GridPrintingTest, EntersTheWindowOfTheGridAsTheOwner) {
    QWidget window;
    QTableView inside(&window);
    CNxGridControl::BeforePrintGrid(inside);
    EXPECT_EQ(g_lpHead->owner, &window);
}

TEST_F(GridPrintingTest, PutsTheTitleAndTwoHeadingTextsToALineAboveTheTable) {
    const Report& report = printed(grid, {"部门核算期初", "科目:1122", "部门:一部", "第2部分"});
    EXPECT_EQ(report.title, "部门核算期初");
    ASSERT_EQ(report.lines.size(), 2);
    EXPECT_EQ(report.lines[0].left, "科目:1122");
    EXPECT_EQ(report.lines[0].right, "部门:一部");
    EXPECT_EQ(report.lines[1].left, "第2部分");
    EXPECT_EQ(g_nLine, 2);
}

TEST_F(GridPrintingTest, LeavesNoEmptyLineUnderATitleAlone) {
    EXPECT_TRUE(printed(grid, {"科目余额", "", "", ""}).lines.empty());
    EXPECT_EQ(g_nLine, 0);
}

TEST_F(GridPrintingTest, LeavesTheDayOfPrintingToTheLayoutWhereNoHeadingTellsIt) {
    EXPECT_EQ(printed(grid).facts.day, today());
}

TEST_F(GridPrintingTest, TellsTheDayOfPrintingOnceWhereAHeadingTellsIt) {
    const std::string day = gridPrintDate();
    EXPECT_EQ(day, "打印日期:" + paperDate(today()));
    const Report& report = printed(grid, {"科目余额", "科目:1122", day, ""});
    EXPECT_EQ(report.lines[0].right, day);
    EXPECT_FALSE(report.facts.day.isSet());
}

TEST_F(GridPrintingTest, PrintsWithFlag0AndPreviewsWithFlag1) {
    CNxGridControl::PrintOrPreview(grid, plainHeadings, 0);
    CNxGridControl::PrintOrPreview(grid, plainHeadings, 1);
    ASSERT_EQ(printer.outputs.size(), 2);
    EXPECT_EQ(printer.outputs[0].kind, ReportOutput::print);
    EXPECT_EQ(printer.outputs[1].kind, ReportOutput::preview);
}

TEST_F(GridPrintingTest, TakesTextsAndWidthsThatWereChangedBefore) {
    ASSERT_TRUE(CNxGridControl::BeforePrintGrid(grid));
    g_lpHead->columns[1].text = "名称";
    g_lpHead->columns[1].width = 40;
    EXPECT_EQ(printed(grid).columns[1].heading, "名称");
    EXPECT_EQ(printer.outputs[0].report.columns[1].width, 40);
    EXPECT_EQ(printed(grid).columns[1].heading, "科目名称");
}

TEST_F(GridPrintingTest, PreparesAnewForAnotherGrid) {
    QStandardItemModel other(1, 1);
    other.setHorizontalHeaderLabels({"编码"});
    QTableView table;
    table.setModel(&other);
    ASSERT_TRUE(CNxGridControl::BeforePrintGrid(grid));
    EXPECT_THAT(columnHeadings(printed(table)), ElementsAre("编码"));
    EXPECT_EQ(printed(table).keyColumn, 0U);
}

TEST_F(GridPrintingTest, TurnsThePageForATableOfMoreThan110Characters) {
    CNxGridControl::BeforePrintGrid(grid);
    g_lpHead->columns[1].width = 110 - 6 - 20;
    EXPECT_TRUE(printed(grid).page.isPortrait);
    CNxGridControl::BeforePrintGrid(grid);
    g_lpHead->columns[1].width = 111 - 6 - 20;
    EXPECT_FALSE(printed(grid).page.isPortrait);
}

TEST_F(GridPrintingTest, PrintsAnyTableInTheOrderOfTheScreenWithoutHiddenRows) {
    QStandardItemModel items(3, 2);
    items.setHorizontalHeaderLabels({"编码", "名称"});
    for (int row = 0; row < 3; ++row) {
        items.setItem(row, 0, new QStandardItem(QString::number(row)));
        items.setItem(row, 1, new QStandardItem("名" + QString::number(row)));
    }
    items.setData(items.index(0, 0), QVariant::fromValue(Qt::Alignment(Qt::AlignRight)),
                  Qt::TextAlignmentRole);
    QTableView table;
    table.setModel(&items);
    table.setRowHidden(1, true);
    table.horizontalHeader()->moveSection(1, 0);
    const int character = table.fontMetrics().horizontalAdvance(QLatin1Char('0'));
    table.setColumnWidth(0, 12 * character);
    const Report& report = printed(table);
    EXPECT_THAT(columnHeadings(report), ElementsAre("名称", "编码"));
    EXPECT_THAT(cellTexts(report), ElementsAre("名0", "0", "名2", "2"));
    EXPECT_EQ(report.keyColumn, 1U);
    EXPECT_EQ(report.columns[1].width, 12);
    EXPECT_EQ(report.columns[1].alignment, Alignment::right);
}

TEST_F(GridPrintingTest, PrintsHeadingsOfAGridWithoutRows) {
    QStandardItemModel none(0, 2);
    none.setHorizontalHeaderLabels({"编码", "名称"});
    QTableView table;
    table.setModel(&none);
    const Report& report = printed(table);
    EXPECT_THAT(columnHeadings(report), ElementsAre("编码", "名称"));
    EXPECT_EQ(report.rowCount(), 0);
}

TEST_F(GridPrintingTest, PrintsNothingWithoutAShownColumn) {
    for (int column = 0; column < model.columnCount(); ++column) grid.setColumnHidden(column, true);
    EXPECT_FALSE(CNxGridControl::BeforePrintGrid(grid));
    EXPECT_FALSE(CNxGridControl::PrintOrPreview(grid, plainHeadings, 0));
    const QTableView empty;
    EXPECT_FALSE(CNxGridControl::PrintOrPreview(empty, plainHeadings, 0));
    EXPECT_TRUE(printer.outputs.empty());
}
