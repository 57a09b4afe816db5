#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace chengheng {

/// The text with the letters a to z in capitals, as mnemonics are kept.
std::string inCapitals(std::string_view text);

/// Initials of a name's Chinese reading, in capitals: 库存现金 is KCXJ. Letters and digits stay,
/// everything else is left out.
std::string initialsOf(std::string_view name);

/// The initials, with the lowest number from 2 on behind them that makes them unique; empty
/// when the name has none.
std::string proposedMnemonic(std::string_view name,
                             const std::function<bool(std::string_view)>& isTaken);

}  // namespace chengheng
