#pragma once

#include <string_view>

namespace chengheng {

/// The place of the first byte that is not part of well-formed UTF-8; the end of the text
/// when there is none.
const char* firstBeyondUtf8(std::string_view text);

inline bool isUtf8(std::string_view text) {
    return firstBeyondUtf8(text) == text.data() + text.size();
}

}  // namespace chengheng
