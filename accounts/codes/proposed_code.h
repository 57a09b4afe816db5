#pragma once

#include <span>
#include <string>
#include <string_view>

#include "accounts/codes/code_levels.h"

namespace chengheng {

// Codes proposed for a new account. `codes` are those of the chart in code order; empty when
// the place has no free code of digits.

/// The first code after the highest one below an account, its first child being ...01.
std::string proposedChild(const CodeLevels& levels, std::span<const std::string> codes,
                          std::string_view parent);

/// The next free code after one, on its level and under its parent.
std::string proposedSibling(const CodeLevels& levels, std::span<const std::string> codes,
                            std::string_view code);

}  // namespace chengheng
