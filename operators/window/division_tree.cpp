#include "operators/window/division_tree.h"

#include <algorithm>

#include "screen/shown.h"

namespace chengheng {
namespace {

/// Makes one list another by taking single rows out and putting single rows in.
template <class Row, class Key, class Remove, class Insert>
void follow(std::vector<Row>& rows, const std::vector<Row>& wanted, Key key, const Remove& remove,
            const Insert& insert) {
    for (std::size_t at = rows.size(); at-- > 0;)
        if (std::ranges::find(wanted, rows[at].*key, key) == wanted.end()) remove(at);
    for (std::size_t at = 0; at < wanted.size(); ++at) {
        if (at < rows.size() && rows[at].*key == wanted[at].*key) continue;
        const auto known = std::ranges::find(rows, wanted[at].*key, key);
        if (known != rows.end()) remove(static_cast<std::size_t>(known - rows.begin()));
        insert(at, wanted[at]);
    }
}

}  // namespace

void DivisionTree::show(const std::vector<DivisionItem>& items) {
    const auto at = [](std::size_t place) { return static_cast<std::ptrdiff_t>(place); };
    const auto remove = [&](std::size_t place) {
        beginRemoveRows({}, static_cast<int>(place), static_cast<int>(place));
        m_items.erase(m_items.begin() + at(place));
        endRemoveRows();
    };
    const auto insert = [&](std::size_t place, const DivisionItem& item) {
        beginInsertRows({}, static_cast<int>(place), static_cast<int>(place));
        m_items.insert(m_items.begin() + at(place), item);
        endInsertRows();
    };
    follow(m_items, items, &DivisionItem::userId, remove, insert);
    for (int row = 0; row < static_cast<int>(m_items.size()); ++row) {
        const DivisionItem& wanted = items[static_cast<std::size_t>(row)];
        DivisionItem& item = m_items[static_cast<std::size_t>(row)];
        if (item.name != wanted.name) {
            item.name = wanted.name;
            emit dataChanged(index(row, 0), index(row, 0));
        }
        showLeaves(row, wanted.leaves);
    }
}

void DivisionTree::showLeaves(int row, const std::vector<DivisionLeaf>& leaves) {
    std::vector<DivisionLeaf>& known = m_items[static_cast<std::size_t>(row)].leaves;
    const QModelIndex parent = index(row, 0);
    const auto at = [](std::size_t place) { return static_cast<std::ptrdiff_t>(place); };
    const auto remove = [&](std::size_t place) {
        beginRemoveRows(parent, static_cast<int>(place), static_cast<int>(place));
        known.erase(known.begin() + at(place));
        endRemoveRows();
    };
    const auto insert = [&](std::size_t place, const DivisionLeaf& leaf) {
        beginInsertRows(parent, static_cast<int>(place), static_cast<int>(place));
        known.insert(known.begin() + at(place), leaf);
        endInsertRows();
    };
    follow(known, leaves, &DivisionLeaf::leaf, remove, insert);
}

int DivisionTree::rowOf(std::int32_t userId) const {
    const auto found = std::ranges::find(m_items, userId, &DivisionItem::userId);
    return found == m_items.end() ? -1 : static_cast<int>(found - m_items.begin());
}

DivisionPlace DivisionTree::placeAt(const QModelIndex& index) const {
    if (!index.isValid()) return {};
    if (index.internalId() == 0) return {itemAt(index.row()).userId};
    const auto userId = static_cast<std::int32_t>(index.internalId());
    return {userId, itemAt(rowOf(userId)).leaves[static_cast<std::size_t>(index.row())].leaf};
}

QModelIndex DivisionTree::indexOf(const DivisionPlace& place) const {
    const int row = rowOf(place.userId);
    if (row < 0) return {};
    const QModelIndex top = index(row, 0);
    if (place.leaf == noLeaf) return top;
    const auto& leaves = itemAt(row).leaves;
    const auto found = std::ranges::find(leaves, place.leaf, &DivisionLeaf::leaf);
    return found == leaves.end() ? top : index(static_cast<int>(found - leaves.begin()), 0, top);
}

/// The number of an index is that of the operator above it, 0 at the top.
QModelIndex DivisionTree::index(int row, int column, const QModelIndex& parent) const {
    if (!hasIndex(row, column, parent)) return {};
    return createIndex(row, column,
                       parent.isValid() ? static_cast<quintptr>(itemAt(parent.row()).userId) : 0);
}

QModelIndex DivisionTree::parent(const QModelIndex& child) const {
    if (!child.isValid() || child.internalId() == 0) return {};
    const int row = rowOf(static_cast<std::int32_t>(child.internalId()));
    return row < 0 ? QModelIndex() : createIndex(row, 0, quintptr{0});
}

int DivisionTree::rowCount(const QModelIndex& parent) const {
    if (!parent.isValid()) return static_cast<int>(m_items.size());
    if (parent.internalId() != 0) return 0;
    return static_cast<int>(itemAt(parent.row()).leaves.size());
}

int DivisionTree::columnCount(const QModelIndex&) const { return 1; }

QVariant DivisionTree::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || role != Qt::DisplayRole) return {};
    if (index.internalId() == 0) return shown(itemAt(index.row()).name);
    const DivisionItem& item = itemAt(rowOf(static_cast<std::int32_t>(index.internalId())));
    return shown(item.leaves[static_cast<std::size_t>(index.row())].text);
}

}  // namespace chengheng
