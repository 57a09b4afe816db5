#include "accounts/window/chart_model.h"

#include <algorithm>
#include <array>

#include "accounts/screen/chart_texts.h"
#include "screen/colours.h"

namespace chengheng {
namespace {

constexpr std::array shownColumns{
    GridColumn{chart_texts::levelColumn, 4, CellAlignment::centre},
    GridColumn{chart_texts::codeColumn, 18},
    GridColumn{chart_texts::nameColumn, 34},
    GridColumn{chart_texts::currencyColumn, 18},
    GridColumn{chart_texts::auxiliaryColumn, 11},
};

}  // namespace

ChartModel::ChartModel(ChartScreen& screen, ChartSearch& search)
    : GridModel(shownColumns), m_screen(screen), m_search(search) {}

int ChartModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : std::max(1, m_screen.count());
}

QString ChartModel::text(int row, int column) const {
    return QString::fromStdString(m_screen.text(row, static_cast<ListColumn>(column)));
}

QColor ChartModel::background(int row, int) const {
    return m_search.isMatch(row) ? colours::found : QColor();
}

Status ChartModel::load(std::string_view category) {
    beginResetModel();
    Status status = m_screen.load(category);
    m_search.repeat();
    endResetModel();
    return status;
}

int ChartModel::place(const _CodeInfo& account) {
    const int before = m_screen.rowOfId(account.lId);
    const bool isListed = m_screen.isListed(account);
    if (before >= 0 && isListed && m_screen.row(before).code == account.sCode) {
        m_screen.replace(before, account);
        tellChanged(before);
        m_search.repeat();
        return before;
    }
    if (before >= 0) remove(before);
    if (!isListed) return -1;
    const int row = m_screen.placeOf(account.sCode);
    insertRow(row, account);
    m_search.repeat();
    return row;
}

void ChartModel::insertRow(int row, const _CodeInfo& account) {
    if (m_screen.isEmpty()) {
        m_screen.insert(0, account);
        tellChanged(0);
        return;
    }
    beginInsertRows({}, row, row);
    m_screen.insert(row, account);
    endInsertRows();
}

void ChartModel::remove(int row) {
    if (m_screen.count() == 1) {
        m_screen.remove(0);
        tellChanged(0);
    } else {
        beginRemoveRows({}, row, row);
        m_screen.remove(row);
        endRemoveRows();
    }
    m_search.repeat();
}

void ChartModel::search(std::string_view text) {
    m_search.type(text);
    emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1), {Qt::BackgroundRole});
}

}  // namespace chengheng
