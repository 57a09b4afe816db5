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

/// What is said where no row names every required column.
std::string missingHeadings(std::span<const WantedColumn> wanted);

/// Whether a row names every required column.
bool isHeadingRow(const SheetRow& row, std::span<const WantedColumn> wanted);

/// A sheet whose columns were found by their headings. Columns are asked for by their place among
/// the wanted ones.
class HeadedSheet {
  public:
    /// Finds the headings below any titles; the failure says which are missing or stand twice.
    std::optional<SheetFailure> read(Sheet sheet, std::span<const WantedColumn> wanted);

    /// The rows below the headings, but for blank ones, counted from 1.
    const std::vector<std::size_t>& rows() const { return m_rows; }
    /// Where a column stands, from 1; 0: it is not there.
    std::size_t columnOf(std::size_t wanted) const { return m_columns.places[wanted]; }
    /// What stands there without blanks around it; nothing where the column is not there.
    std::optional<std::string> text(std::size_t row, std::size_t wanted) const;
    const std::vector<std::string>& ignoredHeadings() const { return m_columns.ignored; }

  private:
    Sheet m_sheet;
    HeadedColumns m_columns;
    std::vector<std::size_t> m_rows;
};

}  // namespace chengheng
