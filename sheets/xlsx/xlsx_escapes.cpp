#include "sheets/xlsx/xlsx_escapes.h"

#include <fmt/format.h>

#include <charconv>
#include <optional>

#include "sheets/text_encoding.h"

namespace chengheng {
namespace {

constexpr std::string_view notCharacters[] = {"\xEF\xBF\xBE", "\xEF\xBF\xBF"};
constexpr std::size_t signSize = 7;  // _x0041_

/// The number of a sign _xHHHH_ that stands at the beginning of a text.
std::optional<char32_t> signAt(std::string_view text) {
    if (text.size() < signSize || !text.starts_with("_x") || text[signSize - 1] != '_')
        return std::nullopt;
    unsigned number = 0;
    const char* const end = text.data() + signSize - 1;
    const auto read = std::from_chars(text.data() + 2, end, number, 16);
    if (read.ec != std::errc() || read.ptr != end) return std::nullopt;
    return static_cast<char32_t>(number);
}

bool isControl(char letter) {
    return static_cast<unsigned char>(letter) < ' ' && letter != '\t' && letter != '\n';
}

/// How many bytes at the beginning of a text must be written as a sign, and its number.
std::pair<std::size_t, unsigned> escapeAt(std::string_view text) {
    if (isControl(text.front())) return {1, static_cast<unsigned>(text.front())};
    if (signAt(text)) return {1, '_'};
    for (const std::string_view character : notCharacters)
        if (text.starts_with(character))
            return {character.size(), character == notCharacters[0] ? 0xFFFEU : 0xFFFFU};
    return {};
}

}  // namespace

std::string escapedForXlsx(std::string_view text) {
    std::string escaped;
    escaped.reserve(text.size());
    while (!text.empty()) {
        const auto [size, number] = escapeAt(text);
        if (size == 0)
            escaped += text.front();
        else
            escaped += fmt::format("_x{:04X}_", number);
        text.remove_prefix(size == 0 ? 1 : size);
    }
    return escaped;
}

std::string unescapedFromXlsx(std::string_view text) {
    std::string plain;
    plain.reserve(text.size());
    while (!text.empty()) {
        const std::optional<char32_t> sign = signAt(text);
        if (sign && isCharacter(*sign)) {
            appendUtf8(*sign, plain);
            text.remove_prefix(signSize);
        } else {
            plain += text.front();
            text.remove_prefix(1);
        }
    }
    return plain;
}

}  // namespace chengheng
