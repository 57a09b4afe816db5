#include "currency/window/list_choice_window.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QRadioButton>
#include <QVBoxLayout>

#include "currency/currency_texts.h"
#include "screen/shown.h"

namespace chengheng {

ListChoiceWindow::ListChoiceWindow(bool areOfDays, QWidget* parent) : CNxMiddleDialog(parent) {
    setWindowTitle(shown(currency_texts::printChoice));
    m_currencies = new QRadioButton(shown(currency_texts::currencyList), this);
    m_rates = new QRadioButton(shown(currency_texts::rateList), this);
    m_currencies->setChecked(true);
    m_wholeYear = new QCheckBox(shown(currency_texts::wholeYear), this);
    m_wholeYear->setVisible(areOfDays);
    m_wholeYear->setEnabled(false);
    connect(m_rates, &QRadioButton::toggled, m_wholeYear, &QWidget::setEnabled);
    auto* buttons = makeConfirmation();
    auto* column = new QVBoxLayout(this);
    column->addWidget(m_currencies);
    column->addWidget(m_rates);
    column->addWidget(m_wholeYear);
    column->addWidget(buttons);
    m_currencies->setFocus();
}

bool ListChoiceWindow::isOfRates() const { return m_rates->isChecked(); }

bool ListChoiceWindow::isOfYear() const { return m_wholeYear->isChecked(); }

}  // namespace chengheng
