#include "sheets/sheet_budget.h"

#include <fmt/format.h>

#include <utility>

#include "sheets/sheet_limits.h"
#include "sheets/sheet_texts.h"

namespace chengheng {
namespace {

namespace limits = sheet_limits;

SheetFailure tooMany(fmt::format_string<const std::size_t&> text, const std::size_t limit) {
    return SheetFailure{.reason = fmt::format(text, limit)};
}

}  // namespace

std::optional<SheetFailure> SheetBudget::take(std::size_t cells, std::size_t bytes) {
    m_cells += cells;
    m_bytes += bytes;
    if (m_cells > limits::cells) return tooMany(sheet_texts::tooManyCells, limits::cells);
    if (m_bytes > limits::textSize)
        return tooMany(sheet_texts::tooMuchText, limits::textSize / limits::megabyte);
    return std::nullopt;
}

std::optional<SheetFailure> SheetBudget::put(Sheet& sheet, std::size_t row, std::size_t column,
                                             Cell cell, std::size_t bytes) {
    if (cell.isAbsent()) return std::nullopt;
    if (row >= limits::rows) return tooMany(sheet_texts::tooManyRows, limits::rows);
    if (column >= limits::columns) return tooMany(sheet_texts::tooManyColumns, limits::columns);
    const std::size_t before = row < sheet.rows.size() ? sheet.rows[row].size() : 0;
    const std::size_t added = column < before ? 0 : column + 1 - before;
    if (std::optional<SheetFailure> failure = take(added, bytes)) return failure;
    if (row >= sheet.rows.size()) sheet.rows.resize(row + 1);
    if (added > 0) sheet.rows[row].resize(column + 1);
    sheet.rows[row][column] = std::move(cell);
    return std::nullopt;
}

}  // namespace chengheng
