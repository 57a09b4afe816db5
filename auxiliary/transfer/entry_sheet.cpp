#include "auxiliary/transfer/entry_sheet.h"

#include <fmt/format.h>

#include <algorithm>

#include "auxiliary/members/auxiliary_texts.h"
#include "auxiliary/transfer/transfer_texts.h"
#include "base/values/text.h"
#include "opening/sheet/opening_account.h"

namespace chengheng {
namespace {

/// All of a member; those of the number as the window shows it are behind.
std::vector<EntryField> fieldsOf(const AuxiliaryMember& member) {
    std::vector<EntryField> fields{EntryField::date, EntryField::sign, EntryField::number,
                                   EntryField::summary};
    for (const DimensionWords& words : member.dimensions) {
        if (words.dimension == Dimension::item) fields.push_back(EntryField::itemClass);
        fields.push_back(fieldOf(words.dimension));
    }
    fields.insert(fields.end(), {EntryField::direction, EntryField::money, EntryField::foreign,
                                 EntryField::quantity});
    return fields;
}

/// What no entry can be without.
bool isRequired(const AuxiliaryMember& member, EntryField field) {
    const bool isName = std::ranges::any_of(member.dimensions, [field](const DimensionWords& each) {
        return fieldOf(each.dimension) == field && each.empty != nullptr;
    });
    return isName || field == EntryField::summary || field == EntryField::money;
}

std::vector<WantedColumn> wantedColumns(const AuxiliaryMember& member,
                                        const std::vector<EntryField>& fields) {
    std::vector<WantedColumn> wanted;
    for (const EntryField field : fields)
        wanted.push_back({headingOf(field), nullptr, isRequired(member, field)});
    return wanted;
}

const double& figureOf(const EntryContent& content, EntryField field) {
    if (field == EntryField::money) return content.money;
    return field == EntryField::foreign ? content.foreign : content.quantity;
}

std::optional<Measure> measureOf(EntryField field) {
    if (field == EntryField::money) return Measure::money;
    if (field == EntryField::foreign) return Measure::foreign;
    return field == EntryField::quantity ? std::optional(Measure::quantity) : std::nullopt;
}

std::optional<Dimension> dimensionOf(EntryField field) {
    for (const Dimension each :
         {Dimension::department, Dimension::person, Dimension::unit, Dimension::item})
        if (fieldOf(each) == field) return each;
    return std::nullopt;
}

Cell exportedCell(const AuxiliaryEntry& entry, EntryField field, const EntryDirectory& directory) {
    const EntryContent& content = entry.content;
    if (const auto dimension = dimensionOf(field))
        return Cell::of(directory.textOf(*dimension, entry));
    if (measureOf(field)) {
        const double figure = figureOf(content, field);
        return figure == 0 && field != EntryField::money ? Cell() : Cell::of(figure);
    }
    switch (field) {
        case EntryField::date:
            return Cell::of(isoText(content.date));
        case EntryField::sign:
            return Cell::of(content.sign);
        case EntryField::number:
            return content.number == 0 ? Cell() : Cell::of(std::to_string(content.number));
        case EntryField::summary:
            return Cell::of(content.summary);
        case EntryField::itemClass:
            return Cell::of(content.of.itemClass);
        default:
            return Cell::of(content.isDebit ? auxiliary_texts::debit : auxiliary_texts::credit);
    }
}

/// Foreign currency and quantity where the account keeps them, or an entry has some all the same.
bool isExported(EntryField field, const AuxiliaryAccount& account,
                std::span<const AuxiliaryEntry> entries) {
    if (field != EntryField::foreign && field != EntryField::quantity) return true;
    const bool isKept = field == EntryField::foreign ? account.hasForeign : account.hasQuantity;
    return isKept || std::ranges::any_of(entries, [field](const AuxiliaryEntry& entry) {
               return figureOf(entry.content, field) != 0;
           });
}

}  // namespace

const char* headingOf(EntryField field) {
    using namespace auxiliary_texts;
    switch (field) {
        case EntryField::date:
            return date;
        case EntryField::voucherNumber:
            return voucherNumber;
        case EntryField::sign:
            return voucherType;
        case EntryField::number:
            return number;
        case EntryField::summary:
            return summary;
        case EntryField::department:
            return department;
        case EntryField::person:
            return person;
        case EntryField::unit:
            return unit;
        case EntryField::item:
            return project;
        case EntryField::itemClass:
            return projectClass;
        case EntryField::direction:
            return direction;
        case EntryField::money:
            return money;
        case EntryField::foreign:
            return foreign;
        case EntryField::quantity:
            break;
    }
    return quantity;
}

EntryField fieldOf(Dimension dimension) {
    switch (dimension) {
        case Dimension::department:
            return EntryField::department;
        case Dimension::person:
            return EntryField::person;
        case Dimension::unit:
            return EntryField::unit;
        case Dimension::item:
            break;
    }
    return EntryField::item;
}

std::optional<SheetFailure> EntrySheet::read(Sheet sheet, const AuxiliaryMember& member,
                                             std::span<const char* const> captions) {
    m_sheet = std::move(sheet);
    m_rows.clear();
    m_fields = fieldsOf(member);
    m_fields.push_back(EntryField::voucherNumber);
    if (auto failure = readHeadings(member, captions)) return failure;
    for (std::size_t row = m_columns.headingRow + 1; row <= m_sheet.rows.size(); ++row)
        if (!isBlank(row)) m_rows.push_back(row);
    return std::nullopt;
}

std::optional<SheetFailure> EntrySheet::readHeadings(const AuxiliaryMember& member,
                                                     std::span<const char* const> captions) {
    const auto wanted = wantedColumns(member, m_fields);
    const auto isHeading = [&wanted](const SheetRow& row) { return isHeadingRow(row, wanted); };
    const std::string whenMissing = missingHeadings(wanted);
    if (!captions.empty() && std::ranges::none_of(m_sheet.rows, isHeading)) {
        Sheet headings;
        SheetRow& row = headings.rows.emplace_back();
        for (const char* const caption : captions) row.push_back(Cell::of(caption));
        auto failure = findHeadings(headings, wanted, whenMissing, m_columns);
        m_columns.headingRow = 0;
        return failure;
    }
    if (auto failure = findHeadings(m_sheet, wanted, whenMissing, m_columns)) return failure;
    if (columnOf(EntryField::voucherNumber) == 0) return std::nullopt;
    for (const EntryField part : {EntryField::sign, EntryField::number})
        if (const std::size_t column = columnOf(part); column != 0)
            return SheetFailure{fmt::format(transfer_texts::voucherNumberTwice, headingOf(part)),
                                m_columns.headingRow, column};
    return std::nullopt;
}

std::size_t EntrySheet::columnOf(EntryField field) const {
    const auto found = std::ranges::find(m_fields, field);
    return found == m_fields.end()
               ? 0
               : m_columns.places[static_cast<std::size_t>(found - m_fields.begin())];
}

std::string EntrySheet::text(std::size_t row, EntryField field) const {
    const std::size_t column = columnOf(field);
    if (column == 0) return {};
    return std::string(withoutBlanksAround(cellText(m_sheet.at(row - 1, column - 1))));
}

bool EntrySheet::isBlank(std::size_t row) const {
    return std::ranges::all_of(m_fields,
                               [&](EntryField field) { return text(row, field).empty(); });
}

Sheet exportedEntries(const AuxiliaryMember& member, const AuxiliaryAccount& account,
                      std::span<const AuxiliaryEntry> entries, const EntryDirectory& directory) {
    std::vector<EntryField> fields = fieldsOf(member);
    std::erase_if(fields, [&](EntryField field) { return !isExported(field, account, entries); });
    Sheet sheet{.name = member.caption, .columns = {}, .hasHeader = true, .rows = {}};
    SheetRow& headings = sheet.rows.emplace_back();
    for (const EntryField field : fields) {
        headings.push_back(Cell::of(headingOf(field)));
        const auto measure = measureOf(field);
        sheet.columns.push_back(
            {.decimals = measure ? std::optional(decimalsOf(*measure)) : std::nullopt});
    }
    for (const AuxiliaryEntry& entry : entries) {
        SheetRow& row = sheet.rows.emplace_back();
        for (const EntryField field : fields) row.push_back(exportedCell(entry, field, directory));
    }
    return sheet;
}

}  // namespace chengheng
