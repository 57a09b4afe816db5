#include "host/sheets/written_cells.h"

#include <cmath>

#include "data/dialect/utf8.h"
#include "host/sheets/sheet_texts.h"

namespace chengheng {
namespace {

const char* faultOf(const Cell& cell) {
    if (cell.isNumber() && !std::isfinite(cell.number)) return sheet_texts::notNumber;
    const bool isText = isUtf8(cell.text) && cell.text.find('\0') == std::string::npos;
    return isText ? nullptr : sheet_texts::notText;
}

}  // namespace

SheetOutcome checkWrittenCells(const Sheet& sheet) {
    for (std::size_t row = 0; row < sheet.rows.size(); ++row)
        for (std::size_t column = 0; column < sheet.rows[row].size(); ++column)
            if (const char* fault = faultOf(sheet.rows[row][column]))
                return SheetFailure{.reason = fault, .row = row + 1, .column = column + 1};
    return std::nullopt;
}

}  // namespace chengheng
