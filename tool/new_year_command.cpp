#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <memory>
#include <optional>
#include <ostream>

#include "base/system/workstation.h"
#include "books/logon/foreign_objects_text.h"
#include "books/newyear/new_year_books.h"
#include "tool/command_line.h"
#include "tool/commands.h"
#include "tool/json_text.h"
#include "tool/new_year_texts.h"
#include "tool/tool_session.h"
#include "tool/tool_texts.h"

namespace chengheng {
namespace {

struct NewYearOptions {
    NewYearOrder order;
    bool isUnlisted = false;
    bool isDryRun = false;
    bool isJson = false;
};

std::string jsonOf(const NewYearPlan& plan, bool isMade) {
    Json taken = Json::object();
    for (const NewYearPlan::Taken& each : plan.taken) taken[each.table] = each.rows;
    return jsonText({{"made", isMade},
                     {"name", plan.facts.setName},
                     {"year", plan.facts.year},
                     {"location", shownLocation(plan.facts.place)},
                     {"from", shownLocation(plan.facts.source)},
                     {"lastRates", plan.bringsLastRates},
                     {"taken", taken}}) +
           '\n';
}

ExitCode makeNewYear(Tool& tool, NewYearOptions& options) {
    options.order.isListed = !options.isUnlisted;
    std::optional<ToolSession> session;
    if (!tool.writer.name.empty()) {
        auto engine = openBooks(tool, options.order.books, BooksUse::changing);
        if (engine == nullptr) return ExitCode::failed;
        session.emplace(std::move(engine), options.order.books);
        if (const auto refused = session->logOn(tool, options.order.books)) return *refused;
    }
    const BooksRegistry registry(booksHome());
    const NewYearBooks books(registry);
    NewYearPlan plan;
    const auto refusal =
        options.isDryRun ? books.plan(options.order, plan) : books.make(options.order, {}, plan);
    if (refusal) return tellRefusal(tool, *refusal);
    for (const ForeignObject& object : plan.leftOut)
        tool.err << fmt::format(tool_texts::objectLeftOut, nameOf(object)) << '\n';
    if (options.isJson)
        tool.out << jsonOf(plan, !options.isDryRun);
    else
        tool.out << plan.text()
                 << (options.isDryRun
                         ? std::string(tool_texts::newYearNotMade)
                         : fmt::format(tool_texts::newYearMade, plan.facts.setName, plan.facts.year,
                                       shownLocation(plan.facts.place)))
                 << '\n';
    return ExitCode::done;
}

}  // namespace

void addNewYearCommand(CLI::App& app, Tool& tool) {
    const auto options = std::make_shared<NewYearOptions>();
    CLI::App* command = app.add_subcommand("new-year", tool_texts::newYearCommand);
    command->add_option("BOOKS", options->order.books, tool_texts::endingBooksArgument)->required();
    command->add_option("--target", options->order.target, tool_texts::newYearTarget);
    command->add_flag("--last-rates", options->order.bringsLastRates, tool_texts::lastRatesOption);
    command->add_flag("--unlisted", options->isUnlisted, tool_texts::newYearUnlisted);
    addWriter(*command, tool);
    command->add_flag("--dry-run", options->isDryRun, tool_texts::dryRunNewYear);
    command->add_flag("--json", options->isJson, tool_texts::jsonOption);
    command->callback([&tool, options] {
        tool.action = [&tool, options] { return makeNewYear(tool, *options); };
    });
}

}  // namespace chengheng
