#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "sheets/sheet_failure.h"
#include "sheets/xlsx/xlsx_package.h"

namespace chengheng {

/// Where in an XLSX file the parts of one sheet are.
struct XlsxContents {
    std::string sheetName;
    std::string sheetPart;
    std::string stringsPart;  ///< empty when there is none
    std::string stylesPart;   ///< empty when there is none
    bool countsFrom1904 = false;
};

/// Finds the first visible sheet.
std::optional<SheetFailure> findContents(XlsxPackage& package, XlsxContents& contents);

/// The name of a part that another one refers to: "../a.xml" in "xl/sheets/b.xml" is "xl/a.xml".
std::string partName(std::string_view from, std::string_view target);

}  // namespace chengheng
