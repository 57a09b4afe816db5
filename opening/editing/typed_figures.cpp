#include "opening/editing/typed_figures.h"

#include <algorithm>
#include <map>
#include <utility>
#include <vector>

namespace chengheng {
namespace {

/// What becomes of one line.
struct TypedLine {
    Balance after;
    std::vector<BalanceFigure> typed;
    bool hasMovementChanged = false;

    bool isTyped(BalanceFigure figure) const { return std::ranges::count(typed, figure) > 0; }
};

using LineKey = std::pair<std::size_t, Measure>;

/// Whether figures may be typed for the account at all.
bool takesFigures(const OpeningAccount& account, Measure measure) {
    return account.isEnd && !account.isAuxiliary() && account.keeps(measure);
}

void addFigures(EditStep& step, const OpeningAccount& account, Measure measure,
                const TypedLine& line) {
    const Balance& before = account.balance(measure);
    for (const BalanceFigure figure : balanceFigures) {
        const bool isCompared = line.isTyped(figure) && takesFigures(account, measure);
        if (isCompared || before.*figure != line.after.*figure)
            step.push_back({account.id, measure, figure, before.*figure, line.after.*figure});
    }
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
        const Balance& before = sheet.accounts()[*place].balance(each.measure);
        if (isNew) line->second.after = before;
        line->second.after.*each.figure = each.value;
        line->second.typed.push_back(each.figure);
        if (each.figure != &Balance::opening && before.*each.figure != each.value)
            line->second.hasMovementChanged = true;
    }
    for (auto& [key, line] : lines) {
        const OpeningAccount& account = sheet.accounts()[key.first];
        if (line.hasMovementChanged && !line.isTyped(&Balance::opening))
            line.after.opening = openingByMovements(line.after, account.isDebit, key.second);
        addFigures(step, account, key.second, line);
    }
    return step;
}

}  // namespace chengheng
