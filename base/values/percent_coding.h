#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace chengheng {

/// A text as a part of an address, whatever stands in it.
std::string percentEncoded(std::string_view text);

/// What "%E4%B8%AD" and its like stand for; nothing when it is malformed or holds a NUL.
std::optional<std::string> percentDecoded(std::string_view text);

}  // namespace chengheng
