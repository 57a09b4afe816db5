#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "books/carrying/members.h"
#include "books/carrying/year_end.h"
#include "opening/sheet/opening_account.h"

namespace chengheng {

/// One figure that last year ended with beside what this year begins with.
struct CarryDifference {
    std::string code;  ///< of the account
    std::string name;
    std::string measure;  ///< what is counted: 金额, 外币, 数量
    std::string detail;   ///< of one combination of dimensions; empty: of the account itself
    double closing = 0;
    double opening = 0;
    /// Ids of the account, where that year knows it as an end account; else 0.
    std::int32_t accountBefore = 0;
    std::int32_t accountNow = 0;
    Measure counted = Measure::money;
    std::optional<EntryDimensions> of = {};  ///< the combination
};

/// Every end account and every combination of dimensions whose opening is not the closing of the
/// year before, in the order of the accounts' codes. An account or combination that one of the
/// years does not know counts as 0 there. Combinations are named as the members are.
std::vector<CarryDifference> compareYears(const YearEnd& before, const YearEnd& now,
                                          const Members& members);

/// What the measure of a difference is in the figures of a year.
double EntryFigures::*figureOf(Measure measure);

/// "1001 现金:上年期末金额 5.00,本年期初 4.00,相差 1.00"
std::string differenceText(const CarryDifference& difference);

}  // namespace chengheng
