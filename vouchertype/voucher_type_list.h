#pragma once

#include "report/output/list_printing.h"

namespace chengheng {

/// The voucher types, in the order of their ids: number, name, restriction and the accounts it
/// names.
PrintedList voucherTypeList();

}  // namespace chengheng
