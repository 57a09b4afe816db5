#include "books/logon/temporary_name.h"

#include <fmt/format.h>

#include <filesystem>
#include <system_error>

#include "books/list/books_registry.h"
#include "books/logon/logon_texts.h"
#include "data/engines/open_engine.h"

namespace chengheng {
namespace {

namespace files = std::filesystem;

constexpr const char* temporaryFile = "NbzwTmp.db";

bool isFile(const files::path& path) {
    std::error_code unseen;
    return files::is_regular_file(path, unseen);
}

files::path temporaryOf(const files::path& file) { return file.parent_path() / temporaryFile; }

}  // namespace

bool isThereByAnyName(const std::string& location) {
    return isFile(location) || isFile(temporaryOf(location));
}

std::optional<std::string> giveNameBack(const std::string& location) {
    if (location.empty() || isServerAddress(location)) return std::nullopt;
    const files::path file(location);
    const files::path temporary = temporaryOf(file);
    std::error_code unseen;
    if (file.filename() != booksFileName || files::exists(file, unseen) || !isFile(temporary))
        return std::nullopt;
    // A link fails where meanwhile something has the name.
    std::error_code failed;
    files::create_hard_link(temporary, file, failed);
    if (failed == std::errc::file_exists) return std::nullopt;
    if (failed)  // a file system without links
        files::rename(temporary, file, failed);
    else
        files::remove(temporary, failed);
    if (!isFile(file)) return std::nullopt;
    return fmt::format(logon_texts::nameGivenBack, temporary.string(), file.string());
}

}  // namespace chengheng
