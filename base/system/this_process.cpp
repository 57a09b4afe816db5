#include "base/system/this_process.h"

#include <unistd.h>

#include <array>
#include <filesystem>

namespace chengheng {

std::string stationName() {
    std::array<char, 256> name{};
    // The last byte stays 0: a name that is cut need not end with one.
    if (gethostname(name.data(), name.size() - 1) != 0) return {};
    return name.data();
}

std::int64_t processNumber() { return getpid(); }

std::string programName() {
    std::error_code unseen;
    return std::filesystem::read_symlink("/proc/self/exe", unseen).filename().string();
}

std::string programFolder() {
    std::error_code unseen;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", unseen);
    return unseen ? "." : program.parent_path().string();
}

}  // namespace chengheng
