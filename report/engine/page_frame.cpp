#include "report/engine/page_frame.h"

#include <algorithm>

#include "report/engine/cell_lines.h"
#include "report/layout/page_facts.h"

namespace chengheng {
namespace {

/// A line of the page before the table: the height it takes, and its rule, which the line may
/// have below it.
double heightOf(const LayoutLine& line) { return line.isEmpty() ? 0 : line.height; }

double headingHeight(const CReport& report) {
    const ReportLayout& layout = report.layout();
    double height = layout.titleHeight + heightOf(layout.heading);
    for (const std::size_t line : {0U, 2U})
        if (!report.headingLine(line).empty()) height += layout.heading.height;
    return height + layout.heading.height * static_cast<double>(report.extension().lines.size());
}

/// Widths of a line's three texts.
struct PartWidths {
    double left;
    double middle;
    double right;
};

/// How much of a line each text may take, by how much each would. The middle one keeps the
/// middle; of the others the shorter is the last to be cut.
PartWidths sharedOut(const PartWidths& wanted, double room) {
    constexpr double gap = 3;  // millimetres
    if (wanted.middle > 0) {
        const double side = std::max((room - std::min(wanted.middle, room / 2)) / 2 - gap, 0.0);
        const double beside = std::min(std::max(wanted.left, wanted.right), side);
        return {side, beside > 0 ? room - 2 * (beside + gap) : room, side};
    }
    if (wanted.left == 0 || wanted.right == 0) return {room, 0, room};
    const double half = (room - gap) / 2;
    return {room - gap - std::min(wanted.right, std::max(half, room - gap - wanted.left)), 0,
            room - gap - std::min(wanted.left, std::max(half, room - gap - wanted.right))};
}

/// Puts lines of text onto a page from top to bottom.
class LineWriter {
  public:
    LineWriter(PageDrawing& drawing, const PageFrame& frame, const ITextMeasure& measure,
               const PageFacts& facts, double top)
        : m_drawing(drawing), m_frame(frame), m_measure(measure), m_facts(facts), m_top(top) {}

    void parts(const std::string& left, const std::string& middle, const std::string& right,
               FontRole font, double height) {
        const auto width = [&](const std::string& text) {
            return text.empty() ? 0 : m_measure.width(font, text);
        };
        const PartWidths widths =
            sharedOut({width(left), width(middle), width(right)}, m_frame.room());
        part(left, font, height, Alignment::left, widths.left);
        part(middle, font, height, Alignment::center, widths.middle);
        part(right, font, height, Alignment::right, widths.right);
        m_top += height;
    }
    void facts(const LayoutLine& line, FontRole font) {
        if (line.isEmpty()) return;
        parts(withFacts(line.left, m_facts), withFacts(line.middle, m_facts),
              withFacts(line.right, m_facts), font, line.height);
    }
    void rule(double width) {
        if (width > 0)
            m_drawing.rules.push_back({m_frame.left, m_top, m_frame.right, m_top, width});
    }

  private:
    void part(const std::string& text, FontRole font, double height, Alignment alignment,
              double width) {
        if (text.empty()) return;
        const CellSetter setter(m_measure, font, 1);
        m_drawing.texts.push_back({.left = m_frame.left,
                                   .top = m_top,
                                   .width = m_frame.room(),
                                   .height = height,
                                   .text = setter.lines(text, width, 1).front(),
                                   .font = font,
                                   .alignment = alignment});
    }

    PageDrawing& m_drawing;
    const PageFrame& m_frame;
    const ITextMeasure& m_measure;
    const PageFacts& m_facts;
    double m_top;
};

}  // namespace

PageFrame::PageFrame(const CReport& report) {
    const ReportLayout& layout = report.layout();
    width = layout.paperWidth;
    height = layout.paperHeight;
    if (!layout.isPortrait) std::swap(width, height);
    left = layout.marginLeft;
    right = width - layout.marginRight;
    tableTop = layout.marginTop + heightOf(layout.header) + headingHeight(report);
    tableBottom = height - layout.marginBottom - heightOf(layout.footer);
    // However much stands above the table, a row has its place.
    tableTop = std::min(tableTop, tableBottom - layout.columnHeight - layout.rowHeight);
}

void drawAboveTable(PageDrawing& drawing, const CReport& report, const ITextMeasure& measure,
                    const PageNumber& number) {
    const ReportLayout& layout = report.layout();
    const PageFrame frame(report);
    const PageFacts facts{report.title(), report.extension().facts, number.page, number.count};
    LineWriter writer(drawing, frame, measure, facts, layout.marginTop);
    writer.facts(layout.header, FontRole::edge);
    if (!layout.header.isEmpty()) writer.rule(layout.header.rule);
    const double lineHeight = layout.heading.height;
    if (!report.headingLine(0).empty())
        writer.parts({}, report.headingLine(0), {}, FontRole::heading, lineHeight);
    writer.parts({}, withFacts(layout.titleText, facts), {}, FontRole::title, layout.titleHeight);
    if (!report.headingLine(2).empty())
        writer.parts({}, report.headingLine(2), {}, FontRole::heading, lineHeight);
    writer.facts(layout.heading, FontRole::heading);
    for (const HeadingLine& line : report.extension().lines)
        writer.parts(line.left, line.middle, line.right, FontRole::heading, lineHeight);
    writer.rule(layout.heading.rule);
}

void drawBelowTable(PageDrawing& drawing, const CReport& report, const ITextMeasure& measure,
                    const PageNumber& number) {
    const ReportLayout& layout = report.layout();
    const PageFrame frame(report);
    const PageFacts facts{report.title(), report.extension().facts, number.page, number.count};
    LineWriter writer(drawing, frame, measure, facts, frame.tableBottom);
    if (!layout.footer.isEmpty()) writer.rule(layout.footer.rule);
    writer.facts(layout.footer, FontRole::edge);
}

}  // namespace chengheng
