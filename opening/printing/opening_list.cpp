#include "opening/printing/opening_list.h"

#include <algorithm>

#include "base/values/exact_sum.h"
#include "base/values/numbers.h"
#include "opening/sheet/opening_texts.h"

namespace chengheng {
namespace {

bool hasFigure(const OpeningSheet& sheet, const OpeningAccount& account) {
    return std::ranges::any_of(measures, [&](Measure measure) {
        return account.keeps(measure) &&
               std::ranges::any_of(sheet.figures(), [&](BalanceFigure figure) {
                   return account.balance(measure).*figure != 0;
               });
    });
}

/// By account. In code order an account's own follow it, so that whoever is below a level has
/// had its say when the next account of that level comes up from the end.
std::vector<bool> accountsWithFigures(const OpeningSheet& sheet) {
    const auto accounts = sheet.accounts();
    std::vector<bool> found(accounts.size());
    std::vector<bool> isBelow;  // by level
    for (std::size_t place = accounts.size(); place-- > 0;) {
        const std::size_t grade = accounts[place].grade;
        if (isBelow.size() < grade + 2) isBelow.resize(grade + 2);
        found[place] = hasFigure(sheet, accounts[place]) || isBelow[grade + 1];
        std::fill(isBelow.begin() + static_cast<std::ptrdiff_t>(grade) + 1, isBelow.end(), false);
        if (found[place]) isBelow[grade] = true;
    }
    return found;
}

OpeningTotals totalsOf(const OpeningSheet& sheet, bool isDebit) {
    const auto columns = sheet.columns();
    OpeningTotals totals;
    for (std::size_t column = 0; column < columns.size(); ++column) {
        const OpeningField field = columns[column].field;
        const BalanceFigure figure = figureOf(field);
        const int place = static_cast<int>(column);
        if (field == OpeningField::name)
            totals[place] = isDebit ? opening_texts::debitTotal : opening_texts::creditTotal;
        if (field == OpeningField::direction)
            totals[place] = isDebit ? opening_texts::debit : opening_texts::credit;
        if (figure == nullptr) continue;
        MoneySum sum;
        for (const OpeningAccount& account : sheet.accounts())
            if (account.grade == 1 && account.isDebit == isDebit)
                sum.add(account.balance(Measure::money).*figure);
        totals[place] = ftoaWithSap(sum.value(), decimalsOf(Measure::money));
    }
    return totals;
}

}  // namespace

std::vector<bool> linesWithoutFigures(const OpeningSheet& sheet) {
    const std::vector<bool> hasFigures = accountsWithFigures(sheet);
    std::vector<bool> lines(sheet.lineCount());
    for (std::size_t line = 0; line < lines.size(); ++line)
        lines[line] = !hasFigures[sheet.line(line).account];
    return lines;
}

std::vector<OpeningTotals> openingTotals(const OpeningSheet& sheet) {
    return {totalsOf(sheet, true), totalsOf(sheet, false)};
}

}  // namespace chengheng
