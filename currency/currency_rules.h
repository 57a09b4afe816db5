#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "base/messages/checks.h"
#include "data/tables/currency.h"

namespace chengheng {

inline constexpr int currencySymbolWidth = 8;  ///< in characters
inline constexpr int currencyNameWidth = 16;
/// Accounts and rates name their currency by one byte.
inline constexpr int mostCurrencies = 255;

/// The fields that get the focus when an input is refused.
inline constexpr const char* currencySymbolField = "sExchCode";
inline constexpr const char* currencyNameField = "sExchName";
inline constexpr const char* currencyDecimalsField = "byDecimal";
inline constexpr const char* currencyMaxErrorField = "fMaxError";

/// Which way amounts are converted, in the order of the choices.
enum class RateMode { multiplied = 0, divided = 1 };

/// What stands in the form of a currency; that of a new one when nothing has been typed.
struct CurrencyInput {
    std::string symbol = {};
    std::string name = {};
    RateMode mode = RateMode::multiplied;
    std::string decimals = "5";
    std::string maxError = "0.00001";

    bool operator==(const CurrencyInput&) const = default;
};

/// As a stored currency is shown.
CurrencyInput currencyInput(const _CyrencyInfo& currency);

/// The text in capitals, character by character: none becomes two.
std::string inCapitals(std::string_view text);

/// The input as it is saved: symbol and name in capitals, no blanks around any text.
CurrencyInput capitalised(const CurrencyInput& input);

/// Whether a capitalised input can be that of any currency.
std::span<const Check<CurrencyInput>> currencyInputChecks();

/// The currency that a capitalised input, which passed the checks, makes of another one; of one
/// with the id 0 a new one.
_CyrencyInfo currencyRecord(const CurrencyInput& input, const _CyrencyInfo& base);

/// What the checks for a second currency of the same symbol or name look at.
struct CurrencyClashFacts {
    bool isAddition = false;
    /// Whether a stored currency other than the wanted one has its symbol, its name.
    std::function<bool()> hasSymbol;
    std::function<bool()> hasName;
};

/// Whether the wanted currency may stand beside the others.
std::span<const Check<CurrencyClashFacts>> currencyClashChecks();

/// A currency as a message tells of it.
std::string currencyInWords(const _CyrencyInfo& currency);

}  // namespace chengheng
