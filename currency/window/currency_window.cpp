#include "currency/window/currency_window.h"

#include <QGroupBox>
#include <QRadioButton>
#include <QVBoxLayout>

#include "currency/currency_list.h"
#include "currency/currency_texts.h"
#include "currency/screen/rate_screen_texts.h"
#include "currency/transfer/rate_transfer_texts.h"
#include "currency/window/list_choice_window.h"
#include "currency/window/rate_grid.h"
#include "currency/window/rate_panel.h"
#include "data/lookups/CGetData.h"
#include "screen/forms/limited_edit.h"
#include "screen/help/help_pages.h"
#include "screen/shown.h"
#include "session/host_globals.h"

namespace chengheng {
namespace {

constexpr ListFormWindow currencyWindow{.title = currency_texts::title,
                                        .helpContext = currencyHelpContext,
                                        .tree = currency_texts::tree,
                                        .formCharacters = 60,
                                        .lines = 36};

// The commands beside those of every such window, by the numbers under which menus send them.
constexpr int importCommand = 100;
constexpr int exportCommand = 101;
constexpr int undoCommand = 102;
constexpr int redoCommand = 103;
constexpr int pasteCommand = 104;
constexpr int nextGapCommand = 105;
constexpr int fillCommand = 106;

constexpr MenuItemResource ownFileCommands[] = {
    {importCommand, rate_transfer_texts::importCommand},
    {exportCommand, rate_transfer_texts::exportCommand},
};
constexpr MenuItemResource ownEditCommands[] = {
    {undoCommand, rate_screen_texts::undo},
    {redoCommand, rate_screen_texts::redo},
    {0, ""},
    {pasteCommand, rate_screen_texts::paste},
    {nextGapCommand, rate_screen_texts::nextGap},
    {fillCommand, rate_screen_texts::fillGaps},
};

// What these fields hold is short; the checks tell what is too long for a number.
constexpr int decimalsWidth = 8;
constexpr int maxErrorWidth = 24;

Date beginOfBooks() {
    return CGetData::m_pzAccountMInfo == nullptr ? Date{} : CGetData::m_pzAccountMInfo->dtStart;
}

}  // namespace

CurrencyWindow::CurrencyWindow(QWidget* parent)
    : ListFormDialog(currencyWindow, parent),
      m_form(messages(), g_tmLogonTime.day),
      m_overview(m_form, messages(), {.begin = beginOfBooks(), .today = g_tmLogonTime.day}),
      m_transfer(m_form, m_overview, messages(), *this) {}

CurrencyWindow::~CurrencyWindow() {
    runGuarded(messages(), windowTitle(), [this] {
        if (CGetData::LoadCYRENCYINFOMemoryMapTable(g_lpszNbZwDBName) < 0) TellFailure();
    });
}

void CurrencyWindow::addFields() {
    using namespace currency_texts;
    m_symbol = addEdit(symbol, 'U', currencySymbolField, currencySymbolWidth);
    m_name = addEdit(name, 'M', currencyNameField, currencyNameWidth);
    m_decimals = addEdit(decimals, 'X', currencyDecimalsField, decimalsWidth);
    m_maxError = addEdit(maxError, 'R', currencyMaxErrorField, maxErrorWidth);
    m_multiplied = addMode(multiplied, "multiplied", QStringLiteral("%1:").arg(shown(mode)));
    m_divided = addMode(divided, "divided", QString());
}

QRadioButton* CurrencyWindow::addMode(const char* caption, const char* name, const QString& label) {
    auto* choice = new QRadioButton(shown(caption));
    choice->setObjectName(QLatin1String(name));
    addField(*choice, label);
    connect(choice, &QRadioButton::toggled, this,
            guarded([this, choice] { inputEdited(*choice); }));
    return choice;
}

QWidget* CurrencyWindow::arrangeForm(QWidget* fields) {
    auto* group = new QGroupBox(shown(currency_texts::settings));
    auto* rows = new QVBoxLayout(group);
    rows->setContentsMargins({});
    rows->addWidget(fields);
    m_rates = new RatePanel(m_form, m_overview);
    connectRates();
    auto* both = new QWidget;
    auto* line = new QHBoxLayout(both);
    line->addWidget(m_rates, 1);
    line->addWidget(group);
    return both;
}

void CurrencyWindow::connectRates() {
    connect(m_rates, &RatePanel::kindChosen, this, [this](RateKind kind) {
        runGuarded(messages(), windowTitle(), [&] { carryOut([&] { m_form.showKind(kind); }); });
    });
    connect(m_rates, &RatePanel::monthChosen, this, [this](int month) {
        runGuarded(messages(), windowTitle(), [&] { carryOut([&] { m_form.showMonth(month); }); });
    });
    connect(m_rates, &RatePanel::dayChosen, this, [this](Date day) {
        runGuarded(messages(), windowTitle(), [&] {
            if (!m_form.isFormOpen()) return;
            std::optional<int> row;
            carryOut([&] { row = m_overview.goToDay(day); });
            goTo(row);
        });
    });
    RateGrid& grid = m_rates->grid();
    connect(&grid, &RateGrid::editBegun, this, [this] {
        m_form.beginEdit();
        showOpenness();
    });
    connect(&grid, &RateGrid::typed, this, [this](const RateCell& cell, const QString& text) {
        runGuarded(messages(), windowTitle(), [&] { write(cell, text); });
    });
    connect(&grid, &RateGrid::editEnded, this, [this] {
        m_form.cancelEdit();
        showOpenness();
    });
}

void CurrencyWindow::showOpenness() {
    setFormOpen(m_form.isFormOpen());
    m_rates->showOpenness();
    showCommands();
}

void CurrencyWindow::write(const RateCell& cell, const QString& text) {
    const std::int32_t rateId = m_form.sheet().idIn(cell.row);
    Outcome outcome = Outcome::failed;
    carryOut([&] {
        outcome = m_form.endEdit(cell, text.toStdString());
        if (outcome == Outcome::done) m_overview.noteTyped(m_form.lastEdit());
    });
    m_isUnwritten = outcome == Outcome::failed;
    if (!m_isUnwritten) return;
    // Once the editor that ends now has closed.
    const auto again = [this, rateId, cell, text] {
        runGuarded(messages(), windowTitle(), [&] { takeUpAgain(rateId, cell, text); });
    };
    QMetaObject::invokeMethod(this, again, Qt::QueuedConnection);
}

void CurrencyWindow::takeUpAgain(std::int32_t rateId, const RateCell& cell, const QString& text) {
    const auto row = m_form.sheet().rowOf(rateId);
    if (isVisible() && row && m_form.isFormOpen())
        m_rates->grid().takeUp({*row, cell.column}, text);
}

bool CurrencyWindow::finishTyping() {
    m_isUnwritten = false;
    m_rates->grid().finish();
    return !m_isUnwritten;
}

void CurrencyWindow::giveUpTyping() { m_rates->grid().giveUp(); }

void CurrencyWindow::DoDataExchange(bool isSaving) {
    CurrencyInput& input = m_form.input;
    if (isSaving) {
        input = {.symbol = m_symbol->text().toStdString(),
                 .name = m_name->text().toStdString(),
                 .mode = m_divided->isChecked() ? RateMode::divided : RateMode::multiplied,
                 .decimals = m_decimals->text().toStdString(),
                 .maxError = m_maxError->text().toStdString()};
        m_rates->showConversion();
        return;
    }
    m_symbol->showText(shown(input.symbol));
    m_name->showText(shown(input.name));
    m_decimals->showText(shown(input.decimals));
    m_maxError->showText(shown(input.maxError));
    (input.mode == RateMode::multiplied ? m_multiplied : m_divided)->setChecked(true);
    m_overview.follow();
    if (const _CyrencyInfo* now = m_form.currency(); now != nullptr) {
        m_overview.noteModified(m_shownCurrency, *now);
        m_shownCurrency = *now;
    }
    m_rates->showRates();
    showOpenness();
}

std::span<const MenuItemResource> CurrencyWindow::ownFileItems() const { return ownFileCommands; }

std::span<const MenuItemResource> CurrencyWindow::ownEditItems() const { return ownEditCommands; }

void CurrencyWindow::showCommands() {
    const bool isOpen = m_form.isFormOpen();
    const bool hasRates = isOpen && m_form.currency() != nullptr;
    setCommandEnabled(importCommand, hasRates);
    setCommandEnabled(exportCommand, hasRates);
    setCommandEnabled(undoCommand, isOpen && m_overview.canUndo());
    setCommandEnabled(redoCommand, isOpen && m_overview.canRedo());
    setCommandEnabled(pasteCommand, hasRates);
    setCommandEnabled(nextGapCommand, hasRates && m_overview.hasGaps());
    setCommandEnabled(fillCommand, hasRates && m_overview.hasGaps());
}

bool CurrencyWindow::OnCommand(int command) {
    if (command < firstOwnCommand) return ListFormDialog::OnCommand(command);
    if (!finishTyping()) return true;
    carryOutOnRates(command);
    return true;
}

/// Enter in the converter saves nothing.
void CurrencyWindow::OnOK() {
    if (!m_rates->isConverting()) ListFormDialog::OnOK();
}

void CurrencyWindow::carryOutOnRates(int command) {
    const RateCell cell = m_rates->grid().current();
    std::optional<int> row;
    carryOut([&] {
        switch (command) {
            case importCommand:
                row = m_transfer.importFile();
                break;
            case exportCommand:
                m_transfer.exportFile();
                break;
            case undoCommand:
                row = m_overview.undo();
                break;
            case redoCommand:
                row = m_overview.redo();
                break;
            case pasteCommand:
                row = m_transfer.paste(cell);
                break;
            case nextGapCommand:
                row = m_overview.goToNextGap(cell.row);
                break;
            case fillCommand:
                row = m_transfer.fillGaps();
                break;
            default:
                break;
        }
    });
    goTo(row);
}

void CurrencyWindow::goTo(std::optional<int> row) {
    if (!row) return;
    m_rates->grid().goTo({*row, RateSheetColumn::rate});
    m_rates->grid().setFocus(Qt::OtherFocusReason);
}

void CurrencyWindow::printRecords(ReportOutput output) {
    ListChoiceWindow choice(m_form.kind() == RateKind::floating, this);
    if (choice.DoModal() != Accepted) return;
    if (!choice.isOfRates()) return printList(currencyList(), output, messages());
    const _CyrencyInfo* currency = m_form.currency();
    if (currency == nullptr) return messages().tell({.text = currency_texts::noRatesWhileAdding});
    const int month = choice.isOfYear() ? 0 : m_form.month();
    printList(rateList(m_form.kind(), *currency, month, m_form.year()), output, messages());
}

}  // namespace chengheng
