#include "books/making/chart_templates.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <utility>

#include "accounts/chart/account_texts.h"
#include "accounts/transfer/chart_sheet.h"
#include "accounts/transfer/import_plan.h"
#include "sheets/delimited/delimited_text.h"

namespace chengheng {
namespace {

bool readFile(std::string_view file, ChartSheet& chart) {
    Sheet sheet;
    return !readCsv(file, sheet) && !readChartSheet(sheet, chart);
}

std::optional<ChartAccount> readAccount(const ChartRow& row) {
    const std::string direction = row.at(ChartField::direction).value_or("");
    const ChartAccount account{
        row.at(ChartField::code).value_or(""), row.at(ChartField::name).value_or(""),
        row.at(ChartField::className).value_or(""), direction == account_texts::debit};
    const bool isRead = !account.code.empty() && !account.name.empty() &&
                        !account.className.empty() &&
                        (account.isDebit || direction == account_texts::credit);
    return isRead ? std::optional(account) : std::nullopt;
}

constexpr std::array<std::pair<ChartTemplate, std::string_view>, 3> words{{
    {ChartTemplate::smallEnterprise, "small-enterprise"},
    {ChartTemplate::enterprise, "enterprise"},
    {ChartTemplate::empty, "empty"},
}};

}  // namespace

std::optional<std::vector<ChartAccount>> readChart(std::string_view file) {
    ChartSheet chart;
    if (!readFile(file, chart)) return std::nullopt;
    std::vector<ChartAccount> accounts;
    for (const ChartRow& row : chart.rows) {
        const auto account = readAccount(row);
        if (!account) return std::nullopt;
        accounts.push_back(*account);
    }
    return accounts;
}

/// A chart that the program brings along; one that cannot be read is a fault of the program.
std::vector<ChartAccount> builtInChart(ChartTemplate chart) {
    auto accounts = readChart(chartFile(chart));
    if (!accounts) throw std::logic_error("a chart of the program cannot be read");
    return std::move(*accounts);
}

const std::vector<ChartAccount>& chartAccounts(ChartTemplate chart) {
    static const auto small = builtInChart(ChartTemplate::smallEnterprise);
    static const auto enterprise = builtInChart(ChartTemplate::enterprise);
    static const std::vector<ChartAccount> none;
    switch (chart) {
        case ChartTemplate::smallEnterprise:
            return small;
        case ChartTemplate::enterprise:
            return enterprise;
        case ChartTemplate::empty:
            break;
    }
    return none;
}

std::optional<std::vector<_CodeInfo>> templateAccounts(ChartTemplate chart,
                                                       const std::string& levelPattern) {
    if (chart == ChartTemplate::empty) return std::vector<_CodeInfo>();
    ChartState state{.levelPattern = levelPattern};
    for (const ChartClass& found : chartClasses(chart)) {
        const auto number = static_cast<std::int32_t>(state.classes.size()) + 1;
        state.classes.push_back({number, number, std::string(found.name),
                                 static_cast<std::int16_t>(found.isDebit ? 1 : 0)});
    }
    ChartSheet sheet;
    if (!readFile(chartFile(chart), sheet)) return std::nullopt;
    const ImportPlan plan = planImport(sheet, state);
    return plan.isAcceptable() ? std::optional(plan.added) : std::nullopt;
}

std::vector<ChartClass> chartClasses(ChartTemplate chart) {
    const auto& accounts =
        chartAccounts(chart == ChartTemplate::empty ? ChartTemplate::enterprise : chart);
    std::vector<ChartClass> classes;
    for (const ChartAccount& account : accounts)
        if (std::ranges::find(classes, account.className, &ChartClass::name) == classes.end())
            classes.push_back({account.className, account.isDebit});
    return classes;
}

std::string_view chartWord(ChartTemplate chart) {
    return std::ranges::find(words, chart, &decltype(words)::value_type::first)->second;
}

std::optional<ChartTemplate> chartOfWord(std::string_view word) {
    const auto found = std::ranges::find(words, word, &decltype(words)::value_type::second);
    return found == words.end() ? std::nullopt : std::optional(found->first);
}

}  // namespace chengheng
