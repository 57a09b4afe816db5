#include "directories/transfer/planned_directory.h"

#include <algorithm>

#include "base/values/text.h"

namespace chengheng {
namespace {

/// The record itself and another.
constexpr std::size_t enoughBearers = 2;

}  // namespace

PlannedDirectory::PlannedDirectory(const Directory& directory,
                                   std::span<const DirectoryRecord> stored,
                                   std::span<const DirectoryRecord> groups,
                                   std::size_t expectedRows)
    : m_directory(directory), m_groups(groups), m_records(stored.begin(), stored.end()) {
    for (Index* index : {&m_byCode, &m_byName}) index->reserve(stored.size() + expectedRows);
    for (std::size_t place = 0; place < m_records.size(); ++place) {
        const DirectoryRecord& record = m_records[place];
        m_byCode[codeKey(record.group, record.code)].push_back(place);
        noteName(place);
    }
}

PlannedDirectory::Key PlannedDirectory::codeKey(std::int32_t group, std::string_view code) const {
    code = withoutBlanksAround(code);
    const bool namesTable = m_directory.kind == DirectoryKind::projectClass;
    return {scopeOf(group), namesTable ? inSmallLetters(code) : std::string(code)};
}

const DirectoryRecord* PlannedDirectory::coded(std::int32_t group, std::string_view code) const {
    const auto found = m_byCode.find(codeKey(group, code));
    if (found == m_byCode.end()) return nullptr;
    for (const std::size_t place : found->second)
        if (withoutBlanksAround(m_records[place].code) == code) return &m_records[place];
    return nullptr;
}

void PlannedDirectory::collect(const Index& index, const Key& key,
                               std::vector<DirectoryRecord>& found) const {
    const auto entry = index.find(key);
    if (entry == index.end()) return;
    const std::size_t count = std::min(entry->second.size(), enoughBearers);
    for (std::size_t at = 0; at < count; ++at) found.push_back(m_records[entry->second[at]]);
}

std::vector<DirectoryRecord> PlannedDirectory::named(const DirectoryRecord& wanted) const {
    std::vector<DirectoryRecord> found;
    collect(m_byNameInGroup, {wanted.group, wanted.name}, found);
    collect(m_byName, {scopeOf(wanted.group), wanted.name}, found);
    // Among many it may be none of the first.
    if (wanted.id == 0) return found;
    const DirectoryRecord& before = m_records[placeOf(wanted)];
    if (before.name == wanted.name) found.push_back(before);
    return found;
}

DirectoryFacts PlannedDirectory::factsOf(const DirectoryRecord& wanted) const {
    const auto bearersOfCode = [this, &wanted](const std::string& code) {
        std::vector<DirectoryRecord> found;
        collect(m_byCode, codeKey(wanted.group, code), found);
        return found;
    };
    return {.directory = m_directory,
            .wanted = wanted,
            .isGroupThere = [this, &wanted] { return m_groups.ofId(wanted.group) != nullptr; },
            .bearersOfCode = bearersOfCode,
            .bearersOfName = [this, &wanted](const std::string&) { return named(wanted); },
            .bearersOfClassCode = bearersOfCode};
}

void PlannedDirectory::add(DirectoryRecord record) {
    record.id = --m_lastNewId;
    m_records.push_back(std::move(record));
    const std::size_t place = m_records.size() - 1;
    m_byCode[codeKey(m_records[place].group, m_records[place].code)].push_back(place);
    noteName(place);
}

std::size_t PlannedDirectory::placeOf(const DirectoryRecord& record) const {
    const auto& places = m_byCode.at(codeKey(record.group, record.code));
    return *std::ranges::find(places, record.id,
                              [this](std::size_t place) { return m_records[place].id; });
}

void PlannedDirectory::change(const DirectoryRecord& record) {
    const std::size_t place = placeOf(record);
    forgetName(place);
    m_records[place] = record;
    noteName(place);
}

void PlannedDirectory::noteName(std::size_t place) {
    const DirectoryRecord& record = m_records[place];
    m_byName[{scopeOf(record.group), record.name}].push_back(place);
    if (m_directory.sharedNames == SharedNames::afterAQuestionInOtherGroups)
        m_byNameInGroup[{record.group, record.name}].push_back(place);
}

void PlannedDirectory::forgetName(std::size_t place) {
    const DirectoryRecord& record = m_records[place];
    std::erase(m_byName[{scopeOf(record.group), record.name}], place);
    if (m_directory.sharedNames == SharedNames::afterAQuestionInOtherGroups)
        std::erase(m_byNameInGroup[{record.group, record.name}], place);
}

}  // namespace chengheng
