#pragma once

#include <optional>
#include <string>

#include "base/values/status.h"

namespace chengheng {

/// The password in the first line of a file, without its line end and without the mark that some
/// editors put before UTF-8. Refused when the line is
/// longer than 1024 bytes or holds a NUL.
Status readPasswordFile(const std::string& path, std::string& password);

/// What to tell whoever used such a file, when others may read it too.
std::optional<std::string> passwordFileWarning(const std::string& path);

}  // namespace chengheng
