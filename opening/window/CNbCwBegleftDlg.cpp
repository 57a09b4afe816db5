#include "opening/window/CNbCwBegleftDlg.h"

#include <fmt/format.h>

#include <QFrame>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>
#include <algorithm>

#include "base/values/numbers.h"
#include "opening/sheet/opening_texts.h"
#include "opening/window/opening_menus.h"
#include "opening/window/opening_model.h"
#include "screen/elided_label.h"
#include "screen/fonts.h"
#include "screen/grid/CVCF1.h"
#include "screen/search_bar.h"
#include "screen/shown.h"

namespace opening_command = chengheng::opening_command;
namespace opening_texts = chengheng::opening_texts;
using chengheng::SearchBar;
using chengheng::shown;

namespace {

constexpr int openingTemplate = 125;
constexpr QSize openingSize(860, 640);
constexpr int besideColumns = 48;
constexpr int gridPoints = 9;
constexpr int frozenColumns = 2;  // code and name
constexpr int margin = 8;
constexpr int spacing = 16;
constexpr QSize samplePixels(22, 14);
constexpr int modeCharacters = 12;

QFont gridFont() {
    QFont font = chengheng::windowFont();
    font.setPointSize(gridPoints);
    return font;
}

QWidget* colourSample(const QColor& colour, QWidget* parent) {
    auto* sample = new QFrame(parent);
    sample->setFrameStyle(QFrame::Box | QFrame::Plain);
    sample->setFixedSize(samplePixels);
    QPalette palette = sample->palette();
    palette.setColor(QPalette::Window, colour);
    sample->setPalette(palette);
    sample->setAutoFillBackground(true);
    return sample;
}

}  // namespace

CNbCwBegleftDlg::CNbCwBegleftDlg(QWidget* parent)
    : CNxMiddleDialog(openingTemplate, parent), m_atWork(opening_texts::title) {
    setWindowTitle(shown(opening_texts::title));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
}

CNbCwBegleftDlg::~CNbCwBegleftDlg() = default;

bool CNbCwBegleftDlg::OnCreate() { return m_work.refresh(); }

bool CNbCwBegleftDlg::OnInitDialog() {
    buildControls();
    connectGrid();
    connectEditor();
    connectSearch();
    resize(fittingSize());
    showFigures();
    const auto line = static_cast<int>(firstLine());
    m_grid->setCurrentIndex(m_model->index(line, static_cast<int>(firstFigureColumn())));
    m_grid->setFocus();
    return false;
}

QSize CNbCwBegleftDlg::fittingSize() const {
    const int wanted = m_grid->horizontalHeader()->length() + besideColumns;
    return {std::max(openingSize.width(), wanted), openingSize.height()};
}

void CNbCwBegleftDlg::buildControls() {
    m_model = std::make_unique<chengheng::OpeningModel>(m_work);
    m_shownReadings = m_work.readings();
    m_grid = new CVCF1(shown(opening_texts::title), CVCF1::Unit::cell, this);
    m_grid->setObjectName(QStringLiteral("openings"));
    m_grid->setFont(gridFont());
    m_grid->setGridModel(m_model.get());
    m_grid->setFrozenColumns(frozenColumns);
    m_grid->setContextMenuPolicy(Qt::CustomContextMenu);
    m_editor = new chengheng::FigureEditor(m_grid);
    m_grid->setItemDelegate(m_editor);

    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(margin, 0, margin, margin);
    rows->setSpacing(0);
    m_commands = std::make_unique<chengheng::WindowCommands>(*this, chengheng::openingMenus);
    rows->addWidget(buildHeading());
    rows->addWidget(m_grid, 1);
    rows->addWidget(buildTotals());
    setTabOrder(m_grid, m_searchBar->focusProxy());
    setTabOrder(m_searchBar->focusProxy(), m_mode);
}

QWidget* CNbCwBegleftDlg::buildHeading() {
    auto* heading = new QWidget(this);
    auto* line = new QHBoxLayout(heading);
    line->setContentsMargins(margin / 2, margin, margin / 2, margin);
    m_mode = new QLineEdit(heading);
    m_mode->setObjectName(QStringLiteral("mode"));
    m_mode->setAccessibleName(shown(opening_texts::mode));
    m_mode->setReadOnly(true);
    QPalette colours = m_mode->palette();
    colours.setColor(QPalette::Base, palette().color(QPalette::Window));
    m_mode->setPalette(colours);
    m_mode->setFixedWidth(modeCharacters * fontMetrics().horizontalAdvance(QLatin1Char('0')));
    line->addWidget(m_mode);
    const std::pair<const char*, QColor> legend[] = {
        {opening_texts::parentLegend, chengheng::opening_colours::parent},
        {opening_texts::endLegend, chengheng::opening_colours::endAccount},
        {opening_texts::auxiliaryLegend, chengheng::opening_colours::auxiliary}};
    for (const auto& [text, colour] : legend) {
        line->addSpacing(spacing);
        line->addWidget(colourSample(colour, heading));
        line->addWidget(new QLabel(shown(text), heading));
    }
    line->addStretch(1);
    m_searchBar =
        new SearchBar(shown(opening_texts::searchLabel), shown(opening_texts::searchHint), heading);
    line->addWidget(m_searchBar);
    return heading;
}

QWidget* CNbCwBegleftDlg::buildTotals() {
    auto* totals = new QWidget(this);
    auto* line = new QHBoxLayout(totals);
    line->setContentsMargins(margin / 2, margin, margin / 2, 0);
    line->setSpacing(2 * spacing);
    for (QLabel** label : {&m_debits, &m_credits, &m_difference}) {
        *label = new QLabel(totals);
        (*label)->setTextFormat(Qt::PlainText);
        line->addWidget(*label);
    }
    m_debits->setObjectName(QStringLiteral("debits"));
    m_credits->setObjectName(QStringLiteral("credits"));
    m_difference->setObjectName(QStringLiteral("difference"));
    m_account = new chengheng::ElidedLabel(totals);
    m_account->setObjectName(QStringLiteral("account"));
    m_account->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    line->addWidget(m_account, 1);
    return totals;
}

void CNbCwBegleftDlg::connectGrid() {
    connect(m_grid, &CVCF1::doubleClicked, this, [this](const QModelIndex& index) {
        if (sheet().opensAuxiliary(static_cast<std::size_t>(index.row()),
                                   static_cast<std::size_t>(index.column())))
            PostCommand(opening_command::auxiliary);
    });
    connect(m_grid->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this] { showAccount(); });
    connect(m_grid, &CVCF1::keyDown, this, [this](int key, Qt::KeyboardModifiers modifiers) {
        guarded([=, this] { keyPressed(key, modifiers); })();
    });
    connect(m_grid, &CVCF1::customContextMenuRequested, this, [this](QPoint position) {
        m_commands->popUp(chengheng::openingContextCommands,
                          m_grid->viewport()->mapToGlobal(position));
    });
}

void CNbCwBegleftDlg::connectEditor() {
    using chengheng::FigureEditor;
    connect(m_editor, &FigureEditor::begun, this, [this] {
        m_work.beginEdit();
        m_isRefused = false;
    });
    connect(m_editor, &FigureEditor::typed, this,
            [this](const QModelIndex& index, const QString& text) {
                guarded([&] { endEdit(index, text); })();
            });
    // A figure that was not written is looked at again.
    connect(m_editor, &FigureEditor::movedOn, this, [this](chengheng::NextCell to) {
        if (!m_isRefused) moveOn(to);
    });
}

void CNbCwBegleftDlg::connectSearch() {
    // Digits typed on a figure that cannot be changed are no search.
    connect(m_grid, &CVCF1::textTyped, this, [this](const QString& text) {
        const auto column = static_cast<std::size_t>(m_grid->currentIndex().column());
        if (hasLine() && chengheng::figureOf(sheet().columns()[column].field) == nullptr)
            m_searchBar->takeOver(text);
    });
    connect(m_searchBar, &SearchBar::textChanged, this, [this](const QString& text) {
        if (!hasLine()) return;
        const std::size_t line = currentLine();
        goToMatch(
            sheet().find(text.toStdString(), line == 0 ? std::nullopt : std::optional(line - 1)));
    });
    connect(m_searchBar, &SearchBar::nextWanted, this, [this] {
        if (hasLine()) goToMatch(sheet().find(m_searchBar->text().toStdString(), currentLine()));
    });
    connect(m_searchBar, &SearchBar::previousWanted, this, [this] {
        if (hasLine())
            goToMatch(sheet().findBefore(m_searchBar->text().toStdString(), currentLine()));
    });
    connect(m_searchBar, &SearchBar::left, this, [this] { m_grid->setFocus(); });
}

void CNbCwBegleftDlg::goToMatch(std::optional<std::size_t> line) {
    goToLine(line);
    const bool isMissed = !line && !m_searchBar->text().isEmpty();
    m_searchBar->setResult(isMissed ? shown(opening_texts::searchNothing) : QString());
}

void CNbCwBegleftDlg::showFigures() {
    const auto place = currentPlace();
    const auto changed = m_work.takeChangedCells();
    if (m_shownReadings != m_work.readings()) {
        m_shownReadings = m_work.readings();
        m_model->tellReadAnew();
        if (place) goTo(*place);
    } else {
        m_model->tellCellsChanged(changed);
    }
    showTotals();
    reflectCommands();
}

void CNbCwBegleftDlg::showAccount() {
    if (!hasLine()) return;
    const chengheng::OpeningAccount& account = sheet().accountOfLine(currentLine());
    m_account->setText(shown(account.code + ' ' + account.name));
    m_commands->setEnabled(opening_command::auxiliary,
                           sheet().opensAuxiliary(currentLine(), openingColumn()));
}

void CNbCwBegleftDlg::showTotals() {
    const chengheng::TrialBalance totals = m_work.totals();
    const auto show = [](QLabel& label, const char* text, double amount) {
        label.setText(shown(fmt::format(fmt::runtime(text), ftoaWithSap(amount, 2))));
    };
    show(*m_debits, opening_texts::debitSum, totals.debitTotal());
    show(*m_credits, opening_texts::creditSum, totals.creditTotal());
    show(*m_difference, opening_texts::difference, totals.difference());
    QPalette colours = palette();
    if (!totals.isBalanced())
        colours.setColor(QPalette::WindowText, chengheng::opening_colours::negative);
    m_difference->setPalette(colours);
}

void CNbCwBegleftDlg::reflectCommands() {
    m_mode->setText(shown(m_work.modeText()));
    m_commands->setEnabled(opening_command::adjustDirection, m_work.mayAdjustDirection());
    m_commands->setEnabled(opening_command::carryForward, m_work.mayCarryForward());
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
    const bool isInGrid = m_grid && m_grid->hasFocus() && hasLine();
    return (isInGrid && moveSideways(isForward ? 1 : -1)) ||
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
        {opening_command::refurbish, &CNbCwBegleftDlg::OnMenuRefurbish},
        {opening_command::trialBalance, &CNbCwBegleftDlg::OnMenuBalance},
        {opening_command::find, &CNbCwBegleftDlg::OnMenuFind},
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
    if (finishEditing()) (this->*found->handle)();
    return true;
}
