#include "opening/window/opening_grid.h"

#include <algorithm>

#include "opening/sheet/opening_texts.h"
#include "opening/window/opening_model.h"
#include "screen/fonts.h"
#include "screen/shown.h"

namespace chengheng {
namespace {

constexpr int gridPoints = 9;
constexpr int frozenColumns = 2;  // code and name

QFont gridFont() {
    QFont font = windowFont();
    font.setPointSize(gridPoints);
    return font;
}

std::size_t rowOf(const QModelIndex& index) { return static_cast<std::size_t>(index.row()); }
std::size_t columnOf(const QModelIndex& index) { return static_cast<std::size_t>(index.column()); }

}  // namespace

OpeningGrid::OpeningGrid(OpeningWork& work, QWidget* parent)
    : CVCF1(shown(opening_texts::title), Unit::cell, parent),
      m_work(work),
      m_model(std::make_unique<OpeningModel>(work)),
      m_shownReadings(work.readings()) {
    setObjectName(QStringLiteral("openings"));
    setFont(gridFont());
    setGridModel(m_model.get());
    setFrozenColumns(frozenColumns);
    setContextMenuPolicy(Qt::CustomContextMenu);
}

OpeningGrid::~OpeningGrid() = default;

void OpeningGrid::showChanges() {
    const auto changed = m_work.takeChangedCells();
    if (m_shownReadings == m_work.readings()) return m_model->tellCellsChanged(changed);
    m_shownReadings = m_work.readings();
    if (m_model->hasSameLines()) return m_model->tellFiguresReadAnew();
    showLinesReadAnew();
}

void OpeningGrid::showLinesReadAnew() {
    // An editor closes with its line and would leave the keyboard to the next field.
    const QWidget* const focus = window()->focusWidget();
    if (focus != nullptr && focus != this && isAncestorOf(focus)) setFocus();
    const QModelIndex current = currentIndex();
    if (!current.isValid()) return m_model->tellReadAnew();
    const int row = current.row();
    const int height = rowViewportPosition(row);
    const FigurePlace place = m_model->placeAt(current);
    std::vector<FigurePlace> corners;
    for (const QItemSelectionRange& range : selectionModel()->selection())
        for (const QPersistentModelIndex& corner : {range.topLeft(), range.bottomRight()})
            corners.push_back(m_model->placeAt(corner));
    m_model->tellReadAnew();
    if (m_model->rowCount() == 0) return;
    const auto lastLine = static_cast<std::size_t>(m_model->rowCount() - 1);
    const std::size_t line =
        lineOf(place).value_or(std::min(static_cast<std::size_t>(row), lastLine));
    goToCell(line, static_cast<std::size_t>(place.column));
    select(corners);
    scrollToHeight(currentRow(), height);
}

void OpeningGrid::select(const std::vector<FigurePlace>& corners) {
    if (corners.size() != 2) return;
    const auto first = lineOf(corners.front());
    const auto last = lineOf(corners.back());
    if (!first || !last) return;
    const QItemSelection block(m_model->index(static_cast<int>(*first), corners.front().column),
                               m_model->index(static_cast<int>(*last), corners.back().column));
    selectionModel()->select(block, QItemSelectionModel::ClearAndSelect);
}

void OpeningGrid::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
    // Lines that were read anew have closed it.
    if (editor->isVisible()) CVCF1::closeEditor(editor, hint);
}

bool OpeningGrid::hasLine() const {
    return currentIndex().isValid() && rowOf(currentIndex()) < sheet().lineCount();
}

std::size_t OpeningGrid::currentLine() const { return rowOf(currentIndex()); }

std::size_t OpeningGrid::currentColumn() const { return columnOf(currentIndex()); }

bool OpeningGrid::isOnFigure() const {
    return figureOf(sheet().columns()[currentColumn()].field) != nullptr;
}

std::size_t OpeningGrid::openingColumn() const {
    return placeOf(OpeningField::opening, sheet().layout());
}

std::size_t OpeningGrid::firstFigureColumn() const {
    return openingColumn() + 1 - sheet().figures().size();
}

FigurePlace OpeningGrid::placeAt(const QModelIndex& index) const { return m_model->placeAt(index); }

std::optional<std::size_t> OpeningGrid::lineOf(const FigurePlace& place) const {
    const auto account = sheet().placeOfId(place.accountId);
    if (!account) return std::nullopt;
    const auto line = sheet().lineOf(*account, place.measure);
    return line ? *line : sheet().accounts()[*account].firstLine;
}

bool OpeningGrid::opensAuxiliary(const QModelIndex& index) const {
    return sheet().opensAuxiliary(rowOf(index), columnOf(index));
}

void OpeningGrid::goToCell(std::size_t line, std::size_t column) {
    setCurrentIndex(m_model->index(static_cast<int>(line), static_cast<int>(column)));
}

void OpeningGrid::goToFirst() {
    const bool isFirst = sheet().lineCount() == 0 || sheet().isEditable(0, openingColumn());
    goToCell(isFirst ? 0 : sheet().nextEditable(0, 1).value_or(0), firstFigureColumn());
}

void OpeningGrid::goTo(const FigurePlace& place) {
    goToCell(lineOf(place).value_or(0), static_cast<std::size_t>(place.column));
}

void OpeningGrid::goToLine(std::size_t line) { setCurrentRow(static_cast<int>(line)); }

void OpeningGrid::goToAccount(std::size_t place) {
    goToCell(sheet().accounts()[place].firstLine, openingColumn());
}

void OpeningGrid::goToStep(const EditStep& step) {
    const auto given = std::ranges::find(step, false, &CellChange::isWorkedOut);
    const CellChange& first = given == step.end() ? step.front() : *given;
    const std::size_t column = placeOf(first.figure, sheet().layout());
    goTo({first.accountId, first.measure, static_cast<int>(column)});
}

void OpeningGrid::goToNextEditable(int direction) {
    if (const auto line = sheet().nextEditable(currentLine(), direction)) goToLine(*line);
}

void OpeningGrid::moveOn(NextCell to) {
    if (!hasLine()) return;
    switch (to) {
        case NextCell::nextEditable:
            return goToNextEditable(1);
        case NextCell::previousEditable:
            return goToNextEditable(-1);
        case NextCell::below:
            return setCurrentRow(currentRow() + 1);
        case NextCell::above:
            return setCurrentRow(currentRow() - 1);
        case NextCell::right:
            moveSideways(1);
            return;
        case NextCell::left:
            moveSideways(-1);
            return;
        case NextCell::none:
            return;
    }
}

bool OpeningGrid::moveSideways(int direction) {
    if (!hasLine()) return false;
    const std::size_t line = currentLine();
    const int columns = m_model->columnCount();
    for (int column = currentIndex().column() + direction; column >= 0 && column < columns;
         column += direction) {
        if (!sheet().isEditable(line, static_cast<std::size_t>(column))) continue;
        goToCell(line, static_cast<std::size_t>(column));
        return true;
    }
    const auto next = sheet().nextEditable(line, direction);
    if (next) goToCell(*next, direction > 0 ? firstFigureColumn() : openingColumn());
    return next.has_value();
}

void OpeningGrid::moveOnByEnter(bool isBack) {
    if (!isOnFigure()) goToCell(currentLine(), firstFigureColumn());
    moveOn(isBack ? NextCell::previousEditable : NextCell::nextEditable);
}

std::vector<TypedFigure> OpeningGrid::selectedAsZero() const {
    std::vector<TypedFigure> figures;
    for (const QModelIndex& index : selectionModel()->selectedIndexes()) {
        if (!sheet().isEditable(rowOf(index), columnOf(index))) continue;
        const OpeningLine& line = sheet().line(rowOf(index));
        figures.push_back({sheet().accounts()[line.account].id, line.measure,
                           figureOf(sheet().columns()[columnOf(index)].field), 0});
    }
    return figures;
}

OpeningCell OpeningGrid::upperLeft() const {
    OpeningCell corner{currentLine(), currentColumn()};
    for (const QModelIndex& index : selectionModel()->selectedIndexes()) {
        corner.line = std::min(corner.line, rowOf(index));
        corner.column = std::min(corner.column, columnOf(index));
    }
    return corner;
}

}  // namespace chengheng
