#include "base/values/percent_coding.h"

#include <charconv>

#include "base/values/text.h"

namespace chengheng {

std::string percentEncoded(std::string_view text) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    constexpr std::string_view marks = "-._~";
    std::string encoded;
    for (const char letter : text) {
        const char lower = lowerAscii(letter);
        const bool isMark = marks.find(letter) != std::string_view::npos;
        if ((lower >= 'a' && lower <= 'z') || isDigit(letter) || isMark) {
            encoded += letter;
            continue;
        }
        const auto byte = static_cast<unsigned char>(letter);
        encoded += {'%', digits[byte >> 4], digits[byte & 0xF]};
    }
    return encoded;
}

std::optional<std::string> percentDecoded(std::string_view text) {
    std::string decoded;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] != '%') {
            decoded += text[at];
            continue;
        }
        const std::string_view digits = text.substr(at + 1, 2);
        unsigned code = 0;
        const char* end = digits.data() + digits.size();
        const auto read = std::from_chars(digits.data(), end, code, 16);
        if (digits.size() != 2 || read.ec != std::errc{} || read.ptr != end || code == 0)
            return std::nullopt;
        decoded += static_cast<char>(code);
        at += 2;
    }
    return decoded;
}

}  // namespace chengheng
