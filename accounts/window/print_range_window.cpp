#include "accounts/window/print_range_window.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QSpinBox>
#include <QVBoxLayout>
#include <algorithm>

#include "accounts/screen/chart_texts.h"
#include "screen/shown.h"

namespace chengheng {
namespace {

constexpr int fieldCharacters = 24;

}  // namespace

PrintRangeWindow::PrintRangeWindow(int levels, QWidget* parent)
    : CNxMiddleDialog(parent), m_levels(std::max(1, levels)) {
    setWindowTitle(shown(chart_texts::rangeTitle));
    buildControls();
}

void PrintRangeWindow::buildControls() {
    auto* form = new QFormLayout;
    m_firstCode = new QLineEdit(this);
    m_lastCode = new QLineEdit(this);
    for (QLineEdit* code : {m_firstCode, m_lastCode}) {
        code->setMinimumWidth(fieldCharacters * fontMetrics().horizontalAdvance(QLatin1Char('0')));
        code->setPlaceholderText(shown(chart_texts::rangeOpen));
    }
    m_firstLevel = new QSpinBox(this);
    m_lastLevel = new QSpinBox(this);
    for (QSpinBox* level : {m_firstLevel, m_lastLevel}) level->setRange(1, m_levels);
    m_lastLevel->setValue(m_levels);
    m_firstLevel->setObjectName(QStringLiteral("firstLevel"));
    m_lastLevel->setObjectName(QStringLiteral("lastLevel"));
    form->addRow(shown(chart_texts::rangeFirstCode), m_firstCode);
    form->addRow(shown(chart_texts::rangeLastCode), m_lastCode);
    form->addRow(shown(chart_texts::rangeFirstLevel), m_firstLevel);
    form->addRow(shown(chart_texts::rangeLastLevel), m_lastLevel);
    auto* buttons = makeConfirmation();
    auto* rows = new QVBoxLayout(this);
    rows->addLayout(form);
    rows->addWidget(buttons);
}

ChartRange PrintRangeWindow::range() const {
    return {.firstCode = m_firstCode->text().trimmed().toStdString(),
            .lastCode = m_lastCode->text().trimmed().toStdString(),
            .firstLevel = m_firstLevel->value(),
            .lastLevel = m_lastLevel->value()};
}

void PrintRangeWindow::OnOK() {
    if (m_firstLevel->value() <= m_lastLevel->value()) {
        EndDialog(Accepted);
        return;
    }
    messages().tell({.text = chart_texts::rangeReversed,
                     .beep = true,
                     .focusField = m_lastLevel->objectName().toStdString()});
}

}  // namespace chengheng
