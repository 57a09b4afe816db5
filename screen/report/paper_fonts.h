#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <vector>

#include "report/engine/text_measure.h"
#include "report/layout/report_layout.h"

namespace chengheng {

/// On every device pages are painted in fourths of a point, so many to a millimetre: common
/// sizes of type are whole numbers then, and small enough for the toolkit to keep their shapes.
inline constexpr double unitsPerPoint = 4;
inline constexpr double millimetresPerInch = 25.4;
inline constexpr double paperUnits = unitsPerPoint * 72 / millimetresPerInch;

/// A font of a layout in paper units. Fonts are those of the machine: what stands on paper is
/// set without fitting it to a screen's pixels, so that each device breaks lines alike.
QFont paperFont(const LayoutFont& font);

/// Measures texts in the fonts of a layout.
class PaperMeasure final : public ITextMeasure {
  public:
    explicit PaperMeasure(const ReportLayout& layout);

    double width(FontRole role, std::string_view text) const override;
    double lineHeight(FontRole role) const override;

    const QFont& font(FontRole role) const { return m_fonts[static_cast<std::size_t>(role)]; }

  private:
    std::vector<QFont> m_fonts;
    std::vector<QFontMetricsF> m_metrics;
};

}  // namespace chengheng
