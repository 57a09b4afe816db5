#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <memory>
#include <ostream>

#include "accounts/transfer/chart_import.h"
#include "base/values/text.h"
#include "data/engine/engine.h"
#include "tool/commands.h"
#include "tool/json_text.h"
#include "tool/output_file.h"
#include "tool/tool_session.h"
#include "tool/tool_texts.h"

namespace chengheng {
namespace {

struct ChartOptions {
    std::string books;
    std::string file;
    bool isDryRun = false;
    bool acceptsAll = false;
    bool isJson = false;
    bool isForced = false;

    OutputFile output() const { return {file, isForced}; }
};

const char* fateWord(RowFate fate) {
    switch (fate) {
        case RowFate::added:
            return "new";
        case RowFate::changed:
            return "changed";
        case RowFate::unchanged:
            return "unchanged";
        case RowFate::refused:
            break;
    }
    return "refused";
}

std::string jsonOf(const ImportPlan& plan) {
    Json rows = Json::array();
    for (const PlannedRow& row : plan.rows)
        rows.push_back({{"row", row.row},
                        {"column", row.column},
                        {"heading", row.heading},
                        {"code", row.code},
                        {"name", row.name},
                        {"fate", fateWord(row.fate)},
                        {"reason", row.reason},
                        {"questions", row.questions}});
    return jsonText({{"new", plan.count(RowFate::added)},
                     {"changed", plan.count(RowFate::changed)},
                     {"unchanged", plan.count(RowFate::unchanged)},
                     {"refused", plan.count(RowFate::refused)},
                     {"ignoredHeadings", plan.ignored},
                     {"rows", rows}}) +
           '\n';
}

std::string textOf(const ImportPlan& plan) {
    std::string text;
    for (const std::string& heading : plan.ignored)
        text += fmt::format(tool_texts::ignoredHeading, printableLine(heading));
    for (const PlannedRow& row : plan.rows) {
        text += fmt::format(tool_texts::plannedRow, row.row, fateTitle(row.fate),
                            printableLine(row.code), printableLine(row.name));
        if (row.fate == RowFate::refused)
            text += fmt::format(tool_texts::plannedRefusal, refusalText(row));
        for (const std::string& question : row.questions)
            text += fmt::format(tool_texts::plannedQuestion, question);
    }
    return text + fmt::format(tool_texts::planSummary, plan.count(RowFate::added),
                              plan.count(RowFate::changed), plan.count(RowFate::unchanged),
                              plan.count(RowFate::refused));
}

ExitCode importChart(Tool& tool, const ChartOptions& options) {
    const BooksUse use = options.isDryRun ? BooksUse::reading : BooksUse::changing;
    auto engine = openBooks(tool, options.books, use);
    if (engine == nullptr) return ExitCode::failed;
    const ToolSession session(std::move(engine), options.books);
    ToolMessages messages(tool, options.acceptsAll);
    ChartImport chart(messages);
    const auto plan = chart.plan(options.file);
    if (!plan) return ExitCode::failed;
    tool.out << (options.isJson ? jsonOf(*plan) : textOf(*plan));
    if (options.isDryRun) return plan->isAcceptable() ? ExitCode::done : ExitCode::wrongInput;
    const Outcome outcome = chart.apply(*plan);
    const bool wasAsked = outcome == Outcome::refused && plan->isAcceptable();
    if (wasAsked) tool.err << tool_texts::notAccepted << '\n';
    if (outcome == Outcome::done && !options.isJson)
        tool.out << fmt::format(tool_texts::imported, options.file) << '\n';
    return exitCodeOf(outcome);
}

ExitCode writeChart(Tool& tool, const ChartOptions& options) {
    if (const auto refused = refuseTarget(tool, options.output())) return *refused;
    auto engine = openBooks(tool, options.books);
    if (engine == nullptr) return ExitCode::failed;
    const ToolSession session(std::move(engine), options.books);
    ToolMessages messages(tool, false);
    const Outcome outcome = exportChart(messages, options.file, options.output().overwrite());
    if (outcome == Outcome::done)
        wordsBeside(tool, options.output())
            << fmt::format(tool_texts::exported, options.file) << '\n';
    return exitCodeOf(outcome);
}

}  // namespace

void addImportChartCommand(CLI::App& app, Tool& tool) {
    const auto options = std::make_shared<ChartOptions>();
    CLI::App* command = app.add_subcommand("import-chart", tool_texts::importChartCommand);
    command->add_option("BOOKS", options->books, tool_texts::booksArgument)->required();
    command->add_option("FILE", options->file, tool_texts::importFileArgument)->required();
    command->add_flag("--dry-run", options->isDryRun, tool_texts::dryRunOption);
    command->add_flag("--accept", options->acceptsAll, tool_texts::acceptOption);
    command->add_flag("--json", options->isJson, tool_texts::jsonOption);
    command->callback([&tool, options] {
        tool.action = [&tool, options] { return importChart(tool, *options); };
    });
}

void addExportChartCommand(CLI::App& app, Tool& tool) {
    const auto options = std::make_shared<ChartOptions>();
    CLI::App* command = app.add_subcommand("export-chart", tool_texts::exportChartCommand);
    command->add_option("BOOKS", options->books, tool_texts::booksArgument)->required();
    command->add_option("FILE", options->file, tool_texts::exportFileArgument)->required();
    command->add_flag("--force", options->isForced, tool_texts::forceFile);
    command->callback([&tool, options] {
        tool.action = [&tool, options] { return writeChart(tool, *options); };
    });
}

}  // namespace chengheng
