#include "screen/report/CNxGridControl.h"

#include <fmt/format.h>

#include <QHeaderView>
#include <algorithm>

#include "base/system/workstation.h"
#include "report/engine/print_texts.h"
#include "report/layout/page_facts.h"
#include "report/output/list_printing.h"
#include "report/output/report_printer.h"
#include "screen/grid/CVCF1.h"
#include "screen/grid/grid_model.h"

using namespace chengheng;

namespace {

/// A figure needs less room on paper than for typing; the engine widens for longer ones.
constexpr int mostFigureWidth = 20;
/// A table with more characters side by side stands on turned pages.
constexpr int uprightWidth = 110;

GridHead headRecord;

std::vector<int> shownSections(const QTableView& grid) {
    std::vector<int> sections;
    const QHeaderView& header = *grid.horizontalHeader();
    for (int place = 0; place < header.count(); ++place)
        if (const int section = header.logicalIndex(place); !header.isSectionHidden(section))
            sections.push_back(section);
    return sections;
}

GridHeadColumn shownColumn(const QTableView& grid, int section) {
    const int character = std::max(1, grid.fontMetrics().horizontalAdvance(QLatin1Char('0')));
    return {.section = section,
            .text = grid.model()->headerData(section, Qt::Horizontal).toString().toStdString(),
            .width = std::max(1, grid.columnWidth(section) / character)};
}

QModelIndex cellOf(const QTableView& grid, int row, const GridHeadColumn& column) {
    return grid.model()->index(row, column.section, grid.rootIndex());
}

Alignment alignmentOf(const QModelIndex& cell) {
    const Qt::Alignment alignment(cell.data(Qt::TextAlignmentRole).toInt());
    if (alignment.testFlag(Qt::AlignRight)) return Alignment::right;
    return alignment.testFlag(Qt::AlignHCenter) ? Alignment::center : Alignment::left;
}

void addColumns(Report& report, const QTableView& grid) {
    int width = 0;
    for (const GridHeadColumn& column : g_lpHead->columns) {
        report.columns.push_back({.heading = column.text,
                                  .field = {},
                                  .width = column.width,
                                  .alignment = alignmentOf(cellOf(grid, 0, column))});
        width += column.width;
    }
    report.page.isPortrait = width <= uprightWidth;
}

/// The first column of a model tells its rows apart, wherever it was moved to.
std::size_t keyColumn() {
    const auto& columns = g_lpHead->columns;
    return static_cast<std::size_t>(
        std::ranges::min_element(columns, {}, &GridHeadColumn::section) - columns.begin());
}

void addTotals(Report& report, const GridChoice& choice) {
    for (const std::map<int, std::string>& texts : choice.totals)
        for (const GridHeadColumn& column : g_lpHead->columns) {
            const auto text = texts.find(column.section);
            report.cells.push_back(text == texts.end() ? ReportCell() : ReportCell(text->second));
        }
}

void addCells(Report& report, const QTableView& grid, const GridChoice& choice) {
    const int rows = grid.model()->rowCount(grid.rootIndex());
    report.cells.reserve(static_cast<std::size_t>(rows) * report.columns.size());
    for (int row = 0; row < rows; ++row) {
        if (grid.isRowHidden(row) || (choice.leavesOut && choice.leavesOut(row))) continue;
        for (const GridHeadColumn& column : g_lpHead->columns)
            report.cells.emplace_back(cellOf(grid, row, column).data().toString().toStdString());
    }
}

std::string dateLine(const std::string& day) { return fmt::format(print_texts::printDate, day); }

void addHeadings(Report& report, const std::array<std::string_view, 4>& headings) {
    const auto& [title, left, right, below] = headings;
    report.title = title;
    if (!left.empty() || !right.empty())
        report.lines.push_back({.left = std::string(left), .right = std::string(right)});
    if (!below.empty()) report.lines.push_back({.left = std::string(below)});
    g_nLine = static_cast<int>(report.lines.size());
    const bool tellsDay = std::ranges::any_of(
        headings,
        [start = dateLine({})](std::string_view text) { return text.starts_with(start); });
    if (tellsDay) report.facts.day = {};
}

}  // namespace

GridHead* const g_lpHead = &headRecord;
int g_nLine = 0;

void SetGridHdr(const QTableView& grid) {
    headRecord = {.owner = grid.window(), .grid = &grid, .columns = {}};
    for (const int section : shownSections(grid))
        headRecord.columns.push_back(shownColumn(grid, section));
}

void SetVCF1Hdr(const CVCF1& grid) {
    SetGridHdr(grid);
    const auto* model = qobject_cast<const GridModel*>(grid.model());
    if (model == nullptr) return;
    for (GridHeadColumn& column : g_lpHead->columns) {
        const GridColumn& given = model->gridColumns()[static_cast<std::size_t>(column.section)];
        const bool isFigure = given.alignment == CellAlignment::number;
        column.width = isFigure ? std::min(given.width, mostFigureWidth) : given.width;
    }
}

bool CNxGridControl::BeforePrintGrid(const QTableView& grid) {
    const auto* own = qobject_cast<const CVCF1*>(&grid);
    own != nullptr ? SetVCF1Hdr(*own) : SetGridHdr(grid);
    return !g_lpHead->columns.empty();
}

bool CNxGridControl::PrintOrPreview(const QTableView& grid,
                                    const std::array<std::string_view, 4>& headings, int flag,
                                    const GridChoice& choice) {
    const bool isPrepared = g_lpHead->grid == &grid && !g_lpHead->columns.empty();
    if (!isPrepared && !BeforePrintGrid(grid)) return false;
    Report report;
    report.facts = hostReportFacts();
    addHeadings(report, headings);
    addColumns(report, grid);
    report.keyColumn = keyColumn();
    addCells(report, grid, choice);
    addTotals(report, choice);
    // Another grid may be printed while these pages are shown.
    g_lpHead->grid = nullptr;
    g_lpHead->columns.clear();
    hostReportPrinter().put(report, flag == 0 ? ReportOutput::print : ReportOutput::preview);
    return true;
}

std::string chengheng::gridPrintDate() { return dateLine(paperDate(today())); }
