#pragma once

#include <string>
#include <string_view>

namespace chengheng {

/// Whether a number is that of a character that a text may hold: no NUL, no half of a pair.
bool isCharacter(char32_t number);

void appendUtf8(char32_t character, std::string& text);

/// The content of a text file as UTF-8: UTF-8, UTF-16 and GB18030 are told apart by their mark
/// or, without one, by their bytes. False when a byte is none of a text; what stands before
/// it is in `text`.
bool decodeText(std::string_view bytes, std::string& text);

}  // namespace chengheng
