#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "sheets/sheet.h"
#include "sheets/sheet_failure.h"

namespace chengheng {

/// A column that is looked for by its heading.
struct WantedColumn {
    const char* heading;
    const char* otherHeading = nullptr;  ///< understood as well, letters in any case
    bool isRequired = false;
};

/// Where the wanted columns of a sheet stand.
struct HeadedColumns {
    std::size_t headingRow = 0;        ///< from 1
    std::vector<std::size_t> places;   ///< of each wanted one, from 1; 0: it is not there
    std::vector<std::string> ignored;  ///< headings that nothing is wanted of
};

/// Finds the headings in the first row that names every required column, below any titles. It
/// fails where a heading stands twice, and with `whenMissing` where there is no such row.
std::optional<SheetFailure> findHeadings(const Sheet& sheet, std::span<const WantedColumn> wanted,
                                         const std::string& whenMissing, HeadedColumns& columns);

/// Whether a row names every required column.
bool isHeadingRow(const SheetRow& row, std::span<const WantedColumn> wanted);

}  // namespace chengheng
