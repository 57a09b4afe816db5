#include "directories/transfer/directory_sheet.h"

#include <algorithm>

#include "directories/directory_texts.h"
#include "directories/transfer/group_finder.h"

namespace chengheng {
namespace {

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
    m_fields = fieldsOf(directory);
    std::vector<WantedColumn> wanted;
    for (const DirectoryField field : m_fields)
        wanted.push_back({headingOf(directory, field), nullptr, isRequired(directory, field)});
    return m_sheet.read(std::move(sheet), wanted);
}

std::size_t DirectorySheet::columnOf(DirectoryField field) const {
    const auto place = placeOf(field);
    return place ? m_sheet.columnOf(*place) : 0;
}

std::optional<std::string> DirectorySheet::text(std::size_t row, DirectoryField field) const {
    const auto place = placeOf(field);
    return place ? m_sheet.text(row, *place) : std::nullopt;
}

std::optional<std::size_t> DirectorySheet::placeOf(DirectoryField field) const {
    const auto found = std::ranges::find(m_fields, field);
    if (found == m_fields.end()) return std::nullopt;
    return static_cast<std::size_t>(found - m_fields.begin());
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
