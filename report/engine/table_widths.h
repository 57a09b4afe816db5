#pragma once

#include <cstddef>
#include <vector>

#include "report/engine/CReport.h"
#include "report/engine/text_measure.h"

namespace chengheng {

/// Columns that stand side by side on one page.
using Strip = std::vector<std::size_t>;

/// How the columns of a report share the pages. A table that is narrower than the page widens;
/// one that is wider shrinks, and when that is not enough is cut into strips, each of which
/// begins with the columns that tell its rows apart.
struct TableWidths {
    double scale = 1;            ///< of texts, rows and columns
    std::vector<double> widths;  ///< by column, in millimetres, scaled
    std::vector<Strip> strips;

    double stripWidth(const Strip& strip) const;
};

/// `room` is the width between the margins.
TableWidths tableWidths(const CReport& report, const ITextMeasure& measure, double room);

}  // namespace chengheng
