#include "directories/transfer/directory_sheet.h"

#include <fmt/format.h>

#include <algorithm>

#include "base/values/text.h"
#include "directories/directory_texts.h"
#include "directories/transfer/directory_transfer_texts.h"
#include "directories/transfer/group_finder.h"
#include "sheets/plan_texts.h"

namespace chengheng {
namespace {

namespace texts = directory_transfer_texts;

std::vector<DirectoryField> fieldsOf(const Directory& directory) {
    std::vector<DirectoryField> fields{DirectoryField::code, DirectoryField::name};
    if (directory.groups) fields.push_back(DirectoryField::group);
    if (directory.hasUnitKinds) fields.push_back(DirectoryField::unitKind);
    return fields;
}

/// What tells which record is meant.
bool isRequired(const Directory& directory, DirectoryField field) {
    return field == DirectoryField::code ||
           (field == DirectoryField::group && directory.kind == DirectoryKind::projectItem);
}

std::string missingHeadings(const std::vector<WantedColumn>& wanted) {
    std::vector<std::string> headings;
    for (const WantedColumn& column : wanted)
        if (column.isRequired) headings.push_back(fmt::format(texts::wanted, column.heading));
    return fmt::format(texts::headingsMissing, fmt::join(headings, plan_texts::listSeparator));
}

}  // namespace

const char* headingOf(const Directory& directory, DirectoryField field) {
    switch (field) {
        case DirectoryField::code:
            return directory_texts::code;
        case DirectoryField::name:
            return directory_texts::name;
        case DirectoryField::group:
            return directory.groupLabel;
        case DirectoryField::unitKind:
            break;
    }
    return directory_texts::unitKind;
}

std::optional<SheetFailure> DirectorySheet::read(Sheet sheet, const Directory& directory) {
    m_sheet = std::move(sheet);
    m_rows.clear();
    m_fields = fieldsOf(directory);
    std::vector<WantedColumn> wanted;
    for (const DirectoryField field : m_fields)
        wanted.push_back({headingOf(directory, field), nullptr, isRequired(directory, field)});
    if (auto failure = findHeadings(m_sheet, wanted, missingHeadings(wanted), m_columns))
        return failure;
    for (std::size_t row = m_columns.headingRow; row < m_sheet.rows.size(); ++row)
        if (!isBlankRow(m_sheet.rows[row])) m_rows.push_back(row + 1);
    return std::nullopt;
}

std::size_t DirectorySheet::columnOf(DirectoryField field) const {
    const auto found = std::ranges::find(m_fields, field);
    if (found == m_fields.end()) return 0;
    return m_columns.places[static_cast<std::size_t>(found - m_fields.begin())];
}

std::optional<std::string> DirectorySheet::text(std::size_t row, DirectoryField field) const {
    const std::size_t column = columnOf(field);
    if (column == 0) return std::nullopt;
    const Cell& cell = m_sheet.at(row - 1, column - 1);
    if (cell.isNumber()) return cellText(cell);
    return std::string(withoutBlanksAround(cell.text));
}

Sheet exportedDirectory(const Directory& directory, std::span<const DirectoryRecord> records,
                        std::span<const DirectoryRecord> groups) {
    const GroupFinder finder(groups);
    Sheet sheet{.name = directory.title, .columns = {}, .hasHeader = true, .rows = {}};
    sheet.rows.reserve(records.size() + 1);
    SheetRow& headings = sheet.rows.emplace_back();
    for (const DirectoryField field : fieldsOf(directory))
        headings.push_back(Cell::of(headingOf(directory, field)));
    for (const DirectoryRecord& record : records) {
        SheetRow& row = sheet.rows.emplace_back();
        row.push_back(Cell::of(record.code));
        row.push_back(Cell::of(record.name));
        if (directory.groups) row.push_back(Cell::of(finder.textOf(record.group)));
        if (directory.hasUnitKinds)
            row.push_back(
                Cell::of(directory_texts::unitKinds.at(static_cast<std::size_t>(record.unitKind))));
    }
    return sheet;
}

}  // namespace chengheng
