#include "data/sql/sql_writing.h"

#include <charconv>
#include <cmath>

namespace chengheng {
namespace {

/// From here on a double has no decimals and may not fit an integer.
constexpr double hugeFrom = 9.0e18;
constexpr std::size_t hugeBound = 330;
constexpr std::size_t ordinaryBound = 1 + 19 + 1 + 6;
constexpr std::uint32_t million = 1'000'000;

/// A fraction (0 to below 1) in millionths, rounded by its exact value; a tie goes to the
/// even digit.
std::uint32_t millionths(double fraction) {
    const double product = fraction * million;
    auto result = static_cast<std::uint32_t>(product);
    const double left = product - result;
    if (left > 0.5) return result + 1;
    if (left < 0.5) return result;
    // The product was rounded; what it lost decides.
    const double lost = std::fma(fraction, static_cast<double>(million), -product);
    if (lost > 0 || (lost == 0 && result % 2 == 1)) ++result;
    return result;
}

char* writeSixDigits(char* at, std::uint32_t number) {
    for (int place = 5; place >= 0; --place, number /= 10)
        at[place] = static_cast<char>('0' + number % 10);
    return at + 6;
}

char* writeUnusual(char* at, double number) {
    if (std::isnan(number)) return writePlain(at, "#nan");
    if (std::isinf(number)) return writePlain(at, "#inf");
    return std::to_chars(at, at + hugeBound, number, std::chars_format::fixed, 6).ptr;
}

}  // namespace

char* writeInteger(char* at, std::int64_t number) {
    return std::to_chars(at, at + integerBound, number).ptr;
}

char* writeUnsigned(char* at, std::uint64_t number) {
    return std::to_chars(at, at + integerBound, number).ptr;
}

std::size_t boundOf(double number) {
    return std::fabs(number) < hugeFrom ? ordinaryBound : hugeBound;
}

char* writeReal(char* at, double number) {
    const double size = std::fabs(number);
    if (!(size < hugeFrom)) return writeUnusual(at, number);
    auto whole = static_cast<std::uint64_t>(size);
    std::uint32_t decimals = millionths(size - static_cast<double>(whole));
    if (decimals == million) {
        ++whole;
        decimals = 0;
    }
    if (std::signbit(number) && (whole != 0 || decimals != 0)) *at++ = '-';
    at = whole < 10 ? (*at = static_cast<char>('0' + whole), at + 1)
                    : std::to_chars(at, at + integerBound, whole).ptr;
    *at++ = '.';
    return writeSixDigits(at, decimals);
}

char* writeQuoted(char* at, std::string_view text) {
    for (;;) {
        const std::size_t quote = text.find('\'');
        if (quote == std::string_view::npos) return writePlain(at, text);
        at = writePlain(at, text.substr(0, quote + 1));
        *at++ = '\'';
        text.remove_prefix(quote + 1);
    }
}

char* writePattern(char* at, std::string_view text) {
    for (const char letter : text) {
        if (letter == '\'') *at++ = '\'';
        if (letter == '%' || letter == '_' || letter == '\\') *at++ = '\\';
        *at++ = letter;
    }
    return at;
}

char* writeFoldingPercent(char* at, std::string_view text) {
    for (std::size_t index = 0; index < text.size(); ++index) {
        *at++ = text[index];
        if (text[index] == '%') ++index;
    }
    return at;
}

}  // namespace chengheng
