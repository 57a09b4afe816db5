#pragma once

#include "directories/directory.h"
#include "report/output/list_printing.h"

namespace chengheng {

/// The printed list of a directory.
PrintedList directoryList(const Directory& directory);

}  // namespace chengheng
