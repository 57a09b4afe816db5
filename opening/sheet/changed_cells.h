#pragma once

#include <compare>
#include <cstddef>
#include <vector>

#include "opening/sheet/edit_journal.h"
#include "opening/sheet/opening_sheet.h"

namespace chengheng {

struct OpeningCell {
    std::size_t line = 0;
    std::size_t column = 0;

    auto operator<=>(const OpeningCell&) const = default;
};

/// The cells that look otherwise once a step is in the sheet, each once and from the top down:
/// its figures, the sums of them in the accounts above, and what main lines repeat of them in
/// hidden columns. In books that begin mid-year the opening balance of a changed line is one of
/// them: its colour tells whether it follows from the other figures.
std::vector<OpeningCell> changedCells(const OpeningSheet& sheet, const EditStep& step);

}  // namespace chengheng
