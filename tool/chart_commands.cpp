#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <memory>
#include <ostream>

#include "accounts/transfer/chart_import.h"
#include "data/engine/engine.h"
#include "tool/command_line.h"
#include "tool/commands.h"
#include "tool/output_file.h"
#include "tool/row_import.h"
#include "tool/tool_session.h"
#include "tool/tool_texts.h"

namespace chengheng {
namespace {

struct ChartImportOptions {
    std::string books;
    RowImport import;
};

struct ChartExportOptions {
    std::string books;
    OutputFile output;
};

ExitCode importChart(Tool& tool, const ChartImportOptions& options) {
    const RowImport& import = options.import;
    const BooksUse use = import.isDryRun ? BooksUse::reading : BooksUse::changing;
    auto engine = openBooks(tool, options.books, use);
    if (engine == nullptr) return ExitCode::failed;
    ToolSession session(std::move(engine), options.books);
    if (const auto refused = session.logOn(tool, options.books)) return *refused;
    ToolMessages messages(tool, import.acceptsAll);
    ChartImport chart(messages);
    const auto plan = chart.plan(import.file);
    if (!plan) return ExitCode::failed;
    return showAndApply(tool, import, *plan, [&] { return chart.apply(*plan); });
}

ExitCode writeChart(Tool& tool, const ChartExportOptions& options) {
    if (const auto refused = refuseTarget(tool, options.output)) return *refused;
    auto engine = openBooks(tool, options.books);
    if (engine == nullptr) return ExitCode::failed;
    const ToolSession session(std::move(engine), options.books);
    ToolMessages messages(tool, false);
    const Outcome outcome = exportChart(messages, options.output.path, options.output.overwrite());
    if (outcome == Outcome::done)
        wordsBeside(tool, options.output)
            << fmt::format(tool_texts::exported, options.output.path) << '\n';
    return exitCodeOf(outcome);
}

}  // namespace

void addImportChartCommand(CLI::App& app, Tool& tool) {
    const auto options = std::make_shared<ChartImportOptions>();
    CLI::App* command = app.add_subcommand("import-chart", tool_texts::importChartCommand);
    command->add_option("BOOKS", options->books, tool_texts::booksArgument)->required();
    addImportOptions(*command, options->import, tool_texts::importFileArgument);
    addWriter(*command, tool);
    command->callback([&tool, options] {
        tool.action = [&tool, options] { return importChart(tool, *options); };
    });
}

void addExportChartCommand(CLI::App& app, Tool& tool) {
    const auto options = std::make_shared<ChartExportOptions>();
    CLI::App* command = app.add_subcommand("export-chart", tool_texts::exportChartCommand);
    command->add_option("BOOKS", options->books, tool_texts::booksArgument)->required();
    command->add_option("FILE", options->output.path, tool_texts::exportFileArgument)->required();
    command->add_flag("--force", options->output.isForced, tool_texts::forceFile);
    command->callback([&tool, options] {
        tool.action = [&tool, options] { return writeChart(tool, *options); };
    });
}

}  // namespace chengheng
