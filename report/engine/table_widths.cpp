#include "report/engine/table_widths.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "sheets/text_measures.h"

namespace chengheng {
namespace {

/// The widest cell of a column. Which one it is, is told by counting characters.
double widestCell(const CReport& report, std::size_t column, const ITextMeasure& measure) {
    std::string_view widest;
    double most = 0;
    for (std::size_t row = 0; row < report.rowCount(); ++row) {
        const std::string_view cell = report.cell(row, column);
        // A text of fewer bytes than characters of the widest one is not wider.
        if (static_cast<double>(cell.size()) <= most) continue;
        if (const double width = displayWidth(cell); width > most) {
            most = width;
            widest = cell;
        }
    }
    return measure.width(FontRole::figure, widest);
}

/// The width the template gives; figures get more where they need it, since a figure that is
/// cut would be taken for another.
double naturalWidth(const CReport& report, std::size_t column, const ITextMeasure& measure) {
    const double character = measure.width(FontRole::cell, "0");
    double width = std::max(1, report.width(column)) * character;
    if (report.alignment(column) == Alignment::right)
        width = std::max(width, widestCell(report, column, measure));
    return width + 2 * report.layout().padding;
}

double sumOf(const std::vector<double>& widths) {
    return std::accumulate(widths.begin(), widths.end(), 0.0);
}

std::vector<double> times(std::vector<double> widths, double factor) {
    for (double& width : widths) width *= factor;
    return widths;
}

Strip allColumns(std::size_t count) {
    Strip columns(count);
    std::iota(columns.begin(), columns.end(), std::size_t{0});
    return columns;
}

/// The columns that every strip has: the one that tells the rows apart, then those at the left,
/// as many as leave half of the page free.
Strip repeatedColumns(const CReport& report, const std::vector<double>& widths, double room) {
    Strip columns = allColumns(widths.size());
    const std::size_t key = std::min(report.extension().keyColumn, widths.size() - 1);
    std::rotate(columns.begin(), columns.begin() + static_cast<std::ptrdiff_t>(key),
                columns.begin() + static_cast<std::ptrdiff_t>(key) + 1);
    Strip repeated;
    double width = 0;
    for (const std::size_t column : columns) {
        width += widths[column];
        if (std::cmp_equal(repeated.size(), report.layout().repeatedColumns) || width > room / 2)
            break;
        repeated.push_back(column);
    }
    return repeated;
}

/// A strip's columns in their order, where those repeated lie among its own; else these first.
Strip inOrder(Strip strip, std::size_t repeatedCount) {
    const auto own = strip.begin() + static_cast<std::ptrdiff_t>(repeatedCount);
    const bool liesAmong = repeatedCount > 0 && own != strip.end() && strip.front() > *own &&
                           strip.front() < strip.back();
    if (liesAmong) std::ranges::sort(strip);
    return strip;
}

/// Cuts a table into strips at a scale. A column has no more than what a strip leaves it.
TableWidths inStrips(const CReport& report, double scale, std::vector<double> widths, double room) {
    TableWidths table{scale, std::move(widths), {}};
    const Strip repeated = repeatedColumns(report, table.widths, room);
    const double left = room - table.stripWidth(repeated);
    Strip strip = repeated;
    double used = 0;
    for (std::size_t column = 0; column < table.widths.size(); ++column) {
        if (std::ranges::count(repeated, column) > 0) continue;
        double& width = table.widths[column];
        width = std::min(width, left);
        if (used > 0 && used + width > left) {
            table.strips.push_back(inOrder(std::exchange(strip, repeated), repeated.size()));
            used = 0;
        }
        strip.push_back(column);
        used += width;
    }
    table.strips.push_back(inOrder(std::move(strip), repeated.size()));
    return table;
}

/// Widens the columns of strips until the widest strip fills the page, where the layout allows.
TableWidths widened(TableWidths table, const ReportLayout& layout, double room) {
    double widest = 0;
    for (const Strip& strip : table.strips) widest = std::max(widest, table.stripWidth(strip));
    table.widths = times(std::move(table.widths), std::min(room / widest, layout.mostStretch));
    return table;
}

}  // namespace

double TableWidths::stripWidth(const Strip& strip) const {
    return std::accumulate(strip.begin(), strip.end(), 0.0,
                           [this](double sum, std::size_t column) { return sum + widths[column]; });
}

TableWidths tableWidths(const CReport& report, const ITextMeasure& measure, double room) {
    const ReportLayout& layout = report.layout();
    std::vector<double> natural;
    for (std::size_t column = 0; column < report.columnCount(); ++column)
        natural.push_back(std::min(naturalWidth(report, column, measure), room));
    const double fitting = room / sumOf(natural);
    const std::vector<Strip> oneStrip{allColumns(natural.size())};
    if (fitting >= 1) return {1, times(natural, std::min(fitting, layout.mostStretch)), oneStrip};
    if (fitting >= layout.leastScale) return {fitting, times(natural, fitting), oneStrip};
    auto large = inStrips(report, 1, natural, room);
    auto small = inStrips(report, layout.leastScale, times(natural, layout.leastScale), room);
    const bool isSmall = small.strips.size() < large.strips.size();
    return widened(std::move(isSmall ? small : large), layout, room);
}

}  // namespace chengheng
