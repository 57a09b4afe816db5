#include "screen/grid/grid_model.h"

namespace chengheng {
namespace {

Qt::Alignment alignmentOf(CellAlignment alignment) {
    switch (alignment) {
        case CellAlignment::number:
            return Qt::AlignRight | Qt::AlignVCenter;
        case CellAlignment::centre:
            return Qt::AlignCenter;
        case CellAlignment::text:
            break;
    }
    return Qt::AlignLeft | Qt::AlignVCenter;
}

QVariant colourOrNone(const QColor& colour) { return colour.isValid() ? colour : QVariant(); }

}  // namespace

GridModel::GridModel(std::span<const GridColumn> columns, QObject* parent)
    : QAbstractTableModel(parent), m_columns(columns) {}

int GridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_columns.size());
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    const bool isColumn = orientation == Qt::Horizontal && section >= 0 && section < columnCount();
    if (!isColumn) return QAbstractTableModel::headerData(section, orientation, role);
    const GridColumn& column = m_columns[static_cast<std::size_t>(section)];
    if (role == Qt::DisplayRole) return QString::fromUtf8(column.header);
    if (role == Qt::TextAlignmentRole) return static_cast<int>(Qt::AlignCenter);
    return {};
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    switch (role) {
        case Qt::DisplayRole:
            return text(index.row(), index.column());
        case Qt::TextAlignmentRole:
            return static_cast<int>(
                alignmentOf(m_columns[static_cast<std::size_t>(index.column())].alignment));
        case Qt::BackgroundRole:
            return colourOrNone(background(index.row(), index.column()));
        case Qt::ForegroundRole:
            return colourOrNone(foreground(index.row(), index.column()));
        default:
            return {};
    }
}

void GridModel::tellChanged(int row) {
    emit dataChanged(index(row, 0), index(row, columnCount() - 1));
}

}  // namespace chengheng
