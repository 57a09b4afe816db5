#include "screen/forms/list_form_dialog.h"

#include <fmt/format.h>

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QShortcut>
#include <QSplitter>
#include <QToolBar>
#include <QTreeView>
#include <QVBoxLayout>

#include "base/system/program_version.h"
#include "forms/form_texts.h"
#include "screen/colours.h"
#include "screen/forms/leaf_model.h"
#include "screen/forms/limited_edit.h"
#include "screen/grid/empty_words.h"
#include "screen/help/help_window.h"
#include "screen/history/history_menu.h"
#include "screen/host_events.h"
#include "screen/screen_texts.h"

namespace chengheng {
namespace {

// The commands, by the numbers under which menus and tool bar send them.
constexpr int previewCommand = 1;
constexpr int printCommand = 2;
constexpr int exitCommand = 3;
constexpr int insertCommand = 4;
constexpr int deleteCommand = 5;
constexpr int searchCommand = 6;
constexpr int aboutCommand = 7;

constexpr MenuItemResource printItems[] = {
    {previewCommand, form_texts::preview},
    {printCommand, form_texts::print},
};
constexpr MenuItemResource separator{0, ""};
constexpr MenuItemResource exitItems[] = {{exitCommand, form_texts::exit}};
constexpr MenuItemResource editItems[] = {
    {insertCommand, form_texts::insert},
    {deleteCommand, form_texts::remove},
};
constexpr MenuItemResource helpItems[] = {
    {helpCommandNumber, form_texts::helpTopics},
    {searchCommand, form_texts::search},
    {0, ""},
    {aboutCommand, form_texts::about},
};
constexpr ToolButton tools[] = {
    {printCommand, "print"},
    {previewCommand, "preview"},
    {0, ""},
    {insertCommand, "add"},
    {deleteCommand, "delete"},
    {0, ""},
    {helpCommandNumber, "help", form_texts::helpButton},
    {exitCommand, "exit"},
};

constexpr int treeCharacters = 16;  ///< width of the tree at first

using MenuItems = std::span<const MenuItemResource>;

/// Groups of commands with a line between each and the next.
std::vector<MenuItemResource> groupsOf(std::initializer_list<MenuItems> groups) {
    std::vector<MenuItemResource> items;
    for (const MenuItems group : groups) {
        if (!items.empty() && !group.empty()) items.push_back(separator);
        items.insert(items.end(), group.begin(), group.end());
    }
    return items;
}

}  // namespace

ListFormDialog::ListFormDialog(const ListFormWindow& window, QWidget* parent)
    : CNxMiddleDialog(window.templateNumber, parent), m_window(window), m_atWork(window.title) {}

ListFormDialog::~ListFormDialog() = default;

bool ListFormDialog::OnInitDialog() {
    setWindowTitle(QString::fromUtf8(m_window.title));
    buildControls();
    carryOut([this] { form().open(); });
    if (!form().isAdding()) m_tree->setFocus(Qt::OtherFocusReason);
    return false;
}

void ListFormDialog::buildControls() {
    auto* column = new QVBoxLayout(this);
    const auto file = groupsOf({printItems, ownFileItems(), exitItems});
    const auto edit = groupsOf({editItems, ownEditItems()});
    const WindowMenu menus[] = {{form_texts::fileMenu, file},
                                {form_texts::editMenu, edit},
                                {form_texts::helpMenu, helpItems}};
    m_commands = std::make_unique<WindowCommands>(*this, menus);
    column->addWidget(m_commands->makeToolBar(QString::fromUtf8(form_texts::toolBar), tools));
    auto* splitter = new QSplitter;
    splitter->setChildrenCollapsible(false);
    m_list = buildList();
    m_panel = buildForm();
    splitter->addWidget(m_list);
    splitter->addWidget(arrangeForm(m_panel));
    splitter->setStretchFactor(1, 1);
    column->addWidget(splitter, 1);
    addFields();
    setTabOrder(m_lastInOrder, m_ok);

    const int character = fontMetrics().horizontalAdvance(QChar(0x5E10));
    splitter->setSizes({treeCharacters * character, m_window.formCharacters * character});
    resize((treeCharacters + m_window.formCharacters) * character,
           m_window.lines * fontMetrics().lineSpacing());
}

QWidget* ListFormDialog::buildList() {
    m_filter = new QLineEdit;
    m_filter->setObjectName(QStringLiteral("filter"));
    m_filter->setClearButtonEnabled(true);
    auto* label = new QLabel(QString::fromUtf8(form_texts::filter));
    label->setBuddy(m_filter);
    m_filterBar = new QWidget;
    auto* bar = new QHBoxLayout(m_filterBar);
    bar->setContentsMargins({});
    bar->addWidget(label);
    bar->addWidget(m_filter);

    m_leaves = new LeafModel(this);
    m_tree = new QTreeView;
    m_tree->setObjectName(QString::fromUtf8(m_window.tree));
    m_tree->setAccessibleName(QString::fromUtf8(m_window.title));
    m_tree->setHeaderHidden(true);
    m_tree->setRootIsDecorated(false);
    m_tree->setUniformRowHeights(true);
    m_tree->setModel(m_leaves);

    m_emptyWords = new EmptyWords(*m_tree);
    offerHistoryOfLeaf();

    auto* list = new QWidget;
    auto* column = new QVBoxLayout(list);
    column->setContentsMargins({});
    column->addWidget(m_filterBar);
    column->addWidget(m_tree);

    // Not within the event of the mouse or key: a question may come up.
    connect(m_tree->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            guarded([this] { followTree(); }), Qt::QueuedConnection);
    auto* down = new QShortcut(Qt::Key_Down, m_filter, nullptr, nullptr, Qt::WidgetShortcut);
    connect(down, &QShortcut::activated, this, guarded([this] { enterTree(); }));
    connect(m_filter, &QLineEdit::textChanged, this, guarded([this] {
                if (m_isShowing) return;
                form().filter(m_filter->text().toStdString());
                showForm();
            }));
    return list;
}

void ListFormDialog::offerHistoryOfLeaf() {
    offerHistory(*m_tree, [this]() -> std::optional<AskedHistory> {
        const Leaf* const leaf = form().leaves().find(form().selectedId());
        if (form().isAdding() || leaf == nullptr) return std::nullopt;
        return AskedHistory{leaf->text, selectedHistory()};
    });
}

QWidget* ListFormDialog::buildForm() {
    m_fieldRows = new QFormLayout;
    m_usedMark = new QLabel(QString::fromUtf8(form_texts::used));
    m_usedMark->setObjectName(QStringLiteral("usedMark"));
    m_usedMark->setWordWrap(true);
    QPalette marked = m_usedMark->palette();
    marked.setColor(QPalette::WindowText, colours::seal);
    m_usedMark->setPalette(marked);
    QSizePolicy keepingItsPlace = m_usedMark->sizePolicy();
    keepingItsPlace.setRetainSizeWhenHidden(true);
    m_usedMark->setSizePolicy(keepingItsPlace);

    m_ok = new QPushButton(QString::fromUtf8(form_texts::ok));
    m_ok->setObjectName(QStringLiteral("ok"));
    m_ok->setAutoDefault(false);
    connect(m_ok, &QPushButton::clicked, this, guarded([this] { OnOK(); }));

    auto* lastRow = new QHBoxLayout;
    lastRow->addWidget(m_usedMark, 1);
    lastRow->addWidget(m_ok);
    auto* panel = new QWidget;
    auto* column = new QVBoxLayout(panel);
    column->addLayout(m_fieldRows);
    column->addLayout(lastRow);
    column->addStretch();
    return panel;
}

LimitedEdit* ListFormDialog::addEdit(const char* label, char key, const char* name, int limit,
                                     QWidget* button) {
    auto* edit = new LimitedEdit(limit);
    edit->setObjectName(QLatin1String(name));
    addField(*edit, QStringLiteral("%1(&%2):").arg(QString::fromUtf8(label)).arg(QLatin1Char(key)),
             button);
    connect(edit, &QLineEdit::textChanged, this, guarded([this, edit] { inputEdited(*edit); }));
    tellCuts(*edit, label, messages());
    return edit;
}

void ListFormDialog::addField(QWidget& field, const QString& label, QWidget* button) {
    m_fields.append(&field);
    m_lastInOrder = button == nullptr ? &field : button;
    if (button == nullptr) return m_fieldRows->addRow(label, &field);
    auto* caption = new QLabel(label);
    caption->setBuddy(&field);
    auto* line = new QHBoxLayout;
    line->addWidget(&field, 1);
    line->addWidget(button);
    m_fieldRows->addRow(caption, line);
    setTabOrder(&field, button);
}

void ListFormDialog::addFieldLine(std::span<QWidget* const> fields) {
    auto* line = new QHBoxLayout;
    for (QWidget* field : fields) {
        m_fields.append(field);
        m_lastInOrder = field;
        line->addWidget(field);
    }
    line->addStretch();
    m_fieldRows->addRow(QString(), line);
}

void ListFormDialog::inputEdited(QWidget& field) {
    if (m_isShowing) return;
    m_editedField = &field;
    UpdateData();
    showState();
}

void ListFormDialog::setFormOpen(bool isOpen) {
    m_list->setEnabled(isOpen);
    m_panel->setEnabled(isOpen);
}

void ListFormDialog::carryOut(const std::function<void()>& command) {
    if (m_isCarryingOut) return;
    const bool wasAdding = form().isAdding();
    {
        const QScopedValueRollback carryingOut(m_isCarryingOut, true);
        command();
    }
    showForm();
    if (form().isAdding() && !wasAdding) {
        showFields();
        m_fields.first()->setFocus(Qt::OtherFocusReason);
    }
}

void ListFormDialog::workOnRecords(const std::function<bool()>& work) {
    bool mayWork = false;
    bool hasChanged = false;
    carryOut([&] {
        mayWork = form().mayLeaveInput();
        hasChanged = mayWork && work();
    });
    if (hasChanged) readAnew();
    if (!mayWork) returnToInput();
}

/// The selected leaf stays as high in the list as it was.
void ListFormDialog::readAnew() {
    QScrollBar& bar = *m_tree->verticalScrollBar();
    const int height = m_tree->currentIndex().row() - bar.value();
    carryOut([this] { form().refresh(); });
    m_tree->doItemsLayout();
    if (m_tree->currentIndex().isValid()) bar.setValue(m_tree->currentIndex().row() - height);
}

void ListFormDialog::showForm() {
    const QScopedValueRollback showing(m_isShowing, true);
    const LeafList& leaves = form().leaves();
    m_leaves->show(leaves);
    m_filterBar->setVisible(leaves.offersFilter());
    m_emptyWords->setWords(QString::fromUtf8(leaves.filter().empty() ? form_texts::noRecords
                                                                     : form_texts::noneFiltered));
    if (m_filter->text().toStdString() != leaves.filter())
        m_filter->setText(QString::fromStdString(leaves.filter()));
    const QModelIndex selected = m_leaves->indexOf(form().selectedId());
    if (selected.isValid()) {
        m_tree->setCurrentIndex(selected);
    } else {
        m_tree->selectionModel()->clear();
    }
    UpdateData(false);
    showState();
}

void ListFormDialog::showState() {
    m_usedMark->setText(QString::fromStdString(form().usedWords()));
    m_usedMark->setVisible(form().isUsed());
    m_ok->setEnabled(form().canSave());
    m_commands->setEnabled(deleteCommand, form().canDelete());
}

void ListFormDialog::setCommandEnabled(int command, bool isEnabled) {
    m_commands->setEnabled(command, isEnabled);
}

void ListFormDialog::followTree() {
    const int id = selectedLeaf();
    if (m_isCarryingOut || id == 0 || id == form().selectedId()) return;
    carryOut([this, id] { form().select(id); });
    if (form().hasUnsavedInput()) returnToInput();
}

/// From the filter into what it shows.
void ListFormDialog::enterTree() {
    m_tree->setFocus(Qt::TabFocusReason);
    if (selectedLeaf() == 0) m_tree->setCurrentIndex(m_leaves->index(0));
}

int ListFormDialog::selectedLeaf() const {
    const QModelIndexList selected = m_tree->selectionModel()->selectedIndexes();
    return selected.isEmpty() ? 0 : m_leaves->idAt(selected.first());
}

void ListFormDialog::returnToInput() {
    showFields();
    QWidget* field = m_editedField ? m_editedField : m_fields.first();
    field->setFocus(Qt::OtherFocusReason);
}

/// Enter with nothing to save goes on to the next field that can be used.
void ListFormDialog::moveOn() {
    const auto behind = m_fields.begin() + m_fields.indexOf(focusWidget()) + 1;
    const auto next = std::find_if(behind, m_fields.end(), std::mem_fn(&QWidget::isEnabled));
    if (next != m_fields.end()) (*next)->setFocus(Qt::TabFocusReason);
}

void ListFormDialog::OnOK() {
    if (m_filter->hasFocus()) {
        enterTree();
    } else if (form().canSave()) {
        carryOut([this] { form().save(); });
    } else {
        moveOn();
    }
}

void ListFormDialog::OnCancel() {
    if (!finishTyping()) return;
    bool mayClose = false;
    carryOut([&] { mayClose = form().mayLeaveInput(); });
    if (mayClose) {
        EndDialog(Rejected);
    } else {
        returnToInput();
    }
}

void ListFormDialog::reject() { OnCancel(); }

void ListFormDialog::OnMenuPreview() {
    if (finishTyping()) printRecords(ReportOutput::preview);
}

void ListFormDialog::OnMenuPrint() {
    if (finishTyping()) printRecords(ReportOutput::print);
}

void ListFormDialog::OnMenuInsert() {
    giveUpTyping();
    bool isAdding = false;
    carryOut([&] { isAdding = form().startAdding(); });
    if (isAdding) {
        showFields();
        m_fields.first()->setFocus(Qt::OtherFocusReason);
    } else {
        returnToInput();
    }
}

void ListFormDialog::OnMenuDelete() {
    if (!finishTyping()) return;
    carryOut([this] { form().remove(selectedLeaf()); });
}

void ListFormDialog::OnMenuSearch() { showHelp(m_window.helpContext, *this).startSearch(); }

void ListFormDialog::OnMenuAbout() {
    messages().tell({.text = fmt::format(form_texts::aboutProgram, programVersion())});
}

bool ListFormDialog::OnHelpInfo() {
    showHelp(m_window.helpContext, *this);
    return true;
}

bool ListFormDialog::OnCommand(int command) {
    struct Handler {
        int command;
        void (ListFormDialog::*handle)();
    };
    static constexpr Handler handlers[] = {
        {previewCommand, &ListFormDialog::OnMenuPreview},
        {printCommand, &ListFormDialog::OnMenuPrint},
        {exitCommand, &ListFormDialog::OnCancel},
        {insertCommand, &ListFormDialog::OnMenuInsert},
        {deleteCommand, &ListFormDialog::OnMenuDelete},
        {helpCommandNumber, &ListFormDialog::OnMenuHelp},
        {searchCommand, &ListFormDialog::OnMenuSearch},
        {aboutCommand, &ListFormDialog::OnMenuAbout},
    };
    const auto found = std::ranges::find(handlers, command, &Handler::command);
    if (found == std::end(handlers)) return CNxMiddleDialog::OnCommand(command);
    (this->*found->handle)();
    return true;
}

}  // namespace chengheng
