#pragma once

#include <QAbstractItemModel>
#include <vector>

#include "operators/screen/division_screen.h"

namespace chengheng {

/// The operators and what hangs under them, for a view. It keeps what it showed last and takes a
/// change over row by row, so that a view keeps what is opened and selected.
class DivisionTree final : public QAbstractItemModel {
    Q_OBJECT

  public:
    using QAbstractItemModel::QAbstractItemModel;

    void show(const std::vector<DivisionItem>& items);

    DivisionPlace placeAt(const QModelIndex& index) const;
    QModelIndex indexOf(const DivisionPlace& place) const;

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

  private:
    int rowOf(std::int32_t userId) const;
    void showLeaves(int row, const std::vector<DivisionLeaf>& leaves);
    const DivisionItem& itemAt(int row) const { return m_items[static_cast<std::size_t>(row)]; }

    std::vector<DivisionItem> m_items;
};

}  // namespace chengheng
