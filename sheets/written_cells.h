#pragma once

#include "sheets/sheet.h"
#include "sheets/sheet_failure.h"

namespace chengheng {

/// Whether every cell can be written at all: texts are UTF-8 without NUL, numbers are finite,
/// and there are no more than can be read back.
std::optional<SheetFailure> checkWrittenCells(const Sheet& sheet);

/// Whether a sheet that was read back holds what was written: the same cells, numbers to the
/// 15 digits that spreadsheets keep.
bool isSameContent(const Sheet& written, const Sheet& read);

}  // namespace chengheng
