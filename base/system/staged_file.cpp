#include "base/system/staged_file.h"

#include <fcntl.h>
#include <stdlib.h>
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

StagedFile::StagedFile(std::string target) : m_target(std::move(target)) {
    const std::filesystem::path name = std::filesystem::path(m_target).filename();
    std::string pattern = folderOf(m_target) + "/." + name.string() + ".XXXXXX";
    if (mkdtemp(pattern.data()) == nullptr) {
        m_status = systemFailure(errno, m_target);
        return;
    }
    m_folder = pattern;
    m_path = m_folder + "/" + name.string();
}

StagedFile::~StagedFile() {
    std::error_code ignored;  // a folder left over is no harm
    if (!m_folder.empty()) std::filesystem::remove_all(m_folder, ignored);
}

Status StagedFile::write(std::string_view bytes) const {
    errno = 0;
    std::ofstream file(m_path, std::ios::binary);
    file << bytes;
    file.close();
    return file ? Status::done() : systemFailure(errno, m_path);
}

// A link fails where a file stands already; a rename replaces it. Either is all or nothing.
Status StagedFile::place(bool replace) {
    Status status = checkFinished(m_path);
    if (status) status = flush(m_path, O_RDONLY);
    if (!status) return status;
    const int moved = replace ? std::rename(m_path.c_str(), m_target.c_str())
                              : link(m_path.c_str(), m_target.c_str());
    if (moved != 0 && errno == EEXIST) return Status::of(Failure::refused, m_target);
    if (moved != 0) return systemFailure(errno, m_target);
    return flush(folderOf(m_target), O_RDONLY | O_DIRECTORY);
}

}  // namespace chengheng
