#include "screen/books/own_password_window.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "books/logon/logon_texts.h"
#include "screen/enter_moves_on.h"
#include "screen/form_style.h"
#include "screen/forms/limited_edit.h"
#include "screen/help/help_pages.h"
#include "screen/help/help_window.h"
#include "screen/shown.h"

namespace chengheng {
namespace {

namespace texts = logon_texts;

constexpr int formCharacters = 28;
constexpr int passwordCharacters = 60;

}  // namespace

OwnPasswordWindow::OwnPasswordWindow(QWidget* parent)
    : CNxMiddleDialog(parent), m_atWork(texts::ownPassword), m_form(messages()) {
    setWindowTitle(shown(texts::ownPassword));
}

bool OwnPasswordWindow::OnInitDialog() {
    auto* column = new QVBoxLayout(this);
    auto* rows = new QFormLayout;
    column->addLayout(rows);
    m_old = addField(*rows, texts::oldPassword, own_password_field::old);
    m_wanted = addField(*rows, texts::newPassword, own_password_field::wanted);
    m_confirmation = addField(*rows, texts::newPasswordAgain, own_password_field::confirmation);
    new EnterMovesOn(this, {m_old, m_wanted, m_confirmation});
    m_note = new QLabel;
    m_note->setObjectName(QStringLiteral("note"));
    styleHint(m_note);
    m_note->setWordWrap(true);
    column->addWidget(m_note);
    auto* buttons = makeConfirmation();
    m_confirm = buttons->findChild<QPushButton*>();
    column->addWidget(buttons);
    widen(this, formCharacters);
    showState();
    m_old->setFocus();
    return false;
}

LimitedEdit* OwnPasswordWindow::addField(QFormLayout& rows, const char* label, const char* name) {
    auto* edit = new LimitedEdit(passwordCharacters);
    edit->setObjectName(QLatin1String(name));
    edit->setEchoMode(QLineEdit::Password);
    rows.addRow(shown(label), edit);
    connect(edit, &QLineEdit::textChanged, this, guarded([this] {
                UpdateData();
                showState();
            }));
    return edit;
}

void OwnPasswordWindow::showState() {
    m_note->setText(shown(m_form.note()));
    m_confirm->setEnabled(m_form.canConfirm());
}

void OwnPasswordWindow::DoDataExchange(bool isSaving) {
    if (!isSaving) return;
    m_form.old = m_old->text().toStdString();
    m_form.wanted = m_wanted->text().toStdString();
    m_form.confirmation = m_confirmation->text().toStdString();
}

void OwnPasswordWindow::OnOK() {
    if (!m_form.confirm()) return;
    messages().tell({.text = texts::passwordChanged});
    EndDialog(Accepted);
}

bool OwnPasswordWindow::OnHelpInfo() {
    showHelp(operatorHelpContext, *this);
    return true;
}

}  // namespace chengheng
