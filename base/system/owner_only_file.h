#pragma once

#include <string>

#include "base/values/status.h"

namespace chengheng {

/// Whether a file can be worked on, before it is opened.
enum class FileState {
    absent,
    notAFile,  ///< a directory, a device, ...
    readOnly,  ///< the file or its directory refuses writing
    writable,
};

FileState fileState(const std::string& path);

/// Makes an empty file that only its owner may read and write, from its first byte on.
/// Failure: refused when the path exists, missing when its directory does not.
Status createOwnerOnlyFile(const std::string& path);

}  // namespace chengheng
