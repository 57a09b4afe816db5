#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>

#include "sheets/xlsx/xlsx_reading.h"
#include "tests/support/made_workbook.h"

namespace chengheng {

/// What the reader makes of a file; the test fails when it does not read it.
inline Sheet readBytes(std::string_view bytes) {
    Sheet sheet;
    const std::optional<SheetFailure> failure = readXlsx(bytes, sheet);
    EXPECT_FALSE(failure) << failure->text();
    return sheet;
}

/// The only row of a sheet with these cells.
inline SheetRow readCells(const MadeWorkbook& workbook) {
    const Sheet sheet = readBytes(workbook.bytes());
    EXPECT_EQ(sheet.rows.size(), 1U);
    return sheet.rows.empty() ? SheetRow() : sheet.rows.front();
}

/// Why the reader does not read a file; nothing of it may be left.
inline SheetFailure xlsxFailureOf(std::string_view bytes) {
    Sheet sheet;
    sheet.rows.resize(3);
    const std::optional<SheetFailure> failure = readXlsx(bytes, sheet);
    EXPECT_TRUE(failure);
    EXPECT_TRUE(sheet.rows.empty()) << "half of a sheet was left";
    return failure.value_or(SheetFailure());
}

inline SheetFailure xlsxFailureOf(const MadeWorkbook& workbook) {
    return xlsxFailureOf(workbook.bytes());
}

/// A workbook in which the content of one part is another; without it when that is empty.
inline std::string withPart(const std::string& name, const std::string& content) {
    auto parts = MadeWorkbook{.rows = "<row><c><v>1</v></c></row>"}.parts();
    std::erase_if(parts, [&](const auto& part) { return part.first == name; });
    if (!content.empty()) parts.emplace_back(name, content);
    return packedFile(parts);
}

}  // namespace chengheng
