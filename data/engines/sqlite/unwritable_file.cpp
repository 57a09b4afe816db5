#include "data/engines/sqlite/unwritable_file.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <utility>

#include "base/values/percent_coding.h"

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
    return std::ranges::any_of(std::array{"-wal", "-journal"}, [&](const char* end) {
        return stat((m_path + end).c_str(), &log) == 0 && log.st_size > 0;
    });
}

bool UnwritableFile::hasChanged() const {
    struct stat now {};
    if (stat(m_path.c_str(), &now) != 0) return true;
    return now.st_ino != m_found.st_ino || now.st_size != m_found.st_size ||
           !isSameMoment(now.st_mtim, m_found.st_mtim) || hasLog();
}

std::string UnwritableFile::address() const {
    std::string address = "file:";
    for (const auto& part : std::filesystem::path(m_path).relative_path())
        address += '/' + percentEncoded(part.string());
    return address + "?immutable=1";
}

}  // namespace chengheng
