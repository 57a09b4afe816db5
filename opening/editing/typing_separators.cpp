#include "opening/editing/typing_separators.h"

#include <algorithm>

#include "base/values/digit_groups.h"
#include "base/values/text.h"

namespace chengheng {
namespace {

constexpr std::size_t groupDigits = 3;

/// Takes the separators out; the cursor moves with what stands before it.
TypedText withoutSeparators(const TypedText& typed) {
    TypedText bare;
    for (std::size_t at = 0; at < typed.text.size(); ++at) {
        if (typed.text[at] == ',') continue;
        bare.text += typed.text[at];
        if (at < typed.cursor) ++bare.cursor;
    }
    return bare;
}

bool isGrouped(std::string_view text) {
    return withoutDigitGroups(text.substr(text.starts_with('-') ? 1 : 0)).has_value();
}

/// Where the digits before the point begin and end; an empty span when it is no plain number.
struct Span {
    std::size_t first = 0;
    std::size_t last = 0;
};

Span wholePart(std::string_view text) {
    const std::size_t first = text.starts_with('-') ? 1 : 0;
    std::size_t last = first;
    while (last < text.size() && isDigit(text[last])) ++last;
    if (last == text.size()) return {first, last};
    const std::string_view decimals = text.substr(last + 1);
    const bool isPlain = text[last] == '.' && std::ranges::all_of(decimals, isDigit);
    return isPlain ? Span{first, last} : Span{};
}

}  // namespace

TypedText withSeparators(const TypedText& typed) {
    const TypedText bare = withoutSeparators(typed);
    const Span whole = wholePart(bare.text);
    if (whole.first == whole.last) return typed;
    if (bare.text[whole.first] == '0') return bare;
    TypedText grouped;
    for (std::size_t at = 0; at < bare.text.size(); ++at) {
        const bool isWhole = at > whole.first && at < whole.last;
        if (isWhole && (whole.last - at) % groupDigits == 0) {
            grouped.text += ',';
            if (at < bare.cursor) ++grouped.cursor;
        }
        grouped.text += bare.text[at];
        if (at < bare.cursor) ++grouped.cursor;
    }
    return grouped;
}

TypedText withSeparators(const TypedText& typed, std::string_view before) {
    const bool hasMore = std::ranges::count(typed.text, ',') > std::ranges::count(before, ',');
    const bool isAsTyped = !isGrouped(typed.text) && (hasMore || !isGrouped(before));
    return isAsTyped ? typed : withSeparators(typed);
}

}  // namespace chengheng
