#pragma once

#include <functional>

#include "session/record_change.h"

namespace chengheng {

/// A change of currencies or rates, under the locks that each of them takes. What CyrencyIsExist
/// tells meanwhile waits for their end.
Outcome changeCurrencies(IMessages& messages, const std::function<UntoldOutcome()>& work);

/// Done while a currency is there; else it has been told that it is gone or cannot be looked for.
UntoldOutcome currencyStillThere(int id);

}  // namespace chengheng
