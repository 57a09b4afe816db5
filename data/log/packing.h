#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace chengheng {

/// Packs bytes into a text that every engine, copy and backup carries as it is; empty when there
/// is no memory for it.
std::string packed(std::string_view bytes);

/// The bytes of a packed text; nothing when it is none, or stands for more than `most` bytes.
std::optional<std::string> unpacked(std::string_view text, std::size_t most = 64 << 20);

}  // namespace chengheng
