#pragma once

#include <functional>
#include <string>

#include "currency/rate_calendar.h"
#include "data/tables/currency.h"
#include "session/record_change.h"

namespace chengheng {

/// A change of currencies or rates, under the locks that each of them takes. What CyrencyIsExist
/// tells meanwhile waits for their end.
Outcome changeCurrencies(IMessages& messages, const ChangeWords& words,
                         const std::function<UntoldOutcome()>& work);

/// Done while a currency is there; else it has been told that it is gone or cannot be looked for.
UntoldOutcome currencyStillThere(int id);

/// 固定汇率 or 浮动汇率.
const char* titleOf(RateKind kind);
/// A currency as the operation log names it: "USD 美元".
std::string loggedName(const _CyrencyInfo& currency);
/// The same by its id, as the lookups know it.
std::string loggedName(int currency);

}  // namespace chengheng
