#pragma once

#include <string>
#include <utility>

#include "base/messages/refusal.h"

namespace chengheng {

/// Why nothing was printed, with the warning picture.
inline Refusal printRefusal(std::string text) {
    return {RefusalKind::failed, {.text = std::move(text), .icon = MessageIcon::warning}};
}

}  // namespace chengheng
