#include "base/values/utf8.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace chengheng {
namespace {

using Byte = unsigned char;

bool isFollowing(Byte byte) { return (byte & 0xC0U) == 0x80U; }

/// Length of the character that begins here; 0 when none does. Overlong forms, surrogates
/// and what lies above U+10FFFF are no characters.
std::size_t characterLength(const Byte* at, std::size_t left) {
    const Byte first = at[0];
    if (first < 0xC2U || first > 0xF4U) return 0;
    if (left < 2) return 0;
    const Byte second = at[1];
    if (first < 0xE0U) return isFollowing(second) ? 2 : 0;
    const Byte least = first == 0xE0U ? 0xA0U : first == 0xF0U ? 0x90U : 0x80U;
    const Byte most = first == 0xEDU ? 0x9FU : first == 0xF4U ? 0x8FU : 0xBFU;
    if (second < least || second > most) return 0;
    if (left < 3 || !isFollowing(at[2])) return 0;
    if (first < 0xF0U) return 3;
    return left >= 4 && isFollowing(at[3]) ? 4 : 0;
}

}  // namespace

const char* firstBeyondUtf8(std::string_view text) {
    const char* at = text.data();
    const char* const end = at + text.size();
    while (at < end) {
        std::uint64_t eight = 0;
        if (end - at >= 8) {
            std::memcpy(&eight, at, 8);
            if ((eight & 0x8080808080808080U) == 0) {
                at += 8;
                continue;
            }
        }
        if (static_cast<Byte>(*at) < 0x80U) {
            ++at;
            continue;
        }
        const std::size_t length =
            characterLength(reinterpret_cast<const Byte*>(at), static_cast<std::size_t>(end - at));
        if (length == 0) return at;
        at += length;
    }
    return at;
}

}  // namespace chengheng
