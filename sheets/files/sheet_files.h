#pragma once

#include <string>
#include <string_view>

#include "base/system/output_target.h"
#include "sheets/sheet.h"
#include "sheets/sheet_failure.h"

namespace chengheng {

/// Write a sheet as a file that appears whole or not at all: after a failure one that was there
/// is as it was. The path may be of a pipe or a device, "-" of standard output.
std::optional<SheetFailure> writeCsv(const Sheet& sheet, const std::string& path,
                                     Overwrite overwrite);
std::optional<SheetFailure> writeXlsx(const Sheet& sheet, const std::string& path,
                                      Overwrite overwrite);

/// Whether a name ends as that of a file that can be written: .csv or .xlsx, in any case.
/// A pipe or a device of another name takes the former.
bool isSheetName(std::string_view path);
/// Writes the one or the other, as the name says.
std::optional<SheetFailure> writeSheet(const Sheet& sheet, const std::string& path,
                                       Overwrite overwrite);

/// Reads an XLSX or CSV file; which of them it is, its content tells, not its name.
std::optional<SheetFailure> readSheet(const std::string& path, Sheet& sheet);

}  // namespace chengheng
