#pragma once

#include <string_view>

#include "sheets/sheet.h"
#include "sheets/sheet_failure.h"

namespace chengheng {

/// The first visible sheet of an XLSX file. Numbers stay numbers, with the zeros in front
/// that their format shows; dates are texts as 2026-01-05; of a formula its result is read.
/// Rows keep their places: one that is left out in the file is a row without cells.
std::optional<SheetFailure> readXlsx(std::string_view bytes, Sheet& sheet);

}  // namespace chengheng
