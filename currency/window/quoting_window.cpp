#include "currency/window/quoting_window.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QRadioButton>
#include <QSpinBox>
#include <QVBoxLayout>

#include "currency/screen/rate_screen_texts.h"
#include "screen/shown.h"

namespace chengheng {

namespace texts = rate_screen_texts;

QuotingWindow::QuotingWindow(QWidget* parent) : CNxMiddleDialog(parent) {
    setWindowTitle(shown(texts::quotingTitle));
    auto* column = new QVBoxLayout(this);
    m_asConverted = addWay(texts::asConverted, "asConverted");
    m_homePerForeign = addWay(texts::homePerForeign, "homePerForeign");
    m_foreignPerHome = addWay(texts::foreignPerHome, "foreignPerHome");
    m_asConverted->setChecked(true);
    m_units = new QSpinBox(this);
    m_units->setObjectName(QStringLiteral("units"));
    m_units->setRange(1, 1'000'000);
    auto* fields = new QFormLayout;
    fields->addRow(shown(texts::units), m_units);
    column->addLayout(fields);
    auto* buttons = makeConfirmation();
    column->addWidget(buttons);
    m_asConverted->setFocus();
}

QRadioButton* QuotingWindow::addWay(const char* caption, const char* name) {
    auto* way = new QRadioButton(shown(caption), this);
    way->setObjectName(QLatin1String(name));
    layout()->addWidget(way);
    return way;
}

QuotedAs QuotingWindow::quotedAs(int currency) const {
    QuotedAs quoted{.currency = currency, .units = m_units->value() * 1.0};
    if (m_homePerForeign->isChecked()) quoted.mode = RateMode::multiplied;
    if (m_foreignPerHome->isChecked()) quoted.mode = RateMode::divided;
    return quoted;
}

}  // namespace chengheng
