#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace chengheng {

/// What the operation log says of a unit of work. The text is asked for when all is written, as
/// codes and counts are known only then, and only where a log is kept.
struct UnitWords {
    std::int32_t function = 0;  ///< of the rights list; 0: none
    std::function<std::string()> text = {};
};

/// Characters of the words that the log keeps of a unit; whatever is longer ends in "…".
inline constexpr std::size_t mostWords = 200;
std::string keptWords(std::string words);

}  // namespace chengheng
