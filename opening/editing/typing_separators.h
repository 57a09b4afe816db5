#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace chengheng {

/// A text being typed and where in it the next letter goes, counted in bytes.
struct TypedText {
    std::string text;
    std::size_t cursor = 0;

    bool operator==(const TypedText&) const = default;
};

/// The text with thousands separators, the cursor behind the same digit as before. What is not
/// a plain number, such as a sum "=1200+350", stays as it is, and so do digits that begin with 0.
TypedText withSeparators(const TypedText& typed);

/// The same after the text before it was changed by typing or pasting: a comma that the operator
/// put where no separator goes is not taken away, or 1,5 would become 15.
TypedText withSeparators(const TypedText& typed, std::string_view before);

}  // namespace chengheng
