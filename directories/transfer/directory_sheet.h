#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "directories/directory.h"
#include "sheets/headed_columns.h"
#include "sheets/sheet.h"
#include "sheets/sheet_failure.h"

namespace chengheng {

/// A column of a directory in a spreadsheet.
enum class DirectoryField : std::uint8_t { code, name, group, unitKind };

/// How it is headed: as the field of the window is.
const char* headingOf(const Directory& directory, DirectoryField field);

/// A directory as it stands in a sheet.
class DirectorySheet {
  public:
    /// Finds the headings below any titles; the failure says which are missing or stand twice. The
    /// code is in every sheet, of items their class, too.
    std::optional<SheetFailure> read(Sheet sheet, const Directory& directory);

    /// The rows below the headings, but for blank ones, counted from 1.
    const std::vector<std::size_t>& rows() const { return m_sheet.rows(); }
    /// Where a column stands, from 1; 0: it is not there.
    std::size_t columnOf(DirectoryField field) const;
    /// What stands there without blanks around it; nothing where the column is not there.
    std::optional<std::string> text(std::size_t row, DirectoryField field) const;
    const std::vector<std::string>& ignoredHeadings() const { return m_sheet.ignoredHeadings(); }

  private:
    std::optional<std::size_t> placeOf(DirectoryField field) const;

    HeadedSheet m_sheet;
    std::vector<DirectoryField> m_fields;
};

/// Records as a sheet that reads back as they are. A group is named by its name, or by its code
/// where that does not find it.
Sheet exportedDirectory(const Directory& directory, std::span<const DirectoryRecord> records,
                        std::span<const DirectoryRecord> groups);

}  // namespace chengheng
