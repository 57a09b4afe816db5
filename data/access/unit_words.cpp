#include "data/access/unit_words.h"

#include <string_view>

#include "base/values/text.h"

namespace chengheng {

std::string keptWords(std::string words) {
    const std::string_view kept = firstCharacters(words, mostWords);
    return kept.size() < words.size() ? std::string(kept) + "…" : std::move(words);
}

}  // namespace chengheng
