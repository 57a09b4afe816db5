#pragma once

#include "currency/rate_calendar.h"
#include "data/tables/currency.h"
#include "report/output/list_printing.h"

namespace chengheng {

/// The foreign currencies, in the order of their ids: symbol, name, conversion mode, decimals
/// of the rate and the largest accepted difference.
PrintedList currencyList();

/// The rates of one currency: a row for each month, or for each day of a month (0: of every month);
/// of a year (0: of every year).
PrintedList rateList(RateKind kind, const _CyrencyInfo& currency, int month = 0, int year = 0);

}  // namespace chengheng
