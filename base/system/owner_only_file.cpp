#include "base/system/owner_only_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

#include "base/system/system_error.h"

namespace chengheng {
namespace {

bool isWritable(const char* path) { return faccessat(AT_FDCWD, path, W_OK, AT_EACCESS) == 0; }

}  // namespace

FileState fileState(const std::string& path) {
    struct stat found {};
    if (stat(path.c_str(), &found) != 0)
        return errno == EACCES ? FileState::readOnly : FileState::absent;
    if (!S_ISREG(found.st_mode)) return FileState::notAFile;
    const std::filesystem::path directory = std::filesystem::path(path).parent_path();
    const bool isFree =
        isWritable(path.c_str()) && isWritable(directory.empty() ? "." : directory.c_str());
    return isFree ? FileState::writable : FileState::readOnly;
}

Status createOwnerOnlyFile(const std::string& path) {
    const int file = open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (file < 0) return systemFailure(errno, path);
    close(file);
    return Status::done();
}

}  // namespace chengheng
