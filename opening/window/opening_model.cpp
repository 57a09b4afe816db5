#include "opening/window/opening_model.h"

#include "opening/sheet/opening_texts.h"
#include "opening/window/opening_look.h"

namespace chengheng {
namespace {

std::size_t placeOf(int position) { return static_cast<std::size_t>(position); }

CellAlignment alignmentOf(const OpeningColumn& column) {
    if (figureOf(column.field) != nullptr) return CellAlignment::number;
    return column.field == OpeningField::direction ? CellAlignment::centre : CellAlignment::text;
}

}  // namespace

OpeningModel::OpeningModel(const OpeningWork& work) : GridModel({}), m_work(work) { takeColumns(); }

void OpeningModel::takeColumns() {
    m_columns.clear();
    for (const OpeningColumn& column : sheet().columns())
        m_columns.push_back({column.header, column.width, alignmentOf(column), column.isHidden});
    setGridColumns(m_columns);
    m_lines = linesOfSheet();
    m_layout = sheet().layout();
}

std::vector<OpeningModel::ShownLine> OpeningModel::linesOfSheet() const {
    std::vector<ShownLine> lines(sheet().lineCount());
    for (std::size_t line = 0; line < lines.size(); ++line)
        lines[line] = {sheet().accountOfLine(line).id, sheet().line(line).measure};
    return lines;
}

FigurePlace OpeningModel::placeAt(const QModelIndex& index) const {
    const ShownLine& line = m_lines[placeOf(index.row())];
    return {line.accountId, line.measure, index.column()};
}

bool OpeningModel::hasSameLines() const {
    return m_layout == sheet().layout() && m_lines == linesOfSheet();
}

int OpeningModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_lines.size());
}

// While a message about it is up, the sheet may have been read anew with fewer lines.
bool OpeningModel::isThere(int row, int column) const {
    return row >= 0 && placeOf(row) < sheet().lineCount() && column >= 0 &&
           placeOf(column) < sheet().columns().size();
}

bool OpeningModel::isMarked(int row, int column) const {
    return sheet().columns()[placeOf(column)].field == OpeningField::opening &&
           sheet().disagrees(placeOf(row));
}

Qt::ItemFlags OpeningModel::flags(const QModelIndex& index) const {
    Qt::ItemFlags known = GridModel::flags(index);
    if (isThere(index.row(), index.column()) &&
        sheet().isEditable(placeOf(index.row()), placeOf(index.column())))
        known |= Qt::ItemIsEditable;
    return known;
}

QVariant OpeningModel::data(const QModelIndex& index, int role) const {
    if (!isThere(index.row(), index.column())) return {};
    if (role == Qt::EditRole) return text(index.row(), index.column());
    if (role == Qt::ToolTipRole || role == Qt::AccessibleDescriptionRole)
        return isMarked(index.row(), index.column())
                   ? QVariant(QString::fromUtf8(opening_texts::figuresDisagreeHere))
                   : QVariant();
    return GridModel::data(index, role);
}

QString OpeningModel::text(int row, int column) const {
    return QString::fromStdString(sheet().text(placeOf(row), placeOf(column)));
}

QColor OpeningModel::background(int row, int column) const {
    if (isMarked(row, column)) return opening_colours::disagreeing;
    switch (sheet().role(placeOf(row))) {
        case LineRole::parent:
            return opening_colours::parent;
        case LineRole::auxiliary:
            return opening_colours::auxiliary;
        case LineRole::endAccount:
            break;
    }
    return opening_colours::endAccount;
}

QColor OpeningModel::foreground(int row, int column) const {
    const bool isNegative = figureOf(sheet().columns()[placeOf(column)].field) != nullptr &&
                            sheet().number(placeOf(row), placeOf(column)) < 0;
    return isNegative ? opening_colours::negative : QColor();
}

void OpeningModel::tellReadAnew() {
    beginResetModel();
    takeColumns();
    endResetModel();
}

void OpeningModel::tellFiguresReadAnew() {
    if (m_lines.empty()) return;
    emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

void OpeningModel::tellCellsChanged(std::span<const OpeningCell> cells) {
    for (const OpeningCell& cell : cells) {
        const QModelIndex changed =
            index(static_cast<int>(cell.line), static_cast<int>(cell.column));
        emit dataChanged(changed, changed);
    }
}

}  // namespace chengheng
