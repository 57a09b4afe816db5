#include "session/GetPrintFile.h"

#include <filesystem>
#include <vector>

#include "base/system/this_process.h"
#include "base/system/workstation.h"

namespace {

namespace files = std::filesystem;

/// Where layout files may lie; the earlier wins.
std::vector<files::path> layoutFolders() {
    const files::path program = chengheng::programFolder();
    std::vector<files::path> folders{program / "print", program / "../share/chengheng/print"};
    const std::string home = chengheng::booksHome();
    if (!home.empty()) folders.insert(folders.begin(), files::path(home) / "print");
    return folders;
}

}  // namespace

std::string GetPrintFile(const char* fileName) {
    const files::path name = files::path(fileName == nullptr ? "" : fileName).filename();
    for (const files::path& folder : layoutFolders()) {
        const files::path path = (folder / name).lexically_normal();
        std::error_code unseen;
        if (files::is_regular_file(path, unseen)) return path;
    }
    return files::path(chengheng::programFolder()) / "print" / name;
}
