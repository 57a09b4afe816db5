#pragma once

#include <string>
#include <string_view>

#include "sheets/sheet.h"
#include "sheets/sheet_failure.h"

namespace chengheng {

/// The content of a CSV file: UTF-8 with its mark in front, separated by commas, lines ended
/// by CR LF, quoted by the rules of RFC 4180. Texts stay character by character what they
/// are, whatever a spreadsheet program may take them for.
std::optional<SheetFailure> csvText(const Sheet& sheet, std::string& text);

/// The cells of a CSV file, all of them texts, in any encoding that decodeText reads. Comma,
/// tab and semicolon are told apart by which of them cuts the lines most evenly; any line
/// end will do. Quotes that do not pair are a failure with their place. A line without any
/// sign is a row without cells. Empty cells at the end of a row are not kept, nor are empty
/// rows at the end.
std::optional<SheetFailure> readCsv(std::string_view bytes, Sheet& sheet);

/// The cells as spreadsheet programs exchange them over the clipboard: separated by tabs, a
/// line for each row.
std::optional<SheetFailure> writeClipboardBlock(const Sheet& sheet, std::string& text);

/// Such a block as a sheet of texts. Quotes that do not pair belong to the cell, as some
/// programs do not quote what they copy.
std::optional<SheetFailure> readClipboardBlock(std::string_view text, Sheet& sheet);

}  // namespace chengheng
