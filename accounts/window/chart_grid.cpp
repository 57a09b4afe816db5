#include "accounts/window/chart_grid.h"

#include <algorithm>

#include "accounts/screen/chart_texts.h"
#include "screen/shown.h"

namespace chengheng {

ChartGrid::ChartGrid(ChartScreen& screen, QWidget* parent)
    : CVCF1(shown(chart_texts::title), Unit::row, parent),
      m_screen(screen),
      m_search(screen),
      m_model(screen, m_search) {
    setObjectName(QStringLiteral("chart"));
    setGridModel(&m_model);
    setContextMenuPolicy(Qt::CustomContextMenu);
}

Status ChartGrid::list(std::string_view category) {
    Status status = m_model.load(category);
    setCurrentRow(0);
    emit listed();
    return status;
}

Status ChartGrid::listAnew() {
    const int row = currentRow();
    Status status = m_model.load(std::string(m_screen.category()));
    stayAt(row);
    emit listed();
    return status;
}

void ChartGrid::place(const _CodeInfo& account) {
    setCurrentRow(m_model.place(account));
    emit listed();
}

void ChartGrid::removeCurrent() {
    const int row = currentRow();
    m_model.remove(row);
    stayAt(row);
    emit listed();
}

void ChartGrid::stayAt(int row) { setCurrentRow(std::min(row, m_model.rowCount() - 1)); }

}  // namespace chengheng
