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

PasswordWindow::PasswordWindow(QWidget* parent) : CNxMiddleDialog(parent) {
    setWindowTitle(shown(texts::ownPassword));
}

bool PasswordWindow::OnInitDialog() {
    auto* column = new QVBoxLayout(this);
    if (const std::string text = heading(); !text.empty()) {
        auto* label = new QLabel(shown(text));
        label->setObjectName(QStringLiteral("heading"));
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
        column->addWidget(label);
    }
    auto* rows = new QFormLayout;
    column->addLayout(rows);
    if (form().asksForOld()) m_old = addField(*rows, texts::oldPassword, own_password_field::old);
    m_wanted = addField(*rows, texts::newPassword, own_password_field::wanted);
    m_confirmation = addField(*rows, texts::newPasswordAgain, own_password_field::confirmation);
    QList<QWidget*> fields{m_wanted, m_confirmation};
    if (m_old != nullptr) fields.prepend(m_old);
    new EnterMovesOn(this, fields);
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
    fields.front()->setFocus();
    return false;
}

LimitedEdit* PasswordWindow::addField(QFormLayout& rows, const char* label, const char* name) {
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

void PasswordWindow::showState() {
    m_note->setText(shown(form().note()));
    m_confirm->setEnabled(form().canConfirm());
}

void PasswordWindow::DoDataExchange(bool isSaving) {
    if (!isSaving) return;
    if (m_old != nullptr) form().old = m_old->text().toStdString();
    form().wanted = m_wanted->text().toStdString();
    form().confirmation = m_confirmation->text().toStdString();
}

void PasswordWindow::OnOK() {
    if (form().confirm()) EndDialog(Accepted);
}

bool PasswordWindow::OnHelpInfo() {
    showHelp(operatorHelpContext, *this);
    return true;
}

OwnPasswordWindow::OwnPasswordWindow(QWidget* parent)
    : PasswordWindow(parent), m_atWork(texts::ownPassword), m_form(messages()) {}

void OwnPasswordWindow::OnOK() {
    if (!m_form.confirm()) return;
    messages().tell({.text = texts::passwordChanged});
    EndDialog(Accepted);
}

NewPasswordWindow::NewPasswordWindow(const std::string& name, const std::string& given,
                                     std::string wanted, QWidget* parent)
    : PasswordWindow(parent), m_heading(std::move(wanted)), m_form(messages(), name, given) {}

}  // namespace chengheng
