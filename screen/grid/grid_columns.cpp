#include "screen/grid/grid_columns.h"

#include <QHeaderView>
#include <QMenu>
#include <QScopedValueRollback>
#include <QTableView>
#include <QTimer>
#include <algorithm>
#include <utility>

#include "screen/grid/grid_model.h"
#include "screen/screen_texts.h"
#include "screen/window_memory.h"
#include "screen/window_shape.h"

namespace chengheng {
namespace {

constexpr int cellPadding = 10;
constexpr int sortMark = 18;
constexpr int firstRows = 40;    // about as many as are in sight at first
constexpr int sampledRows = 60;  // of the others, one here and there
constexpr int leastCharacters = 6;
constexpr int hundredths = 100;  // of a digit, in which widths are kept
constexpr int mostKept = 500 * hundredths;
constexpr char32_t firstWide = 0x2e80;

const QString widthsKey = QStringLiteral("/widths");
const QString hiddenKey = QStringLiteral("/hidden");
const QString orderKey = QStringLiteral("/order");
const QString ascending = QStringLiteral("ascending");
const QString descending = QStringLiteral("descending");

int digitWidth(const QWidget& widget) {
    return widget.fontMetrics().horizontalAdvance(QLatin1Char('0'));
}

/// About how wide a text is: cheap, so that only the longest is measured.
int unitsOf(const QString& text) {
    int units = 0;
    for (const QChar character : text) {
        const bool isNarrow = character == QLatin1Char(',') || character == QLatin1Char('.') ||
                              character == QLatin1Char(' ');
        units += character.unicode() >= firstWide ? 4 : isNarrow ? 1 : 2;
    }
    return units;
}

}  // namespace

GridColumns::GridColumns(QTableView& grid) : QObject(&grid), m_grid(grid) {
    header().setContextMenuPolicy(Qt::CustomContextMenu);
    connect(&header(), &QWidget::customContextMenuRequested, this,
            [this](QPoint position) { showMenu(header().mapToGlobal(position)); });
    connect(&header(), &QHeaderView::sectionResized, this,
            [this](int column, int, int width) { resized(column, width); });
    connect(&header(), &QHeaderView::sortIndicatorChanged, this, [this] { m_hasChanged = true; });
}

QHeaderView& GridColumns::header() const { return *m_grid.horizontalHeader(); }

void GridColumns::begin(GridModel& model, bool mayHide) {
    if (m_model != nullptr) m_model->disconnect(this);
    m_model = &model;
    m_mayHide = mayHide;
    m_columns.assign(model.gridColumns().size(), {});
    for (int column = 0; column < model.columnCount(); ++column)
        m_grid.setColumnHidden(column,
                               model.gridColumns()[static_cast<std::size_t>(column)].isHidden);
    connect(&model, &QAbstractItemModel::modelReset, this, [this] {
        m_isSampleWanted = true;
        lookLater();
    });
    connect(&model, &QAbstractItemModel::layoutChanged, this, &GridColumns::lookLater);
    connect(&model, &QAbstractItemModel::dataChanged, this, &GridColumns::lookLater);
    connect(&model, &QAbstractItemModel::rowsInserted, this, &GridColumns::lookLater);
    connect(&model, &QObject::destroyed, this, [this] { m_model = nullptr; });
    if (m_grid.isVisible()) recall();
    lookAtSample();
    share();
}

int GridColumns::headerWidth(int column) const {
    const QString text = m_model->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
    const int mark = header().isSortIndicatorShown() ? sortMark : 0;
    return m_grid.fontMetrics().size(0, text).width() + mark;
}

std::vector<ColumnNeed> GridColumns::needs() const {
    const int digit = digitWidth(m_grid);
    std::vector<ColumnNeed> needs;
    for (int column = 0; column < m_model->columnCount(); ++column) {
        if (m_grid.isColumnHidden(column)) continue;
        const auto place = static_cast<std::size_t>(column);
        const GridColumn& declared = m_model->gridColumns()[place];
        const int heading = headerWidth(column);
        const int content = std::max(heading, m_columns[place].content) + cellPadding;
        const bool isText = declared.alignment == CellAlignment::text;
        needs.push_back(
            {.content = content,
             .usual = std::max(declared.width * digit, heading) + cellPadding,
             .least = isText ? std::max(heading, leastCharacters * digit) + cellPadding : content,
             .grows = declared.alignment != CellAlignment::centre,
             .kept = m_columns[place].kept});
    }
    return needs;
}

int GridColumns::usualWidth() const {
    int sum = 0;
    if (m_model == nullptr) return sum;
    for (const ColumnNeed& need : needs())
        sum += need.kept > 0 ? need.kept : std::max(need.usual, need.content);
    return sum;
}

void GridColumns::share() {
    if (m_model == nullptr) return;
    const int room = m_grid.isVisible() ? m_grid.viewport()->width() : usualWidth();
    apply(shareWidth(needs(), room));
}

void GridColumns::apply(const std::vector<int>& widths) {
    const QScopedValueRollback sharing(m_isSharing, true);
    auto width = widths.begin();
    for (int column = 0; column < m_model->columnCount(); ++column)
        if (!m_grid.isColumnHidden(column)) m_grid.setColumnWidth(column, *width++);
}

void GridColumns::measureAnew() {
    if (m_model == nullptr) return;
    for (Column& column : m_columns) column = {.units = 0, .content = 0, .kept = column.kept};
    lookAtSample();
    share();
}

void GridColumns::lookAtSample() {
    const int rows = m_model->rowCount();
    const int first = std::min(rows, firstRows);
    for (int row = 0; row < first; ++row) lookAt(row);
    const int others = rows - first;
    const int looks = std::min(others, sampledRows);
    for (int look = 1; look <= looks; ++look)
        lookAt(first - 1 + static_cast<int>(static_cast<qint64>(others) * look / looks));
}

void GridColumns::lookAt(int row) {
    for (int column = 0; column < m_model->columnCount(); ++column)
        if (!m_grid.isColumnHidden(column))
            measure(column, m_model->index(row, column).data().toString());
}

void GridColumns::measure(int column, const QString& text) {
    Column& seen = m_columns[static_cast<std::size_t>(column)];
    const int units = unitsOf(text);
    if (units <= seen.units) return;
    seen.units = units;
    seen.content = std::max(seen.content, m_grid.fontMetrics().size(0, text).width());
}

void GridColumns::lookLater() {
    if (!std::exchange(m_isLookWaiting, true)) QTimer::singleShot(0, this, &GridColumns::look);
}

void GridColumns::look() {
    m_isLookWaiting = false;
    if (m_model == nullptr || m_model->rowCount() == 0) return;
    if (std::exchange(m_isSampleWanted, false)) lookAtSample();
    const int height = m_grid.viewport()->height();
    const int first = std::max(0, m_grid.rowAt(0));
    const int below = m_grid.rowAt(height - 1);
    const int last = below < 0 ? m_model->rowCount() - 1 : below;
    for (int row = first; row <= std::min(last, first + firstRows + sampledRows); ++row)
        lookAt(row);
    if (isAnyCut()) share();
}

bool GridColumns::isAnyCut() const {
    for (int column = 0; column < m_model->columnCount(); ++column) {
        const Column& seen = m_columns[static_cast<std::size_t>(column)];
        if (m_grid.isColumnHidden(column) || seen.kept > 0) continue;
        if (seen.content + cellPadding > m_grid.columnWidth(column)) return true;
    }
    return false;
}

void GridColumns::resized(int column, int width) {
    // A width of nothing is that of a column put away.
    if (m_isSharing || width == 0 || column >= static_cast<int>(m_columns.size())) return;
    m_columns[static_cast<std::size_t>(column)].kept = width;
    m_hasChanged = true;
}

bool GridColumns::canHide(int column) const {
    if (m_grid.isColumnHidden(column)) return true;
    return header().count() - header().hiddenSectionCount() > 1;
}

void GridColumns::hide(int column, bool isHidden) {
    {
        const QScopedValueRollback sharing(m_isSharing, true);
        m_grid.setColumnHidden(column, isHidden);
    }
    m_hasChanged = true;
    lookAtSample();
    share();
}

void GridColumns::showMenu(QPoint position) {
    if (m_model == nullptr) return;
    QMenu menu(&m_grid);
    for (int column = 0; m_mayHide && column < m_model->columnCount(); ++column) {
        if (m_model->gridColumns()[static_cast<std::size_t>(column)].isHidden) continue;
        QAction* action = menu.addAction(title(column));
        action->setCheckable(true);
        action->setChecked(!m_grid.isColumnHidden(column));
        action->setEnabled(canHide(column));
        connect(action, &QAction::toggled, this,
                [this, column](bool isShown) { hide(column, !isShown); });
    }
    menu.addSeparator();
    QAction* anew = menu.addAction(QString::fromUtf8(screen_texts::resetColumns));
    connect(anew, &QAction::triggered, this, &GridColumns::resetLayout);
    menu.exec(position);
}

QString GridColumns::key() const {
    return keyOfWindow(m_grid) + QLatin1Char('/') + partOfKey(m_grid.accessibleName()) +
           QString::number(m_columns.size());
}

QString GridColumns::title(int column) const {
    QString title = m_model->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
    return title.remove(QLatin1Char('\n')).trimmed();
}

void GridColumns::recall() {
    if (m_model == nullptr) return;
    const QStringList widths = rememberedOfWindows(key() + widthsKey).toStringList();
    const QStringList hidden = rememberedOfWindows(key() + hiddenKey).toStringList();
    const QStringList order = rememberedOfWindows(key() + orderKey).toStringList();
    const QScopedValueRollback sharing(m_isSharing, true);
    for (int column = 0; column < m_model->columnCount(); ++column) {
        const auto named = widths.indexOf(title(column));
        if (named >= 0 && named + 1 < widths.size())
            m_columns[static_cast<std::size_t>(column)].kept =
                std::clamp(widths[named + 1].toInt(), 0, mostKept) * digitWidth(m_grid) /
                hundredths;
        if (m_mayHide && hidden.contains(title(column)) && canHide(column))
            m_grid.setColumnHidden(column, true);
        if (header().isSortIndicatorShown() && order.size() == 2 && order[0] == title(column))
            header().setSortIndicator(
                column, order[1] == descending ? Qt::DescendingOrder : Qt::AscendingOrder);
    }
    m_hasChanged = false;
}

void GridColumns::keep() {
    if (m_model == nullptr || !std::exchange(m_hasChanged, false)) return;
    QStringList widths;
    QStringList hidden;
    QStringList order;
    for (int column = 0; column < m_model->columnCount(); ++column) {
        const auto place = static_cast<std::size_t>(column);
        const int width = m_columns[place].kept * hundredths / digitWidth(m_grid);
        if (width > 0) widths << title(column) << QString::number(width);
        const bool isDeclaredHidden = m_model->gridColumns()[place].isHidden;
        if (m_grid.isColumnHidden(column) && !isDeclaredHidden) hidden << title(column);
        if (header().isSortIndicatorShown() && header().sortIndicatorSection() == column)
            order << title(column)
                  << (header().sortIndicatorOrder() == Qt::DescendingOrder ? descending
                                                                           : ascending);
    }
    rememberOfWindows(key() + widthsKey, widths);
    rememberOfWindows(key() + hiddenKey, hidden);
    rememberOfWindows(key() + orderKey, order);
}

void GridColumns::resetLayout() {
    if (m_model == nullptr) return;
    {
        const QScopedValueRollback sharing(m_isSharing, true);
        for (int column = 0; column < m_model->columnCount(); ++column) {
            const auto place = static_cast<std::size_t>(column);
            m_grid.setColumnHidden(column, m_model->gridColumns()[place].isHidden);
        }
    }
    if (header().isSortIndicatorShown()) header().setSortIndicator(-1, Qt::AscendingOrder);
    m_columns.assign(m_columns.size(), {});
    m_hasChanged = false;
    forgetOfWindows(key());
    lookAtSample();
    resetShape(m_grid);
    share();
}

}  // namespace chengheng
