#pragma once

namespace chengheng {

/// While it lives, the system does not confirm that a folder has reached its disk.
class FailingFolderSync {
  public:
    FailingFolderSync();
    ~FailingFolderSync();
    FailingFolderSync(const FailingFolderSync&) = delete;
    FailingFolderSync& operator=(const FailingFolderSync&) = delete;
};

}  // namespace chengheng
