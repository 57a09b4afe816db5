#include "data/sql/number.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace chengheng::number_detail {
namespace {

const char* readReal(const char* start, const char* end, bool isNegative, Value& value) {
    double number = 0;
    const auto result = std::from_chars(start, end, number);
    if (result.ec != std::errc{}) return nullptr;
    value = Value::of(isNegative ? 0 - number : number);
    return result.ptr;
}

}  // namespace

const char* readLong(const char* start, const char* end, bool isNegative, Value& value) {
    const char* const wholeEnd = std::find_if_not(start, end, isDigit);
    if (wholeEnd < end && (*wholeEnd == '.' || lowerOf(*wholeEnd) == 'e'))
        return readReal(start, end, isNegative, value);
    std::uint64_t number = 0;
    const auto result = std::from_chars(start, wholeEnd, number);
    const auto most = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
    if (result.ec != std::errc{} || number > most + (isNegative ? 1 : 0))
        return readReal(start, wholeEnd, isNegative, value);
    value = Value::of(static_cast<std::int64_t>(isNegative ? 0 - number : number));
    return wholeEnd;
}

}  // namespace chengheng::number_detail
