#include "books/logon/password_file.h"

#include <fmt/format.h>

#include "base/system/owned_files.h"
#include "books/logon/logon_texts.h"

namespace chengheng {
namespace {

constexpr std::size_t longestPassword = 1024;
constexpr std::size_t longestFile = 64 * 1024;

}  // namespace

Status readPasswordFile(const std::string& path, std::string& password) {
    password.clear();
    std::string text;
    if (Status status = readFile(path, longestFile, text); !status) return status;
    if (constexpr std::string_view mark = "\xEF\xBB\xBF"; text.starts_with(mark))
        text.erase(0, mark.size());
    text.resize(std::min(text.find_first_of("\r\n"), text.size()));
    if (text.size() > longestPassword || text.find('\0') != std::string::npos)
        return Status::of(Failure::refused, path);
    password = text;
    return Status::done();
}

std::optional<std::string> passwordFileWarning(const std::string& path) {
    if (!isReadableByOthers(path)) return std::nullopt;
    return fmt::format(logon_texts::passwordFileIsOpen, path);
}

}  // namespace chengheng
