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
    BalanceFigure workedOut = nullptr;

    bool isTyped(BalanceFigure figure) const { return std::ranges::count(typed, figure) > 0; }
    bool isChangedFrom(const Balance& before) const {
        return std::ranges::any_of(
            typed, [&](BalanceFigure figure) { return before.*figure != after.*figure; });
    }
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
            step.push_back({account.id, measure, figure, before.*figure, line.after.*figure,
                            figure == line.workedOut});
    }
}

/// Lets a figure that nobody gave follow the others of its line.
void workOut(TypedLine& line, const OpeningAccount& account, Measure measure,
             const EditJournal& earlier) {
    const Balance& before = account.balance(measure);
    if (!line.isChangedFrom(before)) return;
    const auto isTyped = [&](BalanceFigure figure) {
        return line.isTyped(figure) || earlier.isTyped(account.id, measure, figure);
    };
    if (agrees(before, account.isDebit, measure) && !isTyped(&Balance::opening)) {
        line.workedOut = &Balance::opening;
        line.after.opening = openingByMovements(line.after, account.isDebit, measure);
        return;
    }
    const bool isFree =
        before.yearStart == 0 || earlier.isWorkedOut(account.id, measure, &Balance::yearStart);
    if (!isFree || isTyped(&Balance::yearStart)) return;
    line.workedOut = &Balance::yearStart;
    line.after.yearStart = yearStartByOthers(line.after, account.isDebit, measure);
}

}  // namespace

EditStep typedStep(const OpeningSheet& sheet, std::span<const TypedFigure> typed,
                   const EditJournal& earlier) {
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
    }
    for (auto& [key, line] : lines) {
        const OpeningAccount& account = sheet.accounts()[key.first];
        if (sheet.layout() == OpeningLayout::midYear) workOut(line, account, key.second, earlier);
        addFigures(step, account, key.second, line);
    }
    return step;
}

}  // namespace chengheng
