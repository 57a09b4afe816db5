#pragma once

#include <string>
#include <string_view>

#include "base/system/output_target.h"
#include "base/system/work_folder.h"
#include "base/values/status.h"

namespace chengheng {

/// A file in the making, in a folder of its own beside the place it is meant for, so that
/// whatever goes with it (a log, locks) is not seen there. Nothing stands at the place
/// before place() puts the finished file there, whole; what is not placed is removed. What is
/// meant for a pipe or a device is made elsewhere and written through.
class StagedFile {
  public:
    /// Makes the folder, readable by its owner only. Failures are those of findTarget(), too.
    StagedFile(const std::string& target, Overwrite overwrite);

    const Status& status() const { return m_status; }
    const OutputTarget& target() const { return m_target; }
    /// Where to make the file.
    const std::string& path() const { return m_path; }
    /// Makes it of these bytes.
    Status write(std::string_view bytes) const;

    /// Flushes the finished file to the disk and moves it to its place, where only its owner may
    /// read it, or whoever may read the file that it replaces. One that came there meanwhile and
    /// is not to be replaced is a refusal. A database whose log still lies beside it is not
    /// finished.
    Status place();

  private:
    Status makeFolder();
    Status move() const;

    std::string m_wanted;
    Overwrite m_overwrite;
    OutputTarget m_target;
    WorkFolder m_folder;
    std::string m_path;
    Status m_status;
};

}  // namespace chengheng
