#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "data/tables/accounts.h"
#include "data/tables/currency.h"
#include "sheets/sheet.h"
#include "sheets/sheet_failure.h"

namespace chengheng {

/// A column of a chart of accounts in a spreadsheet.
enum class ChartField {
    level,  ///< for the reader only; the code says it
    code,
    name,
    className,
    direction,
    page,
    mnemonic,
    currency,
    quantity,
    unit,
    byPerson,
    byUnit,
    byDepartment,
    byProject,
    isJournal,
    isBank,
};

inline constexpr std::size_t chartFieldCount = 16;

/// The columns in the order of an exported chart.
struct ChartColumn {
    ChartField field;
    const char* heading;
    const char* plainHeading;  ///< understood as well
};
std::span<const ChartColumn> chartColumns();

/// A row of a sheet below its headings; a column that the sheet does not have says nothing.
struct ChartRow {
    std::size_t row = 0;  ///< in the sheet, from 1
    std::array<std::optional<std::string>, chartFieldCount> cells;

    const std::optional<std::string>& at(ChartField field) const {
        return cells[static_cast<std::size_t>(field)];
    }
};

/// A chart as it stands in a sheet.
struct ChartSheet {
    std::vector<ChartRow> rows;  ///< those that are not blank
    /// Where the columns stand, from 1; 0 for one that is not there.
    std::array<std::size_t, chartFieldCount> columns{};
    std::vector<std::string> ignoredHeadings;

    std::size_t columnOf(ChartField field) const {
        return columns[static_cast<std::size_t>(field)];
    }
};

/// Finds the headings in the first row that names code and name, below any titles, and reads the
/// rows below. A failure says which headings are missing or stand twice.
std::optional<SheetFailure> readChartSheet(const Sheet& sheet, ChartSheet& chart);

/// The accounts as a sheet that reads back as they are: names indented by level, currencies by
/// their symbols.
Sheet chartSheet(std::span<const _CodeInfo> accounts, std::span<const _CyrencyInfo> currencies);

}  // namespace chengheng
