#pragma once

#include <optional>
#include <span>
#include <string>

#include "currency/conversion.h"
#include "currency/rate_rows.h"

namespace chengheng {

/// By what amounts of a currency become ones in home currency.
struct HomeRate {
    RateMode mode = RateMode::multiplied;
    double rate = 0;
    std::string title = {};  ///< of its month or day

    bool operator==(const HomeRate&) const = default;
};

/// The bookkeeping rate that opening balances of books go by: the fixed one of the month in which
/// they begin; else the last floating one before their first day; where there is none, as in books
/// that begin with the year, that of the first day itself. Null when there is none at all. The
/// fixed rates are of that month, the floating ones in the order of their days.
const RateRow* openingRateRow(std::span<const RateRow> fixed, std::span<const RateRow> floating,
                              const Date& start, RateKind& kind);

/// Reads that rate of a currency from the selected database; nothing where it has none. False when
/// it could not be read.
bool readOpeningRate(int currencyId, const Date& start, std::optional<HomeRate>& rate);

}  // namespace chengheng
