#include "screen/books/books_parameters_window.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

#include "accounts/codes/code_levels.h"
#include "books/making/new_books.h"
#include "books/making/parameter_rules.h"
#include "books/parameters/parameters_texts.h"
#include "screen/enter_moves_on.h"
#include "screen/form_style.h"
#include "screen/forms/limited_edit.h"
#include "screen/help/help_pages.h"
#include "screen/help/help_window.h"
#include "screen/screen_texts.h"
#include "screen/shown.h"

namespace chengheng {
namespace {

constexpr int widthCharacters = 42;
// Beyond the levels there may be, so that too many can be told instead of cut.
constexpr std::size_t longestPattern = 2 * mostLevels;

void addLabel(QGridLayout& fields, const char* text, QWidget* field) {
    auto* label = new QLabel(shown(text), field->parentWidget());
    label->setBuddy(field);
    fields.addWidget(label, fields.rowCount(), 0);
}

}  // namespace

BooksParametersWindow::BooksParametersWindow(const BooksRegistry& registry, QWidget* parent)
    : CNxMiddleDialog(parent),
      m_atWork(parameters_texts::atWork),
      m_form(messages(), registry.folder().empty() ? nullptr : &registry) {
    setWindowTitle(shown(parameters_texts::title));
}

bool BooksParametersWindow::OnInitDialog() {
    if (!m_form.open()) {
        EndDialog(Rejected);
        return false;
    }
    buildControls();
    UpdateData(false);
    m_name->setFocus();
    return false;
}

void BooksParametersWindow::buildControls() {
    using namespace parameters_texts;
    auto* fields = new QGridLayout;
    fields->setColumnStretch(1, 1);
    m_name = addText(*fields, nameField, books_field::name, longestBooksName);
    m_company = addText(*fields, companyField, books_field::company, longestCompany);
    m_foreign = new QCheckBox(shown(foreignField), this);
    m_foreign->setObjectName(QString::fromUtf8(books_field::foreignCurrency));
    fields->addWidget(m_foreign, fields->rowCount(), 1);
    m_foreignHint = addHint(*fields);
    m_pattern = addText(*fields, patternField, books_field::levelPattern, longestPattern);
    m_patternHint = addHint(*fields);
    m_start = new QSpinBox(this);
    m_start->setObjectName(QString::fromUtf8(books_field::startMonth));
    m_start->setRange(1, 12);
    addLabel(*fields, startField, m_start);
    fields->addWidget(m_start, fields->rowCount() - 1, 1);
    m_startHint = addHint(*fields);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    nameButtons(buttons, screen_texts::confirm);
    auto* rows = new QVBoxLayout(this);
    rows->addLayout(fields);
    rows->addWidget(buttons);
    widen(this, widthCharacters);
    new EnterMovesOn(this, {m_name, m_company, m_foreign, m_pattern, m_start});
    tellCuts(*m_name, name, messages());
    tellCuts(*m_company, company, messages());
    connect(m_pattern, &QLineEdit::textChanged, this, guarded([this] { showHints(); }));
    connect(buttons, &QDialogButtonBox::accepted, this, guarded([this] { OnOK(); }));
    connect(buttons, &QDialogButtonBox::rejected, this, [this] { EndDialog(Rejected); });
}

LimitedEdit* BooksParametersWindow::addText(QGridLayout& fields, const char* label,
                                            const char* name, std::size_t longest) {
    auto* edit = new LimitedEdit(static_cast<int>(longest), this);
    edit->setObjectName(QString::fromUtf8(name));
    addLabel(fields, label, edit);
    fields.addWidget(edit, fields.rowCount() - 1, 1);
    return edit;
}

QLabel* BooksParametersWindow::addHint(QGridLayout& fields) {
    auto* hint = new QLabel(this);
    styleHint(hint);
    fields.addWidget(hint, fields.rowCount(), 1);
    return hint;
}

void BooksParametersWindow::DoDataExchange(bool isSaving) {
    BooksParameters& input = m_form.input;
    if (isSaving) {
        input.name = m_name->text().toStdString();
        input.company = m_company->text().toStdString();
        input.hasForeignCurrency = m_foreign->isChecked();
        input.levelPattern = m_pattern->text().toStdString();
        input.startMonth = m_start->value();
        return;
    }
    m_name->showText(shown(input.name));
    m_company->showText(shown(input.company));
    m_foreign->setChecked(input.hasForeignCurrency);
    m_pattern->showText(shown(input.levelPattern));
    m_start->setValue(input.startMonth);
    showHints();
}

void BooksParametersWindow::showHints() {
    m_form.input.levelPattern = m_pattern->text().toStdString();
    m_foreignHint->setText(shown(m_form.foreignHint()));
    m_patternHint->setText(shown(m_form.patternHint()));
    m_startHint->setText(shown(m_form.startHint()));
}

void BooksParametersWindow::OnOK() {
    UpdateData();
    if (m_form.save()) return EndDialog(Accepted);
    UpdateData(false);
}

void BooksParametersWindow::OnCancel() {
    UpdateData();
    if (m_form.mayLeave()) EndDialog(Rejected);
}

/// The frame's own button; what ends the window otherwise goes by EndDialog.
void BooksParametersWindow::reject() {
    if (!isEnded()) OnCancel();
}

bool BooksParametersWindow::OnHelpInfo() {
    showHelp(parametersHelpContext, *this);
    return true;
}

}  // namespace chengheng
