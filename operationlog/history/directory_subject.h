#pragma once

#include <string_view>

#include "directories/directory.h"
#include "operationlog/row_history.h"

namespace chengheng {

/// Where the history of a record of a directory is found; of an item in the table of its class,
/// whose code is given.
HistorySubject directorySubject(DirectoryKind kind, std::int32_t id, std::string_view classCode);

}  // namespace chengheng
