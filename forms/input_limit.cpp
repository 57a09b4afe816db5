#include "forms/input_limit.h"

#include <algorithm>

#include "base/values/text.h"

namespace chengheng {

std::size_t cutToLimit(FieldText& text, std::size_t allowed) {
    const std::size_t count = characterCount(text.before);
    const std::size_t room = allowed - std::min(allowed, characterCount(text.after));
    if (count <= room) return 0;
    text.before.resize(firstCharacters(text.before, room).size());
    return count - room;
}

std::string withoutControlCharacters(std::string text) {
    std::erase_if(text, [](char byte) { return (byte >= 0 && byte < ' ') || byte == '\x7f'; });
    return text;
}

}  // namespace chengheng
