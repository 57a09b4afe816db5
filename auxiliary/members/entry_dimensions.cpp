#include "auxiliary/members/entry_dimensions.h"

#include "base/values/numbers.h"
#include "opening/sheet/opening_account.h"

namespace chengheng {
namespace {

double sum(double one, double other, Measure measure) {
    double total = one + other;
    Round(total, decimalsOf(measure));
    return total;
}

}  // namespace

EntryFigures operator+(const EntryFigures& one, const EntryFigures& other) {
    return {sum(one.money, other.money, Measure::money),
            sum(one.foreign, other.foreign, Measure::foreign),
            sum(one.quantity, other.quantity, Measure::quantity)};
}

EntryFigures operator-(const EntryFigures& figures) {
    return {0 - figures.money, 0 - figures.foreign, 0 - figures.quantity};
}

}  // namespace chengheng
