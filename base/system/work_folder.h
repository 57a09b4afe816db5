#pragma once

#include <string>

#include "base/values/status.h"

namespace chengheng {

/// A hidden folder for files in the making, readable by its owner only. It goes with the object
/// that made it; one whose process was killed is removed by whoever next works at its place.
class WorkFolder {
  public:
    WorkFolder() = default;
    ~WorkFolder();
    WorkFolder(const WorkFolder&) = delete;
    WorkFolder& operator=(const WorkFolder&) = delete;

    /// Makes it inside another folder.
    Status make(const std::string& place);
    const std::string& path() const { return m_path; }

  private:
    std::string m_path;
    int m_hold = -1;
};

}  // namespace chengheng
