#pragma once

#include <QPageLayout>

#include "report/layout/report_layout.h"

namespace chengheng {

/// Paper, direction and margins of a report's pages, for a device that is painted on up to the
/// edges of its paper.
QPageLayout paperOf(const ReportLayout& layout);

/// The layout on the paper that a printer's properties name. What differs by no more than the
/// rounding between units stays as it is.
ReportLayout onPaper(ReportLayout layout, const QPageLayout& paper);

}  // namespace chengheng
