#include "host/sheets/sheet_files.h"

#include <cerrno>
#include <fstream>

#include "data/platform/staged_file.h"
#include "data/platform/system_error.h"
#include "host/sheets/delimited_text.h"
#include "host/sheets/xlsx_writing.h"

namespace chengheng {
namespace {

Status writeText(const std::string& text, const std::string& path) {
    errno = 0;
    std::ofstream file(path, std::ios::binary);
    file << text;
    file.close();
    return file ? Status::done() : systemFailure(errno, path);
}

/// Makes a file beside its place with `make`, and puts it there.
template <class Make>
SheetOutcome writeFile(const std::string& path, const Make& make) {
    StagedFile staged(path);
    if (!staged.status()) return whileWriting(staged.status(), path);
    if (SheetOutcome failure = make(staged.path())) return whileWriting(*failure, path);
    const Status status = staged.place(true);
    return status ? SheetOutcome() : whileWriting(status, path);
}

}  // namespace

SheetOutcome writeCsv(const Sheet& sheet, const std::string& path) {
    std::string text;
    if (SheetOutcome failure = csvText(sheet, text)) return whileWriting(*failure, path);
    return writeFile(path, [&](const std::string& draft) {
        const Status status = writeText(text, draft);
        return status ? SheetOutcome() : whileWriting(status, path);
    });
}

SheetOutcome writeXlsx(const Sheet& sheet, const std::string& path) {
    return writeFile(path, [&](const std::string& draft) { return makeWorkbook(sheet, draft); });
}

}  // namespace chengheng
