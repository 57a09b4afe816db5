#pragma once

#include <string>
#include <string_view>

#include "base/values/status.h"

namespace chengheng {

/// A file in the making, in a folder of its own beside the place it is meant for, so that
/// whatever goes with it (a log, locks) is not seen there. Nothing stands at the place
/// before place() puts the finished file there, whole; what is not placed is removed.
class StagedFile {
  public:
    /// Makes the folder, readable by its owner only.
    explicit StagedFile(std::string target);
    ~StagedFile();
    StagedFile(const StagedFile&) = delete;
    StagedFile& operator=(const StagedFile&) = delete;

    const Status& status() const { return m_status; }
    /// Where to make the file.
    const std::string& path() const { return m_path; }
    /// Makes it of these bytes.
    Status write(std::string_view bytes) const;

    /// Flushes the finished file to the disk and moves it to its place. A file that is
    /// already there is replaced or, when that is not wanted, a refusal. A database whose log
    /// still lies beside it is not finished.
    Status place(bool replace);

  private:
    std::string m_target;
    std::string m_folder;
    std::string m_path;
    Status m_status;
};

}  // namespace chengheng
