#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <memory>
#include <optional>
#include <ostream>

#include "books/checking/books_summary.h"
#include "currency/transfer/rate_import.h"
#include "data/engine/engine.h"
#include "data/lookups/cached_records.h"
#include "session/last_failure.h"
#include "session/open_books.h"
#include "session/who_writes.h"
#include "tool/command_line.h"
#include "tool/commands.h"
#include "tool/output_file.h"
#include "tool/row_import.h"
#include "tool/tool_session.h"
#include "tool/tool_texts.h"

namespace chengheng {
namespace {

constexpr NumberRange unitRange{1, 1'000'000};

struct RateOptions {
    std::string books;
    std::string currency;
    int units = 1;
    std::optional<RateMode> mode = {};
    RateKind kind = RateKind::fixed;
    RowImport import = {};
    OutputFile output = {};
};

/// Runs work on the open books of a year, with the currency that is named; 0 where none is.
ExitCode onBooks(Tool& tool, const RateOptions& options, BooksUse use,
                 const std::function<ExitCode(int year, int currency)>& work) {
    auto engine = openBooks(tool, options.books, use);
    if (engine == nullptr) return ExitCode::failed;
    BooksSummary books;
    if (const Status status = readBooksSummary(*engine, books); !status)
        return tellFailure(tool, status, options.books);
    ToolSession session(std::move(engine), options.books, books.name);
    if (const auto refused = session.logOn(tool, options.books)) return *refused;
    if (!selectOpenBooks()) {
        tool.err << lastFailureText() << '\n';
        return ExitCode::failed;
    }
    std::optional<BookLookups> lookups;
    // Whoever is logged on has them already.
    if (whoWrites().isAdministrator()) lookups.emplace(g_lpszNbZwDBName);
    if (lookups && !lookups->status()) return tellFailure(tool, lookups->status(), options.books);
    const _CyrencyInfo* currency = currencyCalled(cachedCurrencies(), options.currency);
    if (currency == nullptr && !options.currency.empty()) {
        tool.err << fmt::format(tool_texts::currencyUnknown, options.currency) << '\n';
        return ExitCode::wrongInput;
    }
    return work(books.year, currency == nullptr ? 0 : currency->lId);
}

ExitCode importRates(Tool& tool, const RateOptions& options) {
    const RowImport& import = options.import;
    const BooksUse use = import.isDryRun ? BooksUse::reading : BooksUse::changing;
    return onBooks(tool, options, use, [&](int year, int currency) {
        ToolMessages messages(tool, import.acceptsAll);
        RateImport planned(
            messages, year,
            {.currency = currency, .units = options.units * 1.0, .mode = options.mode});
        const auto plan = planned.plan(import.file);
        if (!plan) return ExitCode::failed;
        return showAndApply(tool, import, *plan, [&] { return planned.apply(*plan); });
    });
}

ExitCode exportRatesOf(Tool& tool, const RateOptions& options) {
    const OutputFile& file = options.output;
    if (const auto refused = refuseTarget(tool, file)) return *refused;
    return onBooks(tool, options, BooksUse::reading, [&](int year, int currency) {
        ToolMessages messages(tool, false);
        const Outcome outcome =
            exportRates(messages, options.kind, currency, year, file.path, file.overwrite());
        if (outcome == Outcome::done)
            wordsBeside(tool, file) << fmt::format(tool_texts::ratesExported, file.path) << '\n';
        return exitCodeOf(outcome);
    });
}

CLI::App* add(CLI::App& app, Tool& tool, const char* name, const char* summary,
              const std::shared_ptr<RateOptions>& options,
              ExitCode (*run)(Tool&, const RateOptions&)) {
    return addBooksCommand(app, tool, name, summary, options->books,
                           [&tool, options, run] { return run(tool, *options); });
}

}  // namespace

void addImportRatesCommand(CLI::App& app, Tool& tool) {
    const auto options = std::make_shared<RateOptions>();
    CLI::App* command =
        add(app, tool, "import-rates", tool_texts::importRatesCommand, options, importRates);
    addImportOptions(*command, options->import, tool_texts::rateFileArgument);
    addWriter(*command, tool);
    command->add_option("--currency", options->currency, tool_texts::ratesOfCurrency);
    addNumber(*command, "--units", options->units, unitRange, tool_texts::unitsOption);
    addChoice(
        *command, "--quoted", {"home", "foreign"},
        [options](bool isHome) {
            options->mode = isHome ? RateMode::multiplied : RateMode::divided;
        },
        tool_texts::quotedOption);
}

void addExportRatesCommand(CLI::App& app, Tool& tool) {
    const auto options = std::make_shared<RateOptions>();
    CLI::App* command =
        add(app, tool, "export-rates", tool_texts::exportRatesCommand, options, exportRatesOf);
    command->add_option("CURRENCY", options->currency, tool_texts::ratesOfCurrency)->required();
    addChoice(
        *command, "KIND", {"months", "days"},
        [options](bool isMonths) {
            options->kind = isMonths ? RateKind::fixed : RateKind::floating;
        },
        tool_texts::rateKindArgument)
        ->required();
    command->add_option("FILE", options->output.path, tool_texts::exportFileArgument)->required();
    command->add_flag("--force", options->output.isForced, tool_texts::forceFile);
}

}  // namespace chengheng
