#include "screen/log/log_window.h"

#include <fmt/format.h>

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSplitter>
#include <QTimer>
#include <QToolBar>
#include <QVBoxLayout>
#include <algorithm>
#include <iterator>

#include "base/system/program_version.h"
#include "forms/form_texts.h"
#include "operationlog/listing/log_list.h"
#include "operationlog/log_names.h"
#include "operationlog/screen/log_screen_texts.h"
#include "screen/grid/CVCF1.h"
#include "screen/help/help_pages.h"
#include "screen/help/help_window.h"
#include "screen/host_events.h"
#include "screen/log/log_models.h"
#include "screen/shown.h"

namespace chengheng {
namespace {

namespace texts = log_screen_texts;

constexpr int previewCommand = 1;
constexpr int printCommand = 2;
constexpr int exitCommand = 3;
constexpr int refreshCommand = 4;
constexpr int searchHelpCommand = 5;
constexpr int aboutCommand = 6;

constexpr MenuItemResource fileItems[] = {
    {previewCommand, form_texts::preview},
    {printCommand, form_texts::print},
    {0, ""},
    {refreshCommand, texts::refresh},
    {0, ""},
    {exitCommand, form_texts::exit},
};
constexpr MenuItemResource helpItems[] = {
    {helpCommandNumber, form_texts::helpTopics},
    {searchHelpCommand, form_texts::search},
    {0, ""},
    {aboutCommand, form_texts::about},
};
constexpr WindowMenu menus[] = {{form_texts::fileMenu, fileItems},
                                {form_texts::helpMenu, helpItems}};
constexpr ToolButton tools[] = {
    {printCommand, "print"},
    {previewCommand, "preview"},
    {0, ""},
    {refreshCommand, "refresh"},
    {0, ""},
    {helpCommandNumber, "help", form_texts::helpButton},
    {exitCommand, "exit"},
};

constexpr QSize windowSize(1240, 660);
constexpr int entriesShare = 5;
constexpr int changesShare = 4;
constexpr int longestText = 200;

QLineEdit* makeField(const char* name, const char* hint = "") {
    auto* field = new QLineEdit;
    field->setObjectName(QString::fromLatin1(name));
    field->setPlaceholderText(shown(hint));
    field->setMaxLength(longestText);
    return field;
}

/// A label and its field, one beside the other in a cell of the filter.
void addToFilter(QGridLayout& grid, int row, int column, const char* caption, QWidget* field) {
    auto* label = new QLabel(shown(caption));
    label->setBuddy(field);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    grid.addWidget(label, row, column * 2);
    grid.addWidget(field, row, column * 2 + 1);
    grid.setColumnStretch(column * 2 + 1, 1);
}

}  // namespace

LogWindow::LogWindow(QWidget* parent)
    : CNxMiddleDialog(parent), m_atWork(texts::title), m_screen(messages()) {}

LogWindow::~LogWindow() = default;

bool LogWindow::OnInitDialog() {
    setWindowTitle(shown(texts::title));
    buildControls();
    if (!m_screen.open()) {
        EndDialog(Rejected);
        return false;
    }
    m_entryModel->showFound();
    fillChoices();
    goToNewest();
    m_entries->setFocus(Qt::OtherFocusReason);
    return false;
}

void LogWindow::buildControls() {
    auto* column = new QVBoxLayout(this);
    m_commands = std::make_unique<WindowCommands>(*this, menus);
    column->addWidget(m_commands->makeToolBar(shown(form_texts::toolBar), tools));
    column->addWidget(buildFilter());
    column->addWidget(buildGrids(), 1);
    resize(windowSize);
}

QWidget* LogWindow::buildFilter() {
    auto* filter = new QWidget;
    auto* grid = new QGridLayout(filter);
    grid->setContentsMargins({});
    m_operator = new QComboBox;
    m_operator->setObjectName(QStringLiteral("operator"));
    m_function = new QComboBox;
    m_function->setObjectName(QStringLiteral("function"));
    m_from = makeField(log_field::from, texts::momentHint);
    m_to = makeField(log_field::to, texts::momentHint);
    m_text = makeField("text");
    m_account = makeField("account");
    addToFilter(*grid, 0, 0, texts::operatorLabel, m_operator);
    addToFilter(*grid, 0, 1, texts::fromLabel, m_from);
    addToFilter(*grid, 0, 2, texts::toLabel, m_to);
    addToFilter(*grid, 1, 0, texts::functionLabel, m_function);
    addToFilter(*grid, 1, 1, texts::textLabel, m_text);
    addToFilter(*grid, 1, 2, texts::accountLabel, m_account);
    m_search = new QPushButton(shown(texts::search));
    m_search->setObjectName(QStringLiteral("search"));
    m_search->setAutoDefault(false);
    auto* clear = new QPushButton(shown(texts::clear));
    clear->setObjectName(QStringLiteral("clear"));
    clear->setAutoDefault(false);
    grid->addWidget(m_search, 0, 6);
    grid->addWidget(clear, 1, 6);
    connect(m_search, &QPushButton::clicked, this, guarded([this] { search(); }));
    connect(clear, &QPushButton::clicked, this, guarded([this] { clearFilter(); }));
    // In the order in which people read.
    QWidget* before = m_operator;
    for (QWidget* next : std::initializer_list<QWidget*>{m_from, m_to, m_function, m_text,
                                                         m_account, m_search, clear}) {
        setTabOrder(before, next);
        before = next;
    }
    return filter;
}

QWidget* LogWindow::buildGrids() {
    m_entryModel = new LogEntryModel(m_screen, this);
    m_changeModel = new LogChangeModel(m_screen, this);
    m_entries = new CVCF1(shown(texts::entries), CVCF1::Unit::row);
    m_entries->setObjectName(QStringLiteral("entries"));
    m_entries->setGridModel(m_entryModel);
    m_changes = new CVCF1(shown(texts::changes), CVCF1::Unit::row);
    m_changes->setObjectName(QStringLiteral("changes"));
    m_changes->setGridModel(m_changeModel);
    m_count = new QLabel;
    m_count->setObjectName(QStringLiteral("count"));
    m_heading = new QLabel;
    m_heading->setObjectName(QStringLiteral("heading"));
    for (QLabel* label : {m_count, m_heading}) label->setTextFormat(Qt::PlainText);
    m_heading->setWordWrap(true);
    m_heading->setTextInteractionFlags(Qt::TextSelectableByMouse);

    auto* left = new QWidget;
    auto* entries = new QVBoxLayout(left);
    entries->setContentsMargins({});
    entries->addWidget(m_entries, 1);
    entries->addWidget(m_count);
    auto* right = new QWidget;
    auto* changes = new QVBoxLayout(right);
    changes->setContentsMargins({});
    changes->addWidget(m_heading);
    changes->addWidget(m_changes, 1);
    auto* splitter = new QSplitter;
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(left);
    splitter->addWidget(right);
    splitter->setStretchFactor(0, entriesShare);
    splitter->setStretchFactor(1, changesShare);
    splitter->setSizes({windowSize.width() * entriesShare, windowSize.width() * changesShare});

    connect(m_entries->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            guarded([this] { showSelected(); }));
    connect(m_entryModel, &LogEntryModel::fetched, this, guarded([this] { showCount(); }));
    connect(m_changeModel, &LogChangeModel::fetched, this, guarded([this] { tellFailureLater(); }));
    for (const auto& [grid, other] : {std::pair(m_entries, m_changes), {m_changes, m_entries}})
        connect(grid, &CVCF1::keyDown, other, [other = other](int key) {
            if (key == Qt::Key_Return || key == Qt::Key_Enter)
                other->setFocus(Qt::OtherFocusReason);
        });
    return splitter;
}

void LogWindow::fillChoices() {
    m_operator->addItem(shown(texts::everything), QString());
    for (const std::string& name : m_screen.operators())
        if (!name.empty()) m_operator->addItem(shown(name), shown(name));
    m_function->addItem(shown(texts::everything));
    for (const std::int32_t function : m_screen.functions()) {
        const std::string name = shownFunction(function);
        m_function->addItem(name.empty() ? shown(texts::noFunction) : shown(name), function);
    }
}

LogFilter LogWindow::typedFilter() const {
    LogFilter filter{.operatorName = m_operator->currentData().toString().toStdString(),
                     .from = m_from->text().toStdString(),
                     .to = m_to->text().toStdString(),
                     .text = m_text->text().toStdString(),
                     .account = m_account->text().toStdString()};
    if (const QVariant function = m_function->currentData(); function.isValid())
        filter.function = function.toInt();
    return filter;
}

void LogWindow::search() {
    if (!m_screen.look(typedFilter())) return;
    m_entryModel->showFound();
    goToNewest();
}

void LogWindow::goToNewest() {
    m_entries->setCurrentRow(0);
    showCount();
    // There is no row to go to.
    if (m_screen.entries().empty()) showSelected();
}

void LogWindow::clearFilter() {
    for (QComboBox* box : {m_operator, m_function}) box->setCurrentIndex(0);
    for (QLineEdit* field : {m_from, m_to, m_text, m_account}) field->clear();
    search();
}

/// The entry that the operator stands on stays the current one where it is among the newest.
void LogWindow::refresh() {
    if (!m_screen.look(m_screen.filter())) return;
    const int row = m_entries->currentRow();
    const auto& before = m_screen.entries();
    const std::int64_t number = row < 0 ? 0 : before[static_cast<std::size_t>(row)].number;
    m_entries->readAnew(
        [this] { m_entryModel->showFound(); },
        [this, number] {
            const auto& entries = m_screen.entries();
            const auto found = std::ranges::find(entries, number, &LogEntry::number);
            return found == entries.end() ? -1 : static_cast<int>(found - entries.begin());
        });
    showCount();
    if (m_screen.entries().empty()) showSelected();
}

void LogWindow::showCount() {
    m_count->setText(shown(m_screen.countText()));
    tellFailureLater();
}

void LogWindow::showSelected() {
    const int row = m_entries->currentRow();
    m_changeModel->reset([this, row] {
        m_screen.select(row < 0 ? m_screen.entries().size() : static_cast<std::size_t>(row));
    });
    m_changes->setCurrentRow(0);
    m_heading->setText(shown(m_screen.heading()));
    tellFailureLater();
}

void LogWindow::tellFailureLater() {
    QTimer::singleShot(0, this, guarded([this] { m_screen.tellFailure(); }));
}

void LogWindow::print(ReportOutput output) {
    printList(logList(m_screen.filter()), output, messages());
}

bool LogWindow::OnCommand(int command) {
    struct Handler {
        int command;
        void (*handle)(LogWindow& window);
    };
    static constexpr Handler handlers[] = {
        {previewCommand, [](LogWindow& window) { window.print(ReportOutput::preview); }},
        {printCommand, [](LogWindow& window) { window.print(ReportOutput::print); }},
        {exitCommand, [](LogWindow& window) { window.OnCancel(); }},
        {refreshCommand, [](LogWindow& window) { window.refresh(); }},
        {helpCommandNumber, [](LogWindow& window) { window.OnHelpInfo(); }},
        {searchHelpCommand,
         [](LogWindow& window) { showHelp(logHelpContext, window).startSearch(); }},
        {aboutCommand,
         [](LogWindow& window) {
             window.messages().tell(
                 {.text = fmt::format(form_texts::aboutProgram, programVersion())});
         }},
    };
    const auto found = std::ranges::find(handlers, command, &Handler::command);
    if (found == std::end(handlers)) return CNxMiddleDialog::OnCommand(command);
    found->handle(*this);
    return true;
}

bool LogWindow::OnHelpInfo() {
    showHelp(logHelpContext, *this);
    return true;
}

}  // namespace chengheng
