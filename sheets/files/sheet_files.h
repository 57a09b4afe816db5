#pragma once

#include <string>
#include <string_view>

#include "sheets/sheet.h"
#include "sheets/sheet_failure.h"

namespace chengheng {

/// Write a sheet as a file, in the place of one that is there already. The new file appears
/// whole or not at all: after a failure the old one is as it was.
std::optional<SheetFailure> writeCsv(const Sheet& sheet, const std::string& path);
std::optional<SheetFailure> writeXlsx(const Sheet& sheet, const std::string& path);

/// Whether a name ends as that of a file that can be written: .csv or .xlsx, in any case.
bool isSheetName(std::string_view path);
/// Writes the one or the other, as the name says.
std::optional<SheetFailure> writeSheet(const Sheet& sheet, const std::string& path);

/// Reads an XLSX or CSV file; which of them it is, its content tells, not its name.
std::optional<SheetFailure> readSheet(const std::string& path, Sheet& sheet);

}  // namespace chengheng
