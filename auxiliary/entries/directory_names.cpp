#include "auxiliary/entries/directory_names.h"

#include "auxiliary/members/auxiliary_sql.h"
#include "data/access/row_lease.h"
#include "data/access/selected_cells.h"
#include "data/tables/directories.h"
#include "directories/project_items.h"

namespace chengheng {
namespace {

using Names = std::unordered_map<std::int32_t, std::string>;

template <class Record>
Status readNames(CNbCwDB& database, std::string Record::*name, Names& names) {
    const RowLease<Record> lease(database, nullptr);
    if (!lease.isRead()) return database.lastStatus();
    names.reserve(lease.rows().size());
    for (const Record* row : lease.rows()) names.emplace(row->lId, row->*name);
    return Status::done();
}

std::string nameIn(const Names& names, std::int32_t id) {
    const auto found = names.find(id);
    return found == names.end() ? std::string() : found->second;
}

}  // namespace

Status DirectoryNames::read(CNbCwDB& database, const AuxiliaryMember& member) {
    Status status = Status::done();
    if (member.has(Dimension::department))
        status = readNames(database, &_DeptInfo::sDeptName, m_departments);
    if (status && member.has(Dimension::person))
        status = readNames(database, &_PersonInfo::sPersonName, m_persons);
    if (status && member.has(Dimension::unit))
        status = readNames(database, &_EnterInfo::sEnterName, m_units);
    return status && member.has(Dimension::item) ? readItems(database) : status;
}

Status DirectoryNames::readItems(CNbCwDB& database) {
    std::vector<_ProjClassInfo> classes;
    {
        const RowLease<_ProjClassInfo> lease(database, nullptr);
        if (!lease.isRead()) return database.lastStatus();
        classes = lease.copy();
    }
    for (const _ProjClassInfo& each : classes) {
        bool hasTable = false;
        const Status status = readHasItemTable(database, each.sClsCode, hasTable);
        if (!status) return status;
        if (!hasTable) continue;
        const SelectedCells items(database, auxiliary_sql::itemsInOrder(each.sClsCode));
        if (!items.isRead()) return database.lastStatus();
        Names& names = m_items[each.sClsCode];
        for (int row = 0; row < items.rows(); ++row)
            names.emplace(items.number<std::int32_t>(row, 0), items.text(row, 2));
    }
    return Status::done();
}

EntryNames DirectoryNames::namesOf(const EntryDimensions& of) const {
    EntryNames names;
    if (!m_departments.empty()) names.department = nameIn(m_departments, of.department);
    if (!m_persons.empty()) names.person = nameIn(m_persons, of.person.value_or(0));
    if (!m_units.empty()) names.unit = nameIn(m_units, of.unit);
    if (m_items.empty()) return names;
    const auto items = m_items.find(of.itemClass);
    if (items != m_items.end()) names.item = nameIn(items->second, of.item);
    return names;
}

}  // namespace chengheng
