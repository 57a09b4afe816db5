#include "opening/opening_report.h"

#include <fmt/format.h>

#include "host/books/workstation.h"
#include "opening/opening_texts.h"
#include "print/list_printing.h"
#include "print/page_facts.h"
#include "print/print_texts.h"

namespace chengheng {
namespace {

Alignment alignmentOf(OpeningField field) {
    if (figureOf(field) != nullptr) return Alignment::right;
    return field == OpeningField::direction ? Alignment::center : Alignment::left;
}

/// A figure needs less room on paper than for typing.
constexpr int figureWidth = 20;

int widthOf(const OpeningColumn& column) {
    return figureOf(column.field) != nullptr ? figureWidth : column.width;
}

template <class Value>
std::string filled(const char* text, const Value& value) {
    return fmt::format(fmt::runtime(text), value);
}

}  // namespace

Report openingReport(const OpeningSheet& sheet, int accountingYear) {
    Report report;
    report.title = opening_texts::title;
    report.facts = hostReportFacts();
    report.lines.push_back({.left = filled(opening_texts::accountingYear, accountingYear),
                            .right = filled(print_texts::printDate, paperDate(report.facts.day))});
    report.page.isPortrait = sheet.layout() == OpeningLayout::simple;
    std::vector<std::size_t> places;
    for (std::size_t place = 0; place < sheet.columns().size(); ++place) {
        const OpeningColumn& column = sheet.columns()[place];
        if (column.isHidden) continue;
        places.push_back(place);
        report.columns.push_back({.heading = column.header,
                                  .field = {},
                                  .width = widthOf(column),
                                  .alignment = alignmentOf(column.field)});
    }
    report.cells.reserve(sheet.lineCount() * places.size());
    for (std::size_t line = 0; line < sheet.lineCount(); ++line)
        for (const std::size_t place : places) report.cells.emplace_back(sheet.text(line, place));
    return report;
}

}  // namespace chengheng
