#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <memory>
#include <ostream>

#include "base/values/text.h"
#include "books/checking/integrity_check.h"
#include "data/engines/open_engine.h"
#include "tool/commands.h"
#include "tool/json_text.h"
#include "tool/tool_texts.h"

namespace chengheng {
namespace {

struct CheckOptions {
    std::string books;
    bool isJson = false;
};

const char* titleOf(const std::string& check) {
    for (const IntegrityCheck& each : integrityChecks())
        if (check == each.name) return each.title;
    return "";
}

std::string jsonOf(const std::vector<IntegrityFault>& faults, const std::string& location) {
    Json list = Json::array();
    for (const IntegrityFault& fault : faults)
        list.push_back(
            {{"check", fault.check}, {"title", titleOf(fault.check)}, {"text", fault.text}});
    Json checks = Json::array();
    for (const IntegrityCheck& check : integrityChecks()) checks.push_back(check.name);
    return jsonText({{"location", shownLocation(location)},
                     {"sound", faults.empty()},
                     {"faults", list},
                     {"checks", checks}});
}

std::string textOf(const std::vector<IntegrityFault>& faults) {
    std::string text;
    for (const IntegrityFault& fault : faults)
        text += fmt::format("[{}] {}\n", titleOf(fault.check), printableLine(fault.text));
    const auto checks = integrityChecks().size();
    return text + (faults.empty() ? fmt::format(tool_texts::noFaults, checks)
                                  : fmt::format(tool_texts::faultCount, checks, faults.size()));
}

ExitCode check(Tool& tool, const CheckOptions& options) {
    const auto engine = openBooks(tool, options.books);
    if (engine == nullptr) return ExitCode::failed;
    std::vector<IntegrityFault> faults;
    const Status status = checkIntegrity(*engine, faults);
    if (!status) {
        for (const IntegrityFault& fault : faults) tool.err << fault.text << '\n';
        return tellFailure(tool, status, options.books);
    }
    tool.out << (options.isJson ? jsonOf(faults, options.books) : textOf(faults)) << '\n';
    return faults.empty() ? ExitCode::done : ExitCode::faultsFound;
}

}  // namespace

void addCheckCommand(CLI::App& app, Tool& tool) {
    const auto options = std::make_shared<CheckOptions>();
    CLI::App* command = app.add_subcommand("check", tool_texts::checkCommand);
    command->add_option("BOOKS", options->books, tool_texts::booksArgument)->required();
    command->add_flag("--json", options->isJson, tool_texts::jsonOption);
    command->callback(
        [&tool, options] { tool.action = [&tool, options] { return check(tool, *options); }; });
}

}  // namespace chengheng
