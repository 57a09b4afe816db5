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
    showMatching();
}

void LeafList::put(Leaf leaf) {
    const auto found = std::ranges::find(m_leaves, leaf.id, &Leaf::id);
    if (found == m_leaves.end()) {
        m_leaves.push_back(std::move(leaf));
    } else {
        *found = std::move(leaf);
    }
    showMatching();
}

void LeafList::remove(int id) {
    std::erase_if(m_leaves, [id](const Leaf& leaf) { return leaf.id == id; });
    showMatching();
}

void LeafList::setFilter(std::string text) {
    m_filter = std::move(text);
    showMatching();
}

void LeafList::showMatching() {
    if (!offersFilter()) m_filter.clear();
    const std::string_view wanted = withoutBlanksAround(m_filter);
    m_shown.clear();
    for (std::size_t place = 0; place < m_leaves.size(); ++place) {
        if (containsInAnyCase(m_leaves[place].text, wanted)) m_shown.push_back(place);
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
