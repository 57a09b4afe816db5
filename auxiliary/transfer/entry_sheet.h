#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "auxiliary/entries/auxiliary_entry.h"
#include "auxiliary/members/auxiliary_member.h"
#include "auxiliary/transfer/entry_directory.h"
#include "sheets/headed_columns.h"
#include "sheets/sheet.h"
#include "sheets/sheet_failure.h"

namespace chengheng {

/// A column of opening entries in a spreadsheet.
enum class EntryField : std::uint8_t {
    date,
    voucherNumber,  ///< type and number in one, as the window shows them
    sign,
    number,
    summary,
    department,
    person,
    unit,
    item,
    itemClass,
    direction,
    money,
    foreign,
    quantity,
};

const char* headingOf(EntryField field);
EntryField fieldOf(Dimension dimension);

/// The opening entries of a member as they stand in a sheet.
class EntrySheet {
  public:
    /// Finds the headings below any titles; the failure says which are missing or stand twice.
    /// Rows without headings are in the order of `captions`, when there are any.
    std::optional<SheetFailure> read(Sheet sheet, const AuxiliaryMember& member,
                                     std::span<const char* const> captions = {});

    /// The rows below the headings, but for blank ones, counted from 1.
    const std::vector<std::size_t>& rows() const { return m_rows; }
    /// Where a column stands, from 1; 0: it is not there.
    std::size_t columnOf(EntryField field) const;
    /// What stands there without blanks around it; empty where the column is not there.
    std::string text(std::size_t row, EntryField field) const;
    const std::vector<std::string>& ignoredHeadings() const { return m_columns.ignored; }

  private:
    std::optional<SheetFailure> readHeadings(const AuxiliaryMember& member,
                                             std::span<const char* const> captions);
    bool isBlank(std::size_t row) const;

    Sheet m_sheet;
    std::vector<EntryField> m_fields;
    HeadedColumns m_columns;
    std::vector<std::size_t> m_rows;
};

/// Entries as a sheet that reads back as they are.
Sheet exportedEntries(const AuxiliaryMember& member, const AuxiliaryAccount& account,
                      std::span<const AuxiliaryEntry> entries, const EntryDirectory& directory);

}  // namespace chengheng
