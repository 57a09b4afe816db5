#include "base/values/text.h"

#include <algorithm>
#include <array>

namespace chengheng {
namespace {

constexpr std::array<std::string_view, 3> blanks{" ", "\t", "\u3000"};

bool beginsCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) != 0x80; }

/// The pictures of control characters stand together in Unicode, from U+2400 on.
void appendPicture(unsigned char control, std::string& text) {
    constexpr unsigned char deleteSign = 0x7F;
    constexpr unsigned char deletePicture = 0x21;
    text += "\xE2\x90";
    text += static_cast<char>(0x80U + (control == deleteSign ? deletePicture : control));
}

/// Whether one of the control characters beyond ASCII stands there, U+0080 to U+009F.
bool isLateControl(std::string_view text) {
    return text.size() > 1 && text[0] == '\xC2' && static_cast<unsigned char>(text[1]) < 0xA0U;
}

std::string printable(std::string_view text, std::string_view kept) {
    constexpr std::string_view replacement = "\xEF\xBF\xBD";
    std::string shown;
    for (; !text.empty(); text.remove_prefix(1)) {
        const auto byte = static_cast<unsigned char>(text.front());
        const bool isControl = byte < 0x20U || byte == 0x7FU;
        if (isLateControl(text)) {
            shown += replacement;
            text.remove_prefix(1);
        } else if (isControl && kept.find(text.front()) == std::string_view::npos) {
            appendPicture(byte, shown);
        } else {
            shown += text.front();
        }
    }
    return shown;
}

}  // namespace

std::string printableText(std::string_view text) {
    std::string shown;
    for (std::size_t end = text.find("\r\n"); end != std::string_view::npos;
         end = text.find("\r\n")) {
        shown += printable(text.substr(0, end), "\n\t");
        text.remove_prefix(end + 1);
    }
    return shown + printable(text, "\n\t");
}

std::string printableLine(std::string_view text) { return printable(text, ""); }

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

bool isVisibleAscii(std::string_view text) {
    const auto isVisible = [](char letter) { return letter > ' ' && letter <= '~'; };
    return !text.empty() && std::ranges::all_of(text, isVisible);
}

bool hasBlank(std::string_view text) {
    return std::ranges::any_of(
        blanks, [text](std::string_view blank) { return text.find(blank) != text.npos; });
}

char lowerAscii(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

std::string inSmallLetters(std::string_view text) {
    std::string small(text);
    std::ranges::transform(small, small.begin(), lowerAscii);
    return small;
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
