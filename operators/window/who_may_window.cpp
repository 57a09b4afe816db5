#include "operators/window/who_may_window.h"

#include <fmt/format.h>

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QShortcut>
#include <QVBoxLayout>

#include "accounts/codes/mnemonic.h"
#include "operators/screen/division_texts.h"
#include "screen/forms/leaf_model.h"
#include "screen/shown.h"

namespace chengheng {
namespace {

namespace texts = division_texts;

constexpr int widthCharacters = 34;
constexpr int heightLines = 22;

std::vector<Leaf> allFunctions() {
    std::vector<Leaf> leaves;
    for (const RightsGroup& group : rightsGroups())
        for (const char* name : group.functions) {
            const int number = static_cast<int>(leaves.size()) + 1;
            leaves.push_back(
                {number, fmt::format(texts::numberedFunction, number, group.name, name)});
        }
    return leaves;
}

}  // namespace

WhoMayWindow::WhoMayWindow(const DivisionScreen& screen, QWidget* parent)
    : CNxMiddleDialog(parent), m_screen(screen) {
    setWindowTitle(shown(texts::whoMayTitle));
    m_functions.assign(allFunctions());
    m_functions.findBy([](const Leaf& leaf) { return initialsOf(leaf.text); });
    m_search = new QLineEdit;
    m_search->setObjectName(QStringLiteral("search"));
    m_search->setClearButtonEnabled(true);
    m_model = new LeafModel(this);
    m_list = new QListView;
    m_list->setObjectName(QStringLiteral("functions"));
    m_list->setAccessibleName(shown(texts::whoMayFunctions));
    m_list->setModel(m_model);
    m_operators = new QLabel;
    m_operators->setObjectName(QStringLiteral("operators"));
    m_operators->setTextFormat(Qt::PlainText);
    m_operators->setWordWrap(true);
    auto* rows = new QFormLayout;
    rows->addRow(shown(texts::whoMaySearch), m_search);
    auto* column = new QVBoxLayout(this);
    column->addLayout(rows);
    column->addWidget(m_list, 1);
    column->addWidget(m_operators);
    connect(m_search, &QLineEdit::textChanged, this, guarded([this] { filter(); }));
    connect(m_list->selectionModel(), &QItemSelectionModel::currentChanged, this,
            guarded([this] { showOperators(); }));
    auto* down = new QShortcut(Qt::Key_Down, m_search, nullptr, nullptr, Qt::WidgetShortcut);
    connect(down, &QShortcut::activated, m_list, [this] { m_list->setFocus(); });
    filter();
    resize(widthCharacters * fontMetrics().horizontalAdvance(QChar(0x5E10)),
           heightLines * fontMetrics().lineSpacing());
    m_search->setFocus();
}

/// The first function found is the one whose operators are shown.
void WhoMayWindow::filter() {
    m_functions.setFilter(m_search->text().toStdString());
    m_model->show(m_functions);
    m_list->setCurrentIndex(m_model->index(0));
    showOperators();
}

void WhoMayWindow::showOperators() {
    const int function = m_model->idAt(m_list->currentIndex());
    m_operators->setText(function == 0 ? QString() : shown(m_screen.whoMay(function)));
}

/// Enter goes from the search into what it has found.
void WhoMayWindow::OnOK() { m_list->setFocus(Qt::TabFocusReason); }

}  // namespace chengheng
