#include "data/locks/byte_range_lock.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "base/system/system_error.h"

namespace chengheng {
namespace {

// Locks of the open file, not of the process: two connections of one process exclude each
// other, and closing one of them leaves the locks of the other alone.
struct flock byteLock(std::int64_t offset, short type) {
    struct flock lock {};
    lock.l_type = type;
    lock.l_whence = SEEK_SET;
    lock.l_start = offset;
    lock.l_len = 1;
    return lock;
}

}  // namespace

Status LockFile::open(const std::string& path, const std::string& sibling) {
    close();
    struct stat model {};
    if (stat(sibling.c_str(), &model) != 0) return systemFailure(errno, sibling);
    const int file = ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (file < 0) return systemFailure(errno, path);
    struct stat found {};
    const mode_t permissions = model.st_mode & 0777;
    const bool isOdd = fstat(file, &found) == 0 && (found.st_mode & 0777) != permissions;
    if (isOdd && found.st_uid == geteuid() && fchmod(file, permissions) != 0) {
        const Status failed = systemFailure(errno, path);
        ::close(file);
        return failed;
    }
    m_file = file;
    m_path = path;
    return Status::done();
}

void LockFile::close() {
    if (m_file >= 0) ::close(m_file);
    m_file = -1;
}

bool LockFile::isRemoved() const {
    struct stat found {};
    return fstat(m_file, &found) == 0 && found.st_nlink == 0;
}

Status LockFile::tryLock(std::int64_t offset, LockMode mode, bool& isGranted) {
    struct flock lock = byteLock(offset, mode == LockMode::shared ? F_RDLCK : F_WRLCK);
    isGranted = fcntl(m_file, F_OFD_SETLK, &lock) == 0;
    const bool isHeld = !isGranted && (errno == EAGAIN || errno == EACCES);
    return isGranted || isHeld ? Status::done() : systemFailure(errno, m_path);
}

Status LockFile::unlock(std::int64_t offset) {
    struct flock lock = byteLock(offset, F_UNLCK);
    return fcntl(m_file, F_OFD_SETLK, &lock) == 0 ? Status::done() : systemFailure(errno, m_path);
}

bool LockFile::isLockedByOthers(std::int64_t offset) const {
    struct flock lock = byteLock(offset, F_WRLCK);
    return fcntl(m_file, F_OFD_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
}

Status LockFile::write(std::int64_t offset, std::string_view text) {
    while (!text.empty()) {
        const ssize_t written = pwrite(m_file, text.data(), text.size(), offset);
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return systemFailure(errno, m_path);
        text.remove_prefix(static_cast<std::size_t>(written));
        offset += written;
    }
    return Status::done();
}

std::string LockFile::read(std::int64_t offset, std::size_t size) const {
    std::string text(size, '\0');
    ssize_t got = -1;
    do {
        got = pread(m_file, text.data(), size, offset);
    } while (got < 0 && errno == EINTR);
    text.resize(got < 0 ? 0 : static_cast<std::size_t>(got));
    return text;
}

std::int64_t LockFile::size() const {
    struct stat found {};
    return fstat(m_file, &found) == 0 ? found.st_size : 0;
}

}  // namespace chengheng
