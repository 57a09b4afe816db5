#pragma once

#include <optional>
#include <string>

#include "opening/editing/figure_plan.h"
#include "sheets/sheet.h"
#include "sheets/sheet_failure.h"

namespace chengheng {

/// The opening balances as a file: a row for each account of the chart, with the figures of each
/// measure that the books keep. It reads back unchanged.
Sheet exportedOpenings(const OpeningSheet& sheet);

/// What each cell of such a file becomes. Accounts are found by code, columns by their headings;
/// other columns are read over, as are sums of accounts that have others below them. A row is
/// refused when its account is not there or named twice, or when its direction, currency or unit
/// is another than the account's. The failure is one of the whole file: it has no heading row.
std::optional<SheetFailure> planOpeningImport(const OpeningSheet& sheet, const Sheet& file,
                                              FigurePlan& plan);

/// The same of a CSV or XLSX file.
std::optional<SheetFailure> planImportedFile(const OpeningSheet& sheet, const std::string& path,
                                             FigurePlan& plan);

}  // namespace chengheng
