#include "host/sheets/text_encoding.h"

namespace chengheng {

bool isCharacter(char32_t number) {
    return number != 0 && number <= 0x10FFFF && (number < 0xD800 || number > 0xDFFF);
}

void appendUtf8(char32_t character, std::string& text) {
    const auto append = [&text](char32_t byte) { text += static_cast<char>(byte); };
    const auto appendFollowing = [&](unsigned shift) {
        append(0x80U | ((character >> shift) & 0x3FU));
    };
    if (character < 0x80) {
        append(character);
    } else if (character < 0x800) {
        append(0xC0U | (character >> 6U));
        appendFollowing(0);
    } else if (character < 0x10000) {
        append(0xE0U | (character >> 12U));
        appendFollowing(6);
        appendFollowing(0);
    } else {
        append(0xF0U | (character >> 18U));
        appendFollowing(12);
        appendFollowing(6);
        appendFollowing(0);
    }
}

}  // namespace chengheng
