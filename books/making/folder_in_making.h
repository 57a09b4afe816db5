#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "base/values/status.h"

namespace chengheng {

/// Makes the folder that a file of books is to lie in, and takes away again what was made for
/// nothing.
class FolderInMaking {
  public:
    explicit FolderInMaking(const std::string& location);
    ~FolderInMaking();
    FolderInMaking(const FolderInMaking&) = delete;
    FolderInMaking& operator=(const FolderInMaking&) = delete;

    const Status& status() const { return m_status; }
    void keep() { m_made.clear(); }

  private:
    std::vector<std::filesystem::path> m_made;
    Status m_status;
};

}  // namespace chengheng
