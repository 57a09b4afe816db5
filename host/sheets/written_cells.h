#pragma once

#include "host/sheets/sheet.h"
#include "host/sheets/sheet_failure.h"

namespace chengheng {

/// Whether every cell can be written at all: texts are UTF-8 without NUL, numbers are finite.
SheetOutcome checkWrittenCells(const Sheet& sheet);

}  // namespace chengheng
