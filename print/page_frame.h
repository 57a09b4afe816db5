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

/// Draws header, title, heading lines and footer. Pages are counted from 1; a count of 0 is not
/// known yet.
void drawAround(PageDrawing& drawing, const CReport& report, std::size_t page,
                std::size_t pageCount);

}  // namespace chengheng
