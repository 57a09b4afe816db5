#include "screen/report/report_preview.h"

#include <fmt/format.h>

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QSpinBox>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <climits>

#include "screen/report/report_printing.h"
#include "screen/report/report_texts.h"
#include "screen/resources.h"

namespace chengheng {
namespace {

constexpr QSize openingSize(1080, 800);
constexpr int pictureSize = 22;
constexpr std::size_t rowsPerStep = 2000;
constexpr std::array percents{25, 50, 75, 100, 125, 150, 200, 300, 400};
// What stands before the percents among the choices.
constexpr int wholePageChoice = 0;
constexpr int pageWidthChoice = 1;
constexpr int firstPercentChoice = 2;

template <class... Values>
QString text(fmt::format_string<const Values&...> format, const Values&... values) {
    return QString::fromStdString(fmt::format(format, values...));
}

}  // namespace

ReportPreview::ReportPreview(ReportDocument& document, QWidget* parent)
    : DialogFrame(parent), m_document(document) {
    setWindowTitle(text(report_texts::previewTitle, document.report().title()));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    m_document.pages().layOut(rowsPerStep);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    m_view = new PageView(document, this);
    buildToolBar();
    column->addWidget(m_view, 1);
    buildStatus();
    resize(openingSize.boundedTo(screen()->availableSize()));
    connect(m_view, &PageView::pageWanted, this,
            [this](qsizetype page) { guarded([this, page] { turnTo(page); })(); });
    connect(m_view, &PageView::zoomWanted, this,
            [this](int steps) { guarded([this, steps] { zoomBy(steps); })(); });
    connect(&m_layingOut, &QTimer::timeout, this, guarded([this] { layOutSome(); }));
    if (!m_document.pages().isComplete()) m_layingOut.start(0);
    tellPages();
    m_view->setFocus();
}

QAction* ReportPreview::addAction(QToolBar& bar, const char* caption, const char* picture,
                                  const QKeySequence& key, std::function<void()> work) {
    QAction* action = bar.addAction(toolIcon(picture), QString::fromUtf8(caption));
    action->setShortcuts({key, QKeySequence::mnemonic(action->text())});
    connect(action, &QAction::triggered, this, guarded(std::move(work)));
    // Its keys hold where the tool bar has no room for its button, too.
    QWidget::addAction(action);
    // A tool button of its own accord is for the mouse alone.
    bar.widgetForAction(action)->setFocusPolicy(Qt::TabFocus);
    return action;
}

void ReportPreview::buildToolBar() {
    auto* bar = new QToolBar(QString::fromUtf8(report_texts::toolBar), this);
    bar->setAccessibleName(bar->windowTitle());
    bar->setIconSize({pictureSize, pictureSize});
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    addAction(*bar, report_texts::print, "print", QKeySequence::Print, [this] { printPages(); });
    addAction(*bar, report_texts::exportPdf, "export", {}, [this] { exportTo(ExportKind::pdf); });
    addAction(*bar, report_texts::exportXlsx, "", {}, [this] { exportTo(ExportKind::xlsx); });
    addAction(*bar, report_texts::exportCsv, "", {}, [this] { exportTo(ExportKind::csv); });
    bar->addSeparator();
    addPageControls(*bar);
    bar->addSeparator();
    addZoomControls(*bar);
    bar->addSeparator();
    addAction(*bar, report_texts::close, "", {}, [this] { EndDialog(Accepted); });
    layout()->addWidget(bar);
}

void ReportPreview::addPageControls(QToolBar& bar) {
    const auto lastPage = [this] {
        return static_cast<qsizetype>(m_document.pages().pageCount()) - 1;
    };
    const auto ownPage = [this] { return static_cast<qsizetype>(m_view->page()); };
    m_first = addAction(bar, report_texts::firstPage, "", QKeySequence(Qt::CTRL | Qt::Key_Home),
                        [this] { turnTo(0); });
    m_previous =
        addAction(bar, report_texts::previousPage, "", QKeySequence(Qt::CTRL | Qt::Key_PageUp),
                  [this, ownPage] { turnTo(ownPage() - 1); });
    m_page = new QSpinBox;
    m_page->setMinimum(1);
    auto* label = new QLabel(QString::fromUtf8(report_texts::pageNumber));
    label->setBuddy(m_page);
    m_pageCount = new QLabel;
    bar.addWidget(label);
    bar.addWidget(m_page);
    bar.addWidget(m_pageCount);
    m_next = addAction(bar, report_texts::nextPage, "", QKeySequence(Qt::CTRL | Qt::Key_PageDown),
                       [this, ownPage] { turnTo(ownPage() + 1); });
    m_last = addAction(bar, report_texts::lastPage, "", QKeySequence(Qt::CTRL | Qt::Key_End),
                       [this, lastPage] { turnTo(lastPage()); });
    connect(m_page, &QSpinBox::valueChanged, this,
            guarded([this] { turnTo(m_page->value() - 1); }));
}

void ReportPreview::addZoomControls(QToolBar& bar) {
    m_zoom = new QComboBox;
    m_zoom->addItem(QString::fromUtf8(report_texts::wholePage));
    m_zoom->addItem(QString::fromUtf8(report_texts::pageWidth));
    for (const int percent : percents) m_zoom->addItem(text(report_texts::percent, percent));
    auto* label = new QLabel(QString::fromUtf8(report_texts::zoom));
    label->setBuddy(m_zoom);
    bar.addWidget(label);
    bar.addWidget(m_zoom);
    addAction(bar, report_texts::zoomIn, "", QKeySequence::ZoomIn, [this] { zoomBy(1); });
    addAction(bar, report_texts::zoomOut, "", QKeySequence::ZoomOut, [this] { zoomBy(-1); });
    connect(m_zoom, &QComboBox::currentIndexChanged, this,
            guarded([this] { zoomTo(m_zoom->currentIndex()); }));
}

void ReportPreview::buildStatus() {
    auto* row = new QHBoxLayout;
    constexpr int margin = 6;
    row->setContentsMargins(margin, margin / 2, margin, margin / 2);
    m_status = new QLabel;
    m_status->setTextFormat(Qt::PlainText);
    m_progress = new QProgressBar;
    m_progress->setTextVisible(false);
    m_progress->setAccessibleName(QString::fromUtf8(report_texts::layingOutAll));
    m_stop = new QPushButton(QString::fromUtf8(report_texts::stop));
    m_stop->setAutoDefault(false);
    row->addWidget(m_status, 1);
    row->addWidget(m_progress);
    row->addWidget(m_stop);
    static_cast<QVBoxLayout*>(layout())->addLayout(row);
    connect(m_stop, &QPushButton::clicked, this, guarded([this] { stopLayingOut(); }));
}

void ReportPreview::layOutSome() {
    m_document.pages().layOut(rowsPerStep);
    if (m_document.pages().isComplete()) m_layingOut.stop();
    tellPages();
    // Its own rows may have come, and the count of pages is known only at the end.
    const bool isLast = m_view->page() + 1 >= m_document.pages().pageCount();
    if (m_document.pages().isComplete() || isLast) m_view->refresh();
}

/// Enter leads from the page number and the zoom back to the pages and presses a tool button.
void ReportPreview::OnOK() {
    if (auto* button = qobject_cast<QToolButton*>(focusWidget()))
        button->click();
    else
        m_view->setFocus();
}

void ReportPreview::stopLayingOut() {
    m_layingOut.stop();
    tellPages();
    m_status->setText(text(report_texts::layoutStopped, m_document.pages().rowsLaidOut()));
}

void ReportPreview::tellPages() {
    const ReportPages& pages = m_document.pages();
    const std::size_t rows = m_document.report().rowCount();
    const bool isWorking = m_layingOut.isActive();
    const auto page = static_cast<int>(m_view->page());
    const auto count = static_cast<int>(std::min<std::size_t>(pages.pageCount(), INT_MAX));
    const QSignalBlocker quiet(m_page);
    m_page->setMaximum(count);
    m_page->setValue(page + 1);
    m_pageCount->setText(pages.isComplete() ? text(report_texts::pageCount, count)
                                            : text(report_texts::pagesSoFar, count));
    for (QAction* action : {m_first, m_previous}) action->setEnabled(page > 0);
    for (QAction* action : {m_next, m_last}) action->setEnabled(page + 1 < count);
    m_status->setText(isWorking ? text(report_texts::layingOut, pages.rowsLaidOut(), rows)
                                : QString());
    m_progress->setRange(0, static_cast<int>(rows));
    m_progress->setValue(static_cast<int>(pages.rowsLaidOut()));
    m_progress->setVisible(isWorking);
    m_stop->setVisible(isWorking);
}

void ReportPreview::turnTo(qsizetype page) {
    const auto count = static_cast<qsizetype>(m_document.pages().pageCount());
    const qsizetype wanted = std::clamp<qsizetype>(page, 0, count - 1);
    if (wanted == static_cast<qsizetype>(m_view->page())) return;
    m_view->showPage(static_cast<std::size_t>(wanted));
    tellPages();
}

void ReportPreview::zoomTo(int choice) {
    if (choice == wholePageChoice) m_view->setFit(PageFit::whole);
    if (choice == pageWidthChoice) m_view->setFit(PageFit::width);
    if (choice >= firstPercentChoice)
        m_view->setFactor(percents[static_cast<std::size_t>(choice - firstPercentChoice)] / 100.0);
}

void ReportPreview::zoomBy(int steps) {
    const double shown = m_view->shownFactor() * 100;
    // The next one that is noticeably larger or smaller.
    constexpr double same = 1;
    if (steps > 0) {
        const auto larger =
            std::ranges::find_if(percents, [&](int percent) { return percent > shown + same; });
        if (larger != percents.end())
            m_zoom->setCurrentIndex(firstPercentChoice +
                                    static_cast<int>(larger - percents.begin()));
    } else {
        const auto smaller = std::find_if(percents.rbegin(), percents.rend(),
                                          [&](int percent) { return percent < shown - same; });
        if (smaller != percents.rend())
            m_zoom->setCurrentIndex(firstPercentChoice +
                                    static_cast<int>(percents.rend() - smaller) - 1);
    }
}

void ReportPreview::printPages() {
    m_layingOut.stop();
    printDocument(m_document, this, messages());
    // On other paper there may be fewer pages.
    const std::size_t last = m_document.pages().pageCount() - 1;
    m_view->page() > last ? m_view->showPage(last) : m_view->refresh();
    tellPages();
}

void ReportPreview::exportTo(ExportKind kind) {
    const QString path = askForExportFile(kind, m_document.report().title(), this);
    if (path.isEmpty()) return;
    m_layingOut.stop();
    const UntoldOutcome untold = exportDocument(m_document, kind, path.toStdString(), this);
    tellPages();
    m_view->refresh();
    if (untold.outcome == Outcome::done)
        m_status->setText(text(report_texts::exported, path.toStdString()));
    if (untold.outcome == Outcome::refused)
        m_status->setText(QString::fromUtf8(report_texts::exportCancelled));
    told(messages(), untold);
}

}  // namespace chengheng
