#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace chengheng {

/// The text with the letters a to z in capitals, as mnemonics are kept.
std::string inPlainCapitals(std::string_view text);

/// Initials of a name's Chinese reading, in capitals: 库存现金 is KCXJ. Letters and digits stay,
/// everything else is left out.
std::string initialsOf(std::string_view name);

/// The initials, with the lowest number from 2 on behind them that makes them unique; empty
/// when the name has none.
std::string proposedMnemonic(std::string_view name,
                             const std::function<bool(std::string_view)>& isTaken);

/// The same for the accounts of a list, one after the other. What was taken once is not tried
/// again, so that thousands of equal names take no longer than others.
class MnemonicSeries {
  public:
    std::string next(std::string_view name, const std::function<bool(std::string_view)>& isTaken);

  private:
    std::unordered_map<std::string, int> m_numbers;  ///< the last one tried, by initials
};

/// Whether a mnemonic is the initials of a name, with or without a number behind them.
bool isMnemonicOf(std::string_view name, std::string_view mnemonic);

}  // namespace chengheng
