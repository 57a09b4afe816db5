#pragma once

#include <memory>
#include <string_view>

#include "base/values/status.h"
#include "data/engine/engine.h"

namespace chengheng {

/// Opens the database in a file, or a new one in memory for ":memory:". Write-ahead log,
/// every commit on the disk before it returns, writers wait five seconds for each other.
/// A new file is readable and writable by its owner only; a file without our mark is foreign.
Status openSqliteEngine(std::string_view location, OpenMode mode, std::unique_ptr<Engine>& engine);

}  // namespace chengheng
