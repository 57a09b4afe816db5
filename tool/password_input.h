#pragma once

#include <optional>
#include <string>

#include "base/messages/refusal.h"

namespace chengheng {

/// A password to be set: the first line of the file, or, when none is named, what is typed
/// twice at the terminal. A password never stands on the command line, where others see it.
std::optional<Refusal> readNewPassword(const std::string& file, std::string& password);

}  // namespace chengheng
