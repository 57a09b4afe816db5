#include "accounts/window/account_window.h"

#include <QCloseEvent>
#include <algorithm>
#include <array>

#include "accounts/chart/account_texts.h"
#include "accounts/screen/chart_texts.h"
#include "accounts/window/used_window.h"
#include "data/access/host_database.h"
#include "data/lookups/CGetData.h"
#include "data/lookups/cached_records.h"
#include "data/tables/currency.h"
#include "directories/directory_service.h"
#include "directories/window/open_directory.h"
#include "forms/discard_input.h"
#include "screen/enter_moves_on.h"
#include "screen/grid/picker_window.h"
#include "screen/shown.h"
#include "ui_account_window.h"

namespace chengheng {
namespace {

constexpr int widthCharacters = 76;

/// A check box and the book it stands for; those of a directory have a browse button too.
struct BookBox {
    QCheckBox* Ui::AccountWindow::*box;
    bool AuxiliaryBooks::*book;
    QToolButton* Ui::AccountWindow::*browse;
    DirectoryKind directory;
};

constexpr std::array bookBoxes{
    BookBox{&Ui::AccountWindow::byPerson, &AuxiliaryBooks::byPerson,
            &Ui::AccountWindow::byPersonBrowse, DirectoryKind::person},
    BookBox{&Ui::AccountWindow::byDepartment, &AuxiliaryBooks::byDepartment,
            &Ui::AccountWindow::byDepartmentBrowse, DirectoryKind::department},
    BookBox{&Ui::AccountWindow::byProject, &AuxiliaryBooks::byProject,
            &Ui::AccountWindow::byProjectBrowse, DirectoryKind::projectClass},
    BookBox{&Ui::AccountWindow::byUnit, &AuxiliaryBooks::byUnit, &Ui::AccountWindow::byUnitBrowse,
            DirectoryKind::unit},
    BookBox{&Ui::AccountWindow::isJournal, &AuxiliaryBooks::isJournal, nullptr, {}},
    BookBox{&Ui::AccountWindow::isBank, &AuxiliaryBooks::isBank, nullptr, {}},
};

/// Selects a text in a list; one that is not in it is added, so that nothing stored is lost.
void select(QComboBox* list, const std::string& text) {
    int position = list->findText(shown(text), Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (position < 0 && !text.empty()) {
        list->addItem(shown(text));
        position = list->count() - 1;
    }
    list->setCurrentIndex(position);
}

}  // namespace

AccountWindow::AccountWindow(AccountForm& form, Observers observers, QWidget* parent)
    : CNxMiddleDialog(parent),
      m_form(form),
      m_observers(std::move(observers)),
      m_ui(std::make_unique<Ui::AccountWindow>()) {
    m_ui->setupUi(this);
    setMinimumWidth(widthCharacters * fontMetrics().horizontalAdvance(QLatin1Char('0')));
    const bool isAdding = form.isAdding();
    setWindowTitle(shown(isAdding ? chart_texts::addTitle : chart_texts::modifyTitle));
    m_ui->confirm->setText(shown(isAdding ? chart_texts::addConfirm : chart_texts::modifyConfirm));
    m_ui->cancel->setText(shown(isAdding ? chart_texts::addCancel : chart_texts::modifyCancel));
}

AccountWindow::~AccountWindow() = default;

bool AccountWindow::OnCreate() {
    const bool isRead = AccountService::readClasses(m_classes).isDone() &&
                        CGetData::LoadCYRENCYINFOMemoryMapTable(g_lpszNbZwDBName) >= 0;
    if (!isRead) TellFailure();
    return isRead;
}

bool AccountWindow::OnInitDialog() {
    fillLists();
    connectFields();
    connectButtons();
    showForm();
    return false;
}

void AccountWindow::fillLists() {
    for (const _zCodeClassInfo& accountClass : m_classes)
        m_ui->sType->addItem(shown(accountClass.sClsName));
    for (const char* page : account_texts::ledgerPages) m_ui->sPage->addItem(shown(page));
    for (const _CyrencyInfo& currency : cachedCurrencies())
        m_ui->byExchId->addItem(shown(currency.sExchName), currency.lId);
}

void AccountWindow::connectFields() {
    connect(m_ui->sCode, &QLineEdit::textChanged, this, guarded([this] { followCode(); }));
    connect(m_ui->sName, &QLineEdit::textChanged, this, guarded([this] { followName(); }));
    connect(m_ui->sHelp, &QLineEdit::textChanged, this, [this](const QString& text) {
        if (m_isShowing || text == text.toUpper()) return;
        const int position = m_ui->sHelp->cursorPosition();
        m_ui->sHelp->setText(text.toUpper());
        m_ui->sHelp->setCursorPosition(position);
    });
    connect(m_ui->sType, &QComboBox::activated, this, [this] { m_isClassChosen = true; });
    connect(m_ui->sType, &QComboBox::currentIndexChanged, this, guarded([this] { followClass(); }));
    for (QCheckBox* box : {m_ui->keepsForeign, m_ui->bAmount})
        connect(box, &QCheckBox::toggled, this, [this] { reflectChecks(); });
    m_ui->sAssBook->setFocusProxy(m_ui->byPerson);
    new EnterMovesOn(this, {m_ui->sCode, m_ui->sName, m_ui->sType, m_ui->sPage, m_ui->sHelp});
}

void AccountWindow::connectButtons() {
    m_ui->confirm->setDefault(true);
    connect(m_ui->addToTotals, &QPushButton::clicked, this,
            guarded([this] { save(ParentSums::mayBeTotals); }));
    connect(m_ui->confirm, &QPushButton::clicked, this, guarded([this] { save(); }));
    connect(m_ui->cancel, &QPushButton::clicked, this, [this] { EndDialog(Rejected); });
    connect(m_ui->usedButton, &QPushButton::clicked, this,
            guarded([this] { UsedWindow(m_usedCode, this).DoModal(); }));
    connectArrow(m_ui->first, AccountForm::Step::first);
    connectArrow(m_ui->previous, AccountForm::Step::previous);
    connectArrow(m_ui->next, AccountForm::Step::next);
    connectArrow(m_ui->last, AccountForm::Step::last);
    m_ui->currencyBrowse->setAccessibleName(shown(chart_texts::browseCurrency));
    connect(m_ui->currencyBrowse, &QToolButton::clicked, this,
            guarded([this] { browseCurrency(); }));
    for (const BookBox& book : bookBoxes) {
        if (book.browse == nullptr) continue;
        QToolButton* button = m_ui.get()->*book.browse;
        button->setAccessibleName(shown(directoryOf(book.directory).title));
        connect(button, &QToolButton::clicked, this,
                guarded([this, &book] { browse(book.directory); }));
    }
}

void AccountWindow::connectArrow(QToolButton* button, AccountForm::Step step) {
    button->setFocusPolicy(Qt::TabFocus);
    connect(button, &QToolButton::clicked, this, guarded([this, step] { move(step); }));
}

void AccountWindow::browseCurrency() {
    std::vector<PickerRow> rows;
    for (const _CyrencyInfo& currency : cachedCurrencies())
        rows.push_back({currency.sExchCode, currency.sExchName});
    PickerWindow picker(shown(chart_texts::browseCurrency), std::move(rows), this);
    picker.setWordsWhenEmpty(shown(chart_texts::noCurrencies));
    const int chosen = picker.choose(m_ui->byExchId->currentIndex());
    if (chosen >= 0) m_ui->byExchId->setCurrentIndex(chosen);
}

/// There is nothing to choose in it for an account.
void AccountWindow::browse(DirectoryKind kind) {
    DirectoryService service(messages(), directoryOf(kind));
    std::vector<DirectoryRecord> records;
    const auto read =
        [&](const std::optional<ChosenRecord>& chosen) -> std::optional<PickerChange> {
        auto anew = service.readAll();
        if (!anew) return std::nullopt;
        records = std::move(*anew);
        PickerChange change;
        for (const DirectoryRecord& record : records) {
            if (chosen && chosen->record.id == record.id)
                change.chosen = static_cast<int>(change.rows.size());
            change.rows.push_back({record.code, record.name});
        }
        return change;
    };
    const auto all = read(std::nullopt);
    if (!all) return;
    PickerWindow picker(shown(directoryOf(kind).title), all->rows, this);
    const auto at = [&records](std::size_t position) {
        return ChosenRecord{.record = records[position], .groupCode = {}};
    };
    offerDirectory(picker, kind, messages(), {read, at});
    picker.choose();
}

void AccountWindow::showEntry(const AccountEntry& entry) {
    m_typed = entry;
    m_ui->sCode->setText(shown(m_typed.code));
    m_ui->sName->setText(shown(m_typed.name));
    select(m_ui->sType, m_typed.className);
    m_ui->sHelp->setText(shown(m_typed.mnemonic));
    showAccounting(m_typed);
}

void AccountWindow::DoDataExchange(bool isSaving) {
    if (isSaving) {
        m_typed = m_form.entry();
        m_typed.code = m_ui->sCode->text().toStdString();
        m_typed.name = m_ui->sName->text().toStdString();
        m_typed.className = m_ui->sType->currentText().toStdString();
        m_typed.page = m_ui->sPage->currentText().toStdString();
        m_typed.mnemonic = m_ui->sHelp->text().toStdString();
        m_typed.keepsForeign = m_ui->keepsForeign->isChecked();
        m_typed.currencyId = m_typed.keepsForeign ? m_ui->byExchId->currentData().toInt() : 0;
        m_typed.keepsQuantity = m_ui->bAmount->isChecked();
        m_typed.unit = m_ui->sUnit->text().toStdString();
        for (const BookBox& book : bookBoxes)
            m_typed.books.*book.book = (m_ui.get()->*book.box)->isChecked();
        return;
    }
    showEntry(m_form.entry());
}

void AccountWindow::showAccounting(const AccountEntry& entry) {
    select(m_ui->sPage, entry.page);
    m_ui->keepsForeign->setChecked(entry.keepsForeign);
    m_ui->byExchId->setCurrentIndex(m_ui->byExchId->findData(entry.currencyId));
    m_ui->bAmount->setChecked(entry.keepsQuantity);
    m_ui->sUnit->setText(shown(entry.unit));
    for (const BookBox& book : bookBoxes)
        (m_ui.get()->*book.box)->setChecked(entry.books.*book.book);
}

void AccountWindow::showForm() {
    m_isShowing = true;
    UpdateData(false);
    m_isShowing = false;
    m_isClassChosen = false;
    m_proposed = m_typed;
    m_proposedMnemonic = m_typed.mnemonic;
    reflectChecks();
    reflectArrows();
    followClass();
    showUse({});
    m_ui->sCode->setFocus();
    m_ui->sCode->selectAll();
}

/// What was typed, over the account as another workstation has stored it.
void AccountWindow::showKept() {
    m_isShowing = true;
    showEntry(m_form.kept());
    m_isShowing = false;
    reflectChecks();
    followClass();
    m_ui->sCode->setFocus();
}

void AccountWindow::reflectChecks() {
    const bool keepsForeign = m_ui->keepsForeign->isChecked();
    for (QWidget* field :
         {static_cast<QWidget*>(m_ui->byExchId), static_cast<QWidget*>(m_ui->currencyBrowse)})
        field->setEnabled(keepsForeign);
    m_ui->sUnit->setEnabled(m_ui->bAmount->isChecked());
}

void AccountWindow::reflectArrows() {
    using Step = AccountForm::Step;
    const bool hasPrevious = !m_form.neighbour(Step::previous).empty();
    const bool hasNext = !m_form.neighbour(Step::next).empty();
    m_ui->first->setEnabled(hasPrevious);
    m_ui->previous->setEnabled(hasPrevious);
    m_ui->next->setEnabled(hasNext);
    m_ui->last->setEnabled(hasNext);
}

void AccountWindow::followCode() {
    // What was offered was so for the code that was refused.
    m_ui->addToTotals->hide();
    if (m_isShowing || !m_form.isAdding()) return;
    UpdateData();
    AccountEntry proposed = m_proposed;
    if (!isRead(m_form.proposeFor(m_typed.code, proposed))) return;
    if (!m_isClassChosen && proposed.className != m_proposed.className)
        select(m_ui->sType, proposed.className);
    m_proposed.className = proposed.className;
    // What the operator has made of the boxes is theirs.
    if (!hasSameAccounting(m_typed, m_proposed)) return;
    showAccounting(proposed);
    m_proposed = std::move(proposed);
}

void AccountWindow::followClass() {
    if (m_isShowing) return;
    std::string meaning;
    if (!isRead(m_form.explainClass(m_ui->sType->currentText().toStdString(), meaning))) return;
    m_ui->classNote->setText(shown(meaning));
    m_ui->classNote->setVisible(!meaning.empty());
}

void AccountWindow::followName() {
    if (m_isShowing || !m_form.isAdding()) return;
    // Once the operator has put something else there, or nothing, it is theirs.
    if (m_ui->sHelp->text().toStdString() != m_proposedMnemonic) return;
    const std::string name = m_ui->sName->text().toStdString();
    if (!isRead(AccountForm::proposeMnemonic(name, m_proposedMnemonic))) return;
    m_ui->sHelp->setText(shown(m_proposedMnemonic));
}

bool AccountWindow::isRead(const Status& proposal) {
    const bool hasBeenTold = std::exchange(m_hasToldUnread, !proposal);
    if (!proposal && !hasBeenTold) TellFailure();
    return proposal.isDone();
}

void AccountWindow::showUse(const std::string& usedCode) {
    m_usedCode = usedCode;
    m_ui->usedButton->setVisible(!usedCode.empty());
}

void AccountWindow::focusOn(const std::string& field) {
    if (field.empty()) return;
    auto* widget = findChild<QWidget*>(shown(field));
    if (widget) widget->setFocus(Qt::OtherFocusReason);
    if (auto* edit = qobject_cast<QLineEdit*>(widget)) edit->selectAll();
}

void AccountWindow::save(ParentSums parentSums) {
    UpdateData();
    const bool wasAdding = m_form.isAdding();
    const AccountChange change = m_form.save(m_typed, parentSums);
    m_ui->addToTotals->setVisible(change.isKeptOutByTotals);
    switch (change.outcome) {
        case Outcome::done:
            m_observers.saved(change.account);
            if (wasAdding) {
                showForm();
            } else {
                EndDialog(Accepted);
            }
            break;
        case Outcome::stale:
            m_hasMetForeignChange = true;
            change.changedThere ? showKept() : EndDialog(Rejected);
            break;
        default:
            showUse(change.usedCode);
            focusOn(change.focusField);
    }
}

bool AccountWindow::mayLeaveInput() {
    UpdateData();
    return !m_form.isChanged(m_typed) || mayDiscardInput(messages());
}

void AccountWindow::move(AccountForm::Step step) {
    if (!mayLeaveInput()) return;
    const std::string code = m_form.neighbour(step);
    if (code.empty()) return;
    const Status status = m_form.goTo(code);
    if (status.failure == Failure::missing) {
        m_hasMetForeignChange = true;
        messages().tell({.text = account_texts::deletedMeanwhile(code)});
    } else if (!status) {
        TellFailure();
    }
    if (!status) return;
    showForm();
    m_observers.moved(code);
}

void AccountWindow::OnOK() { save(); }

void AccountWindow::OnCancel() {
    if (mayLeaveInput()) EndDialog(Rejected);
}

void AccountWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    guarded([this] { OnCancel(); })();
}

}  // namespace chengheng
