#pragma once

#include "opening/opening_sheet.h"
#include "print/report.h"

namespace chengheng {

/// The sheet as it is printed: the columns that are shown, a row for each line, the accounting
/// year above them.
Report openingReport(const OpeningSheet& sheet, int accountingYear);

}  // namespace chengheng
