#include "opening/sheet/opening_account.h"

#include <initializer_list>

#include "accounts/codes/code_levels.h"
#include "base/values/exact_sum.h"
#include "base/values/numbers.h"

namespace chengheng {
namespace {

template <class Sum>
double sumOf(std::initializer_list<double> amounts) {
    Sum sum;
    for (const double amount : amounts) sum.add(amount);
    return sum.value();
}

/// Rounded to the measure's decimals.
double roundedSum(Measure measure, std::initializer_list<double> amounts) {
    double sum =
        measure == Measure::quantity ? sumOf<QuantitySum>(amounts) : sumOf<MoneySum>(amounts);
    Round(sum, decimalsOf(measure));
    return sum;
}

}  // namespace

double openingByMovements(const Balance& balance, bool isDebit, Measure measure) {
    return isDebit ? roundedSum(measure, {balance.yearStart, balance.debit, -balance.credit})
                   : roundedSum(measure, {balance.yearStart, -balance.debit, balance.credit});
}

bool agrees(const Balance& balance, bool isDebit, Measure measure) {
    return balance.opening == openingByMovements(balance, isDebit, measure);
}

double yearStartByOthers(const Balance& balance, bool isDebit, Measure measure) {
    return isDebit ? roundedSum(measure, {balance.opening, -balance.debit, balance.credit})
                   : roundedSum(measure, {balance.opening, balance.debit, -balance.credit});
}

std::string openingName(std::string_view name, int grade) {
    const bool isIndented = grade > 1 && grade <= mostLevels;
    return std::string(isIndented ? static_cast<std::size_t>(grade - 1) : 0, ' ').append(name);
}

}  // namespace chengheng
