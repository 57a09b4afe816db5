#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "opening/sheet/opening_account.h"

namespace chengheng {

/// What stands in a column of the sheet.
enum class OpeningField : std::uint8_t {
    code,
    name,
    direction,
    unit,  ///< currency or unit of measure of the line
    yearStart,
    debit,
    credit,
    opening,
    id,
    type,
    isEnd,
    grade,
    marker,    ///< how many lines the account has
    foreign,   ///< opening balance in foreign currency
    quantity,  ///< opening balance in quantity
    auxiliary,
};

struct OpeningColumn {
    OpeningField field;
    const char* header;
    int width;  ///< in characters of the grid
    bool isHidden = false;
};

/// The columns of a layout in their order; a column's number is its place here plus 1.
std::span<const OpeningColumn> openingColumns(OpeningLayout layout);

/// The place of a field among the columns; their number when the layout lacks it.
std::size_t placeOf(OpeningField field, OpeningLayout layout);

/// The same of the field that shows a figure.
std::size_t placeOf(BalanceFigure figure, OpeningLayout layout);

/// The figure that a field shows; null for a field that shows none.
BalanceFigure figureOf(OpeningField field);

}  // namespace chengheng
