#include "tool/tool.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <ostream>
#include <sstream>
#include <string>

#include "base/system/program_version.h"
#include "tool/command_line.h"
#include "tool/commands.h"
#include "tool/json_text.h"
#include "tool/printable_stream.h"
#include "tool/tool_texts.h"

namespace chengheng {
namespace {

void setUp(CLI::App& app) {
    alignHelp(app);
    app.option_defaults()->group(tool_texts::optionGroup);
    app.set_help_flag("-h,--help", tool_texts::helpOption);
    app.set_version_flag("--version", std::string("chbooks ") + programVersion(),
                         tool_texts::versionOption);
    app.footer(tool_texts::footer);
    app.require_subcommand(1);
}

constexpr std::array addCommands{addNewCommand,
                                 addDemoCommand,
                                 addInfoCommand,
                                 addCheckCommand,
                                 addBackupCommand,
                                 addRestoreCommand,
                                 addCopyCommand,
                                 addSetCommand,
                                 addUpgradeCommand,
                                 addNewYearCommand,
                                 addCarryCommand,
                                 addImportChartCommand,
                                 addExportChartCommand,
                                 addImportDirectoryCommand,
                                 addExportDirectoryCommand,
                                 addImportVoucherTypesCommand,
                                 addExportVoucherTypesCommand,
                                 addImportRatesCommand,
                                 addExportRatesCommand,
                                 addTrialBalanceCommand,
                                 addImportOpeningCommand,
                                 addExportOpeningCommand,
                                 addImportAuxiliaryCommand,
                                 addExportAuxiliaryCommand,
                                 addTestVoucherCommand,
                                 addServerRolesCommand,
                                 addPrintCommand,
                                 addLogCommand};

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
        tool.err << wrongUsage(app, error) << '\n';
        return ExitCode::wrongUsage;
    }
    return tool.action();
}

/// The option, also with a value of its own: "--json=true".
bool asksForJson(std::string_view argument) {
    constexpr std::string_view option = "--json";
    if (!argument.starts_with(option)) return false;
    argument.remove_prefix(option.size());
    constexpr std::array<std::string_view, 5> yes{"", "=true", "=1", "=on", "=yes"};
    return std::ranges::find(yes, argument) != yes.end();
}

/// Whoever reads JSON gets the words beside it as JSON, too.
std::string jsonOfWords(std::string words, ExitCode code) {
    while (words.ends_with('\n')) words.pop_back();
    return jsonText({{code == ExitCode::done ? "notice" : "error", words},
                     {"exitCode", static_cast<int>(code)}}) +
           '\n';
}

}  // namespace

int runTool(int argc, const char* const* argv, std::ostream& out, std::ostream& err,
            const PdfWriter& writePdf) {
    const std::vector<std::string> commandLine(argv + 1, argv + argc);
    const bool isJson = std::ranges::any_of(commandLine, asksForJson);
    PrintableStream shown(out);
    PrintableStream told(err);
    std::ostringstream words;
    std::ostream& wordsOrTold = isJson ? static_cast<std::ostream&>(words) : told;
    Tool tool{shown, wordsOrTold, {}, writePdf, commandLine};
    const ExitCode code = readAndRun(argc, argv, tool);
    if (!words.view().empty()) told << jsonOfWords(words.str(), code);
    return static_cast<int>(code);
}

}  // namespace chengheng
