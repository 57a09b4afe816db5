#include "data/dialect/number.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <limits>

#include "data/dialect/characters.h"

namespace chengheng {
namespace {

/// Powers of ten that a double holds exactly; a quotient of two exact numbers is rounded
/// once, and so is the nearest double.
constexpr std::array<double, 23> exactPowers{1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                             1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                             1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr std::uint64_t mostExact = std::uint64_t{1} << 53;
constexpr std::ptrdiff_t safeDigits = 18;  ///< a number of so many digits fits 64 bits

bool isDigit(char letter) { return characterOf(letter) == Character::digit; }

const char* readReal(const char* start, const char* end, bool isNegative, Value& value) {
    double number = 0;
    const auto result = std::from_chars(start, end, number);
    if (result.ec != std::errc{}) return nullptr;
    value = Value::of(isNegative ? 0 - number : number);
    return result.ptr;
}

const char* readInteger(const char* start, const char* end, bool isNegative, Value& value) {
    std::uint64_t number = 0;
    const auto result = std::from_chars(start, end, number);
    const std::uint64_t most = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
    if (result.ec != std::errc{} || number > most + (isNegative ? 1 : 0))
        return readReal(start, end, isNegative, value);
    value = Value::of(static_cast<std::int64_t>(isNegative ? 0 - number : number));
    return result.ptr;
}

}  // namespace

const char* readUnsigned(const char* start, const char* end, bool isNegative, Value& value) {
    const char* at = start;
    std::uint64_t digits = 0;
    for (; at < end && isDigit(*at); ++at)
        digits = digits * 10 + static_cast<std::uint64_t>(*at - '0');
    const bool hasPoint = at < end && *at == '.';
    const char* const point = at;
    if (hasPoint)
        for (++at; at < end && isDigit(*at); ++at)
            digits = digits * 10 + static_cast<std::uint64_t>(*at - '0');
    const std::ptrdiff_t count = at - start - (hasPoint ? 1 : 0);
    if (count == 0) return nullptr;
    if (at < end && lowerOf(*at) == 'e') return readReal(start, end, isNegative, value);
    if (!hasPoint) {
        if (count > safeDigits) return readInteger(start, at, isNegative, value);
        const auto number = static_cast<std::int64_t>(digits);
        value = Value::of(isNegative ? 0 - number : number);
        return at;
    }
    if (count > safeDigits || digits > mostExact) return readReal(start, at, isNegative, value);
    const double number =
        static_cast<double>(digits) / exactPowers[static_cast<std::size_t>(at - point - 1)];
    value = Value::of(isNegative ? 0 - number : number);
    return at;
}

}  // namespace chengheng
