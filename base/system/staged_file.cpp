#include "base/system/staged_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <fstream>

#include "base/system/system_error.h"

namespace chengheng {
namespace {

std::string folderOf(const std::string& path) {
    const std::filesystem::path parent = std::filesystem::path(path).parent_path();
    return parent.empty() ? "." : parent.string();
}

/// Has what was written under a path reach the disk.
Status flush(const std::string& path, int flags) {
    const int file = open(path.c_str(), flags | O_CLOEXEC);
    if (file < 0) return systemFailure(errno, path);
    const int error = fsync(file) == 0 ? 0 : errno;
    close(file);
    return error == 0 ? Status::done() : systemFailure(error, path);
}

/// A log that could not be brought into its database when this was closed holds part of
/// what was written.
Status checkFinished(const std::string& path) {
    std::error_code unseen;
    for (const char* log : {"-wal", "-journal"})
        if (std::filesystem::exists(path + log, unseen))
            return Status::of(Failure::lost, path + log + " was not brought in");
    return Status::done();
}

}  // namespace

StagedFile::StagedFile(const std::string& target, Overwrite overwrite)
    : m_wanted(target), m_overwrite(overwrite), m_status(findTarget(target, overwrite, m_target)) {
    if (m_status) m_status = makeFolder();
}

Status StagedFile::write(std::string_view bytes) const {
    errno = 0;
    std::ofstream file(m_path, std::ios::binary);
    file << bytes;
    file.close();
    return file ? Status::done() : systemFailure(errno, m_path);
}

Status StagedFile::makeFolder() {
    const std::filesystem::path target = m_target.path;
    std::error_code error;
    const std::string folder = m_target.isStream
                                   ? std::filesystem::temp_directory_path(error).string()
                                   : folderOf(m_target.path);
    if (error) return systemFailure(error.value(), m_wanted);
    Status status = m_folder.make(folder);
    if (status) m_path = m_folder.path() + "/" + target.filename().string();
    return status;
}

Status StagedFile::place() {
    Status status = checkFinished(m_path);
    OutputTarget target;
    // Something may have come there while the file was made.
    if (status) status = findTarget(m_wanted, m_overwrite, target);
    if (!status) return status;
    m_target = target;
    return m_target.isStream ? writeThrough(m_path, m_target) : move();
}

// A link fails where a file stands already; a rename replaces it. Either is all or nothing.
Status StagedFile::move() const {
    const std::string& target = m_target.path;
    struct stat before {};
    const bool isThere = stat(target.c_str(), &before) == 0;
    const mode_t mode = isThere ? before.st_mode & 07777 : S_IRUSR | S_IWUSR;
    if (chmod(m_path.c_str(), mode) != 0) return systemFailure(errno, m_path);
    if (Status status = flush(m_path, O_RDONLY); !status) return status;
    const bool replaces = m_overwrite != Overwrite::refuse;
    const int moved = replaces ? std::rename(m_path.c_str(), target.c_str())
                               : link(m_path.c_str(), target.c_str());
    if (moved != 0 && errno == EEXIST) return Status::of(Failure::refused, m_wanted);
    if (moved != 0) return systemFailure(errno, m_wanted);
    const Status lasting = flush(folderOf(target), O_RDONLY | O_DIRECTORY);
    return lasting ? lasting : Status::of(Failure::unconfirmed, lasting.detail);
}

}  // namespace chengheng
