#include "base/values/text.h"

#include <algorithm>
#include <array>

namespace chengheng {
namespace {

constexpr std::array<std::string_view, 3> blanks{" ", "\t", "\u3000"};

bool beginsCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) != 0x80; }

}  // namespace

std::size_t characterCount(std::string_view text) {
    std::size_t count = 0;
    for (const char byte : text) count += beginsCharacter(byte) ? 1 : 0;
    return count;
}

std::string_view firstCharacters(std::string_view text, std::size_t count) {
    std::size_t end = 0;
    for (; end < text.size(); ++end)
        if (beginsCharacter(text[end]) && count-- == 0) break;
    return text.substr(0, end);
}

bool hasBlank(std::string_view text) {
    return std::ranges::any_of(
        blanks, [text](std::string_view blank) { return text.find(blank) != text.npos; });
}

char lowerAscii(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

bool isSameInAnyCase(std::string_view one, std::string_view other) {
    return std::ranges::equal(one, other, {}, lowerAscii, lowerAscii);
}

bool containsInAnyCase(std::string_view text, std::string_view wanted) {
    return wanted.empty() || !std::ranges::search(text, wanted, {}, lowerAscii, lowerAscii).empty();
}

std::string_view withoutTrailingBlanks(std::string_view text) {
    for (;;) {
        const auto blank = std::ranges::find_if(
            blanks, [text](std::string_view candidate) { return text.ends_with(candidate); });
        if (blank == blanks.end()) return text;
        text.remove_suffix(blank->size());
    }
}

std::string_view withoutLeadingBlanks(std::string_view text) {
    for (;;) {
        const auto blank = std::ranges::find_if(
            blanks, [text](std::string_view candidate) { return text.starts_with(candidate); });
        if (blank == blanks.end()) return text;
        text.remove_prefix(blank->size());
    }
}

std::string_view withoutBlanksAround(std::string_view text) {
    return withoutLeadingBlanks(withoutTrailingBlanks(text));
}

}  // namespace chengheng
