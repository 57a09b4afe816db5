#pragma once

#include <optional>
#include <span>
#include <vector>

#include "currency/currency_rules.h"
#include "currency/rates/rate_writing.h"
#include "currency/transfer/quoted_sheet.h"
#include "sheets/row_plan.h"

namespace chengheng {

/// What a sheet of rates leaves open.
struct QuotedAs {
    int currency = 0;                   ///< whose rates they are where no column says so; 0: none
    double units = 1;                   ///< for so many units where no column or heading says so
    std::optional<RateMode> mode = {};  ///< nothing: each currency as it is converted

    bool operator==(const QuotedAs&) const = default;
};

/// What the rows of a sheet are held against: the currencies and their stored rates of a year, of
/// the kind of the sheet.
struct RateState {
    struct Currency {
        _CyrencyInfo record;
        std::vector<RateRow> rows;

        bool operator==(const Currency&) const = default;
    };
    int year = 0;
    std::vector<Currency> currencies;

    bool operator==(const RateState&) const = default;
};

/// The import of rates as it is shown before it is done.
struct RatePlan : RowPlan {
    std::vector<RateChange> changes;  ///< by currency, in the order of time

    bool operator==(const RatePlan&) const = default;
};

/// Decides on every row: which stored rates it changes. An empty cell leaves what there is. A
/// rate that departs by more than half from the one before it is a question.
RatePlan planRates(const QuotedSheet& sheet, const QuotedAs& quotedAs, const RateState& state);

}  // namespace chengheng
