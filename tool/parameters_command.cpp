#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <memory>
#include <optional>
#include <ostream>

#include "base/system/workstation.h"
#include "base/values/text.h"
#include "books/logon/books_session.h"
#include "books/making/new_books.h"
#include "books/parameters/parameters_service.h"
#include "tool/command_line.h"
#include "tool/commands.h"
#include "tool/json_text.h"
#include "tool/parameters_texts.h"
#include "tool/tool_session.h"
#include "tool/tool_texts.h"

namespace chengheng {
namespace {

struct StartMonth {
    int year = 0;
    int month = 0;
};

struct SetOptions {
    std::string books;
    std::optional<std::string> name;
    std::optional<std::string> company;
    std::optional<bool> hasForeignCurrency;
    std::optional<std::string> levels;
    std::optional<StartMonth> start;
    bool isDryRun = false;
    bool isForced = false;
    bool isJson = false;

    bool isEmpty() const { return !name && !company && !hasForeignCurrency && !levels && !start; }
};

StartMonth readStart(const std::string& text) {
    constexpr std::string_view form = "2026-04";
    bool isRead = text.size() == form.size() && text[4] == '-';
    for (std::size_t at = 0; isRead && at < text.size(); ++at)
        isRead = at == 4 || isDigit(text[at]);
    if (!isRead) throw CLI::ValidationError(fmt::format(tool_texts::notMonth, "--start", text));
    return {std::stoi(text.substr(0, 4)), std::stoi(text.substr(5))};
}

BooksParameters wantedOf(const SetOptions& options, const _zAccountMInfo& stored) {
    BooksParameters wanted = parametersOf(stored);
    if (options.name) wanted.name = *options.name;
    if (options.company) wanted.company = *options.company;
    if (options.hasForeignCurrency) wanted.hasForeignCurrency = *options.hasForeignCurrency;
    if (options.levels) wanted.levelPattern = *options.levels;
    if (options.start) wanted.startMonth = options.start->month;
    return wanted;
}

std::string jsonOf(const ParametersPlan& plan, bool isWritten) {
    Json changes = Json::array();
    for (const ParameterChange& change : plan.changes)
        changes.push_back({{"field", change.field},
                           {"title", change.title},
                           {"before", change.before},
                           {"after", change.after},
                           {"effect", change.effect}});
    return jsonText({{"written", isWritten}, {"changes", changes}}) + '\n';
}

ExitCode setParameters(Tool& tool, const SetOptions& options) {
    if (options.isEmpty()) {
        tool.err << tool_texts::nothingToSet << tool_texts::seeHelp << '\n';
        return ExitCode::wrongUsage;
    }
    auto engine =
        openBooks(tool, options.books, options.isDryRun ? BooksUse::reading : BooksUse::changing);
    if (engine == nullptr) return ExitCode::failed;
    ToolSession session(std::move(engine), locationOfBooks(options.books));
    if (const auto refused = session.logOn(tool, options.books)) return *refused;
    ToolMessages messages(tool, true);
    const BooksRegistry registry(booksHome());
    ParametersService service(messages, registry.folder().empty() ? nullptr : &registry);
    ParameterFacts facts;
    if (const Outcome read = service.read(facts); read != Outcome::done) return exitCodeOf(read);
    if (options.start && options.start->year != facts.stored.lYear)
        return tellRefusal(
            tool, inputRefusal(fmt::format(tool_texts::startOutsideYear, facts.stored.lYear),
                               books_field::startMonth));
    const WantedParameters given{facts, wantedOf(options, facts.stored), options.isForced};
    ParametersPlan plan;
    if (const Outcome planned = service.plan(given, plan); planned != Outcome::done)
        return exitCodeOf(planned);
    const bool isToWrite = !options.isDryRun && !plan.changes.empty();
    if (!options.isJson) tool.out << plan.text();
    const Outcome outcome = isToWrite ? service.change(given) : Outcome::done;
    if (outcome != Outcome::done) return exitCodeOf(outcome);
    if (options.isJson)
        tool.out << jsonOf(plan, isToWrite);
    else
        tool.out << (plan.changes.empty() ? tool_texts::setAlready
                     : isToWrite          ? tool_texts::parametersSet
                                          : tool_texts::notSet)
                 << '\n';
    return ExitCode::done;
}

}  // namespace

void addSetCommand(CLI::App& app, Tool& tool) {
    const auto options = std::make_shared<SetOptions>();
    CLI::App* command = app.add_subcommand("set", tool_texts::setCommand);
    command->add_option("BOOKS", options->books, tool_texts::booksArgument)->required();
    command->add_option("--name", options->name, tool_texts::nameOption);
    command->add_option("--company", options->company, tool_texts::companyOption);
    addOnOff(
        *command, "--foreign", [options](bool isOn) { options->hasForeignCurrency = isOn; },
        tool_texts::setForeignOption);
    command->add_option("--levels", options->levels, tool_texts::levelsOption);
    command->add_option_function<std::string>(
        "--start", [options](const std::string& text) { options->start = readStart(text); },
        tool_texts::startOption);
    addWriter(*command, tool);
    command->add_flag("--dry-run", options->isDryRun, tool_texts::dryRunSet);
    command->add_flag("--force", options->isForced, tool_texts::forceSet);
    command->add_flag("--json", options->isJson, tool_texts::jsonOption);
    command->callback([&tool, options] {
        tool.action = [&tool, options] { return setParameters(tool, *options); };
    });
}

}  // namespace chengheng
