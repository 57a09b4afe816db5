#include "opening/editing/typed_figures.h"

#include <map>
#include <utility>

namespace chengheng {
namespace {

/// What becomes of one line.
struct TypedLine {
    Balance after;
    bool isOpeningTyped = false;
    bool isMovementTyped = false;
};

using LineKey = std::pair<std::size_t, Measure>;

void addChanges(EditStep& step, const OpeningAccount& account, Measure measure,
                const Balance& after) {
    const Balance& before = account.balance(measure);
    for (const BalanceFigure figure : balanceFigures)
        if (before.*figure != after.*figure)
            step.push_back({account.id, measure, figure, before.*figure, after.*figure});
}

}  // namespace

EditStep typedStep(const OpeningSheet& sheet, std::span<const TypedFigure> typed) {
    EditStep step;
    std::map<LineKey, TypedLine> lines;
    for (const TypedFigure& each : typed) {
        const auto place = sheet.placeOfId(each.accountId);
        if (!place) {
            step.push_back({each.accountId, each.measure, each.figure, 0, each.value});
            continue;
        }
        const auto [line, isNew] = lines.try_emplace({*place, each.measure});
        if (isNew) line->second.after = sheet.accounts()[*place].balance(each.measure);
        line->second.after.*each.figure = each.value;
        const bool isOpening = each.figure == &Balance::opening;
        (isOpening ? line->second.isOpeningTyped : line->second.isMovementTyped) = true;
    }
    for (auto& [key, line] : lines) {
        const OpeningAccount& account = sheet.accounts()[key.first];
        if (line.isMovementTyped && !line.isOpeningTyped)
            line.after.opening = openingByMovements(line.after, account.isDebit, key.second);
        addChanges(step, account, key.second, line.after);
    }
    return step;
}

}  // namespace chengheng
