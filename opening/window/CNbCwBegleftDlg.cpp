#include "opening/window/CNbCwBegleftDlg.h"

#include <fmt/format.h>

#include <QKeyEvent>
#include <QVBoxLayout>
#include <algorithm>

#include "auxiliary/members/auxiliary_member.h"
#include "auxiliary/window/auxiliary_window.h"
#include "base/system/program_version.h"
#include "forms/form_texts.h"
#include "opening/printing/opening_list.h"
#include "opening/sheet/opening_texts.h"
#include "opening/window/account_finder.h"
#include "opening/window/carry_commands.h"
#include "opening/window/causes_window.h"
#include "opening/window/figure_editing.h"
#include "opening/window/figure_history.h"
#include "opening/window/figure_transfer.h"
#include "opening/window/opening_foot.h"
#include "opening/window/opening_grid.h"
#include "opening/window/opening_heading.h"
#include "opening/window/opening_look.h"
#include "opening/window/opening_menus.h"
#include "opening/window/print_choice_window.h"
#include "screen/CBalanceTableDlg.h"
#include "screen/dialog_templates.h"
#include "screen/help/help_pages.h"
#include "screen/help/help_window.h"
#include "screen/report/CNxGridControl.h"
#include "screen/shown.h"
#include "screen/wait_window.h"

namespace opening_command = chengheng::opening_command;
namespace opening_texts = chengheng::opening_texts;
using chengheng::EditStep;
using chengheng::OpeningWork;
using chengheng::Outcome;
using chengheng::shown;

namespace {

constexpr QSize openingSize(860, 640);

}  // namespace

CNbCwBegleftDlg::CNbCwBegleftDlg(QWidget* parent)
    : CNxMiddleDialog(chengheng::dialog_templates::begleft, parent),
      m_atWork(opening_texts::title) {
    setWindowTitle(shown(opening_texts::title));
}

// The grid goes before the figures that it shows; what is being typed into it then goes with it.
CNbCwBegleftDlg::~CNbCwBegleftDlg() {
    delete m_editing;
    delete m_grid;
}

bool CNbCwBegleftDlg::OnCreate() { return m_work.refresh() == Outcome::done; }

bool CNbCwBegleftDlg::OnInitDialog() {
    buildControls();
    connectGrid();
    const int columns = m_grid->usualWidth() + 2 * chengheng::opening_layout::margin;
    resize(std::max(openingSize.width(), columns), openingSize.height());
    showChanges();
    m_grid->goToFirst();
    m_grid->setFocus();
    return false;
}

void CNbCwBegleftDlg::buildControls() {
    using chengheng::opening_layout::margin;
    m_grid = new chengheng::OpeningGrid(m_work, this);
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(margin, 0, margin, margin);
    rows->setSpacing(0);
    m_commands = std::make_unique<chengheng::WindowCommands>(*this, chengheng::openingMenus);
    m_heading = new chengheng::OpeningHeading(this);
    m_foot = new chengheng::OpeningFoot(this);
    rows->addWidget(m_heading);
    rows->addWidget(m_grid, 1);
    rows->addWidget(m_foot);
    m_heading->setTabOrderAfter(*m_grid);
    m_editing = new chengheng::FigureEditing(*m_grid, m_work, messages());
    new chengheng::AccountFinder(m_heading->searchBar(), *m_grid, m_work);
    m_transfer = std::make_unique<chengheng::FigureTransfer>(
        m_work, messages(), *this, [this](const chengheng::FigurePlan& plan) {
            return change([&] { return m_work.apply(plan); });
        });
    m_carrying = std::make_unique<chengheng::CarryCommands>(m_work, messages(), *this,
                                                            [this] { showChanges(); });
}

void CNbCwBegleftDlg::connectGrid() {
    connect(m_editing, &chengheng::FigureEditing::begun, this,
            [this] { m_foot->showRemark(m_work.remark(), m_work.remarksOnSuccess()); });
    connect(m_editing, &chengheng::FigureEditing::ended, this, [this] { showChanges(); });
    connect(m_grid, &CVCF1::doubleClicked, this, [this](const QModelIndex& index) {
        if (m_grid->opensAuxiliary(index)) PostCommand(opening_command::auxiliary);
    });
    connect(m_grid->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this] { currentMoved(); });
    connect(m_grid, &CVCF1::keyDown, this, [this](int key, Qt::KeyboardModifiers modifiers) {
        guarded([=, this] { keyPressed(key, modifiers); })();
    });
    connect(m_grid, &CVCF1::customContextMenuRequested, this, [this](QPoint position) {
        m_commands->popUp(chengheng::openingContextCommands,
                          m_grid->viewport()->mapToGlobal(position));
    });
}

void CNbCwBegleftDlg::keyPressed(int key, Qt::KeyboardModifiers modifiers) {
    if (!m_grid->hasLine()) return;
    if (key == Qt::Key_Return || key == Qt::Key_Enter)
        m_grid->moveOnByEnter((modifiers & Qt::ShiftModifier) != 0);
    else if (key == Qt::Key_F2 && m_grid->opensAuxiliary(m_grid->currentIndex()))
        PostCommand(opening_command::auxiliary);
}

void CNbCwBegleftDlg::currentMoved() {
    if (!m_grid->hasLine()) return;
    m_foot->showAccount(m_work.sheet().accountOfLine(m_grid->currentLine()));
    m_commands->setEnabled(
        opening_command::auxiliary,
        m_work.sheet().opensAuxiliary(m_grid->currentLine(), m_grid->openingColumn()));
}

Outcome CNbCwBegleftDlg::change(const std::function<Outcome()>& work) {
    const Outcome outcome = work();
    showChanges();
    return outcome;
}

void CNbCwBegleftDlg::showChanges() {
    m_grid->showChanges();
    m_foot->showTotals(m_work.totals());
    m_foot->showRemark(m_work.remark(), m_work.remarksOnSuccess());
    reflectCommands();
}

void CNbCwBegleftDlg::reflectCommands() {
    m_heading->showMode(m_work.modeText());
    m_heading->showLayout(m_work.sheet().layout());
    m_commands->setEnabled(opening_command::adjustDirection, m_work.mayAdjustDirection());
    m_commands->setEnabled(opening_command::carryForward, m_work.mayCarryForward());
    m_commands->setEnabled(opening_command::repeatCarry, m_work.mayRepeatCarry());
    m_commands->setEnabled(opening_command::undo, m_work.canUndo());
    m_commands->setEnabled(opening_command::redo, m_work.canRedo());
    for (const int command :
         {opening_command::clear, opening_command::paste, opening_command::importFigures})
        m_commands->setEnabled(command, !m_work.isBrowsing());
}

void CNbCwBegleftDlg::OnCancel() { tryClose(); }

bool CNbCwBegleftDlg::PreTranslateMessage(QEvent& event) {
    if (event.type() != QEvent::KeyPress) return CNxMiddleDialog::PreTranslateMessage(event);
    switch (static_cast<QKeyEvent&>(event).key()) {
        case Qt::Key_F7:
            PostCommand(opening_command::calendar);
            return true;
        case Qt::Key_F8:
            return true;
        case Qt::Key_F9:
            PostCommand(opening_command::calculator);
            return true;
        default:
            return CNxMiddleDialog::PreTranslateMessage(event);
    }
}

bool CNbCwBegleftDlg::focusNextPrevChild(bool isForward) {
    const bool isInGrid = m_grid && m_grid->hasFocus();
    return (isInGrid && m_grid->moveSideways(isForward ? 1 : -1)) ||
           CNxMiddleDialog::focusNextPrevChild(isForward);
}

bool CNbCwBegleftDlg::WindowProc(QEvent& event) {
    if (event.type() != QEvent::Close || isEnded()) return CNxMiddleDialog::WindowProc(event);
    event.ignore();
    tryClose();
    return true;
}

bool CNbCwBegleftDlg::OnCommand(int command) {
    struct Handler {
        int command;
        void (CNbCwBegleftDlg::*handle)();
    };
    static constexpr Handler handlers[] = {
        {opening_command::print, &CNbCwBegleftDlg::OnMenuPrint},
        {opening_command::preview, &CNbCwBegleftDlg::OnMenuPreview},
        {opening_command::exit, &CNbCwBegleftDlg::OnMenuExit},
        {opening_command::adjustDirection, &CNbCwBegleftDlg::OnMenuAdjust},
        {opening_command::carryForward, &CNbCwBegleftDlg::OnMenuCarry},
        {opening_command::previewCarry, &CNbCwBegleftDlg::OnMenuPreviewCarry},
        {opening_command::repeatCarry, &CNbCwBegleftDlg::OnMenuRepeatCarry},
        {opening_command::verifyCarry, &CNbCwBegleftDlg::OnMenuVerifyCarry},
        {opening_command::refurbish, &CNbCwBegleftDlg::OnMenuRefurbish},
        {opening_command::trialBalance, &CNbCwBegleftDlg::OnMenuBalance},
        {opening_command::find, &CNbCwBegleftDlg::OnMenuFind},
        {opening_command::history, &CNbCwBegleftDlg::OnMenuHistory},
        {opening_command::resetColumns, &CNbCwBegleftDlg::OnMenuResetColumns},
        {opening_command::help, &CNbCwBegleftDlg::OnMenuHelp},
        {opening_command::search, &CNbCwBegleftDlg::OnMenuSearch},
        {opening_command::about, &CNbCwBegleftDlg::OnMenuAbout},
        {opening_command::undo, &CNbCwBegleftDlg::OnMenuUndo},
        {opening_command::redo, &CNbCwBegleftDlg::OnMenuRedo},
        {opening_command::clear, &CNbCwBegleftDlg::OnMenuClear},
        {opening_command::copy, &CNbCwBegleftDlg::OnMenuCopy},
        {opening_command::paste, &CNbCwBegleftDlg::OnMenuPaste},
        {opening_command::importFigures, &CNbCwBegleftDlg::OnMenuImport},
        {opening_command::exportFigures, &CNbCwBegleftDlg::OnMenuExport},
        {opening_command::causes, &CNbCwBegleftDlg::OnMenuCauses},
        {opening_command::auxiliary, &CNbCwBegleftDlg::OnMenuAuxiliary},
        {opening_command::calendar, &CNbCwBegleftDlg::OnMenuCalendar},
        {opening_command::calculator, &CNbCwBegleftDlg::OnMenuCalculator},
    };
    const auto found = std::ranges::find(handlers, command, &Handler::command);
    if (found == std::end(handlers)) return CNxMiddleDialog::OnCommand(command);
    if (m_editing->finish()) (this->*found->handle)();
    return true;
}

void CNbCwBegleftDlg::tryClose() {
    if (!m_editing->finish()) return;
    const bool mayClose = m_work.mayClose();
    if (mayClose) {
        EndDialog(Rejected);
    } else {
        showChanges();
    }
}

void CNbCwBegleftDlg::retrace(const EditStep* step, Outcome (OpeningWork::*how)()) {
    if (step == nullptr) return;
    const EditStep changed = *step;
    if (change([&] { return (m_work.*how)(); }) == Outcome::done) m_grid->goToStep(changed);
}

void CNbCwBegleftDlg::OnMenuUndo() { retrace(m_work.stepToUndo(), &OpeningWork::undo); }

void CNbCwBegleftDlg::OnMenuRedo() { retrace(m_work.stepToRedo(), &OpeningWork::redo); }

void CNbCwBegleftDlg::OnMenuClear() {
    const auto figures = m_grid->selectedAsZero();
    if (!figures.empty()) change([&] { return m_work.writeFigures(figures); });
}

void CNbCwBegleftDlg::OnMenuCopy() { m_grid->copySelection(); }

void CNbCwBegleftDlg::OnMenuPaste() {
    if (m_grid->hasLine()) m_transfer->paste(m_grid->upperLeft());
}

void CNbCwBegleftDlg::OnMenuImport() { m_transfer->importFile(); }

void CNbCwBegleftDlg::OnMenuExport() { m_transfer->exportFile(); }

void CNbCwBegleftDlg::OnMenuCauses() {
    const chengheng::TrialBalance totals = m_work.totals();
    chengheng::CausesWindow window(totals.isBalanced() ? 0 : totals.difference(), m_work.causes(),
                                   this);
    if (window.DoModal() != Accepted) return;
    const auto place = window.chosenPlace();
    if (!place) return;
    m_grid->goToAccount(*place);
    m_grid->setFocus();
}

void CNbCwBegleftDlg::OnMenuExit() { tryClose(); }

void CNbCwBegleftDlg::OnMenuAdjust() {
    if (!m_grid->hasLine()) return;
    change([&] { return m_work.adjustDirection(m_grid->currentLine()); });
}

void CNbCwBegleftDlg::OnMenuCarry() { m_carrying->carry(); }

void CNbCwBegleftDlg::OnMenuPreviewCarry() { m_carrying->preview(); }

void CNbCwBegleftDlg::OnMenuRepeatCarry() { m_carrying->repeat(); }

void CNbCwBegleftDlg::OnMenuVerifyCarry() { m_carrying->verify(); }

void CNbCwBegleftDlg::OnMenuAuxiliary() {
    if (!m_grid->hasLine()) return;
    const auto kind = m_work.auxiliaryToOpen(m_grid->currentLine(), m_grid->openingColumn());
    if (kind == chengheng::AuxiliaryKind::none) return;
    const auto& account = m_work.sheet().accountOfLine(m_grid->currentLine());
    chengheng::AuxiliaryWindow window(chengheng::memberOf(kind), account.code, m_work.isBrowsing(),
                                      this);
    window.DoModal();
    change([&] { return m_work.afterAuxiliary(); });
}

void CNbCwBegleftDlg::OnMenuRefurbish() {
    const chengheng::WaitWindow window(QString::fromUtf8(opening_texts::refreshing), this);
    change([&] { return m_work.refresh(); });
}

void CNbCwBegleftDlg::OnMenuBalance() {
    const chengheng::TrialBalance balance = m_work.trialBalance();
    showChanges();
    const chengheng::TrialBalanceTexts texts = balance.texts();
    CBalanceTableDlg result(texts.inOrder(), !balance.isBalanced(), this);
    if (result.DoModal() == CBalanceTableDlg::causesWanted) OnMenuCauses();
}

void CNbCwBegleftDlg::OnMenuResetColumns() { m_grid->resetLayout(); }

void CNbCwBegleftDlg::OnMenuHistory() {
    if (m_grid->hasLine()) chengheng::showFigureHistory(*m_grid, m_work.sheet());
}

void CNbCwBegleftDlg::OnMenuFind() { m_heading->searchBar().takeKeyboard(); }

void CNbCwBegleftDlg::print(chengheng::ReportOutput output) {
    const std::vector<bool> without = chengheng::linesWithoutFigures(m_work.sheet());
    const auto count = static_cast<std::size_t>(std::ranges::count(without, true));
    chengheng::PrintChoiceWindow asking(without.size(), count, m_leavesOutZeros, this);
    if (asking.DoModal() != Accepted) return;
    m_leavesOutZeros = asking.leavesOut();
    chengheng::GridChoice choice{.totals = chengheng::openingTotals(m_work.sheet())};
    if (m_leavesOutZeros)
        choice.leavesOut = [&without](int row) { return without[static_cast<std::size_t>(row)]; };
    const std::string year = fmt::format(opening_texts::accountingYear, m_work.accountingYear());
    CNxGridControl::PrintOrPreview(*m_grid, {opening_texts::printTitle, year},
                                   static_cast<int>(output), choice);
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
