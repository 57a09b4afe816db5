#include "currency/currency_rules.h"

#include <fmt/format.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <array>
#include <charconv>

#include "base/values/text.h"
#include "currency/currency_texts.h"
#include "currency/max_error.h"

namespace chengheng {
namespace {

constexpr int fewestDecimals = 2;
constexpr int mostDecimals = 9;
constexpr double leastMaxError = 0.00000001;
constexpr double largestMaxError = 100000;

constexpr std::int16_t multipliedFlag = 1;

std::optional<Refusal> refuseAt(const char* field, const char* text) {
    return Refusal{RefusalKind::wrongInput, {.text = text, .focusField = field}};
}

std::optional<Refusal> beepAt(const char* field, const char* text) {
    return Refusal{RefusalKind::wrongInput, {.text = text, .beep = true, .focusField = field}};
}

/// Nothing for what is no whole number of the allowed ones.
std::optional<int> decimalsIn(std::string_view text) {
    int decimals = 0;
    const char* const end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, decimals);
    const bool isRead = read.ec == std::errc{} && read.ptr == end;
    if (!isRead || decimals < fewestDecimals || decimals > mostDecimals) return std::nullopt;
    return decimals;
}

std::optional<Refusal> symbolThere(const CurrencyInput& input) {
    if (!input.symbol.empty()) return std::nullopt;
    return refuseAt(currencySymbolField, currency_texts::symbolMissing);
}

std::optional<Refusal> nameThere(const CurrencyInput& input) {
    if (!input.name.empty()) return std::nullopt;
    return refuseAt(currencyNameField, currency_texts::nameMissing);
}

std::optional<Refusal> decimalsInRange(const CurrencyInput& input) {
    if (decimalsIn(input.decimals)) return std::nullopt;
    return refuseAt(currencyDecimalsField, currency_texts::wrongDecimals);
}

std::optional<Refusal> maxErrorIsNumber(const CurrencyInput& input) {
    const auto value = maxErrorValue(input.maxError);
    const bool isZero = input.maxError.empty() || input.maxError == "0";
    if (value && (*value != 0 || isZero)) return std::nullopt;
    return refuseAt(currencyMaxErrorField, currency_texts::noMaxError);
}

std::optional<Refusal> maxErrorNotTooSmall(const CurrencyInput& input) {
    const double value = maxErrorValue(input.maxError).value_or(0);
    if (value == 0 || value >= leastMaxError) return std::nullopt;
    return refuseAt(currencyMaxErrorField, currency_texts::maxErrorTooSmall);
}

std::optional<Refusal> maxErrorNotTooLarge(const CurrencyInput& input) {
    if (maxErrorValue(input.maxError).value_or(0) <= largestMaxError) return std::nullopt;
    return refuseAt(currencyMaxErrorField, currency_texts::maxErrorTooLarge);
}

constexpr std::array inputChecks{
    Check<CurrencyInput>{"it has a symbol", symbolThere},
    Check<CurrencyInput>{"it has a name", nameThere},
    Check<CurrencyInput>{"its decimals are 2 to 9", decimalsInRange},
    Check<CurrencyInput>{"its maximum error is a number, and zero only as 0", maxErrorIsNumber},
    Check<CurrencyInput>{"its maximum error is not too small", maxErrorNotTooSmall},
    Check<CurrencyInput>{"its maximum error is not too large", maxErrorNotTooLarge},
};

std::optional<Refusal> symbolUnique(const CurrencyClashFacts& facts) {
    if (!facts.hasSymbol()) return std::nullopt;
    return beepAt(currencySymbolField, facts.isAddition ? currency_texts::symbolNotAdded
                                                        : currency_texts::symbolNotModified);
}

std::optional<Refusal> nameUnique(const CurrencyClashFacts& facts) {
    if (!facts.hasName()) return std::nullopt;
    return beepAt(currencyNameField, facts.isAddition ? currency_texts::nameNotAdded
                                                      : currency_texts::nameNotModified);
}

constexpr std::array clashChecks{
    Check<CurrencyClashFacts>{"no other currency has its symbol", symbolUnique},
    Check<CurrencyClashFacts>{"no other currency has its name", nameUnique},
};

}  // namespace

CurrencyInput currencyInput(const _CyrencyInfo& currency) {
    return {.symbol = currency.sExchCode,
            .name = currency.sExchName,
            .mode = currency.bMode == multipliedFlag ? RateMode::multiplied : RateMode::divided,
            .decimals = std::to_string(currency.byDecimal),
            .maxError = maxErrorText(currency.fMaxError)};
}

std::string inCapitals(std::string_view text) {
    const auto small =
        icu::UnicodeString::fromUTF8({text.data(), static_cast<std::int32_t>(text.size())});
    icu::UnicodeString capitals;
    for (std::int32_t at = 0; at < small.length(); at = small.moveIndex32(at, 1))
        capitals.append(u_toupper(small.char32At(at)));
    std::string result;
    capitals.toUTF8String(result);
    return result;
}

CurrencyInput capitalised(const CurrencyInput& input) {
    return {.symbol = inCapitals(withoutBlanksAround(input.symbol)),
            .name = inCapitals(withoutBlanksAround(input.name)),
            .mode = input.mode,
            .decimals = std::string(withoutBlanksAround(input.decimals)),
            .maxError = std::string(withoutBlanksAround(input.maxError))};
}

std::span<const Check<CurrencyInput>> currencyInputChecks() { return inputChecks; }

_CyrencyInfo currencyRecord(const CurrencyInput& input, const _CyrencyInfo& base) {
    _CyrencyInfo currency = base;
    currency.sExchCode = input.symbol;
    currency.sExchName = input.name;
    currency.bMode = input.mode == RateMode::multiplied ? multipliedFlag : std::int16_t{0};
    currency.byDecimal = static_cast<std::uint8_t>(decimalsIn(input.decimals).value_or(0));
    currency.fMaxError =
        base.lId == 0 ? maxErrorByDigits(input.maxError) : maxErrorByLibrary(input.maxError);
    return currency;
}

std::span<const Check<CurrencyClashFacts>> currencyClashChecks() { return clashChecks; }

std::string currencyInWords(const _CyrencyInfo& currency) {
    return fmt::format(currency_texts::inWords, currency.sExchCode, currency.sExchName,
                       currency.bMode == multipliedFlag ? currency_texts::foreignTimesRate
                                                        : currency_texts::foreignByRate,
                       currency.byDecimal, plainMaxError(currency.fMaxError));
}

}  // namespace chengheng
