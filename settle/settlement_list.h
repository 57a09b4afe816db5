#pragma once

#include "report/output/list_printing.h"

namespace chengheng {

/// The settlement methods, in the order of their ids: number, name, and the mark for methods
/// kept in the cheque register.
PrintedList settlementList();

}  // namespace chengheng
