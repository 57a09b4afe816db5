#include "sheets/files/sheet_files.h"

#include "base/system/owned_files.h"
#include "base/system/staged_file.h"
#include "base/values/text.h"
#include "sheets/delimited/delimited_text.h"
#include "sheets/sheet_limits.h"
#include "sheets/sheet_texts.h"
#include "sheets/written_cells.h"
#include "sheets/xlsx/xlsx_reading.h"
#include "sheets/xlsx/xlsx_writing.h"

namespace chengheng {
namespace {

constexpr std::string_view csvEnd = ".csv";
constexpr std::string_view xlsxEnd = ".xlsx";

bool endsInAnyCase(std::string_view text, std::string_view end) {
    return text.size() >= end.size() && isSameInAnyCase(text.substr(text.size() - end.size()), end);
}

bool isCsvName(std::string_view path) {
    if (endsInAnyCase(path, csvEnd)) return true;
    OutputTarget target;
    return findTarget(std::string(path), Overwrite::replace, target) && target.isStream;
}

/// Makes a file beside its place with `make`, and puts it there.
template <class Make>
std::optional<SheetFailure> writeFile(const std::string& path, Overwrite overwrite,
                                      const Make& make) {
    StagedFile staged(path, overwrite);
    if (!staged.status()) return whileWriting(staged.status(), path);
    if (std::optional<SheetFailure> failure = make(staged)) return whileWriting(*failure, path);
    const Status status = staged.place();
    return status ? std::optional<SheetFailure>() : whileWriting(status, path);
}

std::optional<SheetFailure> readBytes(std::string_view bytes, Sheet& sheet) {
    constexpr std::string_view zipSign("PK\x03\x04");
    constexpr std::string_view oldWorkbookSign("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1");
    if (bytes.starts_with(zipSign)) return readXlsx(bytes, sheet);
    if (bytes.starts_with(oldWorkbookSign)) return SheetFailure{.reason = sheet_texts::oldWorkbook};
    return readCsv(bytes, sheet);
}

/// Whether a file just written holds that sheet. A disk that is full is not always told while
/// the file is made.
std::optional<SheetFailure> compare(const Sheet& sheet, const std::string& path) {
    std::string bytes;
    if (const Status status = readFile(path, std::string::npos, bytes); !status)
        return whileReading(status, path);
    Sheet written;
    const bool isRead = !readXlsx(bytes, written);
    return isRead && isSameContent(sheet, written)
               ? std::optional<SheetFailure>()
               : SheetFailure{.reason = sheet_texts::writtenDiffers};
}

}  // namespace

std::optional<SheetFailure> writeCsv(const Sheet& sheet, const std::string& path,
                                     Overwrite overwrite) {
    std::string text;
    if (std::optional<SheetFailure> failure = csvText(sheet, text))
        return whileWriting(*failure, path);
    return writeFile(path, overwrite, [&](const StagedFile& draft) {
        const Status status = draft.write(text);
        return status ? std::optional<SheetFailure>() : whileWriting(status, path);
    });
}

std::optional<SheetFailure> writeXlsx(const Sheet& sheet, const std::string& path,
                                      Overwrite overwrite) {
    return writeFile(path, overwrite, [&](const StagedFile& draft) {
        std::optional<SheetFailure> failure = makeWorkbook(sheet, draft.path());
        return failure ? failure : compare(sheet, draft.path());
    });
}

bool isSheetName(std::string_view path) { return endsInAnyCase(path, xlsxEnd) || isCsvName(path); }

std::optional<SheetFailure> writeSheet(const Sheet& sheet, const std::string& path,
                                       Overwrite overwrite) {
    return endsInAnyCase(path, xlsxEnd) ? writeXlsx(sheet, path, overwrite)
                                        : writeCsv(sheet, path, overwrite);
}

std::optional<SheetFailure> readSheet(const std::string& path, Sheet& sheet) {
    sheet = Sheet();
    std::string bytes;
    if (const Status status = readFile(path, sheet_limits::fileSize, bytes); !status)
        return whileReading(status, path);
    if (std::optional<SheetFailure> failure = readBytes(bytes, sheet))
        return whileReading(*failure, path);
    return std::nullopt;
}

}  // namespace chengheng
