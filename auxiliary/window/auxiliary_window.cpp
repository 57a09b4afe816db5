#include "auxiliary/window/auxiliary_window.h"

#include <fmt/format.h>

#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QTabWidget>
#include <QToolBar>
#include <QVBoxLayout>
#include <algorithm>

#include "auxiliary/members/auxiliary_texts.h"
#include "auxiliary/transfer/transfer_texts.h"
#include "auxiliary/window/auxiliary_menus.h"
#include "auxiliary/window/entry_model.h"
#include "auxiliary/window/entry_transfer.h"
#include "auxiliary/window/entry_window.h"
#include "auxiliary/window/find_entry_window.h"
#include "base/values/numbers.h"
#include "opening/sheet/opening_account.h"
#include "screen/colours.h"
#include "screen/grid/CVCF1.h"
#include "screen/help/help_pages.h"
#include "screen/help/help_window.h"
#include "screen/history/history_window.h"
#include "screen/report/CNxGridControl.h"
#include "screen/shown.h"
#include "screen/wait_window.h"

namespace chengheng {
namespace {

namespace texts = auxiliary_texts;

constexpr QSize openingSize(900, 560);
constexpr int margin = 8;
constexpr int modeCharacters = 12;
constexpr int filterCharacters = 18;

std::string amount(double value, Measure measure) {
    return ftoaWithSap(value, decimalsOf(measure));
}

QLabel* addLabel(QLayout& line, const char* name) {
    auto* label = new QLabel;
    label->setObjectName(QString::fromLatin1(name));
    label->setTextFormat(Qt::PlainText);
    line.addWidget(label);
    return label;
}

int widthOf(const QWidget& widget, int characters) {
    return characters * widget.fontMetrics().horizontalAdvance(QLatin1Char('0'));
}

/// Money, and where the account keeps them, foreign currency and quantity.
std::string sumsText(fmt::format_string<std::string> moneyText, const EntryFigures& figures,
                     const AuxiliaryAccount& account) {
    std::string text = fmt::format(moneyText, amount(figures.money, Measure::money));
    if (account.hasForeign)
        text += "  " + fmt::format(texts::foreignTotal, amount(figures.foreign, Measure::foreign));
    if (account.hasQuantity)
        text +=
            "  " + fmt::format(texts::quantityTotal, amount(figures.quantity, Measure::quantity));
    return text;
}

}  // namespace

AuxiliaryWindow::AuxiliaryWindow(const AuxiliaryMember& member, std::string accountCode,
                                 bool isBrowsing, QWidget* parent)
    : CNxMiddleDialog(parent),
      m_atWork(member.caption),
      m_member(member),
      m_accountCode(std::move(accountCode)),
      m_work(messages(), member, isBrowsing) {
    setWindowTitle(shown(member.caption));
}

AuxiliaryWindow::~AuxiliaryWindow() = default;

bool AuxiliaryWindow::OnCreate() {
    const WaitWindow waiting(shown(texts::loading), parentWidget());
    return m_work.open(m_accountCode);
}

bool AuxiliaryWindow::OnInitDialog() {
    buildControls();
    connectControls();
    g_lpHead->owner = this;
    resize(std::max(openingSize.width(), m_grid->usualWidth() + 2 * margin), openingSize.height());
    fillAccounts();
    showChanges();
    m_grid->setCurrentRow(0);
    m_grid->setFocus();
    return false;
}

void AuxiliaryWindow::buildControls() {
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(margin, 0, margin, margin);
    m_commands = std::make_unique<WindowCommands>(*this, auxiliaryMenus);
    rows->addWidget(m_commands->makeToolBar(shown(texts::toolBar), auxiliaryToolButtons));
    rows->addWidget(buildHeading());
    rows->addWidget(buildTabs(), 1);
    rows->addWidget(buildFoot());
}

QWidget* AuxiliaryWindow::buildHeading() {
    auto* heading = new QWidget(this);
    auto* line = new QHBoxLayout(heading);
    line->setContentsMargins(0, 0, 0, 0);
    m_accounts = new QComboBox(heading);
    m_accounts->setObjectName(QStringLiteral("lCodeId"));
    m_accounts->setMinimumWidth(widthOf(*this, 2 * filterCharacters));
    auto* accountLabel = new QLabel(shown(texts::account), heading);
    accountLabel->setBuddy(m_accounts);
    m_mode = new QLineEdit(shown(m_work.modeText()), heading);
    m_mode->setObjectName(QStringLiteral("mode"));
    m_mode->setReadOnly(true);
    m_mode->setFrame(false);
    m_mode->setFocusPolicy(Qt::NoFocus);
    m_mode->setAccessibleName(shown(texts::mode));
    m_mode->setMaximumWidth(widthOf(*this, modeCharacters));
    m_mode->setVisible(m_work.isBrowsing());
    m_filter = new QLineEdit(heading);
    m_filter->setObjectName(QStringLiteral("filter"));
    m_filter->setPlaceholderText(shown(texts::filterHint));
    m_filter->setClearButtonEnabled(true);
    m_filter->setMaximumWidth(widthOf(*this, 2 * filterCharacters));
    auto* filterLabel = new QLabel(shown(texts::filter), heading);
    filterLabel->setBuddy(m_filter);
    line->addWidget(accountLabel);
    line->addWidget(m_accounts);
    line->addWidget(m_mode);
    line->addStretch(1);
    line->addWidget(filterLabel);
    line->addWidget(m_filter, 1);
    return heading;
}

QWidget* AuxiliaryWindow::buildTabs() {
    m_entries = std::make_unique<EntryModel>(m_work);
    m_combinations = std::make_unique<CombinationModel>(m_work);
    m_grid = new CVCF1(shown(texts::entriesName), CVCF1::Unit::row, this);
    m_grid->setObjectName(QStringLiteral("entries"));
    m_grid->setGridModel(m_entries.get());
    m_grid->setContextMenuPolicy(Qt::CustomContextMenu);
    m_grid->horizontalHeader()->setSectionsClickable(true);
    m_grid->horizontalHeader()->setSortIndicatorShown(true);
    m_grid->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    m_totals = new CVCF1(shown(texts::totalsName), CVCF1::Unit::row, this);
    m_totals->setObjectName(QStringLiteral("totals"));
    m_totals->setGridModel(m_combinations.get());
    m_tabs = new QTabWidget(this);
    m_tabs->addTab(m_grid, shown(texts::entriesTab));
    m_tabs->addTab(m_totals, shown(texts::totalsTab));
    return m_tabs;
}

QWidget* AuxiliaryWindow::buildFoot() {
    auto* foot = new QWidget(this);
    auto* line = new QHBoxLayout(foot);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(2 * margin);
    m_count = addLabel(*line, "count");
    m_sums = addLabel(*line, "sums");
    m_posted = addLabel(*line, "posted");
    m_difference = addLabel(*line, "difference");
    QPalette red = palette();
    red.setColor(QPalette::WindowText, colours::seal);
    m_difference->setPalette(red);
    line->addStretch(1);
    return foot;
}

void AuxiliaryWindow::connectControls() {
    connect(m_accounts, &QComboBox::activated, this,
            guarded([this] { accountChosen(m_accounts->currentIndex()); }));
    connect(m_filter, &QLineEdit::textChanged, this, guarded([this] {
                change([this] { m_work.list().setFilter(m_filter->text().toStdString()); });
            }));
    connect(m_grid->horizontalHeader(), &QHeaderView::sortIndicatorChanged, this,
            [this](int column, Qt::SortOrder order) {
                change([=, this] { m_work.list().sortBy(column, order == Qt::DescendingOrder); });
            });
    connect(m_grid, &CVCF1::doubleClicked, this,
            [this] { PostCommand(auxiliary_command::modify); });
    connect(m_grid, &CVCF1::keyDown, this, [this](int key, Qt::KeyboardModifiers) {
        if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_F2)
            PostCommand(auxiliary_command::modify);
        else if (key == Qt::Key_Insert)
            PostCommand(auxiliary_command::add);
        else if (key == Qt::Key_Delete)
            PostCommand(auxiliary_command::remove);
    });
    connect(m_grid, &CVCF1::textTyped, this, [this](const QString& text) {
        m_filter->setFocus();
        m_filter->setText(text);
    });
    connect(m_grid, &CVCF1::customContextMenuRequested, this, [this](QPoint position) {
        m_commands->popUp(auxiliaryContextCommands, m_grid->viewport()->mapToGlobal(position));
    });
    connect(m_totals, &CVCF1::doubleClicked, this, [this](const QModelIndex& index) {
        m_filter->setText(shown(m_combinations->nameAt(index.row())));
        m_tabs->setCurrentIndex(0);
        m_grid->setFocus();
    });
}

void AuxiliaryWindow::fillAccounts() {
    for (const AuxiliaryAccount& account : m_work.accounts())
        m_accounts->addItem(shown(account.code + "  " + account.name));
    m_accounts->setCurrentIndex(static_cast<int>(m_work.accountPlace()));
}

void AuxiliaryWindow::accountChosen(int place) {
    if (place < 0) return;
    m_work.selectAccount(static_cast<std::size_t>(place));
    m_accounts->setCurrentIndex(static_cast<int>(m_work.accountPlace()));
    showChanges();
    m_grid->setCurrentRow(0);
}

std::optional<std::size_t> AuxiliaryWindow::currentRow() const {
    const int row = m_grid->currentRow();
    if (row < 0 || m_tabs->currentWidget() != m_grid) return std::nullopt;
    return static_cast<std::size_t>(row);
}

void AuxiliaryWindow::showChanges() {
    m_entries->showList();
    showTotals();
    showFoot();
    for (const int command :
         {auxiliary_command::add, auxiliary_command::modify, auxiliary_command::remove,
          auxiliary_command::paste, auxiliary_command::importFile})
        m_commands->setEnabled(command, !m_work.isBrowsing());
    m_commands->setEnabled(auxiliary_command::undo, m_work.canUndo());
    m_commands->setEnabled(auxiliary_command::redo, m_work.canRedo());
}

void AuxiliaryWindow::showFoot() {
    const EntryList& list = m_work.list();
    const std::size_t all = list.all().size();
    const bool isFiltered = list.rowCount() != all;
    m_count->setText(shown(isFiltered ? fmt::format(texts::countOfShown, list.rowCount(), all)
                                      : fmt::format(texts::countOfAll, all)));
    const AuxiliaryAccount& account = m_work.account();
    m_sums->setText(shown(isFiltered
                              ? sumsText(texts::shownTotal, list.shownTotal(account), account)
                              : sumsText(texts::moneyTotal, m_work.total(), account)));
    m_posted->setText(shown(sumsText(texts::postedBalance, m_work.posted(), account)));
    const EntryFigures difference = m_work.total() + -m_work.posted();
    m_difference->setText(m_work.hasDifference()
                              ? shown(sumsText(texts::difference, difference, account))
                              : QString());
}

void AuxiliaryWindow::goToLine(std::int32_t lineId) {
    const std::size_t row = m_work.list().rowOf(lineId);
    if (row < m_work.list().rowCount()) m_grid->setCurrentRow(static_cast<int>(row));
}

void AuxiliaryWindow::change(const std::function<void()>& work) {
    const EntryList& list = m_work.list();
    const int row = m_grid->currentRow();
    const bool hadEntry = row >= 0 && static_cast<std::size_t>(row) < list.rowCount();
    const std::int32_t line = hadEntry ? list.atRow(static_cast<std::size_t>(row)).lineId : 0;
    const auto read = [&] {
        work();
        showChanges();
    };
    m_grid->readAnew(read, [&] {
        const std::size_t now = hadEntry ? list.rowOf(line) : list.rowCount();
        return now < list.rowCount() ? static_cast<int>(now) : -1;
    });
}

void AuxiliaryWindow::showTotals() {
    if (!m_combinations->isOutdated()) return;
    const auto of = m_combinations->combinationAt(m_totals->currentRow());
    m_totals->readAnew([this] { m_combinations->showTotals(); },
                       [&] { return of ? m_combinations->rowOf(*of) : -1; });
}

void AuxiliaryWindow::OnMenuAdd() {
    EntryForm form(messages(), m_member, m_work.account());
    std::int32_t added = 0;
    EntryWindow window(
        form,
        [&](AuxiliaryEntry entry) {
            const bool isAdded = m_work.add(entry);
            added = isAdded ? entry.lineId : 0;
            return isAdded;
        },
        this);
    change([&] { window.DoModal(); });
    if (added != 0) goToAdded(added);
}

void AuxiliaryWindow::goToAdded(std::int32_t lineId) {
    if (m_work.list().rowOf(lineId) == m_work.list().rowCount()) m_filter->clear();
    m_tabs->setCurrentWidget(m_grid);
    goToLine(lineId);
    m_grid->setFocus();
}

void AuxiliaryWindow::OnMenuPaste() {
    std::optional<AddedEntries> added;
    change([&] { added = EntryTransfer(m_work, messages(), *this).paste(); });
    if (added) goToAdded(added->firstLine);
}

void AuxiliaryWindow::OnMenuImport() {
    std::optional<AddedEntries> added;
    change([&] { added = EntryTransfer(m_work, messages(), *this).importFile(); });
    if (!added) return;
    goToAdded(added->firstLine);
    messages().tell({.text = fmt::format(transfer_texts::imported, added->count)});
}

void AuxiliaryWindow::OnMenuExport() { EntryTransfer(m_work, messages(), *this).exportFile(); }

void AuxiliaryWindow::OnMenuModify() {
    const AuxiliaryEntry* found = m_work.entryToModify(currentRow());
    if (found == nullptr) return;
    AuxiliaryEntry before = *found;
    EntryForm form(messages(), m_member, m_work.account(), &before);
    EntryWindow window(
        form, [&](AuxiliaryEntry after) { return m_work.modify(before, std::move(after)); }, this);
    change([&] { window.DoModal(); });
}

void AuxiliaryWindow::OnMenuHistory() {
    const auto row = currentRow();
    if (!row || *row >= m_work.list().rowCount()) return;
    const AuxiliaryEntry& entry = m_work.list().atRow(*row);
    const AuxiliaryAccount& account = m_work.account();
    HistoryWindow({fmt::format(texts::historyOf, account.code, account.name, entry.content.summary),
                   {.table = "RegSub", .id = entry.lineId}},
                  this)
        .DoModal();
}

void AuxiliaryWindow::OnMenuDelete() {
    change([this] { m_work.remove(currentRow()); });
}

void AuxiliaryWindow::OnMenuUndo() {
    change([this] { m_work.undo(); });
}

void AuxiliaryWindow::OnMenuRedo() {
    change([this] { m_work.redo(); });
}

void AuxiliaryWindow::OnMenuFind() {
    FindEntryWindow window(m_member, m_search, this);
    if (window.DoModal() != Accepted) return;
    m_tabs->setCurrentWidget(m_grid);
    const auto row = m_work.find(m_search, currentRow().value_or(m_work.list().rowCount()));
    if (row) m_grid->setCurrentRow(static_cast<int>(*row));
    m_grid->setFocus();
}

void AuxiliaryWindow::OnMenuRefresh() {
    change([this] {
        const WaitWindow waiting(shown(texts::loading), this);
        m_work.refresh();
    });
}

void AuxiliaryWindow::OnMenuCopy() {
    static_cast<CVCF1*>(m_tabs->currentWidget())->copySelection();
}

void AuxiliaryWindow::print(ReportOutput output) {
    const AuxiliaryAccount& account = m_work.account();
    const std::string name = fmt::format(texts::printedAccount, account.code + "  " + account.name);
    CNxGridControl::PrintOrPreview(*m_grid, {m_member.caption, name, gridPrintDate()},
                                   static_cast<int>(output));
}

void AuxiliaryWindow::OnMenuPrint() { print(ReportOutput::print); }

void AuxiliaryWindow::OnMenuPreview() { print(ReportOutput::preview); }

void AuxiliaryWindow::OnMenuSearch() { showHelp(auxiliaryHelpContext, *this).startSearch(); }

bool AuxiliaryWindow::OnHelpInfo() {
    showHelp(auxiliaryHelpContext, *this);
    return true;
}

bool AuxiliaryWindow::OnCommand(int command) {
    struct Handler {
        int command;
        void (AuxiliaryWindow::*handle)();
    };
    static constexpr Handler handlers[] = {
        {auxiliary_command::preview, &AuxiliaryWindow::OnMenuPreview},
        {auxiliary_command::print, &AuxiliaryWindow::OnMenuPrint},
        {auxiliary_command::exit, &AuxiliaryWindow::OnMenuExit},
        {auxiliary_command::add, &AuxiliaryWindow::OnMenuAdd},
        {auxiliary_command::modify, &AuxiliaryWindow::OnMenuModify},
        {auxiliary_command::remove, &AuxiliaryWindow::OnMenuDelete},
        {auxiliary_command::undo, &AuxiliaryWindow::OnMenuUndo},
        {auxiliary_command::redo, &AuxiliaryWindow::OnMenuRedo},
        {auxiliary_command::find, &AuxiliaryWindow::OnMenuFind},
        {auxiliary_command::refresh, &AuxiliaryWindow::OnMenuRefresh},
        {auxiliary_command::history, &AuxiliaryWindow::OnMenuHistory},
        {auxiliary_command::copy, &AuxiliaryWindow::OnMenuCopy},
        {auxiliary_command::paste, &AuxiliaryWindow::OnMenuPaste},
        {auxiliary_command::importFile, &AuxiliaryWindow::OnMenuImport},
        {auxiliary_command::exportFile, &AuxiliaryWindow::OnMenuExport},
        {auxiliary_command::help, &AuxiliaryWindow::OnMenuHelp},
        {auxiliary_command::search, &AuxiliaryWindow::OnMenuSearch},
    };
    const auto found = std::ranges::find(handlers, command, &Handler::command);
    if (found == std::end(handlers)) return CNxMiddleDialog::OnCommand(command);
    const bool isAllowed = m_commands->isEnabled(command);
    if (isAllowed) (this->*found->handle)();
    return true;
}

}  // namespace chengheng
