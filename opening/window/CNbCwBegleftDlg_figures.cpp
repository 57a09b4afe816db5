// Moving in the grid, changing figures, and the commands on the whole of them.

#include <fmt/format.h>

#include <algorithm>

#include "base/system/program_version.h"
#include "forms/form_texts.h"
#include "opening/screen/opening_commands.h"
#include "opening/sheet/opening_texts.h"
#include "opening/window/CNbCwBegleftDlg.h"
#include "opening/window/opening_model.h"
#include "screen/CBalanceTableDlg.h"
#include "screen/grid/CVCF1.h"
#include "screen/help/help_pages.h"
#include "screen/help/help_window.h"
#include "screen/report/CNxGridControl.h"
#include "screen/search_bar.h"
#include "screen/unbuilt.h"
#include "screen/wait_window.h"

namespace opening_texts = chengheng::opening_texts;
using chengheng::EditStep;
using chengheng::NextCell;
using chengheng::OpeningWork;

bool CNbCwBegleftDlg::hasLine() const {
    const QModelIndex index = m_grid->currentIndex();
    return index.isValid() && static_cast<std::size_t>(index.row()) < sheet().lineCount();
}

std::size_t CNbCwBegleftDlg::currentLine() const {
    return static_cast<std::size_t>(m_grid->currentIndex().row());
}

std::size_t CNbCwBegleftDlg::firstLine() const {
    if (sheet().lineCount() == 0 || sheet().isEditable(0, openingColumn())) return 0;
    return sheet().nextEditable(0, 1).value_or(0);
}

std::size_t CNbCwBegleftDlg::openingColumn() const {
    return chengheng::placeOf(chengheng::OpeningField::opening, sheet().layout());
}

std::size_t CNbCwBegleftDlg::firstFigureColumn() const {
    return openingColumn() + 1 - sheet().figures().size();
}

CNbCwBegleftDlg::Place CNbCwBegleftDlg::placeAt(const QModelIndex& index) const {
    const auto line = static_cast<std::size_t>(index.row());
    return {sheet().accountOfLine(line).id, sheet().line(line).measure, index.column()};
}

std::optional<CNbCwBegleftDlg::Place> CNbCwBegleftDlg::currentPlace() const {
    if (!hasLine()) return std::nullopt;
    return placeAt(m_grid->currentIndex());
}

void CNbCwBegleftDlg::goTo(const Place& place) {
    const auto account = sheet().placeOfId(place.accountId);
    if (!account) {
        m_grid->setCurrentIndex(m_model->index(0, place.column));
        return;
    }
    const auto line = sheet().lineOf(*account, place.measure);
    const std::size_t found = line ? *line : sheet().accounts()[*account].firstLine;
    m_grid->setCurrentIndex(m_model->index(static_cast<int>(found), place.column));
}

void CNbCwBegleftDlg::goToLine(std::optional<std::size_t> line) {
    if (line) m_grid->setCurrentRow(static_cast<int>(*line));
}

bool CNbCwBegleftDlg::moveSideways(int direction) {
    const std::size_t line = currentLine();
    const int columns = m_model->columnCount();
    for (int column = m_grid->currentIndex().column() + direction; column >= 0 && column < columns;
         column += direction) {
        if (!sheet().isEditable(line, static_cast<std::size_t>(column))) continue;
        m_grid->setCurrentIndex(m_model->index(static_cast<int>(line), column));
        return true;
    }
    const auto next = sheet().nextEditable(line, direction);
    if (!next) return false;
    const std::size_t column = direction > 0 ? firstFigureColumn() : openingColumn();
    m_grid->setCurrentIndex(m_model->index(static_cast<int>(*next), static_cast<int>(column)));
    return true;
}

void CNbCwBegleftDlg::moveOn(NextCell to) {
    if (!hasLine()) return;
    const int row = m_grid->currentRow();
    switch (to) {
        case NextCell::nextEditable:
            goToLine(sheet().nextEditable(currentLine(), 1));
            break;
        case NextCell::previousEditable:
            goToLine(sheet().nextEditable(currentLine(), -1));
            break;
        case NextCell::below:
            m_grid->setCurrentRow(row + 1);
            break;
        case NextCell::above:
            m_grid->setCurrentRow(row - 1);
            break;
        case NextCell::right:
            moveSideways(1);
            break;
        case NextCell::left:
            moveSideways(-1);
            break;
        case NextCell::none:
            break;
    }
}

void CNbCwBegleftDlg::keyPressed(int key, Qt::KeyboardModifiers modifiers) {
    if (!hasLine()) return;
    const auto column = static_cast<std::size_t>(m_grid->currentIndex().column());
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        if (chengheng::figureOf(sheet().columns()[column].field) == nullptr)
            m_grid->setCurrentIndex(
                m_model->index(m_grid->currentRow(), static_cast<int>(firstFigureColumn())));
        const bool isBack = (modifiers & Qt::ShiftModifier) != 0;
        moveOn(isBack ? NextCell::previousEditable : NextCell::nextEditable);
    } else if (key == Qt::Key_F2 && sheet().opensAuxiliary(currentLine(), column)) {
        PostCommand(chengheng::opening_command::auxiliary);
    }
}

bool CNbCwBegleftDlg::finishEditing() {
    m_isRefused = false;
    const QWidget* focus = focusWidget();
    if (focus != nullptr && focus != m_grid && m_grid->isAncestorOf(focus)) m_grid->setFocus();
    return !m_isRefused;
}

bool CNbCwBegleftDlg::change(const std::function<bool()>& work) {
    const bool isDone = work();
    showFigures();
    return isDone;
}

void CNbCwBegleftDlg::endEdit(const QModelIndex& index, const QString& text) {
    const Place place = placeAt(index);
    m_isRefused = !change([&] {
        return m_work.endEdit(static_cast<std::size_t>(index.row()),
                              static_cast<std::size_t>(index.column()), text.toStdString());
    });
    if (!m_isRefused) return;
    // Once the editor that ends now has closed.
    const auto again = guarded([this, place, text] { takeUpAgain(place, text); });
    QMetaObject::invokeMethod(this, again, Qt::QueuedConnection);
}

void CNbCwBegleftDlg::takeUpAgain(const Place& place, const QString& text) {
    if (isEnded() || !sheet().placeOfId(place.accountId)) return;
    goTo(place);
    m_grid->setFocus();
    if (!sheet().isEditable(currentLine(), static_cast<std::size_t>(place.column))) return;
    m_grid->edit(m_grid->currentIndex());
    m_editor->takeUp(m_grid->indexWidget(m_grid->currentIndex()), text);
}

void CNbCwBegleftDlg::goToStep(const EditStep& step) {
    const chengheng::CellChange& first = step.front();
    const std::size_t column = chengheng::placeOf(first.figure, sheet().layout());
    goTo({first.accountId, first.measure, static_cast<int>(column)});
}

bool CNbCwBegleftDlg::retrace(const EditStep* step, bool (OpeningWork::*how)()) {
    if (step == nullptr) return false;
    const EditStep changed = *step;
    if (!change([&] { return (m_work.*how)(); })) return false;
    goToStep(changed);
    return true;
}

void CNbCwBegleftDlg::OnMenuUndo() { retrace(m_work.stepToUndo(), &OpeningWork::undo); }

void CNbCwBegleftDlg::OnMenuRedo() { retrace(m_work.stepToRedo(), &OpeningWork::redo); }

void CNbCwBegleftDlg::OnMenuClear() {
    std::vector<chengheng::TypedFigure> figures;
    for (const QModelIndex& index : m_grid->selectionModel()->selectedIndexes()) {
        const auto line = static_cast<std::size_t>(index.row());
        const auto column = static_cast<std::size_t>(index.column());
        if (sheet().isEditable(line, column))
            figures.push_back({sheet().accountOfLine(line).id, sheet().line(line).measure,
                               chengheng::figureOf(sheet().columns()[column].field), 0});
    }
    if (!figures.empty()) change([&] { return m_work.writeFigures(figures); });
}

void CNbCwBegleftDlg::tryClose() {
    if (!finishEditing()) return;
    const bool mayClose = m_work.mayClose();
    if (mayClose) {
        EndDialog(Rejected);
    } else {
        showFigures();
    }
}

void CNbCwBegleftDlg::OnMenuExit() { tryClose(); }

void CNbCwBegleftDlg::OnMenuAdjust() {
    if (!hasLine()) return;
    change([&] { return m_work.adjustDirection(currentLine()); });
}

void CNbCwBegleftDlg::OnMenuCarry() {
    chengheng::tellUnbuilt(messages(), opening_texts::carryForward);
}

void CNbCwBegleftDlg::OnMenuAuxiliary() {
    if (!hasLine()) return;
    const auto kind = m_work.auxiliaryToOpen(currentLine(), openingColumn());
    if (kind == chengheng::AuxiliaryKind::none) return;
    chengheng::tellUnbuilt(messages(), chengheng::auxiliaryText(kind));
    change([&] { return m_work.afterAuxiliary(); });
}

void CNbCwBegleftDlg::OnMenuRefurbish() {
    const chengheng::WaitWindow window(QString::fromUtf8(opening_texts::refreshing), this);
    change([&] { return m_work.refresh(); });
}

void CNbCwBegleftDlg::OnMenuBalance() {
    const chengheng::TrialBalance balance = m_work.trialBalance();
    showFigures();
    const chengheng::TrialBalanceTexts texts = balance.texts();
    CBalanceTableDlg result(texts.inOrder(), !balance.isBalanced(), this);
    if (result.DoModal() == CBalanceTableDlg::causesWanted) OnMenuCauses();
}

void CNbCwBegleftDlg::OnMenuFind() { m_searchBar->setFocus(); }

void CNbCwBegleftDlg::print(chengheng::ReportOutput output) {
    const std::string year =
        fmt::format(fmt::runtime(opening_texts::accountingYear), m_work.accountingYear());
    CNxGridControl::PrintOrPreview(*m_grid, {opening_texts::title, year}, static_cast<int>(output));
}

void CNbCwBegleftDlg::OnMenuPrint() { print(chengheng::ReportOutput::print); }

void CNbCwBegleftDlg::OnMenuPreview() { print(chengheng::ReportOutput::preview); }

void CNbCwBegleftDlg::OnMenuHelp() { chengheng::showHelp(chengheng::openingHelpContext, *this); }

void CNbCwBegleftDlg::OnMenuSearch() {
    chengheng::showHelp(chengheng::openingHelpContext, *this).startSearch();
}

void CNbCwBegleftDlg::OnMenuAbout() {
    messages().tell(
        {.text = fmt::format(chengheng::form_texts::aboutProgram, chengheng::programVersion())});
}

void CNbCwBegleftDlg::OnMenuCalendar() { messages().tell({.text = opening_texts::calendar}); }

void CNbCwBegleftDlg::OnMenuCalculator() { messages().tell({.text = opening_texts::calculator}); }

bool CNbCwBegleftDlg::OnHelpInfo() {
    OnMenuHelp();
    return true;
}
