#pragma once

#include <chrono>
#include <string>
#include <string_view>

#include "data/engine/lock_service.h"

namespace chengheng {

/// What a table keeps, in a bookkeeper's words; its name where there are none.
std::string tableTitle(std::string_view table);

/// Who keeps us waiting, since when and in which function, for the operator to read.
std::string lockWaitText(const LockHolder& holder);

/// "12 秒", "3 分 05 秒": how long the wait has lasted.
std::string waitedText(std::chrono::milliseconds waited);

}  // namespace chengheng
