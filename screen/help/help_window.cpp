#include "screen/help/help_window.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QSplitter>
#include <QTextBrowser>
#include <QVBoxLayout>

#include "screen/colours.h"
#include "screen/fonts.h"
#include "screen/help/help_pages.h"
#include "screen/screen_texts.h"
#include "screen/window_shape.h"

namespace chengheng {
namespace {

constexpr QSize openingSize(760, 520);
constexpr int contentsWidth = 190;
constexpr int pageMargin = 18;

}  // namespace

HelpWindow::HelpWindow(QWidget* parent) : QDialog(parent, Qt::Window) {
    setWindowTitle(QString::fromUtf8(screen_texts::helpTitle));
    setAttribute(Qt::WA_DeleteOnClose);
    setFont(windowFont());
    resize(openingSize);
    buildControls();
    fillContents({});
    m_contents->setCurrentIndex(m_titles.index(0));
}

void HelpWindow::buildControls() {
    m_search = new QLineEdit;
    m_search->setClearButtonEnabled(true);
    auto* label = new QLabel(QString::fromUtf8(screen_texts::helpSearch));
    label->setBuddy(m_search);

    m_contents = new QListView;
    m_contents->setModel(&m_titles);
    m_contents->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_contents->setAccessibleName(QString::fromUtf8(screen_texts::helpContents));

    m_page = new QTextBrowser;
    m_page->setOpenLinks(false);
    m_page->setAccessibleName(QString::fromUtf8(screen_texts::helpPage));
    m_page->document()->setDocumentMargin(pageMargin);

    auto* left = new QWidget;
    auto* column = new QVBoxLayout(left);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(label);
    column->addWidget(m_search);
    column->addWidget(m_contents);
    auto* splitter = new QSplitter;
    splitter->addWidget(left);
    splitter->addWidget(m_page);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({contentsWidth, openingSize.width() - contentsWidth});
    auto* row = new QHBoxLayout(this);
    row->addWidget(splitter);

    connect(m_search, &QLineEdit::textChanged, this, &HelpWindow::fillContents);
    connect(m_contents->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& current) { showRow(current.row()); });
    connect(m_page, &QTextBrowser::anchorClicked, this, &HelpWindow::followLink);
    m_contents->setFocus();
}

void HelpWindow::setVisible(bool visible) {
    if (visible) prepareShape(*this);
    QDialog::setVisible(visible);
}

void HelpWindow::fillContents(const QString& wanted) {
    QStringList titles;
    m_shownPages.clear();
    const auto all = helpPages();
    for (std::size_t page = 0; page < all.size(); ++page) {
        if (!wanted.isEmpty() && !isFoundOnPage(all[page], wanted)) continue;
        m_shownPages.append(static_cast<int>(page));
        titles.append(QString::fromUtf8(all[page].title));
    }
    m_titles.setStringList(titles);
    if (m_shownPages.isEmpty()) {
        m_page->setPlainText(QString::fromUtf8(screen_texts::helpNothingFound));
    } else {
        m_contents->setCurrentIndex(m_titles.index(0));
    }
}

void HelpWindow::showRow(int row) {
    if (row >= 0 && row < m_shownPages.size()) showPage(m_shownPages[row]);
}

void HelpWindow::showPage(int page) {
    m_page->setHtml(helpPageSource(helpPages()[static_cast<std::size_t>(page)]));
    markWords();
}

void HelpWindow::markWords() {
    QList<QTextEdit::ExtraSelection> marks;
    const QString wanted = m_search->text();
    QTextCursor found(m_page->document());
    while (!wanted.isEmpty()) {
        found = m_page->document()->find(wanted, found);
        if (found.isNull()) break;
        QTextEdit::ExtraSelection mark;
        mark.cursor = found;
        mark.format.setBackground(QColor(0xff, 0xe8, 0x9c));
        marks.append(mark);
    }
    m_page->setExtraSelections(marks);
}

void HelpWindow::followLink(const QUrl& link) { showContext(link.path().toInt()); }

void HelpWindow::showContext(int context) {
    m_search->clear();
    m_contents->setCurrentIndex(m_titles.index(helpPageIndex(context)));
}

void HelpWindow::startSearch() { m_search->setFocus(Qt::OtherFocusReason); }

QString HelpWindow::shownTitle() const { return m_contents->currentIndex().data().toString(); }

HelpWindow& showHelp(int context, QWidget& window) {
    auto* help = window.findChild<HelpWindow*>(QString(), Qt::FindDirectChildrenOnly);
    if (!help) help = new HelpWindow(&window);
    help->showContext(context);
    help->show();
    help->raise();
    help->activateWindow();
    return *help;
}

}  // namespace chengheng
