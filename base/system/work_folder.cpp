#include "base/system/work_folder.h"

#include <fcntl.h>
#include <stdlib.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <string_view>

#include "base/system/system_error.h"
#include "base/system/this_process.h"

namespace chengheng {
namespace {

namespace files = std::filesystem;

constexpr std::string_view anyEnd = "XXXXXX";

/// What the names of all such folders of this workstation begin with. Those of others that share
/// the disk are left alone: whether their owners live cannot be told everywhere.
std::string ownBeginning() {
    std::string station = stationName();
    std::ranges::replace(station, '/', '_');
    return ".chengheng." + station + ".";
}

/// The folder, opened to be held; negative when it is none of this user's.
int openOwned(const std::string& path) {
    const int folder = open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    struct stat found {};
    if (folder < 0 || (fstat(folder, &found) == 0 && found.st_uid == geteuid())) return folder;
    close(folder);
    return -1;
}

/// Whether what was opened has been removed meanwhile.
bool isGone(int folder) {
    struct stat found {};
    return fstat(folder, &found) == 0 && found.st_nlink == 0;
}

/// Removes a folder that nobody holds: the system frees what a killed process held.
void removeLeftOver(const std::string& path) {
    const int folder = openOwned(path);
    if (folder < 0) return;
    std::error_code unseen;  // what cannot be removed stays for the next
    if (flock(folder, LOCK_EX | LOCK_NB) == 0) files::remove_all(path, unseen);
    close(folder);
}

void removeLeftOvers(const std::string& place) {
    const std::string beginning = ownBeginning();
    std::error_code error;
    for (files::directory_iterator at(place, error), end; !error && at != end;
         at.increment(error)) {
        const std::string name = at->path().filename().string();
        if (name.starts_with(beginning) && name.size() == beginning.size() + anyEnd.size())
            removeLeftOver(at->path().string());
    }
}

}  // namespace

WorkFolder::~WorkFolder() {
    std::error_code ignored;  // the next one removes it
    if (!m_path.empty()) files::remove_all(m_path, ignored);
    if (m_hold >= 0) close(m_hold);
}

Status WorkFolder::make(const std::string& place) {
    removeLeftOvers(place);
    while (true) {
        std::string path = place + "/" + ownBeginning() + std::string(anyEnd);
        if (mkdtemp(path.data()) == nullptr) return systemFailure(errno, place);
        m_hold = openOwned(path);
        // Where the disk knows no such locks, nobody takes the folder for a left-over either.
        if (m_hold < 0 || flock(m_hold, LOCK_EX) != 0 || !isGone(m_hold)) {
            m_path = path;
            return Status::done();
        }
        // Somebody took it for one in the moment before it was held.
        close(m_hold);
    }
}

}  // namespace chengheng
