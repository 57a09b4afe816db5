#include "opening/editing/figure_plan.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

#include "base/values/amount_text.h"
#include "base/values/numbers.h"
#include "base/values/text.h"
#include "opening/editing/typed_amount.h"
#include "opening/editing/typed_figures.h"
#include "opening/sheet/opening_texts.h"
#include "sheets/sheet_failure.h"

namespace chengheng {
namespace {

namespace texts = opening_texts;

/// The number that a cell holds; nothing when it holds none.
std::optional<double> numberIn(const Cell& cell) {
    if (cell.isNumber()) return cell.number;
    return readAmount(cell.text);
}

/// Whether the cell need not or must not be written, with the reason.
void judge(PlannedCell& planned, const OpeningSheet& sheet, const OpeningAccount& account) {
    const TypedFigure& figure = planned.figure;
    const auto set = [&planned](CellFate fate, const char* reason) {
        planned.fate = fate;
        planned.reason = reason;
    };
    if (sheet.isBrowsing()) return set(CellFate::refused, texts::onlyBrowsing);
    if (!account.isEnd) return set(CellFate::ignored, texts::sumOfOthers);
    if (!account.keeps(figure.measure)) {
        if (figure.value == 0) return set(CellFate::unchanged, "");
        return set(CellFate::refused, figure.measure == Measure::foreign ? texts::keepsNoCurrency
                                                                         : texts::keepsNoQuantity);
    }
    if (planned.before == figure.value) return set(CellFate::unchanged, "");
    if (account.isAuxiliary()) return set(CellFate::refused, texts::typedAuxiliary);
    if (std::fabs(figure.value) >= leastTooLarge)
        return set(CellFate::refused, texts::tooLargeCell);
    set(CellFate::changed, "");
}

/// The shown columns from one on.
std::vector<std::size_t> columnsFrom(const OpeningSheet& sheet, std::size_t column) {
    std::vector<std::size_t> found;
    for (; column < sheet.columns().size(); ++column)
        if (!sheet.columns()[column].isHidden) found.push_back(column);
    return found;
}

}  // namespace

std::size_t FigurePlan::count(CellFate fate) const {
    return static_cast<std::size_t>(std::ranges::count(cells, fate, &PlannedCell::fate));
}

std::vector<TypedFigure> FigurePlan::figures() const {
    std::vector<TypedFigure> typed;
    for (const PlannedCell& cell : cells)
        if (cell.fate == CellFate::changed || cell.fate == CellFate::unchanged)
            typed.push_back(cell.figure);
    return typed;
}

bool isBlankCell(const Cell& cell) {
    return cell.isAbsent() || (!cell.isNumber() && withoutBlanksAround(cell.text).empty());
}

PlannedCell refusedCell(const Cell& cell, std::string reason) {
    PlannedCell planned;
    planned.text = cellText(cell);
    planned.reason = std::move(reason);
    return planned;
}

PlannedCell plannedFigure(const OpeningSheet& sheet, std::size_t place, Measure measure,
                          BalanceFigure figure, const Cell& cell) {
    const OpeningAccount& account = sheet.accounts()[place];
    const auto number = numberIn(cell);
    if (!number) {
        PlannedCell refused = refusedCell(cell, whyNoAmount(cell.text));
        refused.code = account.code;
        refused.name = account.name;
        return refused;
    }
    PlannedCell planned;
    planned.text = cellText(cell);
    planned.code = account.code;
    planned.name = account.name;
    planned.before = account.balance(measure).*figure;
    planned.figure = {account.id, measure, figure, *number};
    Round(planned.figure.value, decimalsOf(measure));
    judge(planned, sheet, account);
    return planned;
}

void markDisagreeing(FigurePlan& plan, const OpeningSheet& sheet, const EditJournal& earlier) {
    if (sheet.layout() == OpeningLayout::simple) return;
    std::map<std::pair<std::int32_t, Measure>, Balance> lines;
    for (const CellChange& change : typedStep(sheet, plan.figures(), earlier)) {
        const auto place = sheet.placeOfId(change.accountId);
        if (!place) continue;
        const Balance& before = sheet.accounts()[*place].balance(change.measure);
        lines.try_emplace({change.accountId, change.measure}, before).first->second.*change.figure =
            change.after;
    }
    for (PlannedCell& cell : plan.cells) {
        const auto line = lines.find({cell.figure.accountId, cell.figure.measure});
        if (cell.fate != CellFate::changed || line == lines.end()) continue;
        const OpeningAccount& account = sheet.accounts()[*sheet.placeOfId(cell.figure.accountId)];
        cell.disagrees = !agrees(line->second, account.isDebit, cell.figure.measure);
    }
}

std::string plannedCellText(const PlannedCell& cell) {
    const int decimals = decimalsOf(cell.figure.measure);
    std::string what =
        cell.reason.empty()
            ? fmt::format(texts::figureChange, cell.code, ftoaWithSap(cell.before, decimals),
                          ftoaWithSap(cell.figure.value, decimals))
            : fmt::format(texts::cellReason, cell.code, cell.reason, cell.text);
    if (cell.disagrees) what += fmt::format(texts::cellDisagrees, texts::figuresDisagreeHere);
    return SheetFailure{what, cell.row + 1, cell.column + 1}.text();
}

FigurePlan planPaste(const OpeningSheet& sheet, std::size_t line, std::size_t column,
                     const Sheet& block) {
    FigurePlan plan;
    const auto columns = columnsFrom(sheet, column);
    for (std::size_t row = 0; row < block.rows.size(); ++row) {
        for (std::size_t at = 0; at < block.rows[row].size(); ++at) {
            const Cell& cell = block.at(row, at);
            if (isBlankCell(cell)) continue;
            const std::size_t target = line + row;
            const BalanceFigure figure =
                at < columns.size() ? figureOf(sheet.columns()[columns[at]].field) : nullptr;
            PlannedCell planned = target >= sheet.lineCount() ? refusedCell(cell, texts::belowSheet)
                                  : figure == nullptr
                                      ? refusedCell(cell, texts::noFigureColumn)
                                      : plannedFigure(sheet, sheet.line(target).account,
                                                      sheet.line(target).measure, figure, cell);
            planned.row = row;
            planned.column = at;
            if (at < columns.size()) planned.heading = sheet.columns()[columns[at]].header;
            plan.cells.push_back(std::move(planned));
        }
    }
    return plan;
}

}  // namespace chengheng
