#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "base/values/status.h"

namespace chengheng {

// Files and folders that only their owner may read. What the operating system does about
// them stands in this one place.

/// Makes a folder and those missing above it. One that is there already stays as it is.
Status makeOwnedFolder(const std::string& path);

/// Reads a whole file; refused when it is longer than `most` bytes.
Status readFile(const std::string& path, std::size_t most, std::string& text);

/// Whether it is a file that others than its owner may read.
bool isReadableByOthers(const std::string& path);

/// Puts a text in the place of a file: whoever opens it, even after a power cut, finds the
/// old text or the new one, whole. A link leads to the file; what is no file is a failure.
Status replaceOwnedFile(const std::string& path, std::string_view text);

/// Keeps other processes from an undertaking while it lives, by a lock on a file that the
/// system frees however the process ends.
class FileHold {
  public:
    /// Waits a few seconds for another process; busy when it does not let go.
    explicit FileHold(const std::string& path);
    ~FileHold();
    FileHold(const FileHold&) = delete;
    FileHold& operator=(const FileHold&) = delete;

    const Status& status() const { return m_status; }

  private:
    int m_file = -1;
    Status m_status;
};

}  // namespace chengheng
