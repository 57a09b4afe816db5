#include "report/engine/report_pages.h"

#include <algorithm>
#include <cmath>

namespace chengheng {
namespace {

/// Heights are sums of rounded lengths; a row that misses its place by less than that has it.
constexpr double tolerance = 1e-6;

double sideRoom(double width, double padding) { return std::max(width - 2 * padding, 0.0); }

}  // namespace

ReportPages::ReportPages(const CReport& report, const ITextMeasure& measure)
    : m_report(report),
      m_measure(measure),
      m_frame(report),
      m_table(tableWidths(report, measure, m_frame.room())),
      m_cells(measure, FontRole::cell, m_table.scale),
      m_figures(measure, FontRole::figure, m_table.scale),
      m_headings(measure, FontRole::column, m_table.scale),
      m_columnHeight(report.layout().columnHeight * m_table.scale) {
    const double padding = report.layout().padding * m_table.scale;
    constexpr std::size_t mostHeadingLines = 4;
    std::size_t lines = 1;
    for (std::size_t column = 0; column < report.columnCount(); ++column)
        lines = std::max(lines, m_headings.lineCount(report.heading(column),
                                                     sideRoom(m_table.widths[column], padding),
                                                     mostHeadingLines));
    m_columnHeight += static_cast<double>(lines - 1) * m_headings.lineHeight();
}

FontRole ReportPages::fontOf(std::size_t column) const {
    return m_report.alignment(column) == Alignment::right ? FontRole::figure : FontRole::cell;
}

const CellSetter& ReportPages::setterOf(std::size_t column) const {
    return fontOf(column) == FontRole::figure ? m_figures : m_cells;
}

std::size_t ReportPages::mostLines() const {
    const ReportLayout& layout = m_report.layout();
    if (layout.overflow == Overflow::ellipsis) return 1;
    const double room =
        m_frame.tableBottom - m_frame.tableTop - m_columnHeight - layout.rowHeight * m_table.scale;
    const double further = std::max(std::floor(room / m_cells.lineHeight()), 0.0);
    return std::min(static_cast<std::size_t>(layout.mostLines),
                    1 + static_cast<std::size_t>(further));
}

double ReportPages::heightOf(std::size_t row) const {
    const ReportLayout& layout = m_report.layout();
    const std::size_t most = mostLines();
    std::size_t lines = 1;
    if (most > 1) {
        const double padding = layout.padding * m_table.scale;
        for (std::size_t column = 0; column < m_report.columnCount(); ++column)
            lines = std::max(
                lines, setterOf(column).lineCount(m_report.cell(row, column),
                                                  sideRoom(m_table.widths[column], padding), most));
    }
    return layout.rowHeight * m_table.scale + static_cast<double>(lines - 1) * m_cells.lineHeight();
}

void ReportPages::layOut(std::size_t rows) {
    const double room = m_frame.tableBottom - m_frame.tableTop - m_columnHeight + tolerance;
    for (; rows > 0 && m_nextRow < m_report.rowCount(); --rows, ++m_nextRow) {
        const double height = heightOf(m_nextRow);
        if (m_used > 0 && m_used + height > room) {
            m_bands.push_back(m_nextRow);
            m_used = 0;
        }
        m_used += height;
    }
}

std::size_t ReportPages::bandEnd(std::size_t band) const {
    return band + 1 < m_bands.size() ? m_bands[band + 1] : m_nextRow;
}

PageNumber ReportPages::numberOf(std::size_t page) const {
    return {page + 1, isComplete() ? pageCount() : 0};
}

PageRows ReportPages::rowsOn(std::size_t page) const {
    const std::size_t band = page / m_table.strips.size();
    return {m_bands[band], bandEnd(band), m_table.strips[page % m_table.strips.size()]};
}

PageDrawing ReportPages::draw(std::size_t page) const {
    PageDrawing drawing{.width = m_frame.width, .height = m_frame.height, .texts = {}, .rules = {}};
    drawAboveTable(drawing, m_report, m_measure, numberOf(page));
    drawTable(drawing, rowsOn(page));
    drawBelowTable(drawing, m_report, m_measure, numberOf(page));
    return drawing;
}

void ReportPages::drawTable(PageDrawing& page, const PageRows& rows) const {
    const Strip& strip = rows.columns;
    const ReportLayout& layout = m_report.layout();
    const double width = m_table.stripWidth(strip);
    const double left = m_frame.left + std::max(m_frame.room() - width, 0.0) / 2;
    const auto across = [&](double y, double rule) {
        if (rule > 0) page.rules.push_back({left, y, left + width, y, rule});
    };
    double y = drawHeadings(page, strip, left);
    for (std::size_t row = rows.first; row < rows.end; ++row) {
        across(y, row == rows.first ? layout.columnRule : layout.rowRule);
        const double height = heightOf(row);
        drawRow(page, strip, row, left, y, height);
        y += height;
    }
    const auto down = [&](double x, double rule) {
        if (rule > 0) page.rules.push_back({x, m_frame.tableTop, x, y, rule});
    };
    double x = left;
    for (std::size_t at = 0; at + 1 < strip.size(); ++at)
        down(x += m_table.widths[strip[at]], layout.columnRule);
    across(m_frame.tableTop, layout.frameRule);
    across(y, layout.frameRule);
    down(left, layout.frameRule);
    down(left + width, layout.frameRule);
}

double ReportPages::drawHeadings(PageDrawing& page, const Strip& strip, double left) const {
    const double padding = m_report.layout().padding * m_table.scale;
    const auto most = static_cast<std::size_t>(m_columnHeight / m_headings.lineHeight());
    for (const std::size_t column : strip) {
        const double width = m_table.widths[column];
        const DrawnText box{.left = left + padding,
                            .top = m_frame.tableTop,
                            .width = sideRoom(width, padding),
                            .height = m_columnHeight,
                            .text = {},
                            .font = FontRole::column,
                            .scale = m_table.scale,
                            .alignment = Alignment::center};
        drawCell(
            page, box,
            m_headings.lines(m_report.heading(column), box.width, std::max(most, std::size_t{1})),
            m_headings.lineHeight());
        left += width;
    }
    return m_frame.tableTop + m_columnHeight;
}

void ReportPages::drawRow(PageDrawing& page, const Strip& strip, std::size_t row, double left,
                          double top, double height) const {
    const double padding = m_report.layout().padding * m_table.scale;
    for (const std::size_t column : strip) {
        const double width = m_table.widths[column];
        const DrawnText box{.left = left + padding,
                            .top = top,
                            .width = sideRoom(width, padding),
                            .height = height,
                            .text = {},
                            .font = fontOf(column),
                            .scale = m_table.scale,
                            .alignment = m_report.alignment(column)};
        drawCell(page, box,
                 setterOf(column).lines(m_report.cell(row, column), box.width, mostLines()),
                 m_cells.lineHeight());
        left += width;
    }
}

void ReportPages::drawCell(PageDrawing& page, const DrawnText& box,
                           const std::vector<std::string>& lines, double lineHeight) const {
    const double height = lineHeight * static_cast<double>(lines.size());
    double top = box.top + (box.height - height) / 2;
    for (const std::string& line : lines) {
        if (!line.empty()) {
            DrawnText text = box;
            text.top = top;
            text.height = lineHeight;
            text.text = line;
            page.texts.push_back(std::move(text));
        }
        top += lineHeight;
    }
}

}  // namespace chengheng
