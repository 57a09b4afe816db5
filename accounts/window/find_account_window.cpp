#include "accounts/window/find_account_window.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QVBoxLayout>

#include "accounts/screen/chart_texts.h"

namespace chengheng {
namespace {

constexpr int wantedCharacters = 28;

}  // namespace

FindAccountWindow::FindAccountWindow(QWidget* parent)
    : DialogFrame(parent), m_field(new QLineEdit(this)) {
    setWindowTitle(QString::fromUtf8(chart_texts::findTitle));
    m_field->setMinimumWidth(wantedCharacters * fontMetrics().horizontalAdvance(QLatin1Char('0')));
    auto* form = new QFormLayout;
    form->addRow(QString::fromUtf8(chart_texts::findLabel), m_field);
    auto* buttons = makeConfirmation();
    auto* rows = new QVBoxLayout(this);
    rows->addLayout(form);
    rows->addWidget(buttons);
    m_field->setFocus();
}

std::string FindAccountWindow::wanted() const { return m_field->text().toStdString(); }

}  // namespace chengheng
