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

files::path beside(files::path file, const char* end) { return file += end; }

/// What was written last may stand in the log alone. A log that the file itself has left is newer
/// than none and stays.
void takeLogsAlong(const files::path& temporary, const files::path& file) {
    std::error_code unseen;
    for (const char* end : {"-wal", "-journal"}) {
        const files::path log = beside(file, end);
        if (!files::exists(log, unseen)) files::rename(beside(temporary, end), log, unseen);
    }
}

/// What goes with the temporary name and holds nothing of the books.
void removeCompanions(const files::path& temporary) {
    std::error_code unseen;
    files::remove(beside(temporary, "-shm"), unseen);
    files::remove(files::path(temporary).replace_extension(".rbk"), unseen);
}

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
    takeLogsAlong(temporary, file);
    // A link fails where meanwhile something has the name.
    std::error_code failed;
    files::create_hard_link(temporary, file, failed);
    if (failed == std::errc::file_exists) return std::nullopt;
    if (failed)  // a file system without links
        files::rename(temporary, file, failed);
    else
        files::remove(temporary, failed);
    if (!isFile(file)) return std::nullopt;
    removeCompanions(temporary);
    return fmt::format(logon_texts::nameGivenBack, temporary.string(), file.string());
}

}  // namespace chengheng
