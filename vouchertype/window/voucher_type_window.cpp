#include "vouchertype/window/voucher_type_window.h"

#include <fmt/format.h>

#include <QButtonGroup>
#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTabWidget>
#include <algorithm>
#include <utility>

#include "data/lookups/CGetData.h"
#include "report/output/list_printing.h"
#include "screen/dialog_templates.h"
#include "screen/forms/limited_edit.h"
#include "screen/grid/picker_window.h"
#include "screen/help/help_pages.h"
#include "screen/shown.h"
#include "session/host_globals.h"
#include "vouchertype/screen/trial_screen_texts.h"
#include "vouchertype/transfer/voucher_type_transfer_texts.h"
#include "vouchertype/usage/usage_list.h"
#include "vouchertype/usage/usage_texts.h"
#include "vouchertype/voucher_type_list.h"
#include "vouchertype/voucher_type_texts.h"
#include "vouchertype/window/trial_pane.h"
#include "vouchertype/window/voucher_type_files.h"

namespace chengheng {
namespace {

namespace texts = voucher_type_texts;

constexpr ListFormWindow voucherTypeWindow{.templateNumber = dialog_templates::species,
                                           .title = texts::title,
                                           .helpContext = voucherTypeHelpContext,
                                           .formCharacters = 44,
                                           .lines = 24};

constexpr std::pair<RestrictionKind, const char*> kindFields[] = {
    {RestrictionKind::debitRequired, debitRequiredField},
    {RestrictionKind::creditRequired, creditRequiredField},
    {RestrictionKind::bothForbidden, bothForbiddenField},
};

}  // namespace

VoucherTypeWindow::VoucherTypeWindow(QWidget* parent)
    : ListFormDialog(voucherTypeWindow, parent), m_form(messages()) {}

VoucherTypeWindow::~VoucherTypeWindow() {
    runGuarded(messages(), windowTitle(), [this] {
        if (CGetData::LoadSignMemoryMapTable(g_lpszNbZwDBName) < 0) TellFailure();
    });
}

QWidget* VoucherTypeWindow::arrangeForm(QWidget* fields) {
    m_trial = new TrialPane(messages());
    m_pages = new QTabWidget;
    m_pages->addTab(fields, shown(trial_screen_texts::typePage));
    m_pages->addTab(m_trial, shown(trial_screen_texts::trialPage));
    // The keys of the pages are those of the command, so that the Tab key walks the fields alone.
    m_pages->tabBar()->setFocusPolicy(Qt::NoFocus);
    return m_pages;
}

bool VoucherTypeWindow::isTrying() const { return m_pages->currentWidget() == m_trial; }

void VoucherTypeWindow::showFields() { m_pages->setCurrentIndex(0); }

/// There and back.
void VoucherTypeWindow::turnToTrial() {
    if (isTrying()) {
        showFields();
        m_number->setFocus(Qt::OtherFocusReason);
    } else {
        m_pages->setCurrentWidget(m_trial);
        m_trial->enter();
    }
}

void VoucherTypeWindow::addFields() {
    m_number = addEdit(texts::number, 'U', voucherTypeNumberField, voucherTypeNumberWidth);
    m_name = addEdit(texts::name, 'M', voucherTypeNameField, voucherTypeNameWidth);
    addRestriction();
    m_accounts = {addAccount(texts::accountOne, '1', accountOneField),
                  addAccount(texts::accountTwo, '2', accountTwoField)};
}

void VoucherTypeWindow::addRestriction() {
    m_isRestricted = new QCheckBox(shown(texts::restricted));
    m_isRestricted->setObjectName(QLatin1String(voucherTypeRestrictedField));
    addField(*m_isRestricted);
    connect(m_isRestricted, &QCheckBox::toggled, this, guarded([this] { restrictionChecked(); }));
    m_kinds = new QButtonGroup(this);
    std::vector<QWidget*> line;
    for (const auto& [kind, name] : kindFields) {
        auto* choice = new QRadioButton(shown(restrictionKindText(stored(kind))));
        choice->setObjectName(QLatin1String(name));
        m_kinds->addButton(choice, stored(kind));
        line.push_back(choice);
        connect(choice, &QRadioButton::toggled, this,
                guarded([this, choice] { inputEdited(*choice); }));
    }
    addFieldLine(line);
}

VoucherTypeWindow::AccountField VoucherTypeWindow::addAccount(const char* label, char key,
                                                              const char* name) {
    auto* choice = new QPushButton(shown(texts::choose));
    choice->setAutoDefault(false);
    choice->setAccessibleName(shown(fmt::format(texts::chooseAccount, label)));
    LimitedEdit* code = addEdit(label, key, name, restrictionAccountWidth, choice);
    connect(choice, &QPushButton::clicked, this, guarded([this, code] { choose(*code); }));
    return {code, choice};
}

/// By the operator, not by showing a type.
void VoucherTypeWindow::restrictionChecked() {
    const bool wanted = m_isRestricted->isChecked();
    if (wanted == isRestricted(m_form.input)) return;
    m_form.restrict(wanted);
    showAnew();
    inputEdited(*m_isRestricted);
}

void VoucherTypeWindow::choose(LimitedEdit& account) {
    const auto accounts = m_form.firstLevelAccounts();
    if (!accounts) return;
    const auto current =
        std::ranges::find(*accounts, account.text().trimmed().toStdString(), &_CodeInfo::sCode);
    std::vector<PickerRow> rows;
    rows.reserve(accounts->size());
    for (const _CodeInfo& each : *accounts) rows.push_back({each.sCode, each.sName});
    const auto place = current == accounts->end() ? 0 : current - accounts->begin();
    PickerWindow picker(shown(texts::firstLevelAccounts), texts::firstLevelAccounts,
                        std::move(rows), this);
    picker.setWordsWhenEmpty(shown(texts::noFirstLevelAccounts));
    const int chosen = picker.choose(static_cast<int>(place));
    if (chosen >= 0) account.setText(shown(accounts->at(static_cast<std::size_t>(chosen)).sCode));
    account.setFocus(Qt::OtherFocusReason);
}

void VoucherTypeWindow::DoDataExchange(bool isSaving) {
    _SignInfo& input = m_form.input;
    if (isSaving) {
        input.sSign = m_number->text().toStdString();
        input.sSignName = m_name->text().toStdString();
        // No radio stands for a kind that is none known; it stays until one is chosen.
        if (isRestricted(input) && m_kinds->checkedId() > 0)
            input.byLimit = static_cast<std::uint8_t>(m_kinds->checkedId());
        input.sCode1 = m_accounts[0].code->text().toStdString();
        input.sCode2 = m_accounts[1].code->text().toStdString();
        return;
    }
    m_number->showText(shown(input.sSign));
    m_name->showText(shown(input.sSignName));
    showRestriction(input);
    m_trial->typesChanged();
}

void VoucherTypeWindow::showRestriction(const _SignInfo& type) {
    const bool isOpen = isRestricted(type);
    m_isRestricted->setChecked(isOpen);
    m_kinds->setExclusive(false);
    for (QAbstractButton* choice : m_kinds->buttons()) {
        choice->setChecked(m_kinds->id(choice) == type.byLimit);
        choice->setEnabled(isOpen);
    }
    m_kinds->setExclusive(true);
    letTabReachChosenKind();
    m_accounts[0].code->showText(shown(type.sCode1));
    m_accounts[1].code->showText(shown(type.sCode2));
    for (const AccountField& account : m_accounts) {
        account.code->setEnabled(isOpen);
        account.choice->setEnabled(isOpen);
    }
}

/// Not the one that had the keyboard last, for another type. With none chosen it is the first.
void VoucherTypeWindow::letTabReachChosenKind() {
    const QAbstractButton* chosen = m_kinds->checkedButton();
    if (chosen == nullptr) chosen = m_kinds->buttons().constFirst();
    for (QAbstractButton* choice : m_kinds->buttons())
        choice->setFocusPolicy(choice == chosen ? Qt::StrongFocus : Qt::ClickFocus);
}

void VoucherTypeWindow::printRecords(ReportOutput output) {
    printList(voucherTypeList(), output, messages());
}

std::span<const MenuItemResource> VoucherTypeWindow::ownFileItems() const {
    static constexpr MenuItemResource items[] = {
        {usageCommand, usage_texts::command},
        {0, ""},
        {importCommand, voucher_type_transfer_texts::importCommand},
        {exportCommand, voucher_type_transfer_texts::exportCommand},
    };
    return items;
}

std::span<const MenuItemResource> VoucherTypeWindow::ownEditItems() const {
    static constexpr MenuItemResource items[] = {{tryCommand, trial_screen_texts::tryCommand}};
    return items;
}

/// Enter beside the lines of a tried voucher saves no type.
void VoucherTypeWindow::OnOK() {
    if (!isTrying()) ListFormDialog::OnOK();
}

bool VoucherTypeWindow::OnCommand(int command) {
    if (command == tryCommand)
        turnToTrial();
    else if (command == usageCommand)
        printList(voucherTypeUsageList(), ReportOutput::preview, messages());
    else if (command == importCommand)
        workOnRecords([this] { return importVoucherTypes(messages(), this); });
    else if (command == exportCommand)
        exportVoucherTypes(messages(), this);
    else
        return ListFormDialog::OnCommand(command);
    return true;
}

}  // namespace chengheng
