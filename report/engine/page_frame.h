#pragma once

#include <cstddef>

#include "report/engine/CReport.h"
#include "report/engine/page_drawing.h"
#include "report/engine/text_measure.h"

namespace chengheng {

/// The place on the page that is the table's, and what stands around it.
struct PageFrame {
    explicit PageFrame(const CReport& report);

    double width;
    double height;
    double left;
    double right;
    double tableTop;
    double tableBottom;

    double room() const { return right - left; }
};

/// Which page of how many, counted from 1; a count of 0 is not known yet.
struct PageNumber {
    std::size_t page;
    std::size_t count;
};

/// Draws header, title and heading lines. A text that would run into another one or off the
/// page is cut.
void drawAboveTable(PageDrawing& drawing, const CReport& report, const ITextMeasure& measure,
                    const PageNumber& number);
/// Draws the footer, likewise.
void drawBelowTable(PageDrawing& drawing, const CReport& report, const ITextMeasure& measure,
                    const PageNumber& number);

}  // namespace chengheng
