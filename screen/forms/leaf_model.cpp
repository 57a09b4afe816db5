#include "screen/forms/leaf_model.h"

#include <algorithm>

namespace chengheng {

void LeafModel::show(const LeafList& list) {
    if (list.revision() == m_revision) return;
    beginResetModel();
    m_revision = list.revision();
    m_leaves.clear();
    m_leaves.reserve(static_cast<std::size_t>(list.rowCount()));
    for (int row = 0; row < list.rowCount(); ++row) m_leaves.push_back(list.atRow(row));
    endResetModel();
}

const Leaf* LeafModel::leafAt(const QModelIndex& index) const {
    const bool isShown = index.isValid() && index.row() < rowCount();
    return isShown ? &m_leaves[static_cast<std::size_t>(index.row())] : nullptr;
}

int LeafModel::idAt(const QModelIndex& index) const {
    const Leaf* leaf = leafAt(index);
    return leaf == nullptr ? 0 : leaf->id;
}

QModelIndex LeafModel::indexOf(int id) const {
    const auto found = std::ranges::find(m_leaves, id, &Leaf::id);
    return found == m_leaves.end() ? QModelIndex()
                                   : index(static_cast<int>(found - m_leaves.begin()));
}

int LeafModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_leaves.size());
}

QVariant LeafModel::data(const QModelIndex& index, int role) const {
    const Leaf* leaf = leafAt(index);
    if (role != Qt::DisplayRole || leaf == nullptr) return {};
    return QString::fromStdString(leaf->text);
}

}  // namespace chengheng
