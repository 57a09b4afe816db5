#include "host/books/chart_templates.h"

#include <algorithm>
#include <array>
#include <utility>

namespace chengheng {
namespace {

constexpr std::string_view heading = "code,name,class,direction";
constexpr std::string_view debit = "借";
constexpr std::string_view credit = "贷";

/// Takes what stands before the next separator off the front of the text.
std::string_view takeUpTo(char separator, std::string_view& text) {
    const std::size_t end = std::min(text.find(separator), text.size());
    const std::string_view part = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return part;
}

std::string_view takeLine(std::string_view& text) {
    std::string_view line = takeUpTo('\n', text);
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
}

std::optional<ChartAccount> readAccount(std::string_view line) {
    ChartAccount account;
    account.code = takeUpTo(',', line);
    account.name = takeUpTo(',', line);
    account.className = takeUpTo(',', line);
    account.isDebit = line == debit;
    const bool isRead = !account.code.empty() && !account.name.empty() &&
                        !account.className.empty() && (line == debit || line == credit);
    return isRead ? std::optional(account) : std::nullopt;
}

constexpr std::array<std::pair<ChartTemplate, std::string_view>, 3> words{{
    {ChartTemplate::smallEnterprise, "small-enterprise"},
    {ChartTemplate::enterprise, "enterprise"},
    {ChartTemplate::empty, "empty"},
}};

}  // namespace

std::optional<std::vector<ChartAccount>> readChart(std::string_view file) {
    if (takeLine(file) != heading) return std::nullopt;
    std::vector<ChartAccount> accounts;
    while (!file.empty()) {
        const auto account = readAccount(takeLine(file));
        if (!account) return std::nullopt;
        accounts.push_back(*account);
    }
    return accounts;
}

const std::vector<ChartAccount>& chartAccounts(ChartTemplate chart) {
    static const auto small = readChart(chartFile(ChartTemplate::smallEnterprise)).value();
    static const auto enterprise = readChart(chartFile(ChartTemplate::enterprise)).value();
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
