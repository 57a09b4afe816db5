#include "screen/grid/CVCF1.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>
#include <algorithm>
#include <utility>

#include "screen/grid/frozen_columns.h"
#include "screen/grid/grid_columns.h"
#include "screen/grid/grid_model.h"

namespace {

constexpr int rowPadding = 7;
constexpr int leastColumn = 16;  // for what an operator may drag

/// A cell's text without what would part cells or rows.
QString cellText(const QModelIndex& index) {
    QString text = index.data().toString();
    for (const char separator : {'\t', '\n', '\r'}) {
        text.replace(QLatin1Char(separator), QLatin1Char(' '));
    }
    return text;
}

}  // namespace

CVCF1::CVCF1(const QString& name, Unit unit, QWidget* parent) : QTableView(parent), m_unit(unit) {
    setAccessibleName(name);
    const bool ofRows = unit == Unit::row;
    setSelectionBehavior(ofRows ? SelectRows : SelectItems);
    setSelectionMode(ContiguousSelection);
    if (ofRows) setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setMouseTracking(true);
    setHorizontalScrollMode(ScrollPerPixel);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setMinimumSectionSize(leastColumn);
    horizontalHeader()->setSectionsClickable(false);
    fitRowHeight();
    m_columns = new chengheng::GridColumns(*this);
}

void CVCF1::setGridModel(chengheng::GridModel* model) {
    setModel(model);
    m_columns->begin(*model, m_unit == Unit::row);
}

void CVCF1::setFrozenColumns(int count) {
    m_frozen = new chengheng::FrozenColumns(*this, count);
    m_frozen->follow();
}

void CVCF1::updateGeometries() {
    QTableView::updateGeometries();
    if (m_frozen) m_frozen->follow();
}

void CVCF1::scrollContentsBy(int dx, int dy) {
    QTableView::scrollContentsBy(dx, dy);
    if (m_frozen && dx != 0) m_frozen->follow();
    if (dy != 0) m_columns->lookLater();
}

void CVCF1::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    m_columns->share();
}

void CVCF1::showEvent(QShowEvent* event) {
    QTableView::showEvent(event);
    if (!std::exchange(m_isRecalled, true)) m_columns->recall();
    m_columns->share();
}

void CVCF1::hideEvent(QHideEvent* event) {
    m_columns->keep();
    QTableView::hideEvent(event);
}

void CVCF1::contextMenuEvent(QContextMenuEvent* event) { showColumnMenu(event->globalPos()); }

void CVCF1::scrollTo(const QModelIndex& index, ScrollHint hint) {
    QScrollBar& sideways = *horizontalScrollBar();
    const int before = sideways.value();
    QTableView::scrollTo(index, hint);
    if (!m_frozen) return;
    if (m_frozen->isFrozen(index.column())) {
        if (m_frozen->coveredWidth() > 0) sideways.setValue(before);
        return;
    }
    const int hidden = m_frozen->coveredWidth() - columnViewportPosition(index.column());
    if (hidden > 0) sideways.setValue(sideways.value() - hidden);
}

void CVCF1::fitRowHeight() {
    const int height = fontMetrics().height() + rowPadding;
    verticalHeader()->setMinimumSectionSize(height);
    verticalHeader()->setDefaultSectionSize(height);
}

int CVCF1::usualWidth() const {
    return m_columns->usualWidth() + verticalScrollBar()->sizeHint().width() + 2 * frameWidth();
}

void CVCF1::resetLayout() { m_columns->resetLayout(); }

void CVCF1::showColumnMenu(QPoint position) { m_columns->showMenu(position); }

void CVCF1::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() != QEvent::FontChange && event->type() != QEvent::StyleChange) return;
    fitRowHeight();
    m_columns->measureAnew();
}

void CVCF1::setCurrentRow(int row) {
    if (!model() || row < 0 || row >= model()->rowCount()) return;
    const int column = currentIndex().isValid() ? currentIndex().column() : 0;
    const QModelIndex index = model()->index(row, column);
    setCurrentIndex(index);
    scrollTo(index);
}

void CVCF1::scrollToHeight(int row, int height) {
    const int moved = rowViewportPosition(row) - height;
    const int step = verticalScrollMode() == ScrollPerItem ? rowHeight(row) : 1;
    verticalScrollBar()->setValue(verticalScrollBar()->value() + moved / step);
}

void CVCF1::readAnew(const std::function<void()>& read, const std::function<int()>& wanted) {
    const int before = currentRow();
    const int height = before < 0 ? 0 : rowViewportPosition(before);
    const int sideways = horizontalScrollBar()->value();
    read();
    const int rows = model()->rowCount();
    if (rows == 0) return;
    const int found = wanted();
    const int row = found >= 0 ? found : std::clamp(before, 0, rows - 1);
    setCurrentRow(row);
    if (before >= 0) scrollToHeight(row, height);
    horizontalScrollBar()->setValue(sideways);
}

QString CVCF1::selectedText() const {
    QString text;
    if (!selectionModel()) return text;
    const QItemSelection selection = selectionModel()->selection();
    for (const QItemSelectionRange& range : selection) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            QStringList cells;
            for (int column = range.left(); column <= range.right(); ++column) {
                if (isColumnHidden(column)) continue;
                cells.append(cellText(model()->index(row, column)));
            }
            text += cells.join(QLatin1Char('\t')) + QLatin1Char('\n');
        }
    }
    return text;
}

void CVCF1::copySelection() const { QApplication::clipboard()->setText(selectedText()); }

void CVCF1::keyboardSearch(const QString& text) { emit textTyped(text); }

bool CVCF1::goToEdge(const QKeyEvent& event) {
    const bool isEdge = event.key() == Qt::Key_Home || event.key() == Qt::Key_End;
    if (!isEdge || event.modifiers() != Qt::NoModifier || m_unit != Unit::row) return false;
    if (model()) setCurrentRow(event.key() == Qt::Key_Home ? 0 : model()->rowCount() - 1);
    return true;
}

QItemSelectionModel::SelectionFlags CVCF1::selectionCommand(const QModelIndex& index,
                                                            const QEvent* event) const {
    // Shift extends what is selected with Ctrl, too: Ctrl+Shift+End to the end of the sheet.
    if (event && event->type() == QEvent::KeyPress) {
        constexpr auto both = Qt::ControlModifier | Qt::ShiftModifier;
        const auto modifiers = static_cast<const QKeyEvent*>(event)->modifiers();
        if ((modifiers & both) == both) {
            QKeyEvent extending(QEvent::KeyPress, static_cast<const QKeyEvent*>(event)->key(),
                                modifiers & ~Qt::ControlModifier);
            return QTableView::selectionCommand(index, &extending);
        }
    }
    return QTableView::selectionCommand(index, event);
}

void CVCF1::keyPressEvent(QKeyEvent* event) {
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->matches(QKeySequence::Copy)) {
        copySelection();
    } else if (!goToEdge(*event) && !(isEnter && m_unit == Unit::row)) {
        QTableView::keyPressEvent(event);
    }
    // Enter is the grid's own: the window's default button is for its other fields.
    if (isEnter) event->accept();
    emit keyDown(event->key(), event->modifiers());
}

void CVCF1::inputMethodEvent(QInputMethodEvent* event) {
    const QWidget* before = indexWidget(currentIndex());
    QTableView::inputMethodEvent(event);
    // A text that was not composed first, such as a wide digit, opens an editor and is lost.
    QWidget* editor = indexWidget(currentIndex());
    const bool isWhole = !event->commitString().isEmpty() && event->preeditString().isEmpty();
    if (isWhole && editor != nullptr && before == nullptr)
        QCoreApplication::sendEvent(editor, event);
}

void CVCF1::keyReleaseEvent(QKeyEvent* event) {
    QTableView::keyReleaseEvent(event);
    if (!event->isAutoRepeat()) emit keyUp(event->key());
}

void CVCF1::mousePressEvent(QMouseEvent* event) {
    QTableView::mousePressEvent(event);
    emit mouseDown(event->position().toPoint());
}

void CVCF1::mouseMoveEvent(QMouseEvent* event) {
    QTableView::mouseMoveEvent(event);
    emit mouseMoved(event->position().toPoint());
}
