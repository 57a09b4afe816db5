#pragma once

#include <cstddef>
#include <string_view>

namespace chengheng {

/// How spreadsheet programs count a text: characters beyond U+FFFF count twice.
std::size_t utf16Length(std::string_view text);

/// How wide the longest line of a text is, in Latin characters: a Chinese one counts twice.
double displayWidth(std::string_view text);

}  // namespace chengheng
