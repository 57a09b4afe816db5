#include "shell/open_books_window.h"

#include <QFileDialog>

#include "books/logon/books_session.h"
#include "books/logon/known_books.h"
#include "books/logon/logon_texts.h"
#include "books/logon/server_fields.h"
#include "books/making/new_books.h"
#include "data/engines/open_engine.h"
#include "screen/background_work.h"
#include "screen/form_style.h"
#include "screen/guarded.h"
#include "screen/screen_texts.h"
#include "shell/shell_texts.h"
#include "ui_open_books_window.h"

namespace chengheng {

OpenBooksWindow::OpenBooksWindow(IMessages& messages, ServerPasswords& passwords, QWidget* parent)
    : QDialog(parent),
      m_messages(messages),
      m_passwords(passwords),
      m_ui(std::make_unique<Ui::OpenBooksWindow>()) {
    m_ui->setupUi(this);
    styleHint(m_ui->hint);
    widen(this, 40);
    nameButtons(m_ui->buttons, screen_texts::confirm);
    connect(m_ui->buttons, &QDialogButtonBox::accepted, this, &OpenBooksWindow::accept);
    connect(m_ui->buttons, &QDialogButtonBox::rejected, this, &OpenBooksWindow::reject);
    connect(m_ui->browse, &QPushButton::clicked, this, &OpenBooksWindow::browse);
    m_ui->serverPassword->setEchoMode(QLineEdit::Password);
    connect(m_ui->location, &QLineEdit::textEdited, this, &OpenBooksWindow::followAddress);
    connect(m_ui->location, &QLineEdit::editingFinished, this, [this] {
        const std::string typed = m_ui->location->text().toStdString();
        m_ui->location->setText(QString::fromStdString(withoutServerPassword(typed)));
    });
    for (QLineEdit* field : {m_ui->host, m_ui->port, m_ui->database, m_ui->schema, m_ui->user})
        connect(field, &QLineEdit::textEdited, this, &OpenBooksWindow::followFields);
    m_ui->location->setFocus();
}

/// A password in the address goes into its own field; once the address is finished it is gone
/// there.
void OpenBooksWindow::followAddress() {
    const std::string typed = m_ui->location->text().trimmed().toStdString();
    const ServerFields fields = serverFieldsOf(typed);
    const auto show = [](QLineEdit* field, const std::string& text) {
        field->setText(QString::fromStdString(text));
    };
    show(m_ui->host, fields.host);
    show(m_ui->port, fields.port);
    show(m_ui->database, fields.database);
    show(m_ui->schema, fields.schema);
    show(m_ui->user, fields.user);
    if (const std::string password = serverPasswordIn(typed); !password.empty())
        show(m_ui->serverPassword, password);
}

void OpenBooksWindow::followFields() {
    const auto typed = [](const QLineEdit* field) { return field->text().trimmed().toStdString(); };
    ServerFields fields = serverFieldsOf(typed(m_ui->location));
    fields.host = typed(m_ui->host);
    fields.port = typed(m_ui->port);
    fields.database = typed(m_ui->database);
    fields.schema = typed(m_ui->schema);
    fields.user = typed(m_ui->user);
    const bool isEmpty = fields == ServerFields();
    m_ui->location->setText(isEmpty ? QString() : QString::fromStdString(addressOf(fields)));
}

OpenBooksWindow::~OpenBooksWindow() = default;

void OpenBooksWindow::browse() {
    const QString chosen = QFileDialog::getOpenFileName(
        this, shell_texts::chooseBooks, m_ui->location->text(), shell_texts::booksFilter);
    if (!chosen.isEmpty()) m_ui->location->setText(chosen);
    m_ui->location->setFocus();
}

void OpenBooksWindow::accept() {
    runGuarded(m_messages, windowTitle(), [this] { check(); });
}

void OpenBooksWindow::check() {
    m_location = m_passwords.take(locationOfBooks(m_ui->location->text().trimmed().toStdString()));
    const std::string password = m_ui->serverPassword->text().toStdString();
    if (!password.empty()) m_passwords.remember(m_location, password);
    std::optional<Refusal> refusal;
    if (m_location.empty())
        refusal = inputRefusal(logon_texts::locationMissing, books_field::location);
    else
        refusal = m_passwords.withPassword(m_location, this, [this](const std::string& place) {
            std::optional<Refusal> unread;
            runBesidePainting([&] { unread = readBooks(place, m_parameters); });
            return unread;
        });
    if (!refusal) return QDialog::accept();
    if (refusal->kind != RefusalKind::serverPassword) m_messages.tell(refusal->notice);
}

}  // namespace chengheng
