#include "accounts/window/CNbCwBursarDlg.h"

#include <QHeaderView>
#include <QSignalBlocker>
#include <QTabBar>
#include <QToolBar>
#include <QVBoxLayout>
#include <algorithm>

#include "accounts/screen/chart_texts.h"
#include "accounts/window/account_actions.h"
#include "accounts/window/chart_files.h"
#include "accounts/window/chart_finder.h"
#include "accounts/window/chart_grid.h"
#include "accounts/window/chart_heading.h"
#include "accounts/window/chart_menus.h"
#include "accounts/window/find_account_window.h"
#include "accounts/window/print_range_window.h"
#include "data/lookups/CGetData.h"
#include "screen/dialog_templates.h"
#include "screen/help/help_pages.h"
#include "screen/help/help_window.h"
#include "screen/shown.h"
#include "screen/wait_window.h"
#include "session/host_globals.h"

namespace chart_command = chengheng::chart_command;
namespace chart_texts = chengheng::chart_texts;
using chengheng::ChartGrid;
using chengheng::CodeLevels;
using chengheng::MessageIcon;
using chengheng::ReportOutput;
using chengheng::shown;

namespace {

constexpr QSize chartWindowSize(900, 620);
constexpr int margin = 8;
// Where the rows begin: the pointer above or left of it is over headers.
constexpr int rowsTop = 31;
constexpr int rowsLeft = 38;

bool isEnter(int key) { return key == Qt::Key_Return || key == Qt::Key_Enter; }

}  // namespace

CNbCwBursarDlg::CNbCwBursarDlg(QWidget* parent)
    : CNxMiddleDialog(chengheng::dialog_templates::bursar, parent) {
    setWindowTitle(shown(chart_texts::title));
}

// The grid goes before the accounts that it shows.
CNbCwBursarDlg::~CNbCwBursarDlg() { delete m_grid; }

bool CNbCwBursarDlg::OnCreate() {
    if (!SelectDatabase()) {
        TellFailure();
        return false;
    }
    if (m_screen.readClasses()) return true;
    messages().tell({.text = chart_texts::noClasses, .icon = MessageIcon::warning});
    return false;
}

bool CNbCwBursarDlg::OnInitDialog() {
    if (CGetData::m_pzAccountMInfo != nullptr) {
        m_levelPattern = CGetData::m_pzAccountMInfo->sCodeLen;
    }
    buildControls();
    connectGrid();
    resize(chartWindowSize);
    OnInitMessage(chart_texts::allAccounts);
    m_grid->setFocus();
    return false;
}

void CNbCwBursarDlg::buildControls() {
    m_tabs = new QTabBar(this);
    m_tabs->setAccessibleName(shown(chart_texts::tabs));
    m_tabs->setExpanding(false);
    for (const std::string& tab : m_screen.tabs()) m_tabs->addTab(shown(tab));
    m_grid = new chengheng::ChartGrid(m_screen, this);
    m_heading = new chengheng::ChartHeading(this);

    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(margin, 0, margin, margin);
    m_commands = std::make_unique<chengheng::WindowCommands>(*this, chengheng::chartMenus);
    rows->addWidget(
        m_commands->makeToolBar(shown(chart_texts::toolBar), chengheng::chartToolButtons));
    rows->addWidget(m_heading);
    rows->addWidget(m_tabs);
    rows->addWidget(m_grid, 1);
    rows->setSpacing(0);
    setTabOrder(m_grid, &m_heading->searchBar().field());
    setTabOrder(&m_heading->searchBar().field(), m_tabs);
}

void CNbCwBursarDlg::connectGrid() {
    m_actions = std::make_unique<chengheng::AccountActions>(messages(), *m_grid,
                                                            CodeLevels(m_levelPattern));
    connect(m_grid, &ChartGrid::listed, this, [this] { reflectAccounts(); });
    m_finder = std::make_unique<chengheng::ChartFinder>(m_heading->searchBar(), *m_grid);
    connect(m_tabs, &QTabBar::currentChanged, this,
            [this](int tab) { guarded([&] { OnCommand(chart_command::allAccounts + tab); })(); });
    connect(m_grid, &CVCF1::clicked, this,
            [this](const QModelIndex& index) { OnClickVcf1ctrlInfoitem(index.row()); });
    connect(m_grid, &CVCF1::doubleClicked, this, [this] { OnDblClickVcf1ctrlInfoitem(); });
    connect(m_grid, &CVCF1::keyDown, this, &CNbCwBursarDlg::OnKeyDownVcf1ctrlInfoitem);
    connect(m_grid, &CVCF1::keyUp, this, &CNbCwBursarDlg::OnKeyUpVcf1ctrlInfoitem);
    connect(m_grid, &CVCF1::mouseDown, this, [this] { OnMouseDownVcf1ctrlInfoitem(); });
    connect(m_grid, &CVCF1::mouseMoved, this, &CNbCwBursarDlg::OnMouseMoveVcf1ctrlInfoitem);
    connect(m_grid, &CVCF1::customContextMenuRequested, this, [this](QPoint position) {
        m_commands->popUp(chengheng::chartContextCommands,
                          m_grid->viewport()->mapToGlobal(position));
    });
}

std::string CNbCwBursarDlg::activeCategory() const {
    return m_screen.tabs()[static_cast<std::size_t>(m_tabs->currentIndex())];
}

void CNbCwBursarDlg::OnInitMessage(const std::string& category) {
    if (!m_grid->list(category)) TellFailure();
}

void CNbCwBursarDlg::reflectAccounts() {
    OnPaint();
    for (const chengheng::WindowMenu& menu : chengheng::chartMenus) {
        for (const chengheng::MenuItemResource& item : menu.items) {
            const bool isIdle = m_screen.isEmpty() && m_screen.needsAccount(item.command);
            m_commands->setEnabled(item.command, !isIdle);
        }
    }
}

void CNbCwBursarDlg::OnPaint() { m_heading->showFacts(m_levelPattern, m_screen.countText()); }

void CNbCwBursarDlg::listActiveCategory() { OnInitMessage(activeCategory()); }

void CNbCwBursarDlg::OnButtonAllBuc() { OnInitMessage(chart_texts::allAccounts); }
void CNbCwBursarDlg::OnButtonAsset() { listActiveCategory(); }
void CNbCwBursarDlg::OnButtonOwned() { listActiveCategory(); }
void CNbCwBursarDlg::OnButtonRights() { listActiveCategory(); }
void CNbCwBursarDlg::OnButtonCosting() { listActiveCategory(); }
void CNbCwBursarDlg::OnButtonIdcrease() { listActiveCategory(); }

void CNbCwBursarDlg::showTab(int tab) {
    const QSignalBlocker quiet(m_tabs);
    if (tab < m_tabs->count()) m_tabs->setCurrentIndex(tab);
}

bool CNbCwBursarDlg::OnCommand(int command) {
    struct Handler {
        int command;
        void (CNbCwBursarDlg::*handle)();
    };
    static constexpr Handler handlers[] = {
        {chart_command::print, &CNbCwBursarDlg::OnMenuPrint},
        {chart_command::preview, &CNbCwBursarDlg::OnMenuPreview},
        {chart_command::insert, &CNbCwBursarDlg::OnMenuInsert},
        {chart_command::remove, &CNbCwBursarDlg::OnMenuDelete},
        {chart_command::modify, &CNbCwBursarDlg::OnMenuModify},
        {chart_command::appoint, &CNbCwBursarDlg::OnMenuAppoint},
        {chart_command::copy, &CNbCwBursarDlg::OnMenuCopy},
        {chart_command::find, &CNbCwBursarDlg::OnMenuFind},
        {chart_command::whereUsed, &CNbCwBursarDlg::OnMenuWhereUsed},
        {chart_command::history, &CNbCwBursarDlg::OnMenuHistory},
        {chart_command::resetColumns, &CNbCwBursarDlg::OnMenuResetColumns},
        {chart_command::importChart, &CNbCwBursarDlg::OnMenuImport},
        {chart_command::exportChart, &CNbCwBursarDlg::OnMenuExport},
        {chart_command::help, &CNbCwBursarDlg::OnMenuHelp},
        {chart_command::exit, &CNbCwBursarDlg::OnMenuExit},
        {chart_command::refurbish, &CNbCwBursarDlg::OnMenuRefurbish},
        {chart_command::search, &CNbCwBursarDlg::OnMenuSearch},
        {chart_command::about, &CNbCwBursarDlg::OnMenuAbout},
        {chart_command::allAccounts, &CNbCwBursarDlg::OnButtonAllBuc},
        {chart_command::allAccounts + 1, &CNbCwBursarDlg::OnButtonAsset},
        {chart_command::allAccounts + 2, &CNbCwBursarDlg::OnButtonOwned},
        {chart_command::allAccounts + 3, &CNbCwBursarDlg::OnButtonRights},
        {chart_command::allAccounts + 4, &CNbCwBursarDlg::OnButtonCosting},
        {chart_command::lastTab, &CNbCwBursarDlg::OnButtonIdcrease},
    };
    const auto found = std::ranges::find(handlers, command, &Handler::command);
    if (found == std::end(handlers)) return CNxMiddleDialog::OnCommand(command);
    if (command >= chart_command::allAccounts && command <= chart_command::lastTab) {
        showTab(command - chart_command::allAccounts);
    }
    (this->*found->handle)();
    return true;
}

void CNbCwBursarDlg::OnMenuInsert() { m_actions->add(activeCategory()); }
void CNbCwBursarDlg::OnMenuCopy() { m_actions->addCopy(); }
void CNbCwBursarDlg::OnMenuModify() { m_actions->modify(); }
void CNbCwBursarDlg::OnMenuDelete() { m_actions->remove(); }
void CNbCwBursarDlg::OnMenuAppoint() { m_actions->designate(); }
void CNbCwBursarDlg::OnMenuWhereUsed() { m_actions->showUses(); }
void CNbCwBursarDlg::OnMenuHistory() { m_actions->showHistory(); }
void CNbCwBursarDlg::OnMenuResetColumns() { m_grid->resetLayout(); }

void CNbCwBursarDlg::OnMenuImport() {
    const auto outcome = chengheng::importFromChosenFile(messages(), this);
    if (outcome == chengheng::Outcome::done) listActiveCategory();
}

void CNbCwBursarDlg::OnMenuExport() { chengheng::exportToChosenFile(messages(), this); }

void CNbCwBursarDlg::printChart(ReportOutput output) {
    chengheng::PrintRangeWindow window(CodeLevels(m_levelPattern).count(), this);
    if (window.DoModal() != Accepted) return;
    chengheng::printList(chengheng::chartList(window.range()), output, messages());
}

void CNbCwBursarDlg::OnMenuPrint() { printChart(ReportOutput::print); }
void CNbCwBursarDlg::OnMenuPreview() { printChart(ReportOutput::preview); }
void CNbCwBursarDlg::OnMenuExit() { EndDialog(Rejected); }

void CNbCwBursarDlg::OnMenuFind() {
    chengheng::FindAccountWindow window(this);
    if (window.DoModal() != Accepted) return;
    m_swallowsKeyUp = true;
    if (m_screen.category() != chart_texts::allAccounts) OnCommand(chart_command::allAccounts);
    m_grid->setFocus();
    const auto row = m_screen.find(window.wanted());
    if (row) {
        m_grid->setCurrentRow(*row);
    } else {
        messages().tell({.text = chart_texts::accountUnknown, .icon = MessageIcon::warning});
    }
}

void CNbCwBursarDlg::OnMenuRefurbish() {
    const chengheng::WaitWindow window(shown(chart_texts::refreshing), this);
    listActiveCategory();
}

void CNbCwBursarDlg::OnMenuHelp() { chengheng::showHelp(chengheng::chartHelpContext, *this); }

void CNbCwBursarDlg::OnMenuSearch() {
    chengheng::showHelp(chengheng::chartHelpContext, *this).startSearch();
}

void CNbCwBursarDlg::OnMenuAbout() {}

void CNbCwBursarDlg::OnMenuOutput() { messages().tell({.text = {}}); }

bool CNbCwBursarDlg::OnHelpInfo() {
    OnMenuHelp();
    return true;
}

void CNbCwBursarDlg::OnClickVcf1ctrlInfoitem(int row) { m_grid->setCurrentRow(row); }

void CNbCwBursarDlg::OnDblClickVcf1ctrlInfoitem() {
    if (m_commands->isEnabled(chart_command::modify)) PostCommand(chart_command::modify);
}

void CNbCwBursarDlg::OnKeyDownVcf1ctrlInfoitem(int key) {
    m_isEnterDown = isEnter(key);
    m_finder->showResult();
}

void CNbCwBursarDlg::OnKeyUpVcf1ctrlInfoitem(int key) {
    const bool isOwnEnter = std::exchange(m_isEnterDown, false) && isEnter(key);
    if (std::exchange(m_swallowsKeyUp, false)) return;
    // An Enter that was pressed in a window now closed is not meant for the grid.
    if (isOwnEnter && m_grid->currentRow() >= 0) OnDblClickVcf1ctrlInfoitem();
}

void CNbCwBursarDlg::OnMouseDownVcf1ctrlInfoitem() { m_finder->showResult(); }

void CNbCwBursarDlg::OnMouseMoveVcf1ctrlInfoitem(QPoint position) {
    // Headers stand above the rows; the rows' own pixels begin below them.
    const int top = position.y() + m_grid->horizontalHeader()->height();
    const bool isOverRows = top >= rowsTop && position.x() >= rowsLeft;
    const int row = isOverRows ? m_grid->rowAt(position.y()) : -1;
    m_grid->viewport()->setToolTip(shown(m_screen.path(row)));
}

void CNbCwBursarDlg::PostNcDestroy() {
    const bool isLoaded = CGetData::LoadCODEINFOMemoryMapTable(g_lpszNbZwDBName) >= 0;
    // A window that did not open has said why, and has changed nothing.
    if (!isLoaded && m_grid != nullptr) TellFailure();
    CNxMiddleDialog::PostNcDestroy();
}
