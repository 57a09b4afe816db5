#include "currency/window/rate_panel.h"

#include <QComboBox>
#include <QLabel>
#include <QRadioButton>
#include <QScopedValueRollback>
#include <QVBoxLayout>

#include "currency/currency_texts.h"
#include "currency/window/rate_grid.h"
#include "screen/shown.h"

namespace chengheng {

RatePanel::RatePanel(const CurrencyForm& form, QWidget* parent) : QWidget(parent), m_form(form) {
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
    m_grid = new RateGrid(this);

    auto* choices = new QHBoxLayout;
    choices->addWidget(m_fixed);
    choices->addWidget(m_floating);
    choices->addStretch();
    choices->addWidget(m_month);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->addLayout(choices);
    column->addWidget(m_grid, 1);
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
    m_shown = place;
}

void RatePanel::showOpenness() {
    m_fixed->setEnabled(m_form.isFormOpen());
    m_floating->setEnabled(m_form.isFormOpen());
    m_month->setEnabled(m_form.isMonthOpen());
}

}  // namespace chengheng
