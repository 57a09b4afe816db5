#pragma once

#include <cstddef>

#include "sheets/sheet.h"
#include "sheets/sheet_failure.h"

namespace chengheng {

/// What is left of the limits while a sheet is read.
class SheetBudget {
  public:
    /// Puts a cell into a sheet, making the rows and cells before it as need be. Counts rows
    /// and columns from 0. An absent cell makes none. `bytes` are those of its text that were not
    /// taken before.
    std::optional<SheetFailure> put(Sheet& sheet, std::size_t row, std::size_t column, Cell cell,
                                    std::size_t bytes);
    /// Counts cells and the bytes of texts.
    std::optional<SheetFailure> take(std::size_t cells, std::size_t bytes);

  private:
    std::size_t m_cells = 0;
    std::size_t m_bytes = 0;
};

}  // namespace chengheng
