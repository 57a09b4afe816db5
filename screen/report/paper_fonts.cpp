#include "screen/report/paper_fonts.h"

#include <QString>

#include "screen/fonts.h"

namespace chengheng {

QFont paperFont(const LayoutFont& font) {
    QFont paper = font.family == FontFamily::song ? songFont() : heiFont();
    paper.setPixelSize(qRound(font.points * unitsPerPoint));
    paper.setBold(font.isBold);
    paper.setHintingPreference(QFont::PreferNoHinting);
    // Beside letters a font may put other shapes of digits, which a PDF file has no characters for.
    paper.setStyleStrategy(QFont::PreferNoShaping);
    return paper;
}

PaperMeasure::PaperMeasure(const ReportLayout& layout) {
    for (const LayoutFont& font : layout.fonts) {
        m_fonts.push_back(paperFont(font));
        m_metrics.emplace_back(m_fonts.back());
    }
}

double PaperMeasure::width(FontRole role, std::string_view text) const {
    const auto shown = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    return m_metrics[static_cast<std::size_t>(role)].horizontalAdvance(shown) / paperUnits;
}

double PaperMeasure::lineHeight(FontRole role) const {
    // Chinese faces differ in the room they ask for above and below; the size does not.
    constexpr double spacing = 1.3;
    return font(role).pixelSize() * spacing / paperUnits;
}

}  // namespace chengheng
