#include "operators/window/operator_window.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "operators/screen/division_texts.h"
#include "screen/dialog_templates.h"
#include "screen/enter_moves_on.h"
#include "screen/form_style.h"
#include "screen/forms/limited_edit.h"
#include "screen/help/help_pages.h"
#include "screen/help/help_window.h"
#include "screen/shown.h"

namespace chengheng {

namespace texts = division_texts;

namespace {

constexpr int formCharacters = 26;

}  // namespace

OperatorWindow::OperatorWindow(OperatorForm& form, QWidget* parent)
    : CNxMiddleDialog(dialog_templates::operatorEntry, parent), m_form(form) {}

bool OperatorWindow::OnInitDialog() {
    setWindowTitle(shown(m_form.title()));
    auto* column = new QVBoxLayout(this);
    column->addLayout(new QFormLayout);
    m_name = addField(texts::nameLabel, operatorNameField, operatorNameWidth);
    m_password = addField(texts::passwordLabel, passwordField, passwordWidth);
    m_confirmation = addField(texts::confirmationLabel, confirmationField, passwordWidth);
    m_password->setEchoMode(QLineEdit::Password);
    m_confirmation->setEchoMode(QLineEdit::Password);
    m_wantsNew = new QCheckBox(shown(texts::wantNewPassword));
    m_wantsNew->setObjectName(QStringLiteral("wantsNewPassword"));
    m_wantsNew->setEnabled(m_form.canWantNewPassword());
    connect(m_wantsNew, &QCheckBox::toggled, this, guarded([this] { inputEdited(); }));
    static_cast<QFormLayout*>(layout()->itemAt(0)->layout())->addRow(QString(), m_wantsNew);
    new EnterMovesOn(this, {m_name, m_password, m_confirmation});
    m_note = new QLabel;
    m_note->setObjectName(QStringLiteral("note"));
    styleHint(m_note);
    m_note->setWordWrap(true);
    QSizePolicy keepingItsPlace = m_note->sizePolicy();
    keepingItsPlace.setRetainSizeWhenHidden(true);
    m_note->setSizePolicy(keepingItsPlace);
    column->addWidget(m_note);
    auto* buttons = new QDialogButtonBox(this);
    m_confirm = buttons->addButton(shown(texts::confirm), QDialogButtonBox::AcceptRole);
    m_confirm->setDefault(true);
    buttons->addButton(shown(texts::giveUp), QDialogButtonBox::RejectRole);
    connect(buttons, &QDialogButtonBox::accepted, this, guarded([this] { OnOK(); }));
    connect(buttons, &QDialogButtonBox::rejected, this, guarded([this] { OnCancel(); }));
    column->addWidget(buttons);
    widen(this, formCharacters);
    UpdateData(false);
    m_name->setFocus();
    return false;
}

LimitedEdit* OperatorWindow::addField(const char* label, const char* name, int limit) {
    auto* edit = new LimitedEdit(limit);
    edit->setObjectName(QLatin1String(name));
    auto* rows = static_cast<QFormLayout*>(layout()->itemAt(0)->layout());
    rows->addRow(shown(label), edit);
    connect(edit, &QLineEdit::textChanged, this, guarded([this] { inputEdited(); }));
    tellCuts(*edit, label, messages());
    return edit;
}

void OperatorWindow::inputEdited() {
    if (m_confirm == nullptr) return;
    UpdateData();
    showState();
}

void OperatorWindow::showState() {
    const std::string note = m_form.note();
    m_note->setText(shown(note));
    m_note->setVisible(!note.empty());
    m_confirm->setEnabled(m_form.canConfirm());
}

void OperatorWindow::DoDataExchange(bool isSaving) {
    OperatorInput& input = m_form.input;
    if (isSaving) {
        input = {.name = m_name->text().toStdString(),
                 .password = m_password->text().toStdString(),
                 .confirmation = m_confirmation->text().toStdString(),
                 .wantsNewPassword = m_wantsNew->isChecked()};
        return;
    }
    const OperatorInput given = input;
    m_name->showText(shown(given.name));
    m_password->showText(shown(given.password));
    m_confirmation->showText(shown(given.confirmation));
    m_wantsNew->setChecked(given.wantsNewPassword);
    showState();
}

void OperatorWindow::OnOK() {
    if (m_form.confirm()) EndDialog(Accepted);
}

bool OperatorWindow::OnHelpInfo() {
    showHelp(operatorHelpContext, *this);
    return true;
}

}  // namespace chengheng
