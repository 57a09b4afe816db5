#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <memory>
#include <ostream>

#include "base/values/text.h"
#include "books/checking/integrity_check.h"
#include "data/engines/open_engine.h"
#include "operators/duties.h"
#include "operators/operator_service.h"
#include "tool/commands.h"
#include "tool/json_text.h"
#include "tool/tool_session.h"
#include "tool/tool_texts.h"

namespace chengheng {
namespace {

struct CheckOptions {
    std::string books;
    bool isJson = false;
    bool withDuties = false;
};

constexpr const char* dutiesCheck = "duties";

const char* titleOf(const std::string& check) {
    if (check == dutiesCheck) return tool_texts::dutiesTitle;
    for (const auto checks : {integrityChecks(), integrityNotes()})
        for (const IntegrityCheck& each : checks)
            if (check == each.name) return each.title;
    return "";
}

struct Findings {
    std::vector<IntegrityFault> faults;
    std::vector<IntegrityFault> notes;
};

/// Adds a note for each work that one operator may do and is not to do beside other work. They
/// are no faults of the books.
bool noteDuties(Tool& tool, std::unique_ptr<Engine> engine, const std::string& location,
                std::vector<IntegrityFault>& notes) {
    const ToolSession session(std::move(engine), location);
    ToolMessages messages(tool, false);
    const auto operators = OperatorService(messages).readAll();
    if (!operators) return false;
    for (const OperatorRecord& record : *operators)
        for (const char* duty : incompatibleDutiesOf(record))
            notes.push_back({dutiesCheck, fmt::format(tool_texts::incompatibleDuty,
                                                      record.user.sUserName, duty)});
    return true;
}

Json listOf(const std::vector<IntegrityFault>& found) {
    Json list = Json::array();
    for (const IntegrityFault& each : found)
        list.push_back(
            {{"check", each.check}, {"title", titleOf(each.check)}, {"text", each.text}});
    return list;
}

std::string jsonOf(const Findings& found, const std::string& location) {
    Json checks = Json::array();
    for (const IntegrityCheck& check : integrityChecks()) checks.push_back(check.name);
    return jsonText({{"location", shownLocation(location)},
                     {"sound", found.faults.empty()},
                     {"faults", listOf(found.faults)},
                     {"notes", listOf(found.notes)},
                     {"checks", checks}});
}

std::string linesOf(const std::vector<IntegrityFault>& found) {
    std::string text;
    for (const IntegrityFault& each : found)
        text += fmt::format("[{}] {}\n", titleOf(each.check), printableLine(each.text));
    return text;
}

std::string textOf(const Findings& found) {
    const auto checks = integrityChecks().size();
    std::string text = linesOf(found.faults);
    text += found.faults.empty() ? fmt::format(tool_texts::noFaults, checks)
                                 : fmt::format(tool_texts::faultCount, checks, found.faults.size());
    if (found.notes.empty()) return text;
    return linesOf(found.notes) + text + fmt::format(tool_texts::noteCount, found.notes.size());
}

ExitCode check(Tool& tool, const CheckOptions& options) {
    auto engine = openBooks(tool, options.books);
    if (engine == nullptr) return ExitCode::failed;
    Findings found;
    const Status status = checkIntegrity(*engine, found.faults, &found.notes);
    if (!status) {
        for (const IntegrityFault& fault : found.faults) tool.err << fault.text << '\n';
        return tellFailure(tool, status, options.books);
    }
    if (options.withDuties && !noteDuties(tool, std::move(engine), options.books, found.notes))
        return ExitCode::failed;
    tool.out << (options.isJson ? jsonOf(found, options.books) : textOf(found)) << '\n';
    return found.faults.empty() ? ExitCode::done : ExitCode::faultsFound;
}

}  // namespace

void addCheckCommand(CLI::App& app, Tool& tool) {
    const auto options = std::make_shared<CheckOptions>();
    CLI::App* command = app.add_subcommand("check", tool_texts::checkCommand);
    command->add_option("BOOKS", options->books, tool_texts::booksArgument)->required();
    command->add_flag("--json", options->isJson, tool_texts::jsonOption);
    command->add_flag("--duties", options->withDuties, tool_texts::dutiesOption);
    command->callback(
        [&tool, options] { tool.action = [&tool, options] { return check(tool, *options); }; });
}

}  // namespace chengheng
