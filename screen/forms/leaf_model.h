#pragma once

#include <QAbstractListModel>
#include <vector>

#include "forms/leaf_list.h"

namespace chengheng {

/// The leaves that a list shows, for a view. It keeps what it showed last, so that a view can
/// paint while the list is being changed.
class LeafModel final : public QAbstractListModel {
    Q_OBJECT

  public:
    using QAbstractListModel::QAbstractListModel;

    /// Shows a list as it is now; nothing happens when it has not changed.
    void show(const LeafList& list);

    /// 0 for an index that is none.
    int idAt(const QModelIndex& index) const;
    QModelIndex indexOf(int id) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

  private:
    /// Null for an index that is none.
    const Leaf* leafAt(const QModelIndex& index) const;

    std::vector<Leaf> m_leaves;
    unsigned m_revision = 0;
};

}  // namespace chengheng
