#include "tool/log_commands.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <charconv>
#include <memory>
#include <ostream>

#include "books/checking/books_summary.h"
#include "data/connection/log_store.h"
#include "data/engine/engine.h"
#include "operationlog/listing/log_list.h"
#include "operationlog/log_names.h"
#include "operationlog/log_reading.h"
#include "session/last_failure.h"
#include "session/open_books.h"
#include "session/rights_list.h"
#include "tool/command_line.h"
#include "tool/commands.h"
#include "tool/log_command_texts.h"
#include "tool/report_file.h"
#include "tool/tool_session.h"
#include "tool/tool_texts.h"

namespace chengheng {
namespace {

void addMoment(CLI::App& command, const char* name, std::string& moment, const char* words) {
    const auto read = [name, &moment](const std::string& given) {
        const auto found = logMoment(given);
        if (!found)
            throw CLI::ValidationError(fmt::format(log_command_texts::notMoment, name, given));
        moment = *found;
    };
    command.add_option_function<std::string>(name, read, words);
}

std::optional<std::int32_t> functionCalled(const std::string& text) {
    std::int32_t number = 0;
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, number);
    if (error == std::errc() && rest == end && number >= 0) return number;
    for (number = logonFunction; number <= functionCount; ++number)
        if (number != 0 && text == shownFunction(number)) return number;
    return std::nullopt;
}

struct ExportOptions {
    std::string books;
    LogFilterOptions wanted;
    ReportFile output;
};

ExitCode exportLog(Tool& tool, ExportOptions& options) {
    if (options.output.count() != 1) {
        tool.err << log_command_texts::onePrintFile << '\n';
        return ExitCode::wrongUsage;
    }
    if (const auto refused = completeFilter(tool, options.wanted)) return *refused;
    if (const auto code = prepareReportFile(tool, options.output)) return *code;
    auto engine = openLoggedBooks(tool, options.books);
    if (engine == nullptr) return ExitCode::failed;
    BooksSummary books;
    if (const Status status = readBooksSummary(*engine, books); !status)
        return tellFailure(tool, status, options.books);
    const ToolSession session(std::move(engine), options.books, books.name);
    if (!selectOpenBooks()) {
        tool.err << lastFailureText() << '\n';
        return ExitCode::failed;
    }
    Report report;
    if (const auto refusal = makeListReport(logList(options.wanted.filter), report)) {
        tool.err << refusal->notice.text << '\n';
        return ExitCode::failed;
    }
    return writeReport(tool, options.output, report);
}

}  // namespace

void addLogFilter(CLI::App& command, LogFilterOptions& options) {
    LogFilter& filter = options.filter;
    command.add_option("--operator", filter.operatorName, log_command_texts::operatorOption);
    addMoment(command, "--from", filter.from, log_command_texts::fromOption);
    addMoment(command, "--to", filter.to, log_command_texts::toOption);
    command.add_option("--function", options.function, log_command_texts::functionOption);
    command.add_option("--text", filter.text, log_command_texts::textOption);
    command.add_option("--account", filter.account, log_command_texts::accountOption);
}

std::optional<ExitCode> completeFilter(Tool& tool, LogFilterOptions& options) {
    if (options.function.empty()) return std::nullopt;
    options.filter.function = functionCalled(options.function);
    if (options.filter.function) return std::nullopt;
    tool.err << fmt::format(log_command_texts::unknownFunction, options.function) << '\n';
    return ExitCode::wrongInput;
}

std::unique_ptr<Engine> openLoggedBooks(Tool& tool, const std::string& location) {
    auto engine = openBooks(tool, location);
    if (engine == nullptr) return nullptr;
    bool isThere = false;
    const Status status = findLog(*engine, isThere);
    if (status && isThere) return engine;
    if (status)
        tool.err << log_command_texts::noLog << '\n';
    else
        tellFailure(tool, status, location);
    return nullptr;
}

void addLogExportCommand(CLI::App& log, Tool& tool) {
    const auto options = std::make_shared<ExportOptions>();
    CLI::App* command =
        addBooksCommand(log, tool, "export", log_command_texts::exportCommand, options->books,
                        [&tool, options] { return exportLog(tool, *options); });
    addLogFilter(*command, options->wanted);
    addReportFile(*command, options->output);
    command->add_flag("--json", options->output.isJson, tool_texts::jsonOption);
}

void addLogCommand(CLI::App& app, Tool& tool) {
    CLI::App* log = app.add_subcommand("log", log_command_texts::logCommand);
    log->require_subcommand(1);
    addLogListCommand(*log, tool);
    addLogShowCommand(*log, tool);
    addLogVerifyCommand(*log, tool);
    addLogSealCommand(*log, tool);
    addLogExportCommand(*log, tool);
    for (CLI::App* command : log->get_subcommands({})) {
        command->group(tool_texts::commandGroup);
        command->get_help_ptr()->group(tool_texts::optionGroup);
    }
}

}  // namespace chengheng
