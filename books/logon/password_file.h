#pragma once

#include <string>

#include "base/values/status.h"

namespace chengheng {

/// The password in the first line of a file, without its line end. Refused when the line is
/// longer than 1024 bytes or holds a NUL.
Status readPasswordFile(const std::string& path, std::string& password);

}  // namespace chengheng
