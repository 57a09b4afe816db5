#pragma once

#include "opening/sheet/opening_account.h"
#include "operationlog/row_history.h"

namespace chengheng {

/// Where the history of a figure of an account's opening balances is found.
HistorySubject figureSubject(std::int32_t account, Measure measure, BalanceFigure figure,
                             OpeningLayout layout);

}  // namespace chengheng
