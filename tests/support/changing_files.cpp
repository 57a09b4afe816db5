#include "tests/support/changing_files.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace chengheng {
namespace {

bool beginsChange(const std::string& text) {
    constexpr std::array beginnings{"underLocks(",     "changeRecords(", "changeCurrencies(",
                                    "inOneUnit(",      "askedFor(",      "writeRefusal(",
                                    "UnitOfWork unit("};
    return std::ranges::any_of(
        beginnings, [&text](const char* word) { return text.find(word) != std::string::npos; });
}

std::string textIn(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

std::set<std::string> changingFiles() {
    namespace files = std::filesystem;
    const files::path top = CHENGHENG_SOURCE_FOLDER;
    std::set<std::string> found;
    for (const char* folder :
         {"accounts", "auxiliary", "books", "currency", "directories", "opening", "operators",
          "report", "session", "setting", "settle", "shell", "tool", "vouchertype"})
        for (const auto& entry : files::recursive_directory_iterator(top / folder)) {
            const std::string kind = entry.path().extension();
            if ((kind == ".cpp" || kind == ".h") && beginsChange(textIn(entry.path())))
                found.insert(files::relative(entry.path(), top));
        }
    return found;
}

}  // namespace chengheng
