#include "sheets/text_measures.h"

#include <algorithm>

#include "base/values/text.h"

namespace chengheng {
namespace {

using Byte = unsigned char;

/// Whether the byte begins a character of U+1100 or above, which are drawn wide.
bool beginsWide(char byte) { return static_cast<Byte>(byte) >= 0xE1U; }
bool beginsPair(char byte) { return static_cast<Byte>(byte) >= 0xF0U; }

std::size_t countOf(std::string_view text, bool (*is)(char)) {
    return static_cast<std::size_t>(std::ranges::count_if(text, is));
}

}  // namespace

std::size_t utf16Length(std::string_view text) {
    return characterCount(text) + countOf(text, beginsPair);
}

double displayWidth(std::string_view text) {
    std::size_t widest = 0;
    while (!text.empty()) {
        const std::string_view line = text.substr(0, text.find('\n'));
        widest = std::max(widest, characterCount(line) + countOf(line, beginsWide));
        text.remove_prefix(std::min(line.size() + 1, text.size()));
    }
    return static_cast<double>(widest);
}

}  // namespace chengheng
