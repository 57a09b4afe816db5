#include "currency/window/currency_window.h"

#include <QGroupBox>
#include <QRadioButton>
#include <QVBoxLayout>

#include "currency/currency_list.h"
#include "currency/currency_texts.h"
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
                                        .lines = 28};

// What these fields hold is short; the checks tell what is too long for a number.
constexpr int decimalsWidth = 8;
constexpr int maxErrorWidth = 24;

}  // namespace

CurrencyWindow::CurrencyWindow(QWidget* parent)
    : ListFormDialog(currencyWindow, parent), m_form(messages(), g_tmLogonTime.day) {}

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
    m_rates = new RatePanel(m_form);
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
}

void CurrencyWindow::write(const RateCell& cell, const QString& text) {
    const std::int32_t rateId = m_form.sheet().idIn(cell.row);
    Outcome outcome = Outcome::failed;
    carryOut([&] { outcome = m_form.endEdit(cell, text.toStdString()); });
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
        return;
    }
    m_symbol->showText(shown(input.symbol));
    m_name->showText(shown(input.name));
    m_decimals->showText(shown(input.decimals));
    m_maxError->showText(shown(input.maxError));
    (input.mode == RateMode::multiplied ? m_multiplied : m_divided)->setChecked(true);
    m_rates->showRates();
    showOpenness();
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
