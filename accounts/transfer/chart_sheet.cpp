#include "accounts/transfer/chart_sheet.h"

#include <fmt/format.h>

#include <algorithm>

#include "accounts/chart/account_entry.h"
#include "accounts/chart/account_texts.h"
#include "accounts/codes/code_levels.h"
#include "accounts/transfer/import_texts.h"
#include "base/values/text.h"

namespace chengheng {
namespace {

namespace texts = import_texts;

constexpr std::array<ChartColumn, chartFieldCount> columns{{
    {ChartField::level, texts::levelColumn, "level"},
    {ChartField::code, account_texts::codeColumn, "code"},
    {ChartField::name, account_texts::nameColumn, "name"},
    {ChartField::className, texts::classColumn, "class"},
    {ChartField::direction, texts::balanceColumn, "direction"},
    {ChartField::page, texts::pageColumn, "page"},
    {ChartField::mnemonic, texts::mnemonicColumn, "mnemonic"},
    {ChartField::currency, texts::currencyColumn, "currency"},
    {ChartField::quantity, texts::quantityColumn, "quantity"},
    {ChartField::unit, texts::unitColumn, "unit"},
    {ChartField::byPerson, texts::personColumn, "person"},
    {ChartField::byUnit, texts::partnerColumn, "partner"},
    {ChartField::byDepartment, texts::departmentColumn, "department"},
    {ChartField::byProject, texts::projectsColumn, "project"},
    {ChartField::isJournal, texts::journalColumn, "journal"},
    {ChartField::isBank, texts::bankColumn, "bank"},
}};

const ChartColumn* columnNamed(std::string_view heading) {
    const auto found = std::ranges::find_if(columns, [heading](const ChartColumn& column) {
        return heading == column.heading || isSameInAnyCase(heading, column.plainHeading);
    });
    return found == columns.end() ? nullptr : &*found;
}

bool isHeadingRow(const SheetRow& row) {
    bool hasCode = false;
    bool hasName = false;
    for (const Cell& cell : row) {
        const std::string text = cellText(cell);
        const ChartColumn* const column = columnNamed(withoutBlanksAround(text));
        hasCode = hasCode || (column != nullptr && column->field == ChartField::code);
        hasName = hasName || (column != nullptr && column->field == ChartField::name);
    }
    return hasCode && hasName;
}

std::optional<SheetFailure> readHeadings(const SheetRow& row, std::size_t number,
                                         ChartSheet& chart) {
    for (std::size_t at = 0; at < row.size(); ++at) {
        const std::string text = cellText(row[at]);
        const std::string_view heading = withoutBlanksAround(text);
        const ChartColumn* const column = columnNamed(heading);
        if (column == nullptr) {
            if (!heading.empty()) chart.ignoredHeadings.emplace_back(heading);
            continue;
        }
        std::size_t& place = chart.columns[static_cast<std::size_t>(column->field)];
        if (place != 0)
            return SheetFailure{fmt::format(texts::headingTwice, heading), number, at + 1};
        place = at + 1;
    }
    if (chart.columnOf(ChartField::code) == 0 || chart.columnOf(ChartField::name) == 0)
        return SheetFailure{texts::headingsMissing, number, 0};
    return std::nullopt;
}

ChartRow readRow(const Sheet& sheet, std::size_t at, const ChartSheet& chart) {
    ChartRow row;
    row.row = at + 1;
    for (std::size_t field = 0; field < chartFieldCount; ++field)
        if (chart.columns[field] != 0)
            row.cells[field] = cellText(sheet.at(at, chart.columns[field] - 1));
    return row;
}

std::string yesText(bool isKept) { return isKept ? texts::yes : ""; }

std::string symbolOf(int currencyId, std::span<const _CyrencyInfo> currencies) {
    const auto found = std::ranges::find(currencies, currencyId, &_CyrencyInfo::lId);
    return found == currencies.end() ? std::string() : found->sExchCode;
}

SheetRow rowOf(const _CodeInfo& account, std::span<const _CyrencyInfo> currencies) {
    const AuxiliaryBooks books = booksOfLetters(account.sAssBook);
    const std::array<std::string, chartFieldCount> cells{
        std::to_string(account.byGrade),
        account.sCode,
        indentedName(account.sName, account.byGrade),
        account.sType,
        account.bDirect != 0 ? account_texts::debit : account_texts::credit,
        account.sPage,
        account.sHelp,
        symbolOf(account.byExchId, currencies),
        yesText(account.bAmount != 0),
        account.sUnit,
        yesText(books.byPerson),
        yesText(books.byUnit),
        yesText(books.byDepartment),
        yesText(books.byProject),
        yesText(books.isJournal),
        yesText(books.isBank)};
    SheetRow row;
    for (const std::string& cell : cells) row.push_back(Cell::of(cell));
    return row;
}

}  // namespace

std::span<const ChartColumn> chartColumns() { return columns; }

std::optional<SheetFailure> readChartSheet(const Sheet& sheet, ChartSheet& chart) {
    chart = {};
    // Titles may stand above the headings.
    const auto headings = std::ranges::find_if(sheet.rows, isHeadingRow);
    const auto first = std::ranges::find_if_not(sheet.rows, isBlankRow);
    if (first == sheet.rows.end()) return SheetFailure{texts::headingsMissing};
    const SheetRow& row = headings == sheet.rows.end() ? *first : *headings;
    auto at = static_cast<std::size_t>(&row - sheet.rows.data());
    if (auto failure = readHeadings(row, at + 1, chart)) return failure;
    for (++at; at < sheet.rows.size(); ++at)
        if (!isBlankRow(sheet.rows[at])) chart.rows.push_back(readRow(sheet, at, chart));
    return std::nullopt;
}

Sheet chartSheet(std::span<const _CodeInfo> accounts, std::span<const _CyrencyInfo> currencies) {
    Sheet sheet{.name = texts::chartTitle, .columns = {}, .hasHeader = true, .rows = {}};
    SheetRow& headings = sheet.rows.emplace_back();
    for (const ChartColumn& column : columns) headings.push_back(Cell::of(column.heading));
    for (const _CodeInfo& account : accounts) sheet.rows.push_back(rowOf(account, currencies));
    return sheet;
}

}  // namespace chengheng
