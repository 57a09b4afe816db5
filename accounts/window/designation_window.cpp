#include "accounts/window/designation_window.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "accounts/screen/chart_texts.h"
#include "screen/resources.h"
#include "screen/shown.h"

namespace chengheng {
namespace {

constexpr int pictureSize = 64;
constexpr int listCharacters = 34;

void fill(QComboBox* list, const DesignationChoices& choices, int chosen) {
    for (const std::string& account : choices.accounts)
        list->addItem(QString::fromStdString(account));
    list->setCurrentIndex(chosen);
}

}  // namespace

DesignationWindow::DesignationWindow(QWidget* parent)
    : CNxMiddleDialog(parent), m_service(messages()) {
    setWindowTitle(shown(chart_texts::designateTitle));
}

bool DesignationWindow::OnInitDialog() {
    buildControls();
    const DesignationChoices choices = m_service.choices();
    fill(m_cash, choices, choices.cash);
    fill(m_bank, choices, choices.bank);
    m_cash->setFocus();
    return false;
}

void DesignationWindow::buildControls() {
    auto* picture = new QLabel(this);
    picture->setPixmap(toolIcon("designate").pixmap(pictureSize, pictureSize));
    auto* form = new QFormLayout;
    m_cash = new QComboBox(this);
    m_bank = new QComboBox(this);
    for (QComboBox* list : {m_cash, m_bank})
        list->setMinimumWidth(listCharacters * fontMetrics().horizontalAdvance(QLatin1Char('0')));
    form->addRow(shown(chart_texts::designateCash), m_cash);
    form->addRow(shown(chart_texts::designateBank), m_bank);
    auto* buttons = makeConfirmation();
    auto* note = new QPushButton(shown(chart_texts::designateNote), this);
    note->hide();

    auto* fields = new QHBoxLayout;
    fields->addWidget(picture);
    fields->addLayout(form, 1);
    auto* rows = new QVBoxLayout(this);
    rows->addLayout(fields);
    rows->addWidget(buttons);
}

void DesignationWindow::OnOK() {
    const bool isClosing = m_service.designate(m_cash->currentText().toStdString(),
                                               m_bank->currentText().toStdString());
    if (isClosing) EndDialog(Accepted);
}

}  // namespace chengheng
