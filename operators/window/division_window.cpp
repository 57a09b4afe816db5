#include "operators/window/division_window.h"

#include <fmt/format.h>

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QScopedValueRollback>
#include <QScrollArea>
#include <QSplitter>
#include <QToolBar>
#include <QTreeView>
#include <QVBoxLayout>
#include <algorithm>
#include <iterator>

#include "base/system/program_version.h"
#include "forms/form_texts.h"
#include "operationlog/history/history_texts.h"
#include "operators/division_list.h"
#include "operators/screen/division_texts.h"
#include "operators/window/division_tree.h"
#include "operators/window/give_rights_window.h"
#include "operators/window/operator_window.h"
#include "operators/window/state_box.h"
#include "operators/window/who_may_window.h"
#include "screen/colours.h"
#include "screen/dialog_templates.h"
#include "screen/help/help_pages.h"
#include "screen/help/help_window.h"
#include "screen/history/history_window.h"
#include "screen/host_events.h"
#include "screen/shown.h"

namespace chengheng {
namespace {

namespace texts = division_texts;

// The commands, by the numbers under which menus and tool bar send them.
constexpr int previewCommand = 1;
constexpr int printCommand = 2;
constexpr int exitCommand = 3;
constexpr int insertCommand = 4;
constexpr int deleteCommand = 5;
constexpr int searchCommand = 6;
constexpr int aboutCommand = 7;
constexpr int modifyCommand = 8;
constexpr int refreshCommand = 9;
constexpr int matrixCommand = 10;
constexpr int makeSupervisorCommand = 11;
constexpr int endSupervisorCommand = 12;
constexpr int giveRightsCommand = 13;
constexpr int whoMayCommand = 14;
constexpr int historyCommand = 15;

constexpr MenuItemResource fileItems[] = {
    {previewCommand, form_texts::preview}, {printCommand, form_texts::print},
    {matrixCommand, texts::matrix},        {0, ""},
    {exitCommand, form_texts::exit},
};
constexpr MenuItemResource editItems[] = {
    {insertCommand, form_texts::insert},
    {modifyCommand, texts::modify},
    {deleteCommand, form_texts::remove},
    {0, ""},
    {giveRightsCommand, texts::giveRights},
    {makeSupervisorCommand, texts::makeSupervisor},
    {endSupervisorCommand, texts::endSupervisor},
    {0, ""},
    {whoMayCommand, texts::whoMay},
    {historyCommand, history_texts::title},
    {refreshCommand, texts::refresh},
};
constexpr MenuItemResource helpItems[] = {
    {helpCommandNumber, form_texts::helpTopics},
    {searchCommand, form_texts::search},
    {0, ""},
    {aboutCommand, form_texts::about},
};
constexpr WindowMenu menus[] = {{form_texts::fileMenu, fileItems},
                                {form_texts::editMenu, editItems},
                                {form_texts::helpMenu, helpItems}};
constexpr ToolButton tools[] = {
    {printCommand, "print"},
    {previewCommand, "preview"},
    {0, ""},
    {insertCommand, "add"},
    {modifyCommand, "modify"},
    {deleteCommand, "delete"},
    {refreshCommand, "refresh"},
    {0, ""},
    {helpCommandNumber, "help", form_texts::helpButton},
    {exitCommand, "exit"},
};
constexpr int contextCommands[] = {
    insertCommand, modifyCommand, deleteCommand, 0, makeSupervisorCommand, endSupervisorCommand, 0,
    historyCommand};

// The controls' own numbers.
constexpr int treeControl = 2302;
constexpr int userTextControl = 8050;
constexpr int firstBoxControl = 8038;
constexpr int tenthBoxControl = 8056;
constexpr int boxesInColumn = 9;

constexpr int treeCharacters = 16;
constexpr int boxesCharacters = 30;
constexpr int lines = 26;

QString nameOf(int control) { return QString::number(control); }

Qt::CheckState stateOf(GroupState state) {
    return state == GroupState::all    ? Qt::Checked
           : state == GroupState::some ? Qt::PartiallyChecked
                                       : Qt::Unchecked;
}

}  // namespace

DivisionWindow::DivisionWindow(QWidget* parent)
    : CNxMiddleDialog(dialog_templates::divide, parent),
      m_atWork(texts::title),
      m_screen(messages()) {}

DivisionWindow::~DivisionWindow() = default;

bool DivisionWindow::OnInitDialog() {
    setWindowTitle(shown(texts::title));
    buildControls();
    carryOut([this] { m_screen.open(); });
    m_tree->setFocus(Qt::OtherFocusReason);
    return false;
}

void DivisionWindow::buildControls() {
    auto* column = new QVBoxLayout(this);
    m_commands = std::make_unique<WindowCommands>(*this, menus);
    column->addWidget(m_commands->makeToolBar(shown(form_texts::toolBar), tools));
    auto* splitter = new QSplitter;
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(buildTree());
    splitter->addWidget(buildBoxes());
    splitter->setStretchFactor(1, 1);
    column->addWidget(splitter, 1);
    const int character = fontMetrics().horizontalAdvance(QChar(0x5E10));
    splitter->setSizes({treeCharacters * character, boxesCharacters * character});
    resize((treeCharacters + boxesCharacters) * character, lines * fontMetrics().lineSpacing());
}

QWidget* DivisionWindow::buildTree() {
    m_items = new DivisionTree(this);
    m_tree = new QTreeView;
    m_tree->setObjectName(nameOf(treeControl));
    m_tree->setAccessibleName(shown(texts::tree));
    m_tree->setHeaderHidden(true);
    m_tree->setUniformRowHeights(true);
    m_tree->setContextMenuPolicy(Qt::CustomContextMenu);
    m_tree->setModel(m_items);
    connect(m_tree, &QTreeView::customContextMenuRequested, this,
            guarded([this] { m_commands->popUp(contextCommands, QCursor::pos()); }));
    // Not within the event of the mouse or key: a question may come up.
    connect(m_tree->selectionModel(), &QItemSelectionModel::currentChanged, this,
            guarded([this] { followTree(); }), Qt::QueuedConnection);
    return m_tree;
}

QWidget* DivisionWindow::buildBoxes() {
    m_panel = new QGroupBox;
    auto* grid = new QGridLayout(m_panel);
    for (int box = 0; box < rightsGroupCount; ++box) {
        auto* made = new StateBox;
        const bool isInFirstColumn = box < boxesInColumn;
        made->setObjectName(nameOf(isInFirstColumn ? firstBoxControl + box
                                                   : tenthBoxControl + box - boxesInColumn));
        QSizePolicy keepingItsPlace = made->sizePolicy();
        keepingItsPlace.setRetainSizeWhenHidden(true);
        made->setSizePolicy(keepingItsPlace);
        grid->addWidget(made, box % boxesInColumn, isInFirstColumn ? 0 : 1);
        connect(made, &QCheckBox::stateChanged, this, guarded([this, box] { boxClicked(box); }));
        m_boxes.at(static_cast<std::size_t>(box)) = made;
    }
    grid->setRowStretch(boxesInColumn, 1);
    auto* user = new QLabel(shown(DivisionScreen::userText()));
    user->setObjectName(nameOf(userTextControl));
    user->setTextFormat(Qt::PlainText);
    // A small screen has not the height for all boxes.
    auto* scrolled = new QScrollArea;
    scrolled->setFrameShape(QFrame::NoFrame);
    scrolled->setWidgetResizable(true);
    scrolled->setWidget(m_panel);
    auto* panel = new QWidget;
    auto* column = new QVBoxLayout(panel);
    column->setContentsMargins({});
    column->addWidget(scrolled, 1);
    m_duties = new QLabel;
    m_duties->setObjectName(QStringLiteral("duties"));
    m_duties->setTextFormat(Qt::PlainText);
    m_duties->setWordWrap(true);
    QPalette marked = m_duties->palette();
    marked.setColor(QPalette::WindowText, colours::seal);
    m_duties->setPalette(marked);
    column->addWidget(m_duties);
    column->addWidget(user);
    return panel;
}

void DivisionWindow::carryOut(const std::function<void()>& command) {
    if (m_isCarryingOut) return;
    {
        const QScopedValueRollback carryingOut(m_isCarryingOut, true);
        command();
    }
    showState();
}

void DivisionWindow::showState() {
    const QScopedValueRollback showing(m_isShowing, true);
    showTree();
    showBoxes();
    m_commands->setEnabled(insertCommand, m_screen.canAdd());
    m_commands->setEnabled(modifyCommand, m_screen.canModify());
    m_commands->setEnabled(deleteCommand, m_screen.canDelete());
    m_commands->setEnabled(giveRightsCommand, m_screen.canGiveRights());
    m_commands->setEnabled(historyCommand, m_screen.hasSelectedOperator());
    m_commands->setEnabled(makeSupervisorCommand, m_screen.canMakeSupervisor());
    m_commands->setEnabled(endSupervisorCommand, m_screen.canEndSupervisor());
}

void DivisionWindow::showTree() {
    m_items->show(m_screen.items());
    const QModelIndex selected = m_items->indexOf(m_screen.selected());
    if (selected.isValid()) {
        m_tree->setCurrentIndex(selected);
    } else {
        m_tree->selectionModel()->clear();
    }
}

void DivisionWindow::showBoxes() {
    // In the title of a group "&" marks a key.
    m_panel->setTitle(shown(m_screen.boxesTitle()).replace(u'&', QStringLiteral("&&")));
    const std::string duties = m_screen.dutiesText();
    m_duties->setText(shown(duties));
    m_duties->setVisible(!duties.empty());
    const DivisionBoxes boxes = m_screen.boxes();
    for (std::size_t at = 0; at < boxes.size(); ++at) {
        StateBox& box = *m_boxes.at(at);
        box.setText(shown(boxes.at(at).caption));
        box.setCheckState(stateOf(boxes.at(at).state));
        box.setEnabled(boxes.at(at).isEnabled);
        box.setVisible(boxes.at(at).isShown);
    }
}

void DivisionWindow::followTree() {
    const DivisionPlace place = m_items->placeAt(m_tree->currentIndex());
    if (m_isCarryingOut || place.userId == 0 || place == m_screen.selected()) return;
    carryOut([this, place] { m_screen.select(place); });
}

void DivisionWindow::boxClicked(int box) {
    if (m_isShowing) return;
    const bool isChecked = m_boxes.at(static_cast<std::size_t>(box))->checkState() != Qt::Unchecked;
    carryOut([this, box, isChecked] { m_screen.setBox(box, isChecked); });
    // What was granted is to be seen.
    if (m_screen.selected().leaf == noLeaf) m_tree->expand(m_tree->currentIndex());
}

void DivisionWindow::addOperator() {
    carryOut([this] {
        if (m_screen.canAdd()) runForm(m_screen.formToAdd());
    });
}

void DivisionWindow::modifyOperator() {
    carryOut([this] {
        if (m_screen.mayModify()) runForm(m_screen.formToModify());
    });
}

void DivisionWindow::giveRights() {
    carryOut([this] {
        if (!m_screen.canGiveRights()) return;
        GiveRightsWindow window(m_screen.selectedOperator(), m_screen.rightsSources(), this);
        if (window.DoModal() == Accepted) m_screen.giveRights(window.rights());
    });
}

void DivisionWindow::showHistory() {
    if (!m_screen.hasSelectedOperator()) return;
    const _UsersInfo& user = m_screen.selectedOperator().user;
    HistoryWindow({user.sUserName, {.table = "Users", .id = user.lId}}, this).DoModal();
}

void DivisionWindow::showWhoMay() {
    carryOut([this] { WhoMayWindow(m_screen, this).DoModal(); });
}

void DivisionWindow::runForm(OperatorForm form) {
    OperatorWindow(form, this).DoModal();
    m_screen.take(form);
}

bool DivisionWindow::OnCommand(int command) {
    struct Handler {
        int command;
        void (*handle)(DivisionWindow& window);
    };
    static constexpr Handler handlers[] = {
        {previewCommand,
         [](DivisionWindow& window) { window.print(divisionList(), ReportOutput::preview); }},
        {printCommand,
         [](DivisionWindow& window) { window.print(divisionList(), ReportOutput::print); }},
        {matrixCommand,
         [](DivisionWindow& window) { window.print(rightsMatrix(), ReportOutput::preview); }},
        {exitCommand, [](DivisionWindow& window) { window.OnCancel(); }},
        {insertCommand, [](DivisionWindow& window) { window.addOperator(); }},
        {modifyCommand, [](DivisionWindow& window) { window.modifyOperator(); }},
        {deleteCommand,
         [](DivisionWindow& window) { window.carryOut([&] { window.m_screen.remove(); }); }},
        {giveRightsCommand, [](DivisionWindow& window) { window.giveRights(); }},
        {whoMayCommand, [](DivisionWindow& window) { window.showWhoMay(); }},
        {historyCommand, [](DivisionWindow& window) { window.showHistory(); }},
        {makeSupervisorCommand,
         [](DivisionWindow& window) {
             window.carryOut([&] { window.m_screen.setSupervisor(true); });
         }},
        {endSupervisorCommand,
         [](DivisionWindow& window) {
             window.carryOut([&] { window.m_screen.setSupervisor(false); });
         }},
        {refreshCommand,
         [](DivisionWindow& window) { window.carryOut([&] { window.m_screen.refresh(); }); }},
        {helpCommandNumber, [](DivisionWindow& window) { window.OnHelpInfo(); }},
        {searchCommand,
         [](DivisionWindow& window) { showHelp(operatorHelpContext, window).startSearch(); }},
        {aboutCommand,
         [](DivisionWindow& window) {
             window.messages().tell(
                 {.text = fmt::format(form_texts::aboutProgram, programVersion())});
         }},
    };
    const auto found = std::ranges::find(handlers, command, &Handler::command);
    if (found == std::end(handlers)) return CNxMiddleDialog::OnCommand(command);
    found->handle(*this);
    return true;
}

void DivisionWindow::print(const PrintedList& list, ReportOutput output) {
    carryOut([&] { printList(list, output, messages()); });
}

bool DivisionWindow::OnHelpInfo() {
    showHelp(operatorHelpContext, *this);
    return true;
}

}  // namespace chengheng
