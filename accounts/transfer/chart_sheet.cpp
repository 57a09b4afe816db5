#include "accounts/transfer/chart_sheet.h"

#include <algorithm>

#include "accounts/chart/account_entry.h"
#include "accounts/chart/account_texts.h"
#include "accounts/codes/code_levels.h"
#include "accounts/transfer/import_texts.h"
#include "sheets/headed_columns.h"

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

/// As they are looked for; code and name are in every chart.
std::vector<WantedColumn> wantedColumns() {
    std::vector<WantedColumn> wanted;
    for (const ChartColumn& column : columns)
        wanted.push_back({column.heading, column.plainHeading,
                          column.field == ChartField::code || column.field == ChartField::name});
    return wanted;
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
    HeadedColumns found;
    if (auto failure = findHeadings(sheet, wantedColumns(), texts::headingsMissing, found))
        return failure;
    std::ranges::copy(found.places, chart.columns.begin());
    chart.ignoredHeadings = std::move(found.ignored);
    for (std::size_t at = found.headingRow; at < sheet.rows.size(); ++at)
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
