#include "opening/editing/typed_figures.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>
#include <vector>

namespace chengheng {
namespace {

/// What becomes of one line.
struct TypedLine {
    Balance after;
    std::vector<BalanceFigure> typed;
    BalanceFigure workedOut = nullptr;
    BalanceFigure proposed = nullptr;  ///< from the foreign currency of its account

    bool isTyped(BalanceFigure figure) const { return std::ranges::count(typed, figure) > 0; }
    bool isGiven(BalanceFigure figure) const { return isTyped(figure) || figure == proposed; }
    bool isChangedFrom(const Balance& before) const {
        return std::ranges::any_of(balanceFigures, [&](BalanceFigure figure) {
            return isGiven(figure) && before.*figure != after.*figure;
        });
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
                            figure == line.workedOut || figure == line.proposed});
    }
}

/// Lets a figure that nobody gave follow the others of its line.
void workOut(TypedLine& line, const OpeningAccount& account, Measure measure,
             const EditJournal& earlier) {
    const Balance& before = account.balance(measure);
    if (!line.isChangedFrom(before)) return;
    const auto isTyped = [&](BalanceFigure figure) {
        return line.isGiven(figure) || earlier.isTyped(account.id, measure, figure);
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

/// Lets the opening balance in home currency follow the typed one in foreign currency, where
/// nobody gave it, nor the year-start balance that would have to follow it.
void propose(std::map<LineKey, TypedLine>& lines, const OpeningSheet& sheet, std::size_t place,
             const EditJournal& earlier, const HomeRateOf& rateOf) {
    const OpeningAccount& account = sheet.accounts()[place];
    const auto foreign = lines.find({place, Measure::foreign});
    if (foreign == lines.end() || !foreign->second.isTyped(&Balance::opening) ||
        !takesFigures(account, Measure::foreign))
        return;
    const Balance& before = account.balance(Measure::money);
    const auto money = lines.find({place, Measure::money});
    const auto isFree = [&](BalanceFigure figure) {
        const bool isTyped = (money != lines.end() && money->second.isTyped(figure)) ||
                             earlier.isTyped(account.id, Measure::money, figure);
        return !isTyped &&
               (before.*figure == 0 || earlier.isWorkedOut(account.id, Measure::money, figure));
    };
    if (!isFree(&Balance::opening)) return;
    if (sheet.layout() == OpeningLayout::midYear && !isFree(&Balance::yearStart)) return;
    const double amount = foreign->second.after.opening;
    const std::optional<HomeRate> rate = rateOf(account.currency);
    if (!rate && amount != 0) return;
    const std::optional<double> home =
        amount == 0 ? std::optional(0.0) : homeAmount(amount, rate->rate, rate->mode);
    if (!home) return;
    const auto [line, isNew] = lines.try_emplace({place, Measure::money});
    if (isNew) line->second.after = before;
    line->second.after.opening = *home;
    line->second.proposed = &Balance::opening;
}

}  // namespace

EditStep typedStep(const OpeningSheet& sheet, std::span<const TypedFigure> typed,
                   const EditJournal& earlier, const HomeRateOf& rateOf) {
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
    if (rateOf) {
        std::set<std::size_t> places;
        for (const auto& [key, line] : lines) places.insert(key.first);
        for (const std::size_t place : places) propose(lines, sheet, place, earlier, rateOf);
    }
    for (auto& [key, line] : lines) {
        const OpeningAccount& account = sheet.accounts()[key.first];
        if (sheet.layout() == OpeningLayout::midYear) workOut(line, account, key.second, earlier);
        addFigures(step, account, key.second, line);
    }
    return step;
}

}  // namespace chengheng
