#include "books/carrying/members.h"

#include <fmt/format.h>

#include <vector>

#include "books/carrying/carry_texts.h"
#include "directories/directory_store.h"

namespace chengheng {

Status Members::readOf(CNbCwDB& database, DirectoryKind kind, Known& known) {
    std::vector<DirectoryRecord> records;
    if (const Status status = readDirectory(database, kind, records); !status) return status;
    for (DirectoryRecord& record : records) {
        if (kind == DirectoryKind::projectClass) {
            m_classes[record.id] = record.code;
            continue;
        }
        std::string group;
        if (kind == DirectoryKind::projectItem) group = m_classes[record.group];
        known[{std::move(group), record.id}] = {std::move(record.code), std::move(record.name)};
    }
    return Status::done();
}

Status Members::read(CNbCwDB& database) {
    Known none;
    Status status = readOf(database, DirectoryKind::department, m_departments);
    if (status) status = readOf(database, DirectoryKind::person, m_persons);
    if (status) status = readOf(database, DirectoryKind::unit, m_units);
    if (status) status = readOf(database, DirectoryKind::projectClass, none);
    return status ? readOf(database, DirectoryKind::projectItem, m_items) : status;
}

bool Members::isSame(const Key& key, const Known& before, const Known& now) {
    // What was nobody's before cannot have become somebody else's.
    if (key.second == 0) return true;
    const auto was = before.find(key);
    const auto is = now.find(key);
    if (was == before.end() || is == now.end()) return false;
    return was->second.first == is->second.first || was->second.second == is->second.second;
}

const char* Members::firstMissing(const EntryDimensions& of, const Members& before,
                                  const Members& now) {
    if (!isSame({"", of.department}, before.m_departments, now.m_departments))
        return directoryOf(DirectoryKind::department).noun;
    if (!isSame({"", of.person.value_or(0)}, before.m_persons, now.m_persons))
        return directoryOf(DirectoryKind::person).noun;
    if (!isSame({"", of.unit}, before.m_units, now.m_units))
        return directoryOf(DirectoryKind::unit).noun;
    if (!isSame({of.itemClass, of.item}, before.m_items, now.m_items))
        return directoryOf(DirectoryKind::projectItem).noun;
    return nullptr;
}

std::string Members::text(const EntryDimensions& of) const {
    std::string words;
    const auto add = [&words](DirectoryKind kind, const Key& key, const Known& known) {
        if (key.second == 0) return;
        const auto found = known.find(key);
        const std::string member = found == known.end()
                                       ? std::to_string(key.second)
                                       : found->second.first + ' ' + found->second.second;
        words += fmt::format("{}{} {}", words.empty() ? "" : " ", directoryOf(kind).noun, member);
    };
    add(DirectoryKind::department, {"", of.department}, m_departments);
    add(DirectoryKind::person, {"", of.person.value_or(0)}, m_persons);
    add(DirectoryKind::unit, {"", of.unit}, m_units);
    add(DirectoryKind::projectItem, {of.itemClass, of.item}, m_items);
    return words.empty() ? carry_texts::noMember : words;
}

}  // namespace chengheng
