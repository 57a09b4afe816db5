#pragma once

#include "data/engines/value.h"

namespace chengheng {

/// Reads an unsigned number, "12", "1.5", ".5" or "1e-3", from the front of a text. Gives its
/// end; null when it is no number or too large for a double. A whole number is an integer as
/// long as it fits 64 bits.
const char* readUnsigned(const char* at, const char* end, bool isNegative, Value& value);

}  // namespace chengheng
