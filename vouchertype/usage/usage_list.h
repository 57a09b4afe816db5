#pragma once

#include "report/output/list_printing.h"

namespace chengheng {

/// How many vouchers carry each type, by month: first and last number and date, numbers that are
/// missing or stand twice.
PrintedList voucherTypeUsageList();

}  // namespace chengheng
