#include "directories/transfer/group_finder.h"

#include "base/values/text.h"

namespace chengheng {

GroupFinder::GroupFinder(std::span<const DirectoryRecord> groups) {
    for (const DirectoryRecord& group : groups) {
        m_byCode[std::string(withoutBlanksAround(group.code))].push_back(&group);
        m_byName[std::string(withoutBlanksAround(group.name))].push_back(&group);
        m_byId.emplace(group.id, &group);
    }
}

const GroupFinder::Found& GroupFinder::find(const std::string& text) const {
    static const Found none;
    for (const auto* index : {&m_byCode, &m_byName})
        if (const auto found = index->find(text); found != index->end()) return found->second;
    return none;
}

const DirectoryRecord* GroupFinder::ofId(std::int32_t id) const {
    const auto found = m_byId.find(id);
    return found == m_byId.end() ? nullptr : found->second;
}

std::string GroupFinder::textOf(std::int32_t id) const {
    const DirectoryRecord* group = ofId(id);
    if (group == nullptr) return {};
    const std::string name(withoutBlanksAround(group->name));
    const Found& found = find(name);
    const bool isFound = found.size() == 1 && found.front() == group;
    return isFound ? name : std::string(withoutBlanksAround(group->code));
}

}  // namespace chengheng
