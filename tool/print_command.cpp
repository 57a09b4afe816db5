#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <ostream>

#include "accounts/printing/chart_list.h"
#include "books/checking/books_summary.h"
#include "currency/currency_list.h"
#include "data/access/host_database.h"
#include "data/engine/engine.h"
#include "data/lookups/cached_records.h"
#include "data/tables/currency.h"
#include "directories/directory_list.h"
#include "operators/division_list.h"
#include "report/output/list_printing.h"
#include "session/last_failure.h"
#include "session/open_books.h"
#include "settle/settlement_list.h"
#include "tool/command_line.h"
#include "tool/commands.h"
#include "tool/report_file.h"
#include "tool/tool_session.h"
#include "tool/tool_texts.h"
#include "vouchertype/usage/usage_list.h"
#include "vouchertype/voucher_type_list.h"

namespace chengheng {
namespace {

struct PrintOptions {
    std::string list;
    std::string books;
    ReportFile output;
    std::string currency;
    int month = 0;  ///< 0: the whole year
};

struct NamedList {
    std::string_view name;
    bool isOfCurrency;
    bool isOfDays;  ///< of the whole year or of a month
    PrintedList (*list)(const PrintOptions& options, const _CyrencyInfo& currency);
};

using Options = PrintOptions;
using Currency = _CyrencyInfo;
constexpr std::array lists{
    NamedList{"settle", false, false,
              [](const Options&, const Currency&) { return settlementList(); }},
    NamedList{"sign", false, false,
              [](const Options&, const Currency&) { return voucherTypeList(); }},
    NamedList{"sign-usage", false, false,
              [](const Options&, const Currency&) { return voucherTypeUsageList(); }},
    NamedList{"currency", false, false,
              [](const Options&, const Currency&) { return currencyList(); }},
    NamedList{"fixed-rates", true, false,
              [](const Options&, const Currency& currency) {
                  return rateList(RateKind::fixed, currency);
              }},
    NamedList{"floating-rates", true, true,
              [](const Options& options, const Currency& currency) {
                  return rateList(RateKind::floating, currency, options.month);
              }},
    NamedList{"accounts", false, false,
              [](const Options&, const Currency&) { return chartList(); }},
    NamedList{"operators", false, false,
              [](const Options&, const Currency&) { return divisionList(); }},
    NamedList{"rights", false, false,
              [](const Options&, const Currency&) { return rightsMatrix(); }},
};

/// One of these, or a directory by its key.
std::optional<NamedList> findList(std::string_view name) {
    const auto named = std::ranges::find(lists, name, &NamedList::name);
    if (named != lists.end()) return *named;
    if (findDirectory(name) == nullptr) return std::nullopt;
    return NamedList{name, false, false, [](const Options& options, const Currency&) {
                         return directoryList(*findDirectory(options.list));
                     }};
}

template <class... Values>
ExitCode tell(Tool& tool, ExitCode code, fmt::format_string<const Values&...> text,
              const Values&... values) {
    tool.err << fmt::format(text, values...) << '\n';
    return code;
}

ExitCode writeList(Tool& tool, const PrintOptions& options, const PrintedList& list) {
    Report report;
    if (const auto refusal = makeListReport(list, report)) {
        tool.err << refusal->notice.text << '\n';
        return ExitCode::failed;
    }
    return writeReport(tool, options.output, report);
}

ExitCode printOpenBooks(Tool& tool, const PrintOptions& options, const NamedList& named) {
    if (!selectOpenBooks()) {
        tool.err << lastFailureText() << '\n';
        return ExitCode::failed;
    }
    const BookLookups lookups(g_lpszNbZwDBName);
    if (!lookups.status()) return tellFailure(tool, lookups.status(), options.books);
    if (!named.isOfCurrency) return writeList(tool, options, named.list(options, {}));
    const auto currency =
        std::ranges::find(cachedCurrencies(), options.currency, &_CyrencyInfo::sExchCode);
    if (currency == cachedCurrencies().end())
        return tell(tool, ExitCode::wrongInput, tool_texts::currencyUnknown, options.currency);
    return writeList(tool, options, named.list(options, *currency));
}

ExitCode print(Tool& tool, const PrintOptions& options) {
    if (options.output.count() != 1)
        return tell(tool, ExitCode::wrongUsage, tool_texts::onePrintFile);
    const auto named = findList(options.list);
    if (!named) return tell(tool, ExitCode::wrongInput, tool_texts::unknownList, options.list);
    if (named->isOfCurrency && options.currency.empty())
        return tell(tool, ExitCode::wrongUsage, tool_texts::currencyMissing);
    if (!named->isOfCurrency && !options.currency.empty())
        return tell(tool, ExitCode::wrongUsage, tool_texts::currencyUnused, options.list);
    if (!named->isOfDays && options.month != 0)
        return tell(tool, ExitCode::wrongUsage, tool_texts::monthUnused, options.list);
    if (const auto code = prepareReportFile(tool, options.output)) return *code;
    auto engine = openBooks(tool, options.books);
    if (engine == nullptr) return ExitCode::failed;
    BooksSummary books;
    if (const Status status = readBooksSummary(*engine, books); !status)
        return tellFailure(tool, status, options.books);
    const ToolSession session(std::move(engine), options.books, books.name);
    return printOpenBooks(tool, options, *named);
}

}  // namespace

void addPrintCommand(CLI::App& app, Tool& tool) {
    const auto options = std::make_shared<PrintOptions>();
    CLI::App* command = app.add_subcommand("print", tool_texts::printCommand);
    command->add_option("LIST", options->list, tool_texts::listArgument)->required();
    command->add_option("BOOKS", options->books, tool_texts::booksArgument)->required();
    addReportFile(*command, options->output);
    command->add_option("--currency", options->currency, tool_texts::currencyOption);
    addNumber(*command, "--month", options->month, {1, 12}, tool_texts::monthOption);
    command->callback(
        [&tool, options] { tool.action = [&tool, options] { return print(tool, *options); }; });
}

}  // namespace chengheng
