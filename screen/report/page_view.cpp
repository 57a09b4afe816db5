#include "screen/report/page_view.h"

#include <fmt/format.h>

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>

#include "screen/report/report_texts.h"

namespace chengheng {
namespace {

constexpr int paperMargin = 12;  // around the paper, in pixels
constexpr int shadow = 3;
constexpr double smallestFactor = 0.1;
constexpr QColor desk{0x8f, 0x96, 0x97};

}  // namespace

/// The paper itself. Painted once for a page and size; scrolling moves the picture.
class PageView::Sheet final : public QWidget {
  public:
    explicit Sheet(PageView& view) : QWidget(&view), m_view(view) {}

    void forget() {
        m_picture = QPixmap();
        update();
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        if (m_picture.isNull()) paintPaper();
        QPainter painter(this);
        painter.fillRect(rect(), desk);
        const QSize paper = paperSize();
        const QPoint corner((width() - paper.width()) / 2, (height() - paper.height()) / 2);
        painter.fillRect(QRect(corner + QPoint(shadow, shadow), paper), desk.darker(150));
        painter.drawPixmap(corner, m_picture);
    }

  private:
    QSize paperSize() const {
        const double scale = paperUnits * m_view.pixelsPerUnit();
        return {qRound(m_view.m_document.pages().pageWidth() * scale),
                qRound(m_view.m_document.pages().pageHeight() * scale)};
    }
    void paintPaper() {
        const qreal ratio = devicePixelRatioF();
        m_picture = QPixmap((QSizeF(paperSize()) * ratio).toSize());
        m_picture.setDevicePixelRatio(ratio);
        m_picture.fill(Qt::white);
        QPainter painter(&m_picture);
        painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
        painter.scale(m_view.pixelsPerUnit(), m_view.pixelsPerUnit());
        m_view.m_document.paint(painter, m_view.m_page);
    }

    PageView& m_view;
    QPixmap m_picture;
};

PageView::PageView(const ReportDocument& document, QWidget* parent)
    : QScrollArea(parent), m_document(document), m_sheet(new Sheet(*this)) {
    setFrameShape(NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    QPalette colours = palette();
    colours.setColor(QPalette::Window, desk);
    viewport()->setPalette(colours);
    setAccessibleName(QString::fromUtf8(report_texts::pages));
    setWidget(m_sheet);
    showPage(0);
}

double PageView::pixelsPerUnit() const {
    const double factor = shownFactor();
    return factor * logicalDpiX() / millimetresPerInch / paperUnits;
}

double PageView::shownFactor() const {
    if (m_fit == PageFit::factor) return m_factor;
    // Room for a scroll bar is kept free in any case, lest one that comes and goes would
    // change the size that brought it.
    const double perMillimetre = logicalDpiX() / millimetresPerInch;
    const int bar = verticalScrollBar()->sizeHint().width();
    const double width = this->width() - 2 * paperMargin - bar;
    const double height = this->height() - 2 * paperMargin;
    const double byWidth = width / (m_document.pages().pageWidth() * perMillimetre);
    const double byHeight = height / (m_document.pages().pageHeight() * perMillimetre);
    return std::max(m_fit == PageFit::width ? byWidth : std::min(byWidth, byHeight),
                    smallestFactor);
}

void PageView::place() {
    const double scale = paperUnits * pixelsPerUnit();
    const QSize paper(qRound(m_document.pages().pageWidth() * scale) + 2 * paperMargin,
                      qRound(m_document.pages().pageHeight() * scale) + 2 * paperMargin);
    m_sheet->resize(paper.expandedTo(viewport()->size()));
    m_sheet->forget();
}

void PageView::showPage(std::size_t page) {
    m_page = page;
    verticalScrollBar()->setValue(0);
    refresh();
}

void PageView::refresh() {
    place();
    m_sheet->setAccessibleName(
        QString::fromStdString(fmt::format(report_texts::pageName, m_page + 1)));
    m_sheet->setAccessibleDescription(m_document.readText(m_page));
}

void PageView::setFit(PageFit fit) {
    m_fit = fit;
    place();
}

void PageView::setFactor(double factor) {
    m_factor = factor;
    setFit(PageFit::factor);
}

bool PageView::turnAtEdge(int steps) {
    const QScrollBar* bar = verticalScrollBar();
    const bool isAtEdge = steps > 0 ? bar->value() == bar->maximum() : bar->value() == 0;
    if (!isAtEdge) return false;
    const std::size_t before = m_page;
    emit pageWanted(static_cast<qsizetype>(m_page) + steps);
    if (steps < 0 && m_page != before) verticalScrollBar()->setValue(bar->maximum());
    return true;
}

void PageView::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_PageDown:
        case Qt::Key_Space:
            if (!turnAtEdge(1)) verticalScrollBar()->triggerAction(QScrollBar::SliderPageStepAdd);
            return;
        case Qt::Key_PageUp:
            if (!turnAtEdge(-1)) verticalScrollBar()->triggerAction(QScrollBar::SliderPageStepSub);
            return;
        case Qt::Key_Home:
            emit pageWanted(0);
            return;
        case Qt::Key_End:
            emit pageWanted(static_cast<qsizetype>(m_document.pages().pageCount()) - 1);
            return;
        default:
            QScrollArea::keyPressEvent(event);
    }
}

void PageView::wheelEvent(QWheelEvent* event) {
    const int turned = event->angleDelta().y();
    if (turned != 0 && event->modifiers().testFlag(Qt::ControlModifier))
        emit zoomWanted(turned > 0 ? 1 : -1);
    else if (turned == 0 || !turnAtEdge(turned > 0 ? -1 : 1))
        QScrollArea::wheelEvent(event);
    event->accept();
}

void PageView::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    place();
}

}  // namespace chengheng
