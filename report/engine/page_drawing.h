#pragma once

#include <string>
#include <vector>

#include "report/layout/report.h"
#include "report/layout/report_layout.h"

namespace chengheng {

/// A line of text in a box, in the middle of its height. Millimetres from the page's corner.
struct DrawnText {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;
    std::string text;
    FontRole font = FontRole::cell;
    double scale = 1;
    Alignment alignment = Alignment::left;
};

/// A straight line of a width.
struct DrawnRule {
    double fromX = 0;
    double fromY = 0;
    double toX = 0;
    double toY = 0;
    double width = 0;
};

/// All that stands on one page, in reading order.
struct PageDrawing {
    double width = 0;
    double height = 0;
    std::vector<DrawnText> texts;
    std::vector<DrawnRule> rules;
};

}  // namespace chengheng
