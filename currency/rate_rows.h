#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "currency/rate_calendar.h"

namespace chengheng {

/// A stored rate of a currency.
struct RateRow {
    std::int32_t id = 0;
    Date day = {};  ///< of a fixed rate the first of its month
    int period = 0;
    double rate = 0;        ///< bookkeeping rate; 0: none
    double adjustRate = 0;  ///< adjustment rate; 0: none

    bool operator==(const RateRow&) const = default;
};

/// A stored rate as it was and as it is.
struct RateEdit {
    RateRow before;
    RateRow after;

    bool operator==(const RateEdit&) const = default;
};

/// A currency's rates of a year, or of one month of it, in the order of their days; those of other
/// years are left out. Nothing when they cannot be read. Works on the selected database.
std::optional<std::vector<RateRow>> readRates(RateKind kind, int currencyId, int year,
                                              int month = 0);

}  // namespace chengheng
