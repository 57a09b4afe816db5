#pragma once

#include "opening/window/opening_grid.h"

namespace chengheng {

/// Shows the history of the current figure; beside the figures that of the line's opening.
void showFigureHistory(OpeningGrid& grid, const OpeningSheet& sheet);

}  // namespace chengheng
