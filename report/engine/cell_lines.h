#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "report/engine/text_measure.h"

namespace chengheng {

inline constexpr const char* ellipsis = "…";

/// Sets texts into columns: one font, at a scale.
class CellSetter {
  public:
    CellSetter(const ITextMeasure& measure, FontRole role, double scale);

    /// The text in lines no wider than a width, so many at most; what has no place is cut and
    /// ends in an ellipsis. With one line, line ends in the text count as blanks. Words of Latin
    /// letters and digits stay whole where they have a place. At least one line, however narrow.
    std::vector<std::string> lines(std::string_view text, double width,
                                   std::size_t mostLines) const;
    /// How many lines that gives.
    std::size_t lineCount(std::string_view text, double width, std::size_t mostLines) const;

    double width(std::string_view text) const { return m_measure.width(m_role, text) * m_scale; }
    double lineHeight() const { return m_measure.lineHeight(m_role) * m_scale; }

  private:
    bool fits(std::string_view text, double width) const;
    /// How many bytes of a text without line ends fit; at least one character.
    std::size_t fittingLength(std::string_view text, double width) const;
    std::string cut(std::string_view text, double width) const;

    const ITextMeasure& m_measure;
    FontRole m_role;
    double m_scale;
    double m_widest;  ///< no character is wider
};

}  // namespace chengheng
