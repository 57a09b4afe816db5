#include "books/carrying/carry_table.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>

#include "base/values/numbers.h"
#include "books/carrying/carry_texts.h"
#include "opening/sheet/opening_account.h"
#include "report/output/list_printing.h"
#include "sheets/text_measures.h"

namespace chengheng {
namespace {

namespace texts = carry_texts;
using Column = CarryTable::Column;
using Row = CarryTable::Row;

constexpr Column previewColumns[] = {
    {texts::codeHeading, 14},
    {texts::nameHeading, 24},
    {texts::directionHeading, 6, Alignment::center},
    {texts::closingHeading, 18, Alignment::right},
    {texts::foreignHeading, 18, Alignment::right},
    {texts::quantityHeading, 18, Alignment::right},
    {texts::openingHeading, 18, Alignment::right},
    {texts::remarkHeading, 40},
};
constexpr std::size_t closingPlace = 3;

constexpr Column differenceColumns[] = {
    {texts::codeHeading, 14},
    {texts::nameHeading, 24},
    {texts::detailHeading, 32},
    {texts::measureHeading, 6, Alignment::center},
    {texts::closingHeading, 18, Alignment::right},
    {texts::openingHeading, 18, Alignment::right},
    {texts::apartHeading, 18, Alignment::right},
    {texts::remarkHeading, 40},
};

/// Reasons by the codes of accounts.
using Reasons = std::map<std::string, std::string>;

Reasons reasonsOf(std::span<const CarryObstacle> obstacles) {
    Reasons reasons;
    for (const CarryObstacle& each : obstacles) {
        std::string& text = reasons[each.code];
        if (!text.empty()) text += texts::separator;
        text += each.reason();
    }
    return reasons;
}

std::string amountText(double amount, Measure measure) {
    return ftoaWithSap(amount, decimalsOf(measure));
}

std::string amountUnlessNone(double amount, Measure measure) {
    return amount == 0 ? std::string() : amountText(amount, measure);
}

Row rowOf(const CarryPreview::Account& account) {
    return {{account.code, account.name, directionText(account.isDebit),
             amountText(account.closing.money, Measure::money),
             amountUnlessNone(account.closing.foreign, Measure::foreign),
             amountUnlessNone(account.closing.quantity, Measure::quantity),
             amountText(account.opening, Measure::money), ""}};
}

Row totalRow(const char* name, double total) {
    Row row{std::vector<std::string>(std::size(previewColumns))};
    row.cells[1] = name;
    row.cells[closingPlace] = amountText(total, Measure::money);
    return row;
}

/// The lines of a trial balance as one, "资产 = 借 5.00;成本 = 平 0.00".
std::string oneLine(std::string_view text) {
    std::string line;
    bool isNewLine = false;
    for (const char letter : text) {
        if (letter == '\r' || letter == '\n') {
            isNewLine = true;
            continue;
        }
        if (isNewLine && !line.empty()) line += texts::separator;
        isNewLine = false;
        line += letter == '\t' ? ' ' : letter;
    }
    return line;
}

/// Takes the columns out that hold nothing, the first two aside.
void dropEmptyColumns(CarryTable& table) {
    for (std::size_t place = table.columns.size(); place-- > 2;) {
        const bool isUsed = std::ranges::any_of(
            table.rows, [place](const Row& row) { return !row.cells[place].empty(); });
        if (isUsed || table.rows.empty()) continue;
        const auto drop = [place](auto& list) {
            list.erase(list.begin() + static_cast<std::ptrdiff_t>(place));
        };
        drop(table.columns);
        for (auto* const rows : {&table.rows, &table.totals})
            for (Row& row : *rows) drop(row.cells);
    }
}

/// A column is as wide as its texts, so that as much as can be is seen beside each other.
void fitColumns(CarryTable& table) {
    constexpr double widest = 60;
    constexpr double room = 2;
    if (table.rows.empty()) return;
    for (std::size_t place = 0; place < table.columns.size(); ++place) {
        double width = displayWidth(table.columns[place].heading);
        for (const auto* const rows : {&table.rows, &table.totals})
            for (const Row& row : *rows) width = std::max(width, displayWidth(row.cells[place]));
        table.columns[place].width = static_cast<int>(std::min(width + room, widest));
    }
}

/// Accounts in the way that would not be carried get a row where their code stands.
void addObstacles(CarryTable& table, std::span<const CarryObstacle> obstacles) {
    Reasons reasons = reasonsOf(obstacles);
    for (Row& row : table.rows) {
        const auto found = reasons.find(row.cells.front());
        if (found == reasons.end()) continue;
        row.cells.back() = std::move(found->second);
        row.isInTheWay = true;
        reasons.erase(found);
    }
    for (const CarryObstacle& each : obstacles) {
        const auto found = reasons.find(each.code);
        if (found == reasons.end()) continue;
        Row row{std::vector<std::string>(table.columns.size()), true};
        row.cells[0] = each.code;
        row.cells[1] = each.name;
        row.cells.back() = std::move(found->second);
        table.rows.push_back(std::move(row));
        reasons.erase(found);
    }
    std::ranges::stable_sort(table.rows, {},
                             [](const Row& row) -> const std::string& { return row.cells[0]; });
}

Row rowOf(const CarryDifference& difference) {
    double apart = difference.closing - difference.opening;
    Round(apart, decimalsOf(difference.counted));
    return {{difference.code, difference.name, difference.detail, difference.measure,
             amountText(difference.closing, difference.counted),
             amountText(difference.opening, difference.counted),
             amountText(apart, difference.counted), ""}};
}

CarryTable tableOfDifferences(const char* title) {
    CarryTable table;
    table.title = title;
    table.columns.assign(std::begin(differenceColumns), std::end(differenceColumns));
    return table;
}

}  // namespace

CarryTable carryTable(const CarryPreview& preview) {
    CarryTable table;
    table.title = texts::previewTitle;
    table.columns.assign(std::begin(previewColumns), std::end(previewColumns));
    for (const CarryPreview::Account& account : preview.accounts)
        table.rows.push_back(rowOf(account));
    addObstacles(table, preview.plan.obstacles);
    table.totals = {totalRow(texts::debitTotal, preview.debitTotal),
                    totalRow(texts::creditTotal, preview.creditTotal)};
    dropEmptyColumns(table);
    fitColumns(table);
    table.above = {fmt::format(texts::plannedTotal, preview.accounts.size(),
                               ftoaWithSap(preview.debitTotal, 2),
                               ftoaWithSap(preview.creditTotal, 2))};
    if (!preview.plan.details.empty())
        table.above[0] += fmt::format(texts::plannedDetails, preview.plan.details.size());
    const TrialBalanceTexts& balance = preview.balance;
    for (const std::string* const line :
         {&balance.debitClasses, &balance.creditClasses, &balance.result})
        if (std::string shown = oneLine(*line); !shown.empty())
            table.above.push_back(std::move(shown));
    if (preview.refusal() != nullptr)
        table.below = {preview.refusal()};
    else if (!preview.plan.obstacles.empty())
        table.below = {fmt::format(texts::obstacleCount, preview.plan.obstacles.size())};
    else
        table.below = {texts::readyToCarry};
    return table;
}

CarryTable carryTable(std::span<const CarryDifference> differences) {
    CarryTable table = tableOfDifferences(texts::proofTitle);
    table.above = {differences.empty() ? std::string(texts::proven)
                                       : fmt::format(texts::differing, differences.size())};
    for (const CarryDifference& each : differences) table.rows.push_back(rowOf(each));
    // There is nothing to say of any.
    table.columns.pop_back();
    for (Row& row : table.rows) row.cells.pop_back();
    dropEmptyColumns(table);
    fitColumns(table);
    return table;
}

CarryTable carryTable(const RepeatPlan& plan) {
    CarryTable table = tableOfDifferences(texts::repeatTitle);
    table.above = {plan.isEmpty() ? std::string(texts::proven) : plan.text(false)};
    for (const CarryDifference& each : plan.carried) table.rows.push_back(rowOf(each));
    const Reasons reasons = reasonsOf(plan.obstacles);
    for (const CarryDifference& each : plan.left) {
        Row row = rowOf(each);
        row.cells.back() = reasons.at(each.code);
        row.isInTheWay = true;
        table.rows.push_back(std::move(row));
    }
    dropEmptyColumns(table);
    fitColumns(table);
    return table;
}

Report reportOf(const CarryTable& table) {
    constexpr int uprightWidth = 110;
    Report report;
    report.title = table.title;
    report.facts = hostReportFacts();
    for (const std::string& line : table.above) report.lines.push_back({.left = line});
    int width = 0;
    for (const CarryTable::Column& column : table.columns) {
        report.columns.push_back({.heading = column.heading,
                                  .field = {},
                                  .width = column.width,
                                  .alignment = column.alignment});
        width += column.width;
    }
    report.page.isPortrait = width <= uprightWidth;
    for (const auto* const rows : {&table.rows, &table.totals})
        for (const CarryTable::Row& row : *rows)
            report.addRow({row.cells.begin(), row.cells.end()});
    return report;
}

}  // namespace chengheng
