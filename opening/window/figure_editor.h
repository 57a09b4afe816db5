#pragma once

#include <QModelIndex>
#include <functional>
#include <utility>

#include "screen/grid/cell_editor.h"

namespace chengheng {

/// Edits a figure in its cell: thousands separators come as one types, and what a sum comes to
/// stands beside it.
class FigureEditor final : public CellEditor {
    Q_OBJECT

  public:
    /// What stands beside a text while it is typed into a cell.
    using SumOf = std::function<QString(const QModelIndex& index, const QString& typed)>;

    FigureEditor(QObject* parent, SumOf sumOf) : CellEditor(parent), m_sumOf(std::move(sumOf)) {}

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;

  protected:
    QLineEdit* makeField(QWidget* parent) const override;

  private:
    SumOf m_sumOf;
};

}  // namespace chengheng
