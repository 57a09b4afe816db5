#include "opening/sheet/changed_cells.h"

#include <optional>
#include <set>

#include "opening/sheet/roll_up.h"

namespace chengheng {
namespace {

/// The hidden column in which a main line repeats the opening balance of a measure.
std::optional<OpeningField> repeatedIn(const CellChange& change) {
    if (change.figure != &Balance::opening || change.measure == Measure::money) return std::nullopt;
    return change.measure == Measure::foreign ? OpeningField::foreign : OpeningField::quantity;
}

}  // namespace

std::vector<OpeningCell> changedCells(const OpeningSheet& sheet, const EditStep& step) {
    std::set<OpeningCell> cells;
    for (const CellChange& change : step) {
        const auto changed = sheet.placeOfId(change.accountId);
        if (!changed) continue;
        if (const auto line = sheet.lineOf(*changed, change.measure))
            cells.insert({*line, placeOf(&Balance::opening, sheet.layout())});
        auto places = ancestorsOf(sheet.accounts(), *changed);
        places.push_back(*changed);
        for (const std::size_t place : places) {
            if (const auto line = sheet.lineOf(place, change.measure))
                cells.insert({*line, placeOf(change.figure, sheet.layout())});
            if (const auto field = repeatedIn(change))
                cells.insert({sheet.accounts()[place].firstLine, placeOf(*field, sheet.layout())});
        }
    }
    return {cells.begin(), cells.end()};
}

}  // namespace chengheng
