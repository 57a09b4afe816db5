#include "directories/directory_form.h"

#include <fmt/format.h>

#include <algorithm>

#include "accounts/codes/mnemonic.h"
#include "directories/directory_rules.h"
#include "forms/form_texts.h"

namespace chengheng {

void DirectoryForm::readGroups() {
    const auto groups = m_service.readGroups();
    if (groups && *groups != m_groups) readAgainBelowTyped();
}

bool DirectoryForm::selectRecord(const DirectoryRecord& record) {
    const int id = leafIdOf(record);
    return leaves().find(id) != nullptr && select(id);
}

std::string DirectoryForm::usedWords() const {
    return m_uses.empty() ? ListForm::usedWords() : fmt::format(form_texts::usedIn, m_uses);
}

std::optional<std::vector<Leaf>> DirectoryForm::readLeaves() {
    findBy([](const Leaf& leaf) { return initialsOf(leaf.text); });
    auto groups = m_service.readGroups();
    if (!groups) return std::nullopt;
    m_groups = std::move(*groups);
    const auto records = m_service.readAll();
    if (!records) return std::nullopt;
    std::vector<Leaf> leaves;
    leaves.reserve(records->size());
    for (const DirectoryRecord& record : *records) leaves.push_back(leafOf(record));
    return leaves;
}

Outcome DirectoryForm::load(int id, bool& isUsed) {
    Place place{.group = 0, .id = id};
    if (m_directory.kind == DirectoryKind::projectItem)
        place = m_places.at(static_cast<std::size_t>(id - 1));
    DirectoryRecord record;
    const Outcome outcome = m_service.read(place.id, place.group, record, m_uses);
    isUsed = !m_uses.empty();
    if (outcome == Outcome::done) keep(record);
    return outcome;
}

/// The next record stands mostly in the same group as the one before.
void DirectoryForm::clear() {
    DirectoryRecord empty{.group = m_loaded.group, .unitKind = m_loaded.unitKind};
    const bool isThere = std::ranges::count(m_groups, empty.group, &DirectoryRecord::id) != 0;
    if (!isThere) empty.group = m_groups.size() == 1 ? m_groups.front().id : 0;
    keep(empty);
    m_uses.clear();
}

bool DirectoryForm::isComplete() const {
    const DirectoryRecord wanted = tidied(input);
    return !wanted.code.empty() && !wanted.name.empty();
}

Outcome DirectoryForm::write(SaveMode mode, Leaf& saved) {
    DirectoryRecord wanted = input;
    const Outcome outcome =
        mode == SaveMode::addition ? m_service.add(wanted) : m_service.modify(m_loaded, wanted);
    if (outcome != Outcome::done) return outcome;
    keep(wanted);
    saved = leafOf(wanted);
    return outcome;
}

void DirectoryForm::holdTyped() {
    m_typed = input;
    m_typedOver = m_loaded;
}

void DirectoryForm::takeTypedBack() {
    if (isAdding()) {
        input = m_typed;
        input.id = m_loaded.id;
        return;
    }
    if (m_typed.code != m_typedOver.code) input.code = m_typed.code;
    if (m_typed.name != m_typedOver.name) input.name = m_typed.name;
    if (m_typed.group != m_typedOver.group) input.group = m_typed.group;
    if (m_typed.unitKind != m_typedOver.unitKind) input.unitKind = m_typed.unitKind;
}

Outcome DirectoryForm::erase(const Leaf* leaf) {
    return m_service.remove(leaf == nullptr ? nullptr : &m_loaded);
}

int DirectoryForm::leafIdOf(const DirectoryRecord& record) {
    if (m_directory.kind != DirectoryKind::projectItem) return record.id;
    const auto [found, isNew] =
        m_leafIds.try_emplace({record.group, record.id}, static_cast<int>(m_places.size()) + 1);
    if (isNew) m_places.push_back(found->first);
    return found->second;
}

Leaf DirectoryForm::leafOf(const DirectoryRecord& record) {
    Leaf leaf{.id = leafIdOf(record), .text = directoryLine(record), .order = record.code};
    const DirectoryRecord* group = m_directory.groups ? groupOf(record) : nullptr;
    if (group == nullptr) return leaf;
    leaf.text = fmt::format(form_texts::leafInGroup, leaf.text, group->name);
    // Items stand class by class: nothing that a code may hold comes before a line end.
    if (m_directory.kind == DirectoryKind::projectItem)
        leaf.order = group->code + '\n' + record.code;
    return leaf;
}

const DirectoryRecord* DirectoryForm::groupOf(const DirectoryRecord& record) const {
    const auto found = std::ranges::find(m_groups, record.group, &DirectoryRecord::id);
    return found == m_groups.end() ? nullptr : &*found;
}

void DirectoryForm::keep(const DirectoryRecord& record) {
    m_loaded = record;
    input = record;
}

}  // namespace chengheng
