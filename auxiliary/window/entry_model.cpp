#include "auxiliary/window/entry_model.h"

#include <algorithm>

#include "auxiliary/members/auxiliary_texts.h"
#include "base/values/numbers.h"
#include "opening/sheet/opening_account.h"
#include "screen/shown.h"

namespace chengheng {
namespace {

constexpr int nameWidth = 18;
constexpr int countWidth = 8;
constexpr int figureWidth = 18;

int widthOf(EntryColumn column) {
    switch (column) {
        case EntryColumn::date:
        case EntryColumn::voucherNumber:
            return 12;
        case EntryColumn::summary:
            return 24;
        case EntryColumn::direction:
            return 6;
        default:
            return isFigure(column) ? figureWidth : nameWidth;
    }
}

CellAlignment alignmentOf(EntryColumn column) {
    if (isFigure(column)) return CellAlignment::number;
    return column == EntryColumn::direction ? CellAlignment::centre : CellAlignment::text;
}

bool isKept(EntryColumn column, const AuxiliaryAccount& account) {
    if (column == EntryColumn::foreign) return account.hasForeign;
    return column != EntryColumn::quantity || account.hasQuantity;
}

std::string figure(double value, Measure measure) {
    return ftoaWithSap(value, decimalsOf(measure));
}

}  // namespace

EntryModel::EntryModel(const AuxiliaryWork& work) : GridModel({}), m_work(work) {
    for (const EntryColumn column : work.list().columns())
        m_columns.push_back({headingOf(column), widthOf(column), alignmentOf(column)});
    setGridColumns(m_columns);
    showList();
}

int EntryModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_rows);
}

void EntryModel::showList() {
    beginResetModel();
    m_rows = m_work.list().rowCount();
    endResetModel();
}

// While a message is up, the list may have become shorter.
QString EntryModel::text(int row, int column) const {
    const EntryList& list = m_work.list();
    const auto place = static_cast<std::size_t>(row);
    if (place >= list.rowCount()) return {};
    return shown(cellText(list.atRow(place), list.columns()[static_cast<std::size_t>(column)]));
}

CombinationModel::CombinationModel(const AuxiliaryWork& work) : GridModel({}), m_work(work) {
    for (const DimensionWords& words : work.member().dimensions)
        m_columns.push_back({words.heading, nameWidth});
    m_columns.push_back({auxiliary_texts::count, countWidth, CellAlignment::number});
    m_columns.push_back({auxiliary_texts::balance, figureWidth, CellAlignment::number});
    m_columns.push_back({auxiliary_texts::foreign, figureWidth, CellAlignment::number});
    m_columns.push_back({auxiliary_texts::quantity, figureWidth, CellAlignment::number});
    setGridColumns(m_columns);
    showTotals();
}

int CombinationModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_totals.size());
}

void CombinationModel::showTotals() {
    beginResetModel();
    m_totals = m_work.combinations();
    m_revision = m_work.list().revision();
    endResetModel();
}

std::optional<EntryDimensions> CombinationModel::combinationAt(int row) const {
    if (row < 0 || row >= rowCount()) return std::nullopt;
    return m_totals[static_cast<std::size_t>(row)].of;
}

int CombinationModel::rowOf(const EntryDimensions& of) const {
    const auto found = std::ranges::find(m_totals, of, &CombinationTotal::of);
    return found == m_totals.end() ? -1 : static_cast<int>(found - m_totals.begin());
}

const std::string& CombinationModel::nameAt(int row) const {
    return nameOf(m_totals[static_cast<std::size_t>(row)].names,
                  m_work.member().dimensions.back().dimension);
}

QString CombinationModel::text(int row, int column) const {
    const CombinationTotal& total = m_totals[static_cast<std::size_t>(row)];
    const auto& dimensions = m_work.member().dimensions;
    const auto place = static_cast<std::size_t>(column);
    if (place < dimensions.size()) return shown(nameOf(total.names, dimensions[place].dimension));
    switch (place - dimensions.size()) {
        case 0:
            return QString::number(total.count);
        case 1:
            return shown(figure(total.figures.money, Measure::money));
        case 2:
            return isKept(EntryColumn::foreign, m_work.account())
                       ? shown(figure(total.figures.foreign, Measure::foreign))
                       : QString();
        default:
            return isKept(EntryColumn::quantity, m_work.account())
                       ? shown(figure(total.figures.quantity, Measure::quantity))
                       : QString();
    }
}

}  // namespace chengheng
