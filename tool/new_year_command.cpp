#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <memory>
#include <optional>
#include <ostream>

#include "base/system/workstation.h"
#include "books/carrying/carry_forward.h"
#include "books/carrying/carry_texts.h"
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
    bool isCarrying = false;
};

/// What became of the balances once the books were made.
struct CarriedBalances {
    bool isDone = false;
    std::string text;
};

std::string jsonOf(const NewYearPlan& plan, bool isMade,
                   const std::optional<CarriedBalances>& balances) {
    Json taken = Json::object();
    for (const NewYearPlan::Taken& each : plan.taken) taken[each.table] = each.rows;
    Json json{{"made", isMade},
              {"name", plan.facts.setName},
              {"year", plan.facts.year},
              {"location", shownLocation(plan.facts.place)},
              {"from", shownLocation(plan.facts.source)},
              {"lastRates", plan.bringsLastRates},
              {"taken", taken}};
    if (balances) json["balances"] = {{"carried", balances->isDone}, {"text", balances->text}};
    return jsonText(json) + '\n';
}

/// Fills the books that were made; whatever comes of it, they stay.
CarriedBalances carryInto(Tool& tool, const NewYearPlan& made, const BooksRegistry& registry) {
    const std::string& place = made.facts.place;
    const CarriedBalances notOpened{false, notCarriedIntoNewYear(carry_texts::newYearNotOpened)};
    auto engine = openBooks(tool, place, BooksUse::changing);
    if (engine == nullptr) return notOpened;
    ToolSession session(std::move(engine), place);
    if (session.logOn(tool, place)) return notOpened;
    std::vector<Notice> untold;
    const CarriedForward carried = carryForwardFrom(made.facts.source, registry, untold);
    const bool isDone = carried.outcome == Outcome::done;
    CarriedBalances balances{isDone, carriedIntoNewYear(carried, untold)};
    // The last one says why nothing was carried and is part of the text.
    if (!isDone) untold.pop_back();
    ToolMessages messages(tool, false);
    for (const Notice& notice : untold) messages.tell(notice);
    return balances;
}

ExitCode makeNewYear(Tool& tool, NewYearOptions& options) {
    options.order.isListed = !options.isUnlisted;
    options.order.books = foundBooks(tool, options.order.books);
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
    const bool isMade = !options.isDryRun;
    plan.isCarriedInto = options.isCarrying;
    if (!options.isJson)
        tool.out << plan.text()
                 << (isMade ? fmt::format(tool_texts::newYearMade, plan.facts.setName,
                                          plan.facts.year, shownLocation(plan.facts.place))
                            : std::string(tool_texts::newYearNotMade))
                 << '\n';
    session.reset();
    std::optional<CarriedBalances> balances;
    if (options.isCarrying) balances = carryInto(tool, plan, registry);
    const bool isFilled = !balances || balances->isDone;
    if (options.isJson) tool.out << jsonOf(plan, isMade, balances);
    if (balances && !(options.isJson && isFilled))
        (isFilled ? tool.out : tool.err) << balances->text << '\n';
    return isFilled ? ExitCode::done : ExitCode::faultsFound;
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
    CLI::Option* dry = command->add_flag("--dry-run", options->isDryRun, tool_texts::dryRunNewYear);
    command->add_flag("--carry", options->isCarrying, tool_texts::carryIntoNewYear)->excludes(dry);
    command->add_flag("--json", options->isJson, tool_texts::jsonOption);
    command->callback([&tool, options] {
        tool.action = [&tool, options] { return makeNewYear(tool, *options); };
    });
}

}  // namespace chengheng
