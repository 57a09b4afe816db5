#pragma once

#include <string>
#include <string_view>

#include "base/values/status.h"

namespace chengheng {

/// Asks at the terminal for a text that is not shown while it is typed. Failure: missing when
/// the process has no terminal, cancelled after Ctrl+C or at the end of input.
Status askSecret(std::string_view prompt, std::string& answer);

}  // namespace chengheng
