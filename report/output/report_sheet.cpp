#include "report/output/report_sheet.h"

#include <charconv>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/values/digit_groups.h"

namespace chengheng {
namespace {

/// A figure as lists write it: "-1,234.50", "0.12345".
struct Figure {
    double value = 0;
    int decimals = 0;
};

/// Spreadsheets keep 15 digits: a longer figure stays a text.
constexpr std::size_t mostDigits = 15;

std::optional<Figure> figureOf(std::string_view text) {
    const bool isNegative = text.starts_with('-');
    auto grouped = withoutDigitGroups(text.substr(isNegative ? 1 : 0));
    if (!grouped) return std::nullopt;
    const std::string digits = (isNegative ? "-" : "") + *grouped;
    Figure figure;
    const char* const end = digits.data() + digits.size();
    const auto read = std::from_chars(digits.data(), end, figure.value, std::chars_format::fixed);
    if (read.ec != std::errc() || read.ptr != end || digits.size() > mostDigits)
        return std::nullopt;
    const bool isNumber = digits.back() >= '0' && digits.back() <= '9';
    if (!isNumber) return std::nullopt;
    const std::size_t point = digits.find('.');
    if (point != std::string::npos) figure.decimals = static_cast<int>(digits.size() - point - 1);
    return figure;
}

/// A column whose cells are figures of the same decimals, or empty.
struct FigureColumn {
    std::optional<int> decimals;  ///< none: it is no such column
    std::vector<Cell> cells;
};

FigureColumn figuresOf(const CReport& report, std::size_t column) {
    if (report.alignment(column) != Alignment::right) return {};
    FigureColumn figures;
    for (std::size_t row = 0; row < report.rowCount(); ++row) {
        const std::string_view text = report.cell(row, column);
        Cell& cell = figures.cells.emplace_back();
        if (text.empty()) continue;
        const auto figure = figureOf(text);
        if (!figure || figures.decimals.value_or(figure->decimals) != figure->decimals) return {};
        figures.decimals = figure->decimals;
        cell = Cell::of(figure->value);
    }
    return figures;
}

}  // namespace

Sheet sheetOf(const CReport& report) {
    Sheet sheet{.name = report.title(), .columns = {}, .hasHeader = true, .rows = {}};
    sheet.rows.resize(report.rowCount() + 1);
    for (std::size_t column = 0; column < report.columnCount(); ++column) {
        FigureColumn figures = figuresOf(report, column);
        sheet.columns.push_back({.width = 0, .decimals = figures.decimals});
        sheet.rows.front().push_back(Cell::of(std::string(report.heading(column))));
        for (std::size_t row = 0; row < report.rowCount(); ++row) {
            sheet.rows[row + 1].push_back(figures.decimals
                                              ? std::move(figures.cells[row])
                                              : Cell::of(std::string(report.cell(row, column))));
        }
    }
    return sheet;
}

}  // namespace chengheng
