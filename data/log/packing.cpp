#include "data/log/packing.h"

#include <sodium.h>
#include <zstd.h>

#include <memory>

namespace chengheng {
namespace {

// The least that packs well: what is logged waits for it.
constexpr int level = 1;
constexpr int variant = sodium_base64_VARIANT_ORIGINAL_NO_PADDING;

const unsigned char* bytesOf(std::string_view text) {
    return reinterpret_cast<const unsigned char*>(text.data());
}

// Making room for it takes longer than the few bytes that most parts are.

ZSTD_CCtx* packingRoom() {
    thread_local const std::unique_ptr<ZSTD_CCtx, decltype(&ZSTD_freeCCtx)> room(ZSTD_createCCtx(),
                                                                                 &ZSTD_freeCCtx);
    return room.get();
}

ZSTD_DCtx* unpackingRoom() {
    thread_local const std::unique_ptr<ZSTD_DCtx, decltype(&ZSTD_freeDCtx)> room(ZSTD_createDCtx(),
                                                                                 &ZSTD_freeDCtx);
    return room.get();
}

}  // namespace

std::string packed(std::string_view bytes) {
    ZSTD_CCtx* const room = packingRoom();
    if (room == nullptr) return {};
    std::string small(ZSTD_compressBound(bytes.size()), '\0');
    const std::size_t size =
        ZSTD_compressCCtx(room, small.data(), small.size(), bytes.data(), bytes.size(), level);
    if (ZSTD_isError(size) != 0) return {};
    std::string text(sodium_base64_encoded_len(size, variant), '\0');
    sodium_bin2base64(text.data(), text.size(), bytesOf(small), size, variant);
    text.pop_back();  // its end mark
    return text;
}

std::optional<std::string> unpacked(std::string_view text, std::size_t most) {
    ZSTD_DCtx* const room = unpackingRoom();
    if (room == nullptr) return std::nullopt;
    std::string small(text.size(), '\0');
    std::size_t size = 0;
    if (sodium_base642bin(reinterpret_cast<unsigned char*>(small.data()), small.size(), text.data(),
                          text.size(), nullptr, &size, nullptr, variant) != 0)
        return std::nullopt;
    const unsigned long long whole = ZSTD_getFrameContentSize(small.data(), size);
    if (whole == ZSTD_CONTENTSIZE_ERROR || whole == ZSTD_CONTENTSIZE_UNKNOWN || whole > most)
        return std::nullopt;
    std::string bytes(whole, '\0');
    const std::size_t read =
        ZSTD_decompressDCtx(room, bytes.data(), bytes.size(), small.data(), size);
    if (ZSTD_isError(read) != 0 || read != whole) return std::nullopt;
    return bytes;
}

}  // namespace chengheng
