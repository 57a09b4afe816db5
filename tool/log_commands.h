#pragma once

#include <memory>
#include <optional>
#include <string>

#include "operationlog/log_filter.h"
#include "tool/tool.h"

namespace CLI {
class App;
}

namespace chengheng {

class Engine;

// The commands on the operation log; each adds its part to the command "log".

void addLogListCommand(CLI::App& log, Tool& tool);
void addLogShowCommand(CLI::App& log, Tool& tool);
void addLogExportCommand(CLI::App& log, Tool& tool);
void addLogVerifyCommand(CLI::App& log, Tool& tool);
void addLogSealCommand(CLI::App& log, Tool& tool);

/// What a command line says of the entries that are wanted.
struct LogFilterOptions {
    LogFilter filter;
    std::string function;  ///< number or name
};

/// Adds --operator, --from, --to, --function, --text and --account.
void addLogFilter(CLI::App& command, LogFilterOptions& options);
/// Completes the filter; says why it cannot be.
std::optional<ExitCode> completeFilter(Tool& tool, LogFilterOptions& options);

/// Opens books that have an operation log, for reading, or says why not and gives null.
std::unique_ptr<Engine> openLoggedBooks(Tool& tool, const std::string& location);

}  // namespace chengheng
