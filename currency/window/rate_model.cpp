#include "currency/window/rate_model.h"

#include <array>

#include "currency/currency_texts.h"
#include "screen/colours.h"
#include "screen/shown.h"

namespace chengheng {
namespace {

constexpr std::array<GridColumn, 4> columnsUnder(const char* time) {
    return {GridColumn{time, 13}, GridColumn{currency_texts::rate, 18, CellAlignment::number},
            GridColumn{currency_texts::adjustRate, 18, CellAlignment::number},
            GridColumn{"lId", 10, CellAlignment::number, true}};
}
constexpr std::array monthColumns = columnsUnder(currency_texts::month);
constexpr std::array dayColumns = columnsUnder(currency_texts::day);

std::span<const GridColumn> columnsOf(RateKind kind) {
    return kind == RateKind::fixed ? monthColumns : dayColumns;
}

}  // namespace

RateModel::RateModel(QObject* parent) : GridModel(monthColumns, parent) {}

void RateModel::show(const RateSheet& sheet, bool isOpen) {
    const bool hasSameRows =
        sheet.kind() == m_sheet.kind() && sheet.rowCount() == m_sheet.rowCount();
    if (!hasSameRows) beginResetModel();
    m_sheet = sheet;
    m_isOpen = isOpen;
    setGridColumns(columnsOf(sheet.kind()));
    if (!hasSameRows) return endResetModel();
    emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

void RateModel::mark(std::set<Date> rates, std::set<Date> adjustments) {
    if (rates == m_markedRates && adjustments == m_markedAdjustments) return;
    m_markedRates = std::move(rates);
    m_markedAdjustments = std::move(adjustments);
    emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

QColor RateModel::foreground(int row, int column) const {
    const auto& marked = column == static_cast<int>(RateSheetColumn::adjustRate)
                             ? m_markedAdjustments
                             : m_markedRates;
    const bool isRate = column == static_cast<int>(RateSheetColumn::rate) ||
                        column == static_cast<int>(RateSheetColumn::adjustRate);
    return isRate && marked.contains(m_sheet.line(row).day) ? colours::seal : QColor();
}

RateCell RateModel::cellAt(const QModelIndex& index) {
    return {index.row(), static_cast<RateSheetColumn>(index.column())};
}

QModelIndex RateModel::indexOf(const RateCell& cell) const {
    return index(cell.row, static_cast<int>(cell.column));
}

int RateModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_sheet.rowCount();
}

Qt::ItemFlags RateModel::flags(const QModelIndex& index) const {
    const bool isEditable = m_isOpen && index.isValid() && m_sheet.isEditable(cellAt(index));
    return GridModel::flags(index).setFlag(Qt::ItemIsEditable, isEditable);
}

QVariant RateModel::data(const QModelIndex& index, int role) const {
    if (role == Qt::EditRole && index.isValid()) return shown(m_sheet.textToEdit(cellAt(index)));
    return GridModel::data(index, role);
}

QString RateModel::text(int row, int column) const {
    return shown(m_sheet.text({row, static_cast<RateSheetColumn>(column)}));
}

}  // namespace chengheng
