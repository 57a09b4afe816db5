#include "data/engines/sqlite/unwritable_file.h"

#include <fmt/format.h>

#include <utility>

namespace chengheng {
namespace {

bool isSameMoment(const timespec& one, const timespec& other) {
    return one.tv_sec == other.tv_sec && one.tv_nsec == other.tv_nsec;
}

}  // namespace

UnwritableFile::UnwritableFile(std::string path) : m_path(std::move(path)) {
    if (stat(m_path.c_str(), &m_found) != 0) m_found = {};
}

bool UnwritableFile::hasLog() const {
    struct stat log {};
    return stat((m_path + "-wal").c_str(), &log) == 0 && log.st_size > 0;
}

bool UnwritableFile::hasChanged() const {
    struct stat now {};
    if (stat(m_path.c_str(), &now) != 0) return true;
    return now.st_ino != m_found.st_ino || now.st_size != m_found.st_size ||
           !isSameMoment(now.st_mtim, m_found.st_mtim) || hasLog();
}

std::string UnwritableFile::address() const {
    std::string address = "file:";
    for (const char byte : m_path) {
        const bool isPlain = (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') ||
                             (byte >= 'a' && byte <= 'z') || byte == '/';
        address += isPlain ? std::string(1, byte)
                           : fmt::format("%{:02X}", static_cast<unsigned char>(byte));
    }
    return address + "?immutable=1";
}

}  // namespace chengheng
