#pragma once

#include <string>
#include <string_view>

#include "host/sheets/sheet.h"
#include "host/sheets/sheet_failure.h"

namespace chengheng {

/// The content of a CSV file: UTF-8 with its mark in front, separated by commas, lines ended
/// by CR LF, quoted by the rules of RFC 4180. Texts stay character by character what they
/// are, whatever a spreadsheet program may take them for.
SheetOutcome csvText(const Sheet& sheet, std::string& text);

/// The cells as spreadsheet programs exchange them over the clipboard: separated by tabs, a
/// line for each row.
SheetOutcome writeClipboardBlock(const Sheet& sheet, std::string& text);

}  // namespace chengheng
