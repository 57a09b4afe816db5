#include "opening/sheet/opening_columns.h"

#include <algorithm>
#include <array>

#include "opening/sheet/opening_texts.h"

namespace chengheng {
namespace {

using Field = OpeningField;
namespace texts = opening_texts;

constexpr std::array midYearColumns{
    OpeningColumn{Field::code, texts::code, 20},
    OpeningColumn{Field::name, texts::name, 30},
    OpeningColumn{Field::direction, texts::direction, 8},
    OpeningColumn{Field::unit, texts::unit, 18},
    OpeningColumn{Field::yearStart, texts::yearStart, 30},
    OpeningColumn{Field::debit, texts::accumulatedDebit, 30},
    OpeningColumn{Field::credit, texts::accumulatedCredit, 30},
    OpeningColumn{Field::opening, texts::opening, 30},
    OpeningColumn{Field::id, texts::id, 10, true},
    OpeningColumn{Field::type, texts::type, 10, true},
    OpeningColumn{Field::isEnd, texts::isEnd, 10, true},
    OpeningColumn{Field::grade, texts::grade, 10, true},
    OpeningColumn{Field::marker, texts::marker, 10, true},
    OpeningColumn{Field::foreign, texts::foreign, 10, true},
    OpeningColumn{Field::quantity, texts::quantity, 10, true},
    OpeningColumn{Field::auxiliary, texts::auxiliary, 10, true},
};

constexpr bool isOfMidYearOnly(Field field) {
    return field == Field::yearStart || field == Field::debit || field == Field::credit;
}

constexpr auto simpleColumns = [] {
    std::array<OpeningColumn, midYearColumns.size() - 3> kept{};
    std::size_t at = 0;
    for (const OpeningColumn& column : midYearColumns)
        if (!isOfMidYearOnly(column.field)) kept[at++] = column;
    return kept;
}();

}  // namespace

std::span<const OpeningColumn> openingColumns(OpeningLayout layout) {
    if (layout == OpeningLayout::midYear) return midYearColumns;
    return simpleColumns;
}

std::size_t placeOf(OpeningField field, OpeningLayout layout) {
    const auto columns = openingColumns(layout);
    return static_cast<std::size_t>(std::ranges::find(columns, field, &OpeningColumn::field) -
                                    columns.begin());
}

std::size_t placeOf(BalanceFigure figure, OpeningLayout layout) {
    const auto columns = openingColumns(layout);
    const auto found = std::ranges::find(
        columns, figure, [](const OpeningColumn& column) { return figureOf(column.field); });
    return static_cast<std::size_t>(found - columns.begin());
}

BalanceFigure figureOf(OpeningField field) {
    switch (field) {
        case Field::yearStart:
            return &Balance::yearStart;
        case Field::debit:
            return &Balance::debit;
        case Field::credit:
            return &Balance::credit;
        case Field::opening:
            return &Balance::opening;
        default:
            return nullptr;
    }
}

}  // namespace chengheng
