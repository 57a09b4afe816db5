#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "base/values/text.h"
#include "data/sql/characters.h"
#include "data/sql/value.h"

namespace chengheng {

namespace number_detail {

/// Powers of ten that a double holds exactly; a quotient of two exact numbers is rounded
/// once, and so is the nearest double.
inline constexpr std::array<double, 19> exactPowers{1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,
                                                    1e7,  1e8,  1e9,  1e10, 1e11, 1e12, 1e13,
                                                    1e14, 1e15, 1e16, 1e17, 1e18};
inline constexpr std::uint64_t mostExact = std::uint64_t{1} << 53;
inline constexpr std::ptrdiff_t safeDigits = 18;  ///< a number of so many digits fits 64 bits

/// Any number, by the standard library.
const char* readLong(const char* start, const char* end, bool isNegative, Value& value);

}  // namespace number_detail

/// Reads an unsigned number, "12", "1.5", ".5" or "1e-3", from the front of a text. Gives its
/// end; null when it is no number or too large for a double. A whole number is an integer as
/// long as it fits 64 bits. A zero has no sign.
inline const char* readUnsigned(const char* start, const char* end, bool isNegative, Value& value) {
    using namespace number_detail;
    const char* at = start;
    std::uint64_t digits = 0;
    for (; at < end && isDigit(*at); ++at)
        digits = digits * 10 + static_cast<std::uint64_t>(*at - '0');
    const bool hasPoint = at < end && *at == '.';
    const char* const decimals = at + (hasPoint ? 1 : 0);
    if (hasPoint)
        for (++at; at < end && isDigit(*at); ++at)
            digits = digits * 10 + static_cast<std::uint64_t>(*at - '0');
    const std::ptrdiff_t count = at - start - (hasPoint ? 1 : 0);
    if (count == 0) return nullptr;
    if (count > safeDigits || digits > mostExact || (at < end && lowerOf(*at) == 'e'))
        return readLong(start, end, isNegative, value);
    if (!hasPoint) {
        const auto number = static_cast<std::int64_t>(digits);
        value = Value::of(isNegative ? -number : number);
        return at;
    }
    double number = 0;
    if (digits != 0)
        number = static_cast<double>(digits) / exactPowers[static_cast<std::size_t>(at - decimals)];
    value = Value::of(isNegative ? 0 - number : number);
    return at;
}

}  // namespace chengheng
