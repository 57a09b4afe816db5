#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <memory>
#include <ostream>

#include "data/engine/engine.h"
#include "directories/transfer/directory_import.h"
#include "tool/command_line.h"
#include "tool/commands.h"
#include "tool/output_file.h"
#include "tool/row_import.h"
#include "tool/tool_session.h"
#include "tool/tool_texts.h"

namespace chengheng {
namespace {

struct DirectoryOptions {
    std::string books;
    std::string kind;
    RowImport import = {};
    OutputFile output = {};
};

/// Null, and told, when the command line names none.
const Directory* namedDirectory(Tool& tool, const DirectoryOptions& options) {
    const Directory* directory = findDirectory(options.kind);
    if (directory == nullptr)
        tool.err << fmt::format(tool_texts::unknownDirectory, options.kind) << '\n';
    return directory;
}

ExitCode importNamed(Tool& tool, const DirectoryOptions& options) {
    const Directory* directory = namedDirectory(tool, options);
    if (directory == nullptr) return ExitCode::wrongInput;
    const RowImport& import = options.import;
    const BooksUse use = import.isDryRun ? BooksUse::reading : BooksUse::changing;
    auto engine = openBooks(tool, options.books, use);
    if (engine == nullptr) return ExitCode::failed;
    ToolSession session(std::move(engine), options.books);
    if (const auto refused = session.logOn(tool, options.books)) return *refused;
    ToolMessages messages(tool, import.acceptsAll);
    DirectoryImport planned(messages, *directory);
    const auto plan = planned.plan(import.file);
    if (!plan) return ExitCode::failed;
    return showAndApply(tool, import, *plan, [&] { return planned.apply(*plan); });
}

ExitCode exportNamed(Tool& tool, const DirectoryOptions& options) {
    const Directory* directory = namedDirectory(tool, options);
    if (directory == nullptr) return ExitCode::wrongInput;
    const OutputFile& file = options.output;
    if (const auto refused = refuseTarget(tool, file)) return *refused;
    auto engine = openBooks(tool, options.books);
    if (engine == nullptr) return ExitCode::failed;
    const ToolSession session(std::move(engine), options.books);
    ToolMessages messages(tool, false);
    const Outcome outcome = exportDirectory(messages, *directory, file.path, file.overwrite());
    if (outcome == Outcome::done)
        wordsBeside(tool, file) << fmt::format(tool_texts::directoryExported, directory->title,
                                               file.path)
                                << '\n';
    return exitCodeOf(outcome);
}

CLI::App* add(CLI::App& app, Tool& tool, const char* name, const char* summary,
              const std::shared_ptr<DirectoryOptions>& options,
              ExitCode (*run)(Tool&, const DirectoryOptions&)) {
    CLI::App* command = addBooksCommand(app, tool, name, summary, options->books,
                                        [&tool, options, run] { return run(tool, *options); });
    command->add_option("KIND", options->kind, tool_texts::directoryArgument)->required();
    return command;
}

}  // namespace

void addImportDirectoryCommand(CLI::App& app, Tool& tool) {
    const auto options = std::make_shared<DirectoryOptions>();
    CLI::App* command = add(app, tool, "import-directory", tool_texts::importDirectoryCommand,
                            options, importNamed);
    addImportOptions(*command, options->import, tool_texts::directoryFileArgument);
    addWriter(*command, tool);
}

void addExportDirectoryCommand(CLI::App& app, Tool& tool) {
    const auto options = std::make_shared<DirectoryOptions>();
    CLI::App* command = add(app, tool, "export-directory", tool_texts::exportDirectoryCommand,
                            options, exportNamed);
    command->add_option("FILE", options->output.path, tool_texts::exportFileArgument)->required();
    command->add_flag("--force", options->output.isForced, tool_texts::forceFile);
}

}  // namespace chengheng
