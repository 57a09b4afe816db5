#pragma once

#include "base/values/status.h"

namespace chengheng {

/// What an error number of the operating system means for a file; `lost` when it says no
/// more than that the file could not be used.
Failure failureOfSystemError(int error);

/// The failure with the path and the system's own words.
Status systemFailure(int error, const std::string& path);

}  // namespace chengheng
