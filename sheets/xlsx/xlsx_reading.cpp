#include "sheets/xlsx/xlsx_reading.h"

#include "sheets/sheet_texts.h"
#include "sheets/xlsx/xlsx_cells.h"
#include "sheets/xlsx/xlsx_contents.h"

namespace chengheng {
namespace {

std::optional<SheetFailure> read(std::string_view bytes, Sheet& sheet) {
    XlsxPackage package;
    if (std::optional<SheetFailure> failure = package.open(bytes)) return failure;
    XlsxContents contents;
    if (std::optional<SheetFailure> failure = findContents(package, contents)) return failure;
    XlsxShared shared;
    shared.countsFrom1904 = contents.countsFrom1904;
    if (!contents.stringsPart.empty())
        if (std::optional<SheetFailure> failure =
                shared.strings.read(package, contents.stringsPart))
            return failure;
    if (!contents.stylesPart.empty())
        if (std::optional<SheetFailure> failure = shared.formats.read(package, contents.stylesPart))
            return failure;
    sheet.name = contents.sheetName;
    XlsxCellsHandler cells(shared, sheet);
    if (std::optional<SheetFailure> failure = package.read(contents.sheetPart, cells))
        return failure;
    if (!cells.hasCells()) return damagedWorkbook(contents.sheetPart + ": no cells");
    return std::nullopt;
}

}  // namespace

std::optional<SheetFailure> readXlsx(std::string_view bytes, Sheet& sheet) {
    sheet = Sheet();
    std::optional<SheetFailure> failure = read(bytes, sheet);
    if (failure) sheet = Sheet();
    return failure;
}

}  // namespace chengheng
