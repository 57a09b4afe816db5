#include "base/system/output_target.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <string_view>

#include "base/system/system_error.h"

namespace chengheng {
namespace {

namespace files = std::filesystem;

constexpr std::string_view standardOutput = "-";
constexpr int mostLinks = 40;

/// What the process has open under a number. A name like this leads to no place of its own.
bool isDescriptor(const std::string& path) {
    return path == "/dev/stdout" || path == "/dev/stderr" || path.starts_with("/dev/fd/") ||
           path.starts_with("/proc/self/fd/");
}

/// Where links lead, whether or not something is there.
Status follow(const std::string& path, std::string& end) {
    files::path at = path;
    std::error_code error;
    for (int links = 0; files::is_symlink(files::symlink_status(at, error)); ++links) {
        if (links == mostLinks) return systemFailure(ELOOP, path);
        const files::path next = files::read_symlink(at, error);
        if (error) return systemFailure(error.value(), path);
        at = next.is_absolute() ? next : at.parent_path() / next;
    }
    end = at.string();
    return Status::done();
}

/// Refused as foreign where books are. What cannot be looked into may be books, too.
Status refuseBooks(const std::string& path) {
    constexpr std::string_view sign("SQLite format 3\0", 16);
    struct stat entry {};
    // A program has them open, perhaps this one, whose locks on them would go with a handle that
    // is closed.
    if (stat(path.c_str(), &entry) == 0 && stat((path + "-shm").c_str(), &entry) == 0)
        return Status::of(Failure::foreign, path);
    std::array<char, sign.size()> start{};
    const int file = open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (file < 0) return errno == ENOENT ? Status::done() : systemFailure(errno, path);
    const ssize_t got = read(file, start.data(), start.size());
    const int error = errno;
    close(file);
    if (got < 0) return error == EISDIR ? Status::done() : systemFailure(error, path);
    const std::string_view found(start.data(), static_cast<std::size_t>(got));
    return found == sign ? Status::of(Failure::foreign, path) : Status::done();
}

/// The same for a path of what an engine keeps beside books, there or to come.
Status refuseBesideBooks(const std::string& path) {
    for (const std::string_view end : {"-wal", "-shm", "-journal"})
        if (path.ends_with(end)) return refuseBooks(path.substr(0, path.size() - end.size()));
    return Status::done();
}

Status writeAll(int to, const char* bytes, std::size_t count) {
    while (count > 0) {
        const ssize_t written = write(to, bytes, count);
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return systemFailure(errno, "write");
        bytes += written;
        count -= static_cast<std::size_t>(written);
    }
    return Status::done();
}

Status writeAll(int to, const std::string& file) {
    std::ifstream from(file, std::ios::binary);
    std::array<char, 65536> part{};
    Status status;
    while (status && from) {
        from.read(part.data(), part.size());
        status = writeAll(to, part.data(), static_cast<std::size_t>(from.gcount()));
    }
    return status && !from.eof() ? Status::of(Failure::lost, file) : status;
}

}  // namespace

bool isStandardOutput(const std::string& target) { return target == standardOutput; }

Status findTarget(const std::string& target, Overwrite overwrite, OutputTarget& found) {
    found = {target, true};
    if (isStandardOutput(target) || isDescriptor(target)) return Status::done();
    found.isStream = false;
    if (Status status = follow(target, found.path); !status) return status;
    struct stat entry {};
    const bool isThere = stat(found.path.c_str(), &entry) == 0;
    if (isThere && S_ISDIR(entry.st_mode)) return systemFailure(EISDIR, target);
    found.isStream = isThere && !S_ISREG(entry.st_mode);
    if (found.isStream) return Status::done();
    Status status = refuseBesideBooks(found.path);
    if (status && overwrite != Overwrite::replaceBooks) status = refuseBooks(found.path);
    if (!status) return status;
    if (isThere && overwrite == Overwrite::refuse) return Status::of(Failure::refused, target);
    return Status::done();
}

Status writeThrough(const std::string& file, const OutputTarget& target) {
    if (isStandardOutput(target.path)) return writeAll(STDOUT_FILENO, file);
    const int to = open(target.path.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY);
    if (to < 0) return systemFailure(errno, target.path);
    Status status = writeAll(to, file);
    if (close(to) != 0 && status) status = systemFailure(errno, target.path);
    return status;
}

}  // namespace chengheng
