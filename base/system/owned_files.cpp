#include "base/system/owned_files.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <filesystem>
#include <thread>

#include "base/system/output_target.h"
#include "base/system/system_error.h"

namespace chengheng {
namespace {

constexpr std::chrono::seconds holdPatience{5};
constexpr std::chrono::milliseconds holdPause{20};

/// An open file; closed when it goes.
class OpenFile {
  public:
    OpenFile(const std::string& path, int flags, mode_t mode = 0)
        : m_file(open(path.c_str(), flags | O_CLOEXEC, mode)) {}
    ~OpenFile() {
        if (m_file >= 0) ::close(m_file);
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    int number() const { return m_file; }
    bool isOpen() const { return m_file >= 0; }
    /// Whether closing went well; some file systems tell only then that the disk is full.
    bool close() {
        const int file = m_file;
        m_file = -1;
        return ::close(file) == 0;
    }

  private:
    int m_file;
};

bool writeAll(int file, std::string_view text) {
    while (!text.empty()) {
        const ssize_t written = write(file, text.data(), text.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return false;
        text.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

Status writeNewFile(const std::string& path, std::string_view text) {
    unlink(path.c_str());
    OpenFile file(path, O_WRONLY | O_CREAT | O_EXCL, S_IRUSR | S_IWUSR);
    if (!file.isOpen()) return systemFailure(errno, path);
    if (!writeAll(file.number(), text) || fsync(file.number()) != 0 || !file.close())
        return systemFailure(errno, path);
    return Status::done();
}

/// Makes a name that was given inside a folder lasting.
Status flushFolder(const std::string& path) {
    OpenFile folder(path, O_RDONLY | O_DIRECTORY);
    if (!folder.isOpen() || fsync(folder.number()) != 0)
        return Status::of(Failure::unconfirmed, systemFailure(errno, path).detail);
    return Status::done();
}

}  // namespace

Status makeOwnedFolder(const std::string& path) {
    std::filesystem::path made;
    for (const auto& part : std::filesystem::path(path)) {
        made /= part;
        if (mkdir(made.c_str(), S_IRWXU) == 0 || errno == EEXIST) continue;
        const int error = errno;
        std::error_code ignored;
        if (!std::filesystem::is_directory(made, ignored)) return systemFailure(error, made);
    }
    std::error_code unseen;
    return std::filesystem::is_directory(path, unseen) ? Status::done()
                                                       : systemFailure(ENOTDIR, path);
}

Status readFile(const std::string& path, std::size_t most, std::string& text) {
    text.clear();
    const OpenFile file(path, O_RDONLY);
    if (!file.isOpen()) return systemFailure(errno, path);
    std::array<char, 65536> part;
    while (true) {
        const ssize_t got = read(file.number(), part.data(), part.size());
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return systemFailure(errno, path);
        if (got == 0) return Status::done();
        text.append(part.data(), static_cast<std::size_t>(got));
        if (text.size() > most) return systemFailure(EFBIG, path);
    }
}

bool isReadableByOthers(const std::string& path) {
    struct stat found {};
    const bool isFile = stat(path.c_str(), &found) == 0 && S_ISREG(found.st_mode);
    return isFile && (found.st_mode & (S_IRGRP | S_IROTH)) != 0;
}

Status replaceOwnedFile(const std::string& path, std::string_view text) {
    OutputTarget target;
    Status status = findTarget(path, Overwrite::replace, target);
    if (status && target.isStream) status = systemFailure(ENOTSUP, path);
    if (!status) return status;
    const std::string draft = target.path + ".new";
    status = writeNewFile(draft, text);
    if (status && rename(draft.c_str(), target.path.c_str()) != 0)
        status = systemFailure(errno, path);
    if (!status) {
        unlink(draft.c_str());
        return status;
    }
    return flushFolder(std::filesystem::path(target.path).parent_path());
}

FileHold::FileHold(const std::string& path) {
    m_file = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (m_file < 0) {
        m_status = systemFailure(errno, path);
        return;
    }
    const auto end = std::chrono::steady_clock::now() + holdPatience;
    while (flock(m_file, LOCK_EX | LOCK_NB) != 0) {
        const int error = errno;
        if (error != EWOULDBLOCK || std::chrono::steady_clock::now() >= end) {
            m_status = systemFailure(error, path);
            return;
        }
        std::this_thread::sleep_for(holdPause);
    }
}

FileHold::~FileHold() {
    if (m_file >= 0) close(m_file);
}

}  // namespace chengheng
