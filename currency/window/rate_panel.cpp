#include "currency/window/rate_panel.h"

#include <fmt/format.h>

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QScopedValueRollback>
#include <QVBoxLayout>

#include "currency/currency_change.h"
#include "currency/currency_texts.h"
#include "currency/screen/rate_screen_texts.h"
#include "currency/window/rate_grid.h"
#include "currency/window/rate_picture.h"
#include "screen/elided_label.h"
#include "screen/history/history_menu.h"
#include "screen/shown.h"

namespace chengheng {
namespace {

constexpr int amountCharacters = 12;

}  // namespace

RatePanel::RatePanel(const CurrencyForm& form, const RateOverview& overview, QWidget* parent)
    : QWidget(parent), m_form(form), m_overview(overview) {
    m_fixed = addKind(RateKind::fixed, currency_texts::fixedRate, "fixedRate");
    m_floating = addKind(RateKind::floating, currency_texts::floatingRate, "floatingRate");
    m_month = new QComboBox(this);
    m_month->setObjectName(QStringLiteral("month"));
    m_month->setAccessibleName(shown(currency_texts::month));
    for (int month = 1; month <= monthsOfYear; ++month)
        m_month->addItem(shown(monthTitle(form.year(), month)));
    connect(m_month, &QComboBox::currentIndexChanged, this, [this](int index) {
        if (!m_isShowing) emit monthChosen(index + 1);
    });
    m_picture = new RatePicture(this);
    connect(m_picture, &RatePicture::dayChosen, this, &RatePanel::dayChosen);
    m_grid = new RateGrid(this);
    connect(m_grid->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this] { showConversion(); });
    offerHistory(*m_grid, [this] { return askedHistory(); });
    m_line = new ElidedLabel(this);
    m_line->setObjectName(QStringLiteral("rateLine"));

    auto* choices = new QHBoxLayout;
    choices->addWidget(m_fixed);
    choices->addWidget(m_floating);
    choices->addStretch();
    choices->addWidget(m_month);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->addLayout(choices);
    column->addWidget(m_picture);
    column->addWidget(m_grid, 1);
    column->addWidget(m_line);
    column->addLayout(makeConverter());
}

std::optional<AskedHistory> RatePanel::askedHistory() const {
    const _CyrencyInfo* const currency = m_form.currency();
    const RateCell cell = m_grid->current();
    const RateSheet& sheet = m_form.sheet();
    if (currency == nullptr || cell.row < 0 || sheet.idIn(cell.row) == 0) return std::nullopt;
    const bool isFixed = sheet.kind() == RateKind::fixed;
    const bool isAdjustment = cell.column == RateSheetColumn::adjustRate;
    return AskedHistory{
        fmt::format(rate_screen_texts::historyOf, loggedName(*currency),
                    sheet.text({cell.row, RateSheetColumn::time}),
                    isAdjustment ? currency_texts::adjustRate : currency_texts::rate),
        {.table = isFixed ? "ExchgFix" : "ExchgFlt",
         .id = sheet.idIn(cell.row),
         .column = isAdjustment ? "dAdjustRate" : "dRate"}};
}

QLayout* RatePanel::makeConverter() {
    m_amount = new QLineEdit(shown(rate_screen_texts::firstAmount), this);
    m_amount->setObjectName(QStringLiteral("amount"));
    m_amount->setAccessibleName(shown(rate_screen_texts::convertedAmount));
    m_amount->setAlignment(Qt::AlignRight);
    m_amount->setMaximumWidth(amountCharacters * fontMetrics().averageCharWidth());
    connect(m_amount, &QLineEdit::textChanged, this, [this] { showConversion(); });
    auto* label = new QLabel(shown(rate_screen_texts::converted), this);
    label->setBuddy(m_amount);
    m_converted = new ElidedLabel(this);
    m_converted->setObjectName(QStringLiteral("converted"));
    auto* line = new QHBoxLayout;
    line->addWidget(label);
    line->addWidget(m_amount);
    line->addWidget(m_converted, 1);
    return line;
}

QRadioButton* RatePanel::addKind(RateKind kind, const char* caption, const char* name) {
    auto* choice = new QRadioButton(shown(caption), this);
    choice->setObjectName(QLatin1String(name));
    connect(choice, &QRadioButton::toggled, this, [this, kind](bool isChosen) {
        if (isChosen && !m_isShowing) emit kindChosen(kind);
    });
    return choice;
}

RatePanel::Place RatePanel::placeNow() const {
    const _CyrencyInfo* currency = m_form.currency();
    return {currency == nullptr ? 0 : currency->lId, m_form.kind(), m_form.month()};
}

void RatePanel::showRates() {
    const QScopedValueRollback showing(m_isShowing, true);
    (m_form.kind() == RateKind::fixed ? m_fixed : m_floating)->setChecked(true);
    m_month->setCurrentIndex(m_form.month() - 1);
    const Place place = placeNow();
    m_grid->show(m_form.sheet(), m_form.currency() != nullptr, place == m_shown);
    m_grid->mark(m_overview.markedRates(), m_overview.markedAdjustments());
    m_shown = place;
    m_picture->show(m_form.kind(), m_form.year(), m_overview);
    m_line->setText(shown(m_overview.line()));
    showConversion();
}

void RatePanel::showConversion() {
    m_converted->setText(
        shown(m_overview.conversion(m_amount->text().toStdString(), m_grid->currentIndex().row())));
}

bool RatePanel::isConverting() const { return m_amount->hasFocus(); }

void RatePanel::showOpenness() {
    m_fixed->setEnabled(m_form.isFormOpen());
    m_floating->setEnabled(m_form.isFormOpen());
    m_month->setEnabled(m_form.isMonthOpen());
    m_amount->setEnabled(m_form.isFormOpen());
}

}  // namespace chengheng
