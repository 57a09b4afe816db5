#pragma once

#include <cstdint>
#include <span>

#include "opening/sheet/edit_journal.h"
#include "opening/sheet/opening_sheet.h"

namespace chengheng {

/// A figure of an account and what was typed for it.
struct TypedFigure {
    std::int32_t accountId = 0;
    Measure measure = Measure::money;
    BalanceFigure figure = &Balance::opening;
    double value = 0;
};

/// The step that sets these figures. In books that begin mid-year the opening balance of a line
/// follows the three other figures when one of them changes and it is not typed itself. A figure
/// that is typed as it stands has a part in it, because the books may hold another one by now;
/// so has a figure of an account that the sheet does not hold, for the writing to refuse.
EditStep typedStep(const OpeningSheet& sheet, std::span<const TypedFigure> typed);

}  // namespace chengheng
