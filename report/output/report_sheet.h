#pragma once

#include "report/engine/CReport.h"
#include "sheets/sheet.h"

namespace chengheng {

/// A report as a spreadsheet holds it: a row of headings, then the rows. Columns that stand at
/// the right and hold nothing but figures become numbers, with the decimals they show; every
/// other cell stays the text it is, so that codes keep their zeros.
Sheet sheetOf(const CReport& report);

}  // namespace chengheng
