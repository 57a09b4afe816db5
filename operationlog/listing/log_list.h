#pragma once

#include <string>

#include "operationlog/log_filter.h"
#include "report/output/list_printing.h"

namespace chengheng {

/// A list of more entries is not made.
inline constexpr int mostListedEntries = 100'000;

/// The entries that a filter lets through, newest first, as they are printed and exported.
PrintedList logList(const LogFilter& filter);

/// A filter in words; empty when it keeps nothing out.
std::string filterText(const LogFilter& filter);

}  // namespace chengheng
