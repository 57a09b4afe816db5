#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "opening/editing/typed_figures.h"
#include "opening/sheet/opening_sheet.h"
#include "sheets/sheet.h"

namespace chengheng {

/// What becomes of a cell that is pasted or imported.
enum class CellFate : std::uint8_t {
    changed,
    unchanged,
    ignored,  ///< it need not be written: a sum of other accounts
    refused,
};

struct PlannedCell {
    std::size_t row = 0;     ///< in the block or file, counted from 0
    std::size_t column = 0;  ///< likewise
    CellFate fate = CellFate::refused;
    std::string text;          ///< what stands there
    std::string reason = {};   ///< why it is ignored or refused
    std::string code = {};     ///< of the account that it belongs to
    std::string name = {};     ///< likewise
    std::string heading = {};  ///< of its column
    TypedFigure figure = {};   ///< what it becomes
    double before = 0;
    bool disagrees = false;  ///< the figures of its line will not agree
};

/// What each cell becomes before anything is written. It is applied as a whole, and only when no
/// cell is refused. Blank cells have no part in it.
struct FigurePlan {
    std::vector<PlannedCell> cells;

    std::size_t count(CellFate fate) const;
    bool mayBeApplied() const {
        return count(CellFate::refused) == 0 && count(CellFate::changed) > 0;
    }
    /// The figures of the cells that change something, and those that are given as they stand: the
    /// books may hold others by now, and an opening balance follows no movement given with it.
    std::vector<TypedFigure> figures() const;
};

/// The fate of a cell that is meant for a figure of an account of the sheet. Row and column are
/// left to the caller.
PlannedCell plannedFigure(const OpeningSheet& sheet, std::size_t place, Measure measure,
                          BalanceFigure figure, const Cell& cell);

/// A cell that is refused for a reason of its own.
PlannedCell refusedCell(const Cell& cell, std::string reason);

/// "第 3 行 B 列:1001 0.00 → 5.00", or with the reason why it is ignored or refused.
std::string plannedCellText(const PlannedCell& cell);

/// Whether a cell holds nothing but blanks.
bool isBlankCell(const Cell& cell);

/// The plan of pasting a block with its first cell on a cell of the sheet. The rows of the block
/// go to the lines below each other, accounts above others included, the columns to the shown
/// columns beside each other.
FigurePlan planPaste(const OpeningSheet& sheet, std::size_t line, std::size_t column,
                     const Sheet& block);

/// Marks the cells that leave a line whose opening balance does not follow from its other
/// figures, so that this is seen before it is written. `earlier` as for typedStep.
void markDisagreeing(FigurePlan& plan, const OpeningSheet& sheet, const EditJournal& earlier = {});

}  // namespace chengheng
