#pragma once

#include <string>

#include "sheets/sheet.h"
#include "sheets/sheet_failure.h"

namespace chengheng {

/// Makes an XLSX file of one sheet: texts are text cells, whatever they look like, so that
/// codes keep their zeros and nothing is taken for a formula; numbers are number cells; the
/// header is bold and stays when the rest is scrolled. Intermediate files lie beside it.
std::optional<SheetFailure> makeWorkbook(const Sheet& sheet, const std::string& path);

}  // namespace chengheng
