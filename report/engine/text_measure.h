#pragma once

#include <string_view>

#include "report/layout/report_layout.h"

namespace chengheng {

/// How large texts are on paper, in millimetres, in the fonts of one layout.
class ITextMeasure {
  public:
    virtual ~ITextMeasure() = default;
    /// Of a text in one line.
    virtual double width(FontRole role, std::string_view text) const = 0;
    /// From line to line.
    virtual double lineHeight(FontRole role) const = 0;
};

}  // namespace chengheng
