#include "auxiliary/members/entry_dimensions.h"

#include "base/values/numbers.h"
#include "opening/sheet/opening_account.h"

namespace chengheng {
namespace {

double rounded(double value, Measure measure) {
    Round(value, decimalsOf(measure));
    return value;
}

}  // namespace

void FigureSums::add(const EntryFigures& figures) {
    m_money.add(figures.money);
    m_foreign.add(figures.foreign);
    m_quantity.add(figures.quantity);
}

EntryFigures FigureSums::total() const {
    return {rounded(m_money.value(), Measure::money), rounded(m_foreign.value(), Measure::foreign),
            rounded(m_quantity.value(), Measure::quantity)};
}

EntryFigures operator+(const EntryFigures& one, const EntryFigures& other) {
    FigureSums sums;
    sums.add(one);
    sums.add(other);
    return sums.total();
}

EntryFigures operator-(const EntryFigures& figures) {
    return {0 - figures.money, 0 - figures.foreign, 0 - figures.quantity};
}

}  // namespace chengheng
