#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "report/layout/report.h"
#include "report/layout/report_layout.h"

namespace chengheng {

inline constexpr std::int16_t uprightPage = 1;
inline constexpr std::int16_t turnedPage = 2;

/// How the pages of a report differ from what its layout file says.
struct PageRecord {
    std::uint8_t byPaper = 0;   ///< number of the print systems; 0 or an unknown one: the file's
    std::int16_t bSetting = 0;  ///< uprightPage or turnedPage; 0: the file's
    std::int16_t bFit = 0;      ///< 1: a table too wide for the page may shrink
};

/// What a report holds beside its matrix.
struct ReportExtension {
    PageRecord page;
    std::vector<Alignment> alignments;  ///< by column; those that are missing are left
    std::vector<HeadingLine> lines;     ///< under the title
    std::size_t keyColumn = 0;          ///< the one that tells the rows apart
    ReportFacts facts;
};

}  // namespace chengheng

/// A report while it is printed, previewed or exported: matrix, headings, layout. Built up in
/// one order, see runReport. It owns its layout and extension; headings, widths and cells belong
/// to the caller and outlive it. Of several, the one made last goes first.
class CReport {
  public:
    CReport();
    ~CReport();
    CReport(const CReport&) = delete;
    CReport& operator=(const CReport&) = delete;

    /// Takes a matrix, row by row, absent cells null, and reads the layout file. 0 when done;
    /// else fault() says what the operator is told. The last argument is always 0.
    int StructTheRpt(const char* layoutFile, const char* const* cells, int cellCount,
                     int columnCount, const char* const* headings, const int* widths, int);

    /// Line 1 is the title; 0 stands above and 2 below it, where they are not empty.
    void setHeadingLine(std::size_t line, std::string text) { m_lines[line] = std::move(text); }
    const std::string& headingLine(std::size_t line) const { return m_lines[line]; }
    const std::string& title() const { return m_lines[1]; }

    const std::string& fault() const { return m_fault; }
    const chengheng::ReportLayout& layout() const { return m_layout; }
    chengheng::ReportExtension& extension() { return m_extension; }
    const chengheng::ReportExtension& extension() const { return m_extension; }

    std::size_t columnCount() const { return m_columnCount; }
    std::size_t rowCount() const { return m_rowCount; }
    std::string_view heading(std::size_t column) const { return m_headings[column]; }
    /// In characters; a Chinese one counts as two.
    int width(std::size_t column) const { return m_widths[column]; }
    chengheng::Alignment alignment(std::size_t column) const;
    /// Empty where the cell is absent.
    std::string_view cell(std::size_t row, std::size_t column) const {
        const char* text = m_cells[row * m_columnCount + column];
        return text == nullptr ? std::string_view() : std::string_view(text);
    }

    /// Makes the layout follow the page record.
    void settlePage();
    /// Puts the report on other pages than its file and its page record say.
    void useLayout(chengheng::ReportLayout layout) { m_layout = std::move(layout); }
    void setWordAlignment(int alignment, std::size_t column);

    /// The report made last of those that live; null when none does.
    static CReport* current();

  private:
    int refuse(std::string fault);

    const char* const* m_cells = nullptr;
    const char* const* m_headings = nullptr;
    const int* m_widths = nullptr;
    std::size_t m_columnCount = 0;
    std::size_t m_rowCount = 0;
    std::array<std::string, 3> m_lines;
    std::vector<int> m_wordAlignments;
    chengheng::ReportLayout m_fileLayout;
    chengheng::ReportLayout m_layout;
    chengheng::ReportExtension m_extension;
    std::string m_fault;
    CReport* m_before;
};

/// The report's extension record, to be filled; what it holds by then is put into effect.
chengheng::ReportExtension& StructRPTExt(CReport& report);

/// How words stand in a column of the report made last: 0 at the left, 1 as its extension
/// record says. Columns are counted from 1; column 0 means all of them.
void _SetColWordAlign(int alignment, int column);
