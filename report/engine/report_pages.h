#pragma once

#include <cstddef>
#include <limits>
#include <vector>

#include "report/engine/cell_lines.h"
#include "report/engine/page_drawing.h"
#include "report/engine/page_frame.h"
#include "report/engine/table_widths.h"

namespace chengheng {

/// The part of a table that stands on one page.
struct PageRows {
    std::size_t first;
    std::size_t end;
    const Strip& columns;
};

/// The pages of a report. Rows are laid out a portion at a time, so that the first pages can
/// be seen while the last are not counted yet. The strips of a wide table follow one another
/// before the next rows come. Report and measure outlive it.
class ReportPages {
  public:
    ReportPages(const CReport& report, const ITextMeasure& measure);

    static constexpr std::size_t everyRow = std::numeric_limits<std::size_t>::max();
    /// Lays out so many further rows.
    void layOut(std::size_t rows = everyRow);
    bool isComplete() const { return m_nextRow == m_report.rowCount(); }
    std::size_t rowsLaidOut() const { return m_nextRow; }

    /// Pages whose rows are known; the last one may still get more.
    std::size_t pageCount() const { return m_bands.size() * m_table.strips.size(); }
    /// Pages are counted from 0.
    PageDrawing draw(std::size_t page) const;
    PageNumber numberOf(std::size_t page) const;
    PageRows rowsOn(std::size_t page) const;

    double pageWidth() const { return m_frame.width; }
    double pageHeight() const { return m_frame.height; }

  private:
    FontRole fontOf(std::size_t column) const;
    const CellSetter& setterOf(std::size_t column) const;
    std::size_t mostLines() const;
    double heightOf(std::size_t row) const;
    std::size_t bandEnd(std::size_t band) const;
    void drawTable(PageDrawing& page, const PageRows& rows) const;
    double drawHeadings(PageDrawing& page, const Strip& strip, double left) const;
    void drawRow(PageDrawing& page, const Strip& strip, std::size_t row, double left, double top,
                 double height) const;
    void drawCell(PageDrawing& page, const DrawnText& box, const std::vector<std::string>& lines,
                  double lineHeight) const;

    const CReport& m_report;
    const ITextMeasure& m_measure;
    PageFrame m_frame;
    TableWidths m_table;
    CellSetter m_cells;
    CellSetter m_figures;
    CellSetter m_headings;
    double m_columnHeight;
    std::vector<std::size_t> m_bands{0};  ///< the first row of each page, strips aside
    std::size_t m_nextRow = 0;
    double m_used = 0;  ///< by the rows of the last page
};

}  // namespace chengheng
