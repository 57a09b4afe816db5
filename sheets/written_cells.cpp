#include "sheets/written_cells.h"

#include <algorithm>
#include <cmath>

#include "base/values/utf8.h"
#include "sheets/sheet_budget.h"
#include "sheets/sheet_texts.h"

namespace chengheng {
namespace {

const char* faultOf(const Cell& cell) {
    if (cell.isNumber() && !std::isfinite(cell.number)) return sheet_texts::notNumber;
    const bool isText = isUtf8(cell.text) && cell.text.find('\0') == std::string::npos;
    return isText ? nullptr : sheet_texts::notText;
}

bool isSameCell(const Cell& written, const Cell& read) {
    if (written.kind != read.kind) return false;
    if (!written.isNumber()) return written.text == read.text;
    constexpr double precision = 1e-15;
    return std::abs(written.number - read.number) <= std::abs(written.number) * precision;
}

}  // namespace

std::optional<SheetFailure> checkWrittenCells(const Sheet& sheet) {
    SheetBudget budget;
    for (std::size_t row = 0; row < sheet.rows.size(); ++row) {
        for (std::size_t column = 0; column < sheet.rows[row].size(); ++column) {
            const Cell& cell = sheet.rows[row][column];
            if (const char* fault = faultOf(cell))
                return SheetFailure{.reason = fault, .row = row + 1, .column = column + 1};
            if (std::optional<SheetFailure> failure = budget.take(1, cell.text.size()))
                return failure;
        }
    }
    return std::nullopt;
}

bool isSameContent(const Sheet& written, const Sheet& read) {
    const std::size_t columns = std::max(written.columnCount(), read.columnCount());
    for (std::size_t row = 0; row < std::max(written.rows.size(), read.rows.size()); ++row)
        for (std::size_t column = 0; column < columns; ++column)
            if (!isSameCell(written.at(row, column), read.at(row, column))) return false;
    return true;
}

}  // namespace chengheng
