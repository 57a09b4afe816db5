#include "screen/report/report_document.h"

#include <QPagedPaintDevice>
#include <QPainter>
#include <limits>
#include <utility>

namespace chengheng {
namespace {

constexpr std::size_t rowsPerTurn = 500;

int flagsOf(Alignment alignment) {
    const int common = Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextDontClip;
    switch (alignment) {
        case Alignment::left:
            return common | Qt::AlignLeft;
        case Alignment::center:
            return common | Qt::AlignHCenter;
        case Alignment::right:
            return common | Qt::AlignRight;
    }
    return common;
}

void paintRule(QPainter& painter, const DrawnRule& rule) {
    QPen pen(Qt::black, rule.width * paperUnits);
    pen.setCapStyle(Qt::SquareCap);
    painter.setPen(pen);
    painter.drawLine(QPointF(rule.fromX, rule.fromY) * paperUnits,
                     QPointF(rule.toX, rule.toY) * paperUnits);
}

}  // namespace

ReportDocument::ReportDocument(CReport& report) : m_report(report), m_measure(report.layout()) {
    m_pages.emplace(m_report, m_measure);
}

void ReportDocument::useLayout(const ReportLayout& layout) {
    m_report.useLayout(layout);
    m_pages.emplace(m_report, m_measure);
}

bool ReportDocument::layOutAll(const WorkProgress& progress) {
    while (!m_pages->isComplete()) {
        if (!progress(m_pages->rowsLaidOut(), m_report.rowCount())) return false;
        m_pages->layOut(rowsPerTurn);
    }
    return true;
}

void ReportDocument::paint(QPainter& painter, std::size_t page) const {
    const PageDrawing drawing = m_pages->draw(page);
    for (const DrawnRule& rule : drawing.rules) paintRule(painter, rule);
    painter.setPen(Qt::black);
    for (const DrawnText& text : drawing.texts) paintText(painter, text);
}

void ReportDocument::paintText(QPainter& painter, const DrawnText& text) const {
    const double unit = paperUnits / text.scale;
    const QRectF box(text.left * unit, text.top * unit, text.width * unit, text.height * unit);
    const QTransform before = painter.transform();
    if (text.scale != 1) painter.scale(text.scale, text.scale);
    painter.setFont(m_measure.font(text.font));
    painter.drawText(box, flagsOf(text.alignment), QString::fromStdString(text.text));
    if (text.scale != 1) painter.setTransform(before);
}

bool ReportDocument::paintPages(QPagedPaintDevice& device, std::span<const std::size_t> pages,
                                const WorkProgress& progress) const {
    QPainter painter;
    if (!painter.begin(&device)) return false;
    bool isFirst = true;
    std::size_t done = 0;
    for (const std::size_t page : pages) {
        if (!progress(done++, pages.size())) return false;
        if (!std::exchange(isFirst, false) && !device.newPage()) return false;
        painter.resetTransform();
        painter.scale(device.logicalDpiX() / millimetresPerInch / paperUnits,
                      device.logicalDpiY() / millimetresPerInch / paperUnits);
        paint(painter, page);
    }
    return painter.end();
}

QString ReportDocument::readText(std::size_t page) const {
    std::string read;
    PageDrawing around;
    drawAboveTable(around, m_report, m_measure, m_pages->numberOf(page));
    for (const DrawnText& text : around.texts) read += text.text + '\n';
    const PageRows rows = m_pages->rowsOn(page);
    // Tabs and line ends of a text would be taken for those between the cells.
    const CellSetter setter(m_measure, FontRole::cell, 1);
    const auto inOneLine = [&](std::string_view text) {
        return setter.lines(text, std::numeric_limits<double>::max(), 1).front();
    };
    const auto readRow = [&](const auto& textOf) {
        const char* separator = "";
        for (const std::size_t column : rows.columns) {
            read.append(std::exchange(separator, "\t")).append(inOneLine(textOf(column)));
        }
        read += '\n';
    };
    readRow([&](std::size_t column) { return m_report.heading(column); });
    for (std::size_t row = rows.first; row < rows.end; ++row)
        readRow([&](std::size_t column) { return m_report.cell(row, column); });
    around.texts.clear();
    drawBelowTable(around, m_report, m_measure, m_pages->numberOf(page));
    for (const DrawnText& text : around.texts) read += text.text + '\n';
    return QString::fromStdString(read);
}

}  // namespace chengheng
