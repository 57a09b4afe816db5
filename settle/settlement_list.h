#pragma once

#include <span>

#include "data/tables/settlement.h"
#include "report/output/list_printing.h"

namespace chengheng {

/// The settlement methods, in the order of their ids.
PrintedList settlementList();

/// Number, name, and the mark for methods kept in the cheque register.
void addSettlements(Report& report, std::span<const _SettleInfo> methods);

}  // namespace chengheng
