#include "opening/editing/opening_transfer.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <set>
#include <string_view>
#include <vector>

#include "base/values/text.h"
#include "opening/sheet/opening_texts.h"
#include "sheets/files/sheet_files.h"

namespace chengheng {
namespace {

namespace texts = opening_texts;

/// A column of figures: its heading is that of the measure, then that of the figure.
struct FigureColumn {
    Measure measure;
    BalanceFigure figure;
    std::string heading;
};

const char* headingOf(BalanceFigure figure) {
    if (figure == &Balance::yearStart) return texts::yearStart;
    if (figure == &Balance::debit) return texts::accumulatedDebit;
    if (figure == &Balance::credit) return texts::accumulatedCredit;
    return texts::opening;
}

const char* headingOf(Measure measure) {
    if (measure == Measure::money) return "";
    return measure == Measure::foreign ? texts::foreign : texts::quantity;
}

std::vector<FigureColumn> figureColumns(OpeningLayout layout) {
    std::vector<FigureColumn> columns;
    for (const Measure measure : measures)
        for (const BalanceFigure figure : figuresOf(layout))
            columns.push_back(
                {measure, figure, std::string(headingOf(measure)) + headingOf(figure)});
    return columns;
}

/// What the chart says of an account; a file that says otherwise is about other accounts.
struct FactColumn {
    const char* heading;
    std::string (*fact)(const OpeningSheet& sheet, std::size_t place);
    const char* whenOther;
};

std::string unitOn(const OpeningSheet& sheet, std::size_t place, Measure measure) {
    const auto line = sheet.lineOf(place, measure);
    return line ? sheet.text(*line, placeOf(OpeningField::unit, sheet.layout())) : "";
}

constexpr std::array factColumns{
    FactColumn{texts::direction,
               [](const OpeningSheet& sheet, std::size_t place) {
                   return std::string(sheet.accounts()[place].isDebit ? texts::debit
                                                                      : texts::credit);
               },
               texts::otherDirection},
    FactColumn{texts::currencyHeading,
               [](const OpeningSheet& sheet, std::size_t place) {
                   return unitOn(sheet, place, Measure::foreign);
               },
               texts::otherCurrency},
    FactColumn{texts::unitHeading,
               [](const OpeningSheet& sheet, std::size_t place) {
                   return unitOn(sheet, place, Measure::quantity);
               },
               texts::otherUnit},
};

SheetRow accountRow(const OpeningSheet& sheet, std::size_t place,
                    const std::vector<FigureColumn>& columns) {
    const OpeningAccount& account = sheet.accounts()[place];
    SheetRow row{Cell::of(account.code), Cell::of(openingName(account.name, account.grade))};
    for (const FactColumn& column : factColumns) row.push_back(Cell::of(column.fact(sheet, place)));
    for (const FigureColumn& column : columns)
        row.push_back(account.keeps(column.measure)
                          ? Cell::of(account.balance(column.measure).*column.figure)
                          : Cell());
    return row;
}

std::string headingIn(const Sheet& file, std::size_t row, std::size_t column) {
    return std::string(withoutBlanksAround(cellText(file.at(row, column))));
}

/// Where a file has what; found in its heading row.
struct FileColumns {
    std::size_t headingRow = 0;
    std::size_t code = 0;
    std::vector<std::pair<std::size_t, const FactColumn*>> facts;
    std::vector<std::pair<std::size_t, FigureColumn>> figures;
};

std::optional<FileColumns> findColumns(const OpeningSheet& sheet, const Sheet& file) {
    const auto wanted = figureColumns(sheet.layout());
    for (std::size_t row = 0; row < file.rows.size(); ++row) {
        std::map<std::string, std::size_t> places;
        for (std::size_t column = 0; column < file.rows[row].size(); ++column)
            places.try_emplace(headingIn(file, row, column), column);
        const auto code = places.find(texts::code);
        if (code == places.end()) continue;
        FileColumns found{row, code->second, {}, {}};
        for (const FactColumn& column : factColumns)
            if (const auto at = places.find(column.heading); at != places.end())
                found.facts.emplace_back(at->second, &column);
        for (const FigureColumn& column : wanted)
            if (const auto at = places.find(column.heading); at != places.end())
                found.figures.emplace_back(at->second, column);
        // A title that reads like a heading has no figures beside it.
        if (!found.figures.empty()) return found;
    }
    return std::nullopt;
}

/// Plans the rows of a file one by one.
class ImportPlanner {
  public:
    ImportPlanner(const OpeningSheet& sheet, const Sheet& file, const FileColumns& columns,
                  FigurePlan& plan)
        : m_sheet(sheet), m_file(file), m_columns(columns), m_plan(plan) {}

    void planRow(std::size_t row) {
        const std::string code = headingIn(m_file, row, m_columns.code);
        const auto place = m_sheet.placeOfCode(code);
        if (!hasFigure(row)) return;
        if (code.empty()) return refuse(row, m_columns.code, texts::codeMissing);
        if (!place) return refuse(row, m_columns.code, texts::noSuchAccount);
        if (const auto [first, isNew] = m_rows.try_emplace(*place, row); !isNew)
            return refuse(row, m_columns.code, fmt::format(texts::codeTwice, first->second + 1));
        for (const auto& [column, fact] : m_columns.facts) {
            const std::string given = headingIn(m_file, row, column);
            if (!given.empty() && given != fact->fact(m_sheet, *place))
                return refuse(row, column, fact->whenOther);
        }
        for (const auto& [column, figure] : m_columns.figures) {
            const Cell& cell = m_file.at(row, column);
            if (isBlankCell(cell)) continue;
            add(row, column, plannedFigure(m_sheet, *place, figure.measure, figure.figure, cell));
        }
    }

  private:
    bool hasFigure(std::size_t row) const {
        return std::ranges::any_of(m_columns.figures, [this, row](const auto& column) {
            return !isBlankCell(m_file.at(row, column.first));
        });
    }
    void refuse(std::size_t row, std::size_t column, std::string reason) {
        PlannedCell refused = refusedCell(m_file.at(row, column), std::move(reason));
        refused.code = headingIn(m_file, row, m_columns.code);
        if (const auto place = m_sheet.placeOfCode(refused.code))
            refused.name = m_sheet.accounts()[*place].name;
        add(row, column, std::move(refused));
    }
    void add(std::size_t row, std::size_t column, PlannedCell planned) {
        planned.row = row;
        planned.column = column;
        planned.heading = headingIn(m_file, m_columns.headingRow, column);
        m_plan.cells.push_back(std::move(planned));
    }

    const OpeningSheet& m_sheet;
    const Sheet& m_file;
    const FileColumns& m_columns;
    FigurePlan& m_plan;
    std::map<std::size_t, std::size_t> m_rows;  ///< of each account met so far
};

}  // namespace

Sheet exportedOpenings(const OpeningSheet& sheet) {
    const auto figures = figureColumns(sheet.layout());
    Sheet file;
    file.name = texts::title;
    file.hasHeader = true;
    SheetRow header{Cell::of(texts::code), Cell::of(texts::name)};
    file.columns.resize(header.size());
    for (const FactColumn& column : factColumns) {
        header.push_back(Cell::of(column.heading));
        file.columns.emplace_back();
    }
    for (const FigureColumn& column : figures) {
        header.push_back(Cell::of(column.heading));
        file.columns.push_back({.decimals = decimalsOf(column.measure)});
    }
    file.rows.push_back(std::move(header));
    for (std::size_t place = 0; place < sheet.accounts().size(); ++place)
        file.rows.push_back(accountRow(sheet, place, figures));
    return file;
}

std::optional<SheetFailure> planOpeningImport(const OpeningSheet& sheet, const Sheet& file,
                                              FigurePlan& plan) {
    const auto columns = findColumns(sheet, file);
    if (!columns) return SheetFailure{.reason = texts::noHeadings};
    plan = {};
    ImportPlanner planner(sheet, file, *columns, plan);
    for (std::size_t row = columns->headingRow + 1; row < file.rows.size(); ++row)
        planner.planRow(row);
    return std::nullopt;
}

std::optional<SheetFailure> planImportedFile(const OpeningSheet& sheet, const std::string& path,
                                             FigurePlan& plan) {
    Sheet file;
    if (auto failure = readSheet(path, file)) return failure;
    const auto failure = planOpeningImport(sheet, file, plan);
    return failure ? whileReading(*failure, path) : failure;
}

}  // namespace chengheng
