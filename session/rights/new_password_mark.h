#pragma once

#include <cstdint>

#include "base/values/status.h"
#include "data/access/CNbCwDB.h"

namespace chengheng {

/// Whether the next log-on of an operator asks for a new password first. Books of a layout that
/// has no place for it ask nobody.
Status readNewPasswordMark(CNbCwDB& books, std::int32_t operatorId, bool& isWanted);
Status writeNewPasswordMark(CNbCwDB& books, std::int32_t operatorId, bool isWanted);

}  // namespace chengheng
