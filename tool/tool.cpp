#include "tool/tool.h"

#include <CLI/CLI.hpp>
#include <array>
#include <ostream>
#include <string>

#include "base/system/program_version.h"
#include "tool/commands.h"
#include "tool/tool_texts.h"

namespace chengheng {
namespace {

void setUp(CLI::App& app) {
    const auto formatter = app.get_formatter();
    formatter->label("Usage", tool_texts::usageLabel);
    formatter->label("Positionals", tool_texts::argumentsLabel);
    formatter->label("OPTIONS", tool_texts::optionGroup);
    formatter->label("SUBCOMMAND", tool_texts::commandGroup);
    formatter->label("TEXT", "");
    formatter->label("REQUIRED", tool_texts::requiredLabel);
    app.option_defaults()->group(tool_texts::optionGroup);
    app.set_help_flag("-h,--help", tool_texts::helpOption);
    app.set_version_flag("--version", std::string("chbooks ") + programVersion(),
                         tool_texts::versionOption);
    app.footer(tool_texts::footer);
    app.require_subcommand(1);
}

constexpr std::array addCommands{
    addNewCommand,         addDemoCommand,         addInfoCommand,          addCheckCommand,
    addBackupCommand,      addRestoreCommand,      addCopyCommand,          addImportChartCommand,
    addExportChartCommand, addTrialBalanceCommand, addImportOpeningCommand, addExportOpeningCommand,
    addPrintCommand};

ExitCode readAndRun(int argc, const char* const* argv, Tool& tool) {
    CLI::App app(tool_texts::summary, "chbooks");
    setUp(app);
    for (const auto addCommand : addCommands) addCommand(app, tool);
    for (CLI::App* command : app.get_subcommands({})) {
        command->group(tool_texts::commandGroup);
        command->get_help_ptr()->group(tool_texts::optionGroup);
    }
    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& wanted) {
        app.exit(wanted, tool.out, tool.err);
        return ExitCode::done;
    } catch (const CLI::ParseError& error) {
        tool.err << tool_texts::wrongUsage(error.get_name(), error.what()) << '\n';
        return ExitCode::wrongUsage;
    }
    return tool.action();
}

}  // namespace

int runTool(int argc, const char* const* argv, std::ostream& out, std::ostream& err,
            const PdfWriter& writePdf) {
    Tool tool{out, err, {}, writePdf, {argv + 1, argv + argc}};
    return static_cast<int>(readAndRun(argc, argv, tool));
}

}  // namespace chengheng
