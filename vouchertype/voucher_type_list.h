#pragma once

#include <span>

#include "data/tables/settlement.h"
#include "report/output/list_printing.h"

namespace chengheng {

/// The voucher types, in the order of their ids.
PrintedList voucherTypeList();

/// Number, name, restriction and the accounts it names.
void addVoucherTypes(Report& report, std::span<const _SignInfo> types);

}  // namespace chengheng
