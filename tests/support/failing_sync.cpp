#include "tests/support/failing_sync.h"

#include <dlfcn.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>

namespace {

std::atomic<bool> failsForFolders = false;

bool isFolder(int file) {
    struct stat found {};
    return fstat(file, &found) == 0 && S_ISDIR(found.st_mode);
}

}  // namespace

/// Stands before the system's own in the test programs.
extern "C" int fsync(int file) {
    if (failsForFolders && isFolder(file)) {
        errno = EIO;
        return -1;
    }
    static const auto real = reinterpret_cast<int (*)(int)>(dlsym(RTLD_NEXT, "fsync"));
    return real(file);
}

namespace chengheng {

FailingFolderSync::FailingFolderSync() { failsForFolders = true; }
FailingFolderSync::~FailingFolderSync() { failsForFolders = false; }

}  // namespace chengheng
