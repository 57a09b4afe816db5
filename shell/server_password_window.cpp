#include "shell/server_password_window.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include "screen/form_style.h"
#include "screen/screen_texts.h"
#include "shell/shell_texts.h"

namespace chengheng {

ServerPasswordWindow::ServerPasswordWindow(const std::string& address, bool isWrong,
                                           QWidget* parent)
    : QDialog(parent) {
    setWindowTitle(shell_texts::serverPasswordTitle);
    auto* wanted = new QLabel(
        QString(isWrong ? shell_texts::serverPasswordWrong : shell_texts::serverPasswordWanted)
            .arg(QString::fromStdString(address)));
    wanted->setTextFormat(Qt::PlainText);
    wanted->setWordWrap(true);
    m_password = new QLineEdit;
    m_password->setObjectName(QStringLiteral("serverPassword"));
    m_password->setEchoMode(QLineEdit::Password);
    m_isToBeKept = new QCheckBox(shell_texts::keepServerPassword);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    nameButtons(buttons, screen_texts::confirm);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* fields = new QFormLayout;
    fields->addRow(shell_texts::serverPasswordField, m_password);
    auto* rows = new QVBoxLayout(this);
    rows->addWidget(wanted);
    rows->addLayout(fields);
    rows->addWidget(m_isToBeKept);
    rows->addWidget(buttons);
    widen(this, 32);
    m_password->setFocus();
}

std::string ServerPasswordWindow::password() const { return m_password->text().toStdString(); }

bool ServerPasswordWindow::isToBeKept() const { return m_isToBeKept->isChecked(); }

}  // namespace chengheng
