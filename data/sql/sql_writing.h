#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string_view>
#include <type_traits>

// How single values are written into statement text. Each write goes to a place with room
// for boundOf(value) characters and gives the end of what it wrote.

namespace chengheng {

/// A piece of a statement that formatSql made, or a name known to be safe; the only thing a
/// %s outside quotes takes.
struct SqlFragment {
    std::string_view text;
};

template <class Type>
inline constexpr bool isPlainInteger =
    std::is_integral_v<Type> && !std::is_same_v<Type, char> && sizeof(Type) <= 8;
template <class Type>
inline constexpr bool isOptionalInteger = false;
template <class Type>
inline constexpr bool isOptionalInteger<std::optional<Type>> = isPlainInteger<Type>;

/// What %d takes: whole numbers, and optional ones for columns that may hold NULL.
template <class Type>
concept SqlInteger = isPlainInteger<Type> || isOptionalInteger<Type>;

/// What '%s' takes.
template <class Type>
concept SqlText = std::is_convertible_v<const Type&, std::string_view>;

inline constexpr std::size_t integerBound = 20;

char* writeInteger(char* at, std::int64_t number);
char* writeUnsigned(char* at, std::uint64_t number);

/// Six decimals, rounded as the exact value of the double demands (an exact half to the even
/// digit); a value that rounds to zero has no sign. What is no number is written with a #,
/// which no statement may hold.
char* writeReal(char* at, double number);
std::size_t boundOf(double number);

/// Text for the inside of quotes: quotes doubled; in a pattern %, _ and \ escaped as well.
char* writeQuoted(char* at, std::string_view text);
char* writePattern(char* at, std::string_view text);

/// Text in which %% stands for a percent sign.
char* writeFoldingPercent(char* at, std::string_view text);

inline char* writePlain(char* at, std::string_view text) {
    std::memcpy(at, text.data(), text.size());
    return at + text.size();
}

template <class Type>
requires isPlainInteger<Type> std::size_t boundOf(Type) { return integerBound; }
template <class Type>
requires isOptionalInteger<Type> std::size_t boundOf(const Type&) { return integerBound; }
inline std::size_t boundOf(float number) { return boundOf(static_cast<double>(number)); }
inline std::size_t boundOf(const SqlFragment& fragment) { return fragment.text.size(); }
template <SqlText Type>
std::size_t boundOf(const Type& text) {
    return 2 * std::string_view(text).size();
}

template <class Type>
requires isPlainInteger<Type>
char* writeValue(char* at, Type number, bool) {
    if constexpr (std::is_unsigned_v<Type>)
        return writeUnsigned(at, number);
    else
        return writeInteger(at, number);
}
template <class Type>
requires isOptionalInteger<Type>
char* writeValue(char* at, const Type& number, bool) {
    return number ? writeValue(at, *number, false) : writePlain(at, "NULL");
}
inline char* writeValue(char* at, double number, bool) { return writeReal(at, number); }
inline char* writeValue(char* at, float number, bool) { return writeReal(at, number); }
inline char* writeValue(char* at, const SqlFragment& fragment, bool) {
    return writePlain(at, fragment.text);
}
template <SqlText Type>
char* writeValue(char* at, const Type& text, bool isPattern) {
    return isPattern ? writePattern(at, text) : writeQuoted(at, text);
}

}  // namespace chengheng
