#include "report/engine/CReport.h"

#include <algorithm>
#include <utility>

#include "report/engine/print_texts.h"
#include "report/layout/layout_file.h"

namespace {

using chengheng::ReportLayout;

constexpr int alignedAsRecorded = 1;

/// Papers by the number that print systems give them, upright, in millimetres.
struct NumberedPaper {
    std::uint8_t number;
    double width;
    double height;
};
constexpr NumberedPaper numberedPapers[] = {{1, 215.9, 279.4}, {5, 215.9, 355.6}, {8, 297, 420},
                                            {9, 210, 297},     {11, 148, 210},    {12, 257, 364},
                                            {13, 182, 257}};

CReport* currentReport = nullptr;

}  // namespace

CReport::CReport() : m_before(std::exchange(currentReport, this)) {}

CReport::~CReport() { currentReport = m_before; }

CReport* CReport::current() { return currentReport; }

int CReport::refuse(std::string fault) {
    m_fault = std::move(fault);
    m_columnCount = 0;
    m_rowCount = 0;
    return -1;
}

int CReport::StructTheRpt(const char* layoutFile, const char* const* cells, int cellCount,
                          int columnCount, const char* const* headings, const int* widths, int) {
    if (columnCount <= 0 || cellCount < 0 || cellCount % columnCount != 0)
        return refuse(chengheng::print_texts::oddMatrix);
    if (auto refusal = chengheng::readLayoutFile(layoutFile, m_fileLayout))
        return refuse(std::move(refusal->notice.text));
    m_fault.clear();
    m_layout = m_fileLayout;
    m_cells = cells;
    m_headings = headings;
    m_widths = widths;
    m_columnCount = static_cast<std::size_t>(columnCount);
    m_rowCount = static_cast<std::size_t>(cellCount) / m_columnCount;
    m_wordAlignments.assign(m_columnCount, 0);
    return 0;
}

chengheng::Alignment CReport::alignment(std::size_t column) const {
    const auto& recorded = m_extension.alignments;
    const bool isRecorded =
        m_wordAlignments[column] == alignedAsRecorded && column < recorded.size();
    return isRecorded ? recorded[column] : chengheng::Alignment::left;
}

void CReport::setWordAlignment(int alignment, std::size_t column) {
    if (column == 0) std::ranges::fill(m_wordAlignments, alignment);
    if (column >= 1 && column <= m_wordAlignments.size()) m_wordAlignments[column - 1] = alignment;
}

void CReport::settlePage() {
    const chengheng::PageRecord& page = m_extension.page;
    ReportLayout layout = m_fileLayout;
    const auto* const paper =
        std::ranges::find(numberedPapers, page.byPaper, &NumberedPaper::number);
    if (paper != std::end(numberedPapers)) {
        layout.paperWidth = paper->width;
        layout.paperHeight = paper->height;
    }
    if (page.bSetting != 0) layout.isPortrait = page.bSetting == chengheng::uprightPage;
    if (page.bFit == 0) layout.leastScale = 1;
    m_layout = std::move(layout);
}

chengheng::ReportExtension& StructRPTExt(CReport& report) {
    report.settlePage();
    return report.extension();
}

void _SetColWordAlign(int alignment, int column) {
    if (CReport* const report = CReport::current(); report != nullptr && column >= 0)
        report->setWordAlignment(alignment, static_cast<std::size_t>(column));
}
