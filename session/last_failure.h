#pragma once

#include <optional>
#include <string>

#include "base/messages/messages.h"

namespace chengheng {

/// Why the last operation of g_pDB failed, as the operator is told: which file or server, what
/// is the matter and what to do. Empty when it did not fail.
std::string lastFailureText();

/// The same as it is shown, with a beep. Nothing where the operator gave up waiting: that is
/// known to whoever did it.
std::optional<Notice> lastFailureNotice();

void tellLastFailure(IMessages& messages);

}  // namespace chengheng
