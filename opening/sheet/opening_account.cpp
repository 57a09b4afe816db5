#include "opening/sheet/opening_account.h"

#include "accounts/codes/code_levels.h"
#include "base/values/exact_sum.h"
#include "base/values/numbers.h"

namespace chengheng {
namespace {

template <class Sum>
double movedBalance(const Balance& balance, bool isDebit) {
    Sum sum;
    sum.add(balance.yearStart);
    sum.add(isDebit ? balance.debit : -balance.debit);
    sum.add(isDebit ? -balance.credit : balance.credit);
    return sum.value();
}

}  // namespace

double openingByMovements(const Balance& balance, bool isDebit, Measure measure) {
    double opening = measure == Measure::quantity ? movedBalance<QuantitySum>(balance, isDebit)
                                                  : movedBalance<MoneySum>(balance, isDebit);
    Round(opening, decimalsOf(measure));
    return opening;
}

std::string openingName(std::string_view name, int grade) {
    const bool isIndented = grade > 1 && grade <= mostLevels;
    return std::string(isIndented ? static_cast<std::size_t>(grade - 1) : 0, ' ').append(name);
}

}  // namespace chengheng
