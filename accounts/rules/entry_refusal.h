#pragma once

#include <optional>
#include <string>

#include "base/messages/refusal.h"

namespace chengheng {

/// Why what the account dialog holds is refused: a beep, the information picture and the focus
/// on the field. In the way stands the account of a code that is used, if any.
inline Refusal entryRefusal(std::string text, const char* field, std::string usedCode = {}) {
    return {RefusalKind::wrongInput,
            {.text = std::move(text), .beep = true, .focusField = field},
            std::move(usedCode)};
}

inline std::optional<Refusal> entryRefusalIf(bool isRefused, const char* text, const char* field) {
    if (!isRefused) return std::nullopt;
    return entryRefusal(text, field);
}

}  // namespace chengheng
