#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/values/status.h"
#include "data/engine/lock_service.h"

namespace chengheng {

/// A file whose bytes are locked by those who have it open, against each other, in whatever
/// process. A byte need not exist to be locked. Locks belong to this object: closing it, or
/// the end of its process by whatever cause, frees them.
class LockFile {
  public:
    LockFile() = default;
    ~LockFile() { close(); }
    LockFile(const LockFile&) = delete;
    LockFile& operator=(const LockFile&) = delete;

    /// Opens the file, made with the permissions of its sibling when it is not there.
    Status open(const std::string& path, const std::string& sibling);
    void close();
    bool isOpen() const { return m_file >= 0; }
    /// Whether somebody removed the file, so that others will not meet us in it.
    bool isRemoved() const;

    /// Takes a byte, or changes the mode in which it is held, when nobody else minds.
    Status tryLock(std::int64_t offset, LockMode mode, bool& isGranted);
    Status unlock(std::int64_t offset);
    bool isLockedByOthers(std::int64_t offset) const;

    Status write(std::int64_t offset, std::string_view text);
    /// What stands there, short at the end of the file.
    std::string read(std::int64_t offset, std::size_t size) const;
    std::int64_t size() const;

  private:
    int m_file = -1;
    std::string m_path;
};

}  // namespace chengheng
