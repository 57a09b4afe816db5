#include "shell/new_books_window.h"

#include <QFileDialog>
#include <array>

#include "base/system/workstation.h"
#include "data/engines/open_engine.h"
#include "forms/discard_input.h"
#include "screen/background_work.h"
#include "screen/enter_moves_on.h"
#include "screen/form_style.h"
#include "screen/guarded.h"
#include "screen/screen_texts.h"
#include "shell/shell_texts.h"
#include "ui_new_books_window.h"

namespace chengheng {
namespace {

constexpr const char* confirmationField = "confirmation";

struct ChartTitle {
    ChartTemplate chart;
    const char* title;
};

constexpr std::array charts{
    ChartTitle{ChartTemplate::smallEnterprise, shell_texts::smallEnterprise},
    ChartTitle{ChartTemplate::enterprise, shell_texts::enterprise},
    ChartTitle{ChartTemplate::empty, shell_texts::emptyChart},
};

}  // namespace

NewBooksWindow::NewBooksWindow(const BooksRegistry& registry, IMessages& messages,
                               ServerPasswords& passwords, QWidget* parent)
    : QDialog(parent),
      m_registry(registry),
      m_messages(messages),
      m_passwords(passwords),
      m_ui(std::make_unique<Ui::NewBooksWindow>()) {
    m_ui->setupUi(this);
    setUpFields();
    showExample();
}

NewBooksWindow::~NewBooksWindow() = default;

void NewBooksWindow::setUpFields() {
    styleHeading(m_ui->picture, m_ui->headingTitle, m_ui->headingHint);
    widen(this, 42);
    nameButtons(m_ui->buttons, screen_texts::confirm);
    styleHint(m_ui->levelExample);
    m_ui->year->setRange(firstBooksYear, lastBooksYear);
    m_ui->year->setValue(today().year);
    for (const ChartTitle& chart : charts) m_ui->chart->addItem(chart.title);
    m_ui->levelPattern->setText(QString::fromStdString(NewBooks().levelPattern));
    m_ui->foreignCurrency->setChecked(NewBooks().hasForeignCurrency);
    m_ui->location->setPlaceholderText(
        QString(shell_texts::defaultPlace).arg(QString::fromStdString(m_registry.folder())));
    new EnterMovesOn(this, {m_ui->name, m_ui->company, m_ui->year, m_ui->startMonth, m_ui->chart,
                            m_ui->levelPattern, m_ui->foreignCurrency, m_ui->location,
                            m_ui->supervisor, m_ui->password, m_ui->confirmation});
    connect(m_ui->levelPattern, &QLineEdit::textChanged, this, &NewBooksWindow::showExample);
    connect(m_ui->browse, &QPushButton::clicked, this, &NewBooksWindow::browse);
    connect(m_ui->buttons, &QDialogButtonBox::accepted, this, &NewBooksWindow::accept);
    connect(m_ui->buttons, &QDialogButtonBox::rejected, this, [this] { QDialog::reject(); });
    m_ui->name->setFocus();
    m_offered = facts();
}

void NewBooksWindow::showExample() {
    const std::string example = levelPatternExample(m_ui->levelPattern->text().toStdString());
    m_ui->levelExample->setText(
        example.empty() ? QString(shell_texts::levelPatternRule)
                        : QString(shell_texts::levelExample).arg(QString::fromStdString(example)));
}

void NewBooksWindow::browse() {
    const QString folder =
        QFileDialog::getExistingDirectory(this, shell_texts::chooseFolder, m_ui->location->text());
    if (!folder.isEmpty()) m_ui->location->setText(folder);
    m_ui->location->setFocus();
}

QString NewBooksWindow::supervisor() const { return m_ui->supervisor->text().trimmed(); }

NewBooks NewBooksWindow::facts() const {
    NewBooks books;
    books.name = m_ui->name->text().trimmed().toStdString();
    books.company = m_ui->company->text().trimmed().toStdString();
    books.year = m_ui->year->value();
    books.startMonth = m_ui->startMonth->value();
    books.levelPattern = m_ui->levelPattern->text().trimmed().toStdString();
    books.hasForeignCurrency = m_ui->foreignCurrency->isChecked();
    books.chart = charts[static_cast<std::size_t>(m_ui->chart->currentIndex())].chart;
    books.supervisor = supervisor().toStdString();
    books.password = m_ui->password->text().toStdString();
    books.location = m_ui->location->text().trimmed().toStdString();
    return books;
}

std::optional<Refusal> NewBooksWindow::refusalOf(const NewBooks& books) const {
    if (std::optional<Refusal> refusal = firstRefusal(newBooksChecks(), books)) return refusal;
    if (m_ui->password->text() == m_ui->confirmation->text()) return std::nullopt;
    return inputRefusal(shell_texts::passwordsDiffer, confirmationField);
}

void NewBooksWindow::accept() {
    runGuarded(m_messages, windowTitle(), [this] { make(); });
}

/// Escape and the window's frame; the button says what it does.
void NewBooksWindow::reject() {
    runGuarded(m_messages, windowTitle(), [this] {
        const bool isTyped = facts() != m_offered || !m_ui->confirmation->text().isEmpty();
        if (!isTyped || mayDiscardInput(m_messages)) QDialog::reject();
    });
}

void NewBooksWindow::make() {
    NewBooks books = facts();
    std::optional<Refusal> refusal = refusalOf(books);
    if (!refusal)
        refusal = m_passwords.withPassword(
            books.location, this, [this, &books](const std::string& place) {
                books.location = place;
                std::optional<Refusal> unmade;
                runBesidePainting(
                    [&] { unmade = BooksCreation(&m_registry).create(books, m_created); });
                return unmade;
            });
    if (refusal) {
        if (refusal->kind != RefusalKind::serverPassword) m_messages.tell(refusal->notice);
        return;
    }
    m_created.year.location = m_passwords.take(m_created.year.location);
    const QString place = QString::fromStdString(shownLocation(m_created.year.location));
    const QString text = QString(shell_texts::booksMade)
                             .arg(QString::fromStdString(books.name))
                             .arg(books.year)
                             .arg(place);
    m_messages.tell({.text = text.toStdString()});
    QDialog::accept();
}

}  // namespace chengheng
