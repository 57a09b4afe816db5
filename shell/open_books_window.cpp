#include "shell/open_books_window.h"

#include <QFileDialog>

#include "books/logon/books_session.h"
#include "books/logon/known_books.h"
#include "books/logon/logon_texts.h"
#include "books/making/new_books.h"
#include "screen/background_work.h"
#include "screen/guarded.h"
#include "screen/screen_texts.h"
#include "shell/form_style.h"
#include "shell/shell_texts.h"
#include "ui_open_books_window.h"

namespace chengheng {

OpenBooksWindow::OpenBooksWindow(IMessages& messages, QWidget* parent)
    : QDialog(parent), m_messages(messages), m_ui(std::make_unique<Ui::OpenBooksWindow>()) {
    m_ui->setupUi(this);
    styleHint(m_ui->hint);
    widen(this, 40);
    nameButtons(m_ui->buttons, screen_texts::confirm);
    connect(m_ui->buttons, &QDialogButtonBox::accepted, this, &OpenBooksWindow::accept);
    connect(m_ui->buttons, &QDialogButtonBox::rejected, this, &OpenBooksWindow::reject);
    connect(m_ui->browse, &QPushButton::clicked, this, &OpenBooksWindow::browse);
    m_ui->location->setFocus();
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
    m_location = locationOfBooks(m_ui->location->text().trimmed().toStdString());
    std::optional<Refusal> refusal;
    if (m_location.empty())
        refusal = inputRefusal(logon_texts::locationMissing, books_field::location);
    else
        runBesidePainting([&] { refusal = readBooks(m_location, m_parameters); });
    if (!refusal) return QDialog::accept();
    m_messages.tell(refusal->notice);
}

}  // namespace chengheng
