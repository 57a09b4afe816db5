#include "forms/leaf_list.h"

#include <algorithm>
#include <utility>

#include "base/values/text.h"

namespace chengheng {

const Leaf* LeafList::find(int id) const {
    const auto found = std::ranges::find(m_leaves, id, &Leaf::id);
    return found == m_leaves.end() ? nullptr : &*found;
}

void LeafList::assign(std::vector<Leaf> leaves) {
    m_leaves = std::move(leaves);
    m_initials.clear();
    showMatching();
}

void LeafList::put(Leaf leaf) {
    auto place = std::ranges::find(m_leaves, leaf.id, &Leaf::id);
    const bool isNew = place == m_leaves.end();
    if (!isNew && place->order == leaf.order) {
        *place = std::move(leaf);
    } else {
        if (!isNew) m_leaves.erase(place);
        const auto isBehind = [&leaf](const Leaf& other) { return leaf.order < other.order; };
        place = leaf.order.empty() ? m_leaves.end() : std::ranges::find_if(m_leaves, isBehind);
        m_leaves.insert(place, std::move(leaf));
    }
    m_initials.clear();
    showMatching();
}

void LeafList::remove(int id) {
    std::erase_if(m_leaves, [id](const Leaf& leaf) { return leaf.id == id; });
    m_initials.clear();
    showMatching();
}

void LeafList::findBy(std::function<std::string(const Leaf&)> initials) {
    m_initialsOf = std::move(initials);
    m_initials.clear();
}

void LeafList::readInitials() {
    if (!m_initialsOf || m_initials.size() == m_leaves.size()) return;
    for (const Leaf& leaf : m_leaves) m_initials.push_back(m_initialsOf(leaf));
}

void LeafList::setFilter(std::string text) {
    m_filter = std::move(text);
    showMatching();
}

void LeafList::showMatching() {
    if (!offersFilter()) m_filter.clear();
    const std::string_view wanted = withoutBlanksAround(m_filter);
    const bool mayBeInitials = isVisibleAscii(wanted) && m_initialsOf;
    if (mayBeInitials) readInitials();
    m_shown.clear();
    for (std::size_t place = 0; place < m_leaves.size(); ++place) {
        if (containsInAnyCase(m_leaves[place].text, wanted) ||
            (mayBeInitials && containsInAnyCase(m_initials[place], wanted)))
            m_shown.push_back(place);
    }
    ++m_revision;
}

int LeafList::rowOf(int id) const {
    for (int row = 0; row < rowCount(); ++row) {
        if (atRow(row).id == id) return row;
    }
    return -1;
}

int LeafList::neighbourOf(int id) const {
    const int row = rowOf(id);
    if (row < 0) return firstShown();
    if (row + 1 < rowCount()) return atRow(row + 1).id;
    return row > 0 ? atRow(row - 1).id : 0;
}

}  // namespace chengheng
