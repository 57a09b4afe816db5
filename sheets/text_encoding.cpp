#include "sheets/text_encoding.h"

#include <iconv.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cerrno>
#include <cstdint>

#include "base/values/utf8.h"

namespace chengheng {
namespace {

using Byte = unsigned char;

enum class Encoding { utf8, utf16Little, utf16Big, gb18030 };

struct Mark {
    std::string_view bytes;
    Encoding encoding;
};

constexpr std::array marks{Mark{"\xEF\xBB\xBF", Encoding::utf8},
                           Mark{"\xFF\xFE", Encoding::utf16Little},
                           Mark{"\xFE\xFF", Encoding::utf16Big}};

/// UTF-16 shows by zero bytes in the same half of its units: nearly all of these in a text of
/// ASCII, which is UTF-8 as well, and at least those of separators and line ends in any other.
/// A text with a stray NUL has too few of them.
bool isUtf16(std::string_view bytes, std::size_t half, std::size_t leastShare) {
    constexpr std::size_t sampleSize = 4096;
    const std::string_view sample = bytes.substr(0, sampleSize);
    std::array<std::size_t, 2> zeros{};
    for (std::size_t at = 0; at < sample.size(); ++at)
        if (sample[at] == '\0') ++zeros.at(at % 2);
    return zeros.at(1 - half) == 0 && zeros.at(half) * leastShare > sample.size();
}

/// Whether bytes that are not UTF-8 throughout were meant to be: nearly all that is not
/// ASCII forms characters of it, which in GB18030 happens to few.
bool isDamagedUtf8(std::string_view bytes) {
    std::size_t beyondAscii = 0;
    std::size_t broken = 0;
    for (const char byte : bytes)
        if (static_cast<Byte>(byte) >= 0x80U) ++beyondAscii;
    while (true) {
        const char* const bad = firstBeyondUtf8(bytes);
        if (bad == bytes.data() + bytes.size()) break;
        ++broken;
        bytes.remove_prefix(static_cast<std::size_t>(bad - bytes.data()) + 1);
        while (!bytes.empty() && (static_cast<Byte>(bytes.front()) & 0xC0U) == 0x80U)
            bytes.remove_prefix(1);
    }
    return broken * 5 <= beyondAscii;
}

Encoding encodingWithoutMark(std::string_view bytes) {
    const bool canBeUtf8 = isUtf8(bytes);
    const std::size_t leastShare = canBeUtf8 ? 4 : 50;
    if (isUtf16(bytes, 1, leastShare)) return Encoding::utf16Little;
    if (isUtf16(bytes, 0, leastShare)) return Encoding::utf16Big;
    return canBeUtf8 || isDamagedUtf8(bytes) ? Encoding::utf8 : Encoding::gb18030;
}

bool decodeUtf8(std::string_view bytes, std::string& text) {
    const char* const end = firstBeyondUtf8(bytes);
    text.assign(bytes.data(), end);
    return text.size() == bytes.size();
}

bool decodeUtf16(std::string_view bytes, std::size_t highHalf, std::string& text) {
    const auto unitAt = [&](std::size_t at) {
        const auto high = static_cast<Byte>(bytes[at + highHalf]);
        return static_cast<char32_t>(high << 8U | static_cast<Byte>(bytes[at + 1 - highHalf]));
    };
    std::size_t at = 0;
    for (; at + 2 <= bytes.size(); at += 2) {
        char32_t unit = unitAt(at);
        const bool isPair = unit >= 0xD800 && unit <= 0xDBFF && at + 4 <= bytes.size();
        if (isPair) {
            const char32_t low = unitAt(at + 2);
            if (low < 0xDC00 || low > 0xDFFF) return false;
            unit = 0x10000 + ((unit - 0xD800) << 10U) + (low - 0xDC00);
            at += 2;
        }
        if (unit != 0 && !isCharacter(unit)) return false;
        appendUtf8(unit, text);
    }
    return at == bytes.size();
}

/// A converter of the system, closed when it goes.
class Converter {
  public:
    Converter() : m_converter(iconv_open("UTF-8", "GB18030")) {}
    ~Converter() {
        if (isOpen()) iconv_close(m_converter);
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    /// Takes converted bytes off the front; false when the next are none of a text.
    bool convert(std::string_view& bytes, std::string& text) {
        std::array<char, 16384> room;
        // The interface asks for a pointer to what it does not change.
        char* from = const_cast<char*>(bytes.data());
        std::size_t left = bytes.size();
        char* to = room.data();
        std::size_t roomLeft = room.size();
        const bool isDone = isOpen() && iconv(m_converter, &from, &left, &to, &roomLeft) !=
                                            static_cast<std::size_t>(-1);
        const bool isFull = !isDone && errno == E2BIG;
        text.append(room.data(), to);
        bytes.remove_prefix(bytes.size() - left);
        return isDone || (isOpen() && isFull);
    }

  private:
    bool isOpen() const { return std::bit_cast<std::intptr_t>(m_converter) != -1; }

    iconv_t m_converter;
};

bool decodeGb18030(std::string_view bytes, std::string& text) {
    Converter converter;
    while (!bytes.empty())
        if (!converter.convert(bytes, text)) return false;
    return true;
}

}  // namespace

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

bool decodeText(std::string_view bytes, std::string& text) {
    text.clear();
    Encoding encoding = Encoding::utf8;
    const auto* const mark = std::ranges::find_if(
        marks, [&](const Mark& each) { return bytes.starts_with(each.bytes); });
    if (mark != marks.end()) {
        encoding = mark->encoding;
        bytes.remove_prefix(mark->bytes.size());
    } else {
        encoding = encodingWithoutMark(bytes);
    }
    switch (encoding) {
        case Encoding::utf16Little:
            return decodeUtf16(bytes, 1, text);
        case Encoding::utf16Big:
            return decodeUtf16(bytes, 0, text);
        case Encoding::gb18030:
            return decodeGb18030(bytes, text);
        case Encoding::utf8:
            break;
    }
    return decodeUtf8(bytes, text);
}

}  // namespace chengheng
