#include "auxiliary/entries/dimension_lookup.h"

#include <algorithm>

#include "auxiliary/members/auxiliary_sql.h"
#include "data/access/row_lease.h"
#include "data/access/selected_cells.h"
#include "data/tables/directories.h"
#include "directories/project_items.h"

namespace chengheng {
namespace {

using Choices = std::vector<DimensionChoice>;

DimensionChoice choiceOf(const _DeptInfo& row) {
    return {.id = row.lId, .code = row.sDeptCode, .name = row.sDeptName};
}
DimensionChoice choiceOf(const _PersonInfo& row) {
    return {
        .id = row.lId, .code = row.sPersonCode, .name = row.sPersonName, .department = row.lDeptId};
}
DimensionChoice choiceOf(const _EnterInfo& row) {
    return {.id = row.lId, .code = row.sEnterCode, .name = row.sEnterName};
}

template <class Record>
Status readRecords(CNbCwDB& database, const char* condition, Choices& choices) {
    const RowLease<Record> lease(database, condition);
    if (!lease.isRead()) return database.lastStatus();
    choices.reserve(lease.rows().size());
    for (const Record* row : lease.rows()) choices.push_back(choiceOf(*row));
    return Status::done();
}

Status readItems(CNbCwDB& database, std::string_view itemClass, Choices& choices) {
    const SelectedCells cells(database, auxiliary_sql::itemsInOrder(itemClass));
    if (!cells.isRead()) return database.lastStatus();
    for (int row = 0; row < cells.rows(); ++row)
        choices.push_back({.id = cells.number<std::int32_t>(row, 0),
                           .code = std::string(cells.text(row, 1)),
                           .name = std::string(cells.text(row, 2)),
                           .itemClass = std::string(itemClass)});
    return Status::done();
}

/// Conditions on the records of a dimension other than the item.
struct Conditions {
    std::string (*named)(std::string_view name);
    std::string (*coded)(std::string_view code);
    const char* inOrder;
    Status (*read)(CNbCwDB& database, const char* condition, Choices& choices);
};

Conditions conditionsOf(Dimension dimension) {
    using namespace auxiliary_sql;
    if (dimension == Dimension::department)
        return {departmentNamed, departmentCoded, departmentsInOrder, readRecords<_DeptInfo>};
    if (dimension == Dimension::person)
        return {personNamed, personCoded, personsInOrder, readRecords<_PersonInfo>};
    return {unitNamed, unitCoded, unitsInOrder, readRecords<_EnterInfo>};
}

void keepPersonsOf(std::int32_t department, Choices& choices) {
    if (department == 0) return;
    std::erase_if(choices, [department](const DimensionChoice& each) {
        return each.department != department;
    });
}

/// A class without a table has no items; a table whose class is gone counts for nothing.
Status readClassExists(CNbCwDB& database, std::string_view classCode, bool& exists) {
    const Status status = readHasItemTable(database, classCode, exists);
    if (!status || !exists) return status;
    const auto found = hasRows<_ProjClassInfo>(database, auxiliary_sql::classOfCode(classCode));
    exists = found.value_or(false);
    return found ? Status::done() : database.lastStatus();
}

Status findItems(CNbCwDB& database, std::string_view text, const LookupScope& scope,
                 bool (*bears)(const DimensionChoice&, std::string_view), Choices& found) {
    for (const std::string& each : scope.itemClasses) {
        bool exists = false;
        Choices items;
        Status status = readClassExists(database, each, exists);
        if (status && exists) status = readItems(database, each, items);
        if (!status) return status;
        for (DimensionChoice& item : items)
            if (bears(item, text)) found.push_back(std::move(item));
    }
    return Status::done();
}

Status unlessMissing(const Status& status) {
    return status.failure == Failure::missing ? Status::done() : status;
}

bool hasName(const DimensionChoice& item, std::string_view text) { return item.name == text; }
bool hasCode(const DimensionChoice& item, std::string_view text) { return item.code == text; }

}  // namespace

Status findByText(CNbCwDB& database, Dimension dimension, std::string_view text,
                  const LookupScope& scope, Choices& found) {
    found.clear();
    if (text.empty()) return Status::done();
    if (dimension == Dimension::item) {
        const Status status = findItems(database, text, scope, hasName, found);
        return status && found.empty() ? findItems(database, text, scope, hasCode, found) : status;
    }
    const Conditions conditions = conditionsOf(dimension);
    Status status = conditions.read(database, conditions.named(text).c_str(), found);
    keepPersonsOf(scope.department, found);
    if (!status || !found.empty()) return status;
    status = conditions.read(database, conditions.coded(text).c_str(), found);
    keepPersonsOf(scope.department, found);
    return status;
}

Status readChoices(CNbCwDB& database, Dimension dimension, const LookupScope& scope,
                   Choices& choices) {
    choices.clear();
    if (dimension == Dimension::item) {
        return findItems(
            database, {}, scope, [](const DimensionChoice&, std::string_view) { return true; },
            choices);
    }
    const Conditions conditions = conditionsOf(dimension);
    const Status status = conditions.read(database, conditions.inOrder, choices);
    keepPersonsOf(scope.department, choices);
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
    std::vector<std::string> all;
    const RowLease<_ProjClassInfo> lease(database, auxiliary_sql::classesInOrder);
    if (!lease.isRead()) return database.lastStatus();
    for (const _ProjClassInfo* row : lease.rows()) all.push_back(row->sClsCode);
    std::erase_if(classes, [&all](const std::string& each) {
        return std::ranges::find(all, each) == all.end();
    });
    if (classes.empty()) classes = std::move(all);
    return Status::done();
}

Status readIsNamed(CNbCwDB& database, Dimension dimension, const EntryDimensions& of,
                   std::string_view name, bool& isNamed) {
    isNamed = false;
    Choices found;
    std::int32_t wanted = of.item;
    if (dimension == Dimension::item) {
        bool exists = false;
        Status status = readClassExists(database, of.itemClass, exists);
        if (!status || !exists) return status;
        const SelectedCells cells(database, auxiliary_sql::itemNamed(of.itemClass, name));
        if (!cells.isRead()) return database.lastStatus();
        for (int row = 0; row < cells.rows(); ++row)
            found.push_back({.id = cells.number<std::int32_t>(row, 0), .code = {}, .name = {}});
    } else {
        const Conditions conditions = conditionsOf(dimension);
        const Status status = conditions.read(database, conditions.named(name).c_str(), found);
        if (!status) return status;
        wanted = dimension == Dimension::department ? of.department
                 : dimension == Dimension::person   ? of.person.value_or(0)
                                                    : of.unit;
    }
    isNamed = std::ranges::count(found, wanted, &DimensionChoice::id) != 0;
    return Status::done();
}

Status readDepartment(CNbCwDB& database, std::int32_t id,
                      std::optional<DimensionChoice>& department) {
    department.reset();
    _DeptInfo* row = nullptr;
    const bool isFound = database.Dept_GetInfo(row, id) == 0;
    if (isFound) department = choiceOf(*row);
    database.Dept_ReleaseAllBuffer();
    return isFound ? Status::done() : unlessMissing(database.lastStatus());
}

Status readDepartmentOf(CNbCwDB& database, std::int32_t person, std::int32_t& department) {
    _PersonInfo* row = nullptr;
    const bool isFound = database.Person_GetInfo(row, person) == 0;
    department = isFound ? row->lDeptId : 0;
    database.Person_ReleaseAllBuffer();
    return isFound ? Status::done() : unlessMissing(database.lastStatus());
}

}  // namespace chengheng
