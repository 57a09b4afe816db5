#include "auxiliary/entries/directory_names.h"

#include "directories/directory_store.h"

namespace chengheng {
namespace {

using Names = std::unordered_map<std::int32_t, std::string>;

Status readNames(CNbCwDB& database, DirectoryKind kind, Names& names) {
    std::vector<DirectoryRecord> records;
    const Status status = readDirectory(database, kind, records);
    names.reserve(records.size());
    for (DirectoryRecord& record : records) names.emplace(record.id, std::move(record.name));
    return status;
}

std::string nameIn(const Names& names, std::int32_t id) {
    const auto found = names.find(id);
    return found == names.end() ? std::string() : found->second;
}

}  // namespace

Status DirectoryNames::read(CNbCwDB& database, const AuxiliaryMember& member) {
    Status status = Status::done();
    if (member.has(Dimension::department))
        status = readNames(database, DirectoryKind::department, m_departments);
    if (status && member.has(Dimension::person))
        status = readNames(database, DirectoryKind::person, m_persons);
    if (status && member.has(Dimension::unit))
        status = readNames(database, DirectoryKind::unit, m_units);
    return status && member.has(Dimension::item) ? readItems(database) : status;
}

Status DirectoryNames::readItems(CNbCwDB& database) {
    Names classCodes;
    std::vector<DirectoryRecord> records;
    Status status = readDirectory(database, DirectoryKind::projectClass, records);
    for (DirectoryRecord& each : records) classCodes.emplace(each.id, std::move(each.code));
    if (status) status = readDirectory(database, DirectoryKind::projectItem, records);
    if (!status) return status;
    for (DirectoryRecord& item : records)
        m_items[nameIn(classCodes, item.group)].emplace(item.id, std::move(item.name));
    return status;
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
