#pragma once

#include <string>

namespace chengheng {

/// Whether a number is that of a character that a text may hold: no NUL, no half of a pair.
bool isCharacter(char32_t number);

void appendUtf8(char32_t character, std::string& text);

}  // namespace chengheng
