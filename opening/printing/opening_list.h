#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "opening/sheet/opening_sheet.h"

namespace chengheng {

/// By line of the sheet: whether neither the line's account nor any below it has a figure in any
/// measure, so that the line says nothing on paper.
std::vector<bool> linesWithoutFigures(const OpeningSheet& sheet);

/// The texts of a row by column of the sheet.
using OpeningTotals = std::map<int, std::string>;

/// What the money of the first-level accounts adds up to: a row for those whose balances stand
/// in debit and one for those in credit.
std::vector<OpeningTotals> openingTotals(const OpeningSheet& sheet);

}  // namespace chengheng
