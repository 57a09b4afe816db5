#pragma once

#include <string>

#include "base/messages/messages.h"
#include "base/system/output_target.h"
#include "session/record_change.h"
#include "sheets/sheet.h"

namespace chengheng {

/// How an operator is told what is wrong with a sheet or its file.
Notice sheetWarning(std::string text);

/// Writes a sheet as the file that an operator named, CSV or XLSX by the end of its name. What
/// keeps it from being written is told.
Outcome exportSheet(IMessages& messages, const Sheet& sheet, const std::string& path,
                    Overwrite overwrite);

}  // namespace chengheng
