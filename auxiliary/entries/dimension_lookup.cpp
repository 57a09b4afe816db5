#include "auxiliary/entries/dimension_lookup.h"

#include <algorithm>

#include "auxiliary/members/auxiliary_sql.h"
#include "data/access/row_lease.h"
#include "data/access/selected_cells.h"
#include "data/tables/directories.h"
#include "directories/directory_store.h"
#include "directories/project_items.h"

namespace chengheng {
namespace {

using Choices = std::vector<DimensionChoice>;
using Records = std::vector<DirectoryRecord>;

DimensionChoice choiceOf(Dimension dimension, DirectoryRecord& record) {
    return {.id = record.id,
            .code = std::move(record.code),
            .name = std::move(record.name),
            .department = dimension == Dimension::person ? record.group : 0};
}

/// Adds those whom the scope leaves to choose from.
void take(Dimension dimension, Records& records, const LookupScope& scope, Choices& choices) {
    choices.reserve(choices.size() + records.size());
    for (DirectoryRecord& record : records) {
        DimensionChoice choice = choiceOf(dimension, record);
        const bool isElsewhere = dimension == Dimension::person && scope.department != 0 &&
                                 choice.department != scope.department;
        if (!isElsewhere) choices.push_back(std::move(choice));
    }
}

Status readClasses(CNbCwDB& database, Records& classes) {
    return readDirectory(database, DirectoryKind::projectClass, classes);
}

using ItemReading = Status (*)(CNbCwDB& database, DirectoryKind kind, std::int32_t group,
                               std::string_view text, Records& records);

/// Items of the classes of a scope; a class that is gone or has no table has none.
Status findItems(CNbCwDB& database, std::string_view text, const LookupScope& scope,
                 ItemReading read, Choices& found) {
    Records classes;
    Status status = readClasses(database, classes);
    for (const std::string& code : scope.itemClasses) {
        const auto itemClass = std::ranges::find(classes, code, &DirectoryRecord::code);
        if (itemClass == classes.end()) continue;
        Records items;
        if (status) status = read(database, DirectoryKind::projectItem, itemClass->id, text, items);
        if (!status) return status;
        for (DirectoryRecord& item : items) {
            found.push_back(choiceOf(Dimension::item, item));
            found.back().itemClass = code;
        }
    }
    return status;
}

Status find(CNbCwDB& database, Dimension dimension, std::string_view text, const LookupScope& scope,
            ItemReading read, Choices& found) {
    if (dimension == Dimension::item) return findItems(database, text, scope, read, found);
    Records records;
    const Status status = read(database, directoryKindOf(dimension), 0, text, records);
    take(dimension, records, scope, found);
    return status;
}

Status readItemsOf(CNbCwDB& database, const LookupScope& scope, Choices& choices) {
    Records classes;
    Status status = readClasses(database, classes);
    Records items;
    if (status) status = readDirectory(database, DirectoryKind::projectItem, items);
    for (DirectoryRecord& item : items) {
        const auto itemClass = std::ranges::find(classes, item.group, &DirectoryRecord::id);
        if (itemClass == classes.end()) continue;
        if (std::ranges::find(scope.itemClasses, itemClass->code) == scope.itemClasses.end())
            continue;
        choices.push_back(choiceOf(Dimension::item, item));
        choices.back().itemClass = itemClass->code;
    }
    return status;
}

Status readIsItemNamed(CNbCwDB& database, const EntryDimensions& of, std::string_view name,
                       bool& isNamed) {
    Records classes;
    Status status = readClasses(database, classes);
    if (std::ranges::count(classes, of.itemClass, &DirectoryRecord::code) == 0) return status;
    bool hasTable = false;
    status = readHasItemTable(database, of.itemClass, hasTable);
    if (!status || !hasTable) return status;
    const SelectedCells cells(database, auxiliary_sql::itemNamed(of.itemClass, name));
    if (!cells.isRead()) return database.lastStatus();
    for (int row = 0; row < cells.rows(); ++row)
        isNamed = isNamed || cells.number<std::int32_t>(row, 0) == of.item;
    return status;
}

}  // namespace

DirectoryKind directoryKindOf(Dimension dimension) {
    switch (dimension) {
        case Dimension::department:
            return DirectoryKind::department;
        case Dimension::person:
            return DirectoryKind::person;
        case Dimension::unit:
            return DirectoryKind::unit;
        case Dimension::item:
            break;
    }
    return DirectoryKind::projectItem;
}

Status findByText(CNbCwDB& database, Dimension dimension, std::string_view text,
                  const LookupScope& scope, Choices& found) {
    found.clear();
    if (text.empty()) return Status::done();
    const Status status = find(database, dimension, text, scope, readNamed, found);
    if (!status || !found.empty()) return status;
    return find(database, dimension, text, scope, readCoded, found);
}

Status readChoices(CNbCwDB& database, Dimension dimension, const LookupScope& scope,
                   Choices& choices) {
    choices.clear();
    if (dimension == Dimension::item) return readItemsOf(database, scope, choices);
    Records records;
    const Status status = readDirectory(database, directoryKindOf(dimension), records);
    take(dimension, records, scope, choices);
    return status;
}

Status readItemClasses(CNbCwDB& database, std::int32_t accountId,
                       std::vector<std::string>& classes) {
    classes.clear();
    {
        const std::string condition = auxiliary_sql::classesOfAccount(accountId);
        const RowLease<_ProjCodesInfo> lease(database, condition.c_str());
        if (!lease.isRead()) return database.lastStatus();
        for (const _ProjCodesInfo* row : lease.rows())
            if (std::ranges::find(classes, row->sItemId) == classes.end())
                classes.push_back(row->sItemId);
    }
    Records all;
    const Status status = readClasses(database, all);
    std::erase_if(classes, [&all](const std::string& each) {
        return std::ranges::find(all, each, &DirectoryRecord::code) == all.end();
    });
    if (classes.empty())
        for (const DirectoryRecord& each : all) classes.push_back(each.code);
    return status;
}

Status readIsNamed(CNbCwDB& database, Dimension dimension, const EntryDimensions& of,
                   std::string_view name, bool& isNamed) {
    isNamed = false;
    if (dimension == Dimension::item) return readIsItemNamed(database, of, name, isNamed);
    Records found;
    const Status status = readNamed(database, directoryKindOf(dimension), 0, name, found);
    const std::int32_t wanted = dimension == Dimension::department ? of.department
                                : dimension == Dimension::person   ? of.person.value_or(0)
                                                                   : of.unit;
    isNamed = std::ranges::count(found, wanted, &DirectoryRecord::id) != 0;
    return status;
}

Status readDepartment(CNbCwDB& database, std::int32_t id,
                      std::optional<DimensionChoice>& department) {
    department.reset();
    std::optional<DirectoryRecord> record;
    const Status status = readRecord(database, DirectoryKind::department, id, 0, record);
    if (record) department = choiceOf(Dimension::department, *record);
    return status;
}

Status readDepartmentOf(CNbCwDB& database, std::int32_t person, std::int32_t& department) {
    std::optional<DirectoryRecord> record;
    const Status status = readRecord(database, DirectoryKind::person, person, 0, record);
    department = record ? record->group : 0;
    return status;
}

}  // namespace chengheng
