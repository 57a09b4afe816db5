#include "screen/grid/frozen_columns.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QPainter>
#include <QScrollBar>

#include "screen/colours.h"

namespace chengheng {

FrozenColumns::FrozenColumns(QTableView& grid, int count)
    : QTableView(&grid), m_grid(grid), m_count(count) {
    setModel(grid.model());
    setSelectionModel(grid.selectionModel());
    setSelectionBehavior(grid.selectionBehavior());
    setSelectionMode(grid.selectionMode());
    setEditTriggers(NoEditTriggers);
    setFocusPolicy(Qt::ClickFocus);
    setFocusProxy(&grid);
    setFrameShape(NoFrame);
    setWordWrap(false);
    setAutoScroll(false);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(grid.verticalScrollMode());
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setMinimumSectionSize(grid.horizontalHeader()->minimumSectionSize());
    horizontalHeader()->setSectionsClickable(false);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, grid.verticalScrollBar(),
            &QScrollBar::setValue);
    connect(grid.verticalScrollBar(), &QScrollBar::valueChanged, verticalScrollBar(),
            &QScrollBar::setValue);
    connect(horizontalHeader(), &QHeaderView::sectionResized, &grid,
            [this](int column, int, int width) {
                if (!isFrozen(column) || width == m_grid.columnWidth(column)) return;
                m_grid.setColumnWidth(column, width);
                follow();
            });
    horizontalHeader()->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(horizontalHeader(), &QWidget::customContextMenuRequested, this,
            [this](QPoint position) {
                emit m_grid.horizontalHeader()->customContextMenuRequested(position);
            });
    hide();
}

int FrozenColumns::frozenWidth() const {
    int width = 0;
    for (int column = 0; column < m_count; ++column) width += m_grid.columnWidth(column);
    return width;
}

void FrozenColumns::hideOtherColumns() {
    for (int column = m_count; column < model()->columnCount(); ++column)
        setColumnHidden(column, true);
}

void FrozenColumns::follow() {
    if (model() == nullptr) return;
    const int width = frozenWidth();
    const bool isNeeded = m_grid.horizontalScrollBar()->value() > 0;
    if (!isNeeded || 2 * width > m_grid.viewport()->width()) return hide();
    hideOtherColumns();
    for (int column = 0; column < m_count; ++column)
        setColumnWidth(column, m_grid.columnWidth(column));
    verticalHeader()->setMinimumSectionSize(m_grid.verticalHeader()->minimumSectionSize());
    verticalHeader()->setDefaultSectionSize(m_grid.verticalHeader()->defaultSectionSize());
    horizontalHeader()->setFixedHeight(m_grid.horizontalHeader()->height());
    const QRect seen = m_grid.viewport()->geometry();
    const int header = m_grid.horizontalHeader()->height();
    setGeometry(seen.left(), seen.top() - header, width, seen.height() + header);
    show();
    raise();
    verticalScrollBar()->setValue(m_grid.verticalScrollBar()->value());
}

void FrozenColumns::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    QPainter painter(viewport());
    painter.setPen(colours::quietInk);
    const int right = viewport()->width() - 1;
    painter.drawLine(right, 0, right, viewport()->height());
}

void FrozenColumns::contextMenuEvent(QContextMenuEvent* event) {
    emit m_grid.customContextMenuRequested(m_grid.viewport()->mapFromGlobal(event->globalPos()));
}

}  // namespace chengheng
