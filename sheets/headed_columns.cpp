#include "sheets/headed_columns.h"

#include <fmt/format.h>

#include <algorithm>

#include "base/values/text.h"
#include "sheets/plan_texts.h"
#include "sheets/sheet_texts.h"

namespace chengheng {
namespace {

std::string headingIn(const Cell& cell) { return std::string(withoutBlanksAround(cellText(cell))); }

/// The place of the wanted column of a heading; as many as there are for none.
std::size_t placeOf(const std::string& heading, std::span<const WantedColumn> wanted) {
    const auto found = std::ranges::find_if(wanted, [&heading](const WantedColumn& column) {
        return heading == column.heading ||
               (column.otherHeading != nullptr && isSameInAnyCase(heading, column.otherHeading));
    });
    return static_cast<std::size_t>(found - wanted.begin());
}

/// The first heading that stands twice, when there is one.
std::optional<SheetFailure> readHeadings(const SheetRow& row, std::span<const WantedColumn> wanted,
                                         HeadedColumns& columns) {
    columns.places.assign(wanted.size(), 0);
    for (std::size_t at = 0; at < row.size(); ++at) {
        const std::string heading = headingIn(row[at]);
        if (heading.empty()) continue;
        const std::size_t found = placeOf(heading, wanted);
        if (found == wanted.size()) {
            columns.ignored.push_back(heading);
            continue;
        }
        if (columns.places[found] != 0)
            return SheetFailure{fmt::format(sheet_texts::headingTwice, heading), columns.headingRow,
                                at + 1};
        columns.places[found] = at + 1;
    }
    return std::nullopt;
}

}  // namespace

bool isHeadingRow(const SheetRow& row, std::span<const WantedColumn> wanted) {
    std::vector<bool> isThere(wanted.size());
    for (const Cell& cell : row) {
        const std::size_t found = placeOf(headingIn(cell), wanted);
        if (found < wanted.size()) isThere[found] = true;
    }
    for (std::size_t at = 0; at < wanted.size(); ++at)
        if (wanted[at].isRequired && !isThere[at]) return false;
    return true;
}

std::optional<SheetFailure> findHeadings(const Sheet& sheet, std::span<const WantedColumn> wanted,
                                         const std::string& whenMissing, HeadedColumns& columns) {
    columns = {};
    const auto headings = std::ranges::find_if(
        sheet.rows, [wanted](const SheetRow& row) { return isHeadingRow(row, wanted); });
    const auto first = std::ranges::find_if_not(sheet.rows, isBlankRow);
    if (first == sheet.rows.end()) return SheetFailure{whenMissing};
    const SheetRow& row = headings == sheet.rows.end() ? *first : *headings;
    columns.headingRow = static_cast<std::size_t>(&row - sheet.rows.data()) + 1;
    if (auto failure = readHeadings(row, wanted, columns)) return failure;
    if (!isHeadingRow(row, wanted)) return SheetFailure{whenMissing, columns.headingRow, 0};
    return std::nullopt;
}

std::string missingHeadings(std::span<const WantedColumn> wanted) {
    std::vector<std::string> headings;
    for (const WantedColumn& column : wanted)
        if (column.isRequired)
            headings.push_back(fmt::format(sheet_texts::wantedHeading, column.heading));
    return fmt::format(sheet_texts::headingsMissing,
                       fmt::join(headings, plan_texts::listSeparator));
}

std::optional<SheetFailure> HeadedSheet::read(Sheet sheet, std::span<const WantedColumn> wanted) {
    m_sheet = std::move(sheet);
    m_rows.clear();
    if (auto failure = findHeadings(m_sheet, wanted, missingHeadings(wanted), m_columns))
        return failure;
    for (std::size_t row = m_columns.headingRow; row < m_sheet.rows.size(); ++row)
        if (!isBlankRow(m_sheet.rows[row])) m_rows.push_back(row + 1);
    return std::nullopt;
}

std::optional<std::string> HeadedSheet::text(std::size_t row, std::size_t wanted) const {
    const std::size_t column = columnOf(wanted);
    if (column == 0) return std::nullopt;
    const Cell& cell = m_sheet.at(row - 1, column - 1);
    if (cell.isNumber()) return cellText(cell);
    return std::string(withoutBlanksAround(cell.text));
}

}  // namespace chengheng
