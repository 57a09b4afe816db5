#include "accounts/chart/sum_totals.h"

#include <algorithm>
#include <map>

#include "base/values/exact_sum.h"
#include "base/values/numbers.h"

namespace chengheng {
namespace {

using Rows = std::span<const _AccSumInfo>;
using Figure = double _AccSumInfo::*;

constexpr int moneyDecimals = 2;
constexpr int quantityDecimals = 5;

template <class Sum>
std::map<int, Sum> byPeriod(Rows rows, Figure figure) {
    std::map<int, Sum> sums;
    for (const _AccSumInfo& row : rows) sums[row.byPeroid].add(row.*figure);
    return sums;
}

template <class Sum>
bool isTotal(Rows own, Rows below, Figure figure, int decimals) {
    auto differences = byPeriod<Sum>(below, figure);
    for (const auto& [period, sum] : byPeriod<Sum>(own, figure)) differences[period] -= sum;
    return std::ranges::all_of(differences, [decimals](const auto& difference) {
        double value = difference.second.value();
        Round(value, decimals);
        return value == 0;
    });
}

bool isLeftOut(Rows own, Figure figure) {
    return std::ranges::all_of(own, [figure](const auto& row) { return row.*figure == 0; });
}

}  // namespace

bool areOnlyTotals(Rows own, Rows below) {
    for (const Figure money : {&_AccSumInfo::mBegin, &_AccSumInfo::mDebet, &_AccSumInfo::mCredit})
        if (!isTotal<MoneySum>(own, below, money, moneyDecimals)) return false;
    for (const Figure foreign :
         {&_AccSumInfo::mFgnBegin, &_AccSumInfo::mFgnDebet, &_AccSumInfo::mFgnCredit})
        if (!isLeftOut(own, foreign) && !isTotal<MoneySum>(own, below, foreign, moneyDecimals))
            return false;
    for (const Figure quantity :
         {&_AccSumInfo::dAmtBegin, &_AccSumInfo::dAmtDebet, &_AccSumInfo::dAmtCredit})
        if (!isLeftOut(own, quantity) &&
            !isTotal<QuantitySum>(own, below, quantity, quantityDecimals))
            return false;
    return true;
}

}  // namespace chengheng
