#include "sheets/xlsx/xlsx_reading.h"

#include "sheets/sheet_texts.h"
#include "sheets/xlsx/xlsx_cells.h"
#include "sheets/xlsx/xlsx_contents.h"

namespace chengheng {
namespace {

SheetOutcome read(std::string_view bytes, Sheet& sheet) {
    XlsxPackage package;
    if (SheetOutcome failure = package.open(bytes)) return failure;
    XlsxContents contents;
    if (SheetOutcome failure = findContents(package, contents)) return failure;
    XlsxShared shared;
    shared.countsFrom1904 = contents.countsFrom1904;
    if (!contents.stringsPart.empty())
        if (SheetOutcome failure = shared.strings.read(package, contents.stringsPart))
            return failure;
    if (!contents.stylesPart.empty())
        if (SheetOutcome failure = shared.formats.read(package, contents.stylesPart))
            return failure;
    sheet.name = contents.sheetName;
    XlsxCellsHandler cells(shared, sheet);
    if (SheetOutcome failure = package.read(contents.sheetPart, cells)) return failure;
    if (!cells.hasCells()) return damagedWorkbook(contents.sheetPart + ": no cells");
    return std::nullopt;
}

}  // namespace

SheetOutcome readXlsx(std::string_view bytes, Sheet& sheet) {
    sheet = Sheet();
    SheetOutcome failure = read(bytes, sheet);
    if (failure) sheet = Sheet();
    return failure;
}

}  // namespace chengheng
