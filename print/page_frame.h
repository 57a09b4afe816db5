#pragma once

#include <cstddef>

#include "print/CReport.h"
#include "print/page_drawing.h"

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

/// Draws header, title and heading lines.
void drawAboveTable(PageDrawing& drawing, const CReport& report, const PageNumber& number);
/// Draws the footer.
void drawBelowTable(PageDrawing& drawing, const CReport& report, const PageNumber& number);

}  // namespace chengheng
