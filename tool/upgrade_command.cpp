#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <memory>
#include <ostream>

#include "books/logon/books_session.h"
#include "books/upgrading/books_upgrade.h"
#include "data/engines/open_engine.h"
#include "tool/commands.h"
#include "tool/tool_texts.h"

namespace chengheng {
namespace {

constexpr std::chrono::seconds patience{5};

struct UpgradeOptions {
    std::string books;
    bool isDryRun = false;
    bool isForced = false;
};

ExitCode upgrade(Tool& tool, const UpgradeOptions& options) {
    const std::string location = foundBooks(tool, options.books);
    BooksUpgrade upgrade(location);
    UpgradePlan plan;
    if (const auto refusal = upgrade.plan(plan)) return tellRefusal(tool, *refusal);
    if (!plan.isNeeded()) {
        tool.out << fmt::format(tool_texts::upToDate, plan.location, plan.from) << '\n';
        return ExitCode::done;
    }
    if (options.isDryRun) {
        tool.out << plan.text() << '\n';
        return ExitCode::done;
    }
    PatientWaiter waiter(patience);
    const LoggedOn loggedOn = options.isForced ? LoggedOn::passOver : LoggedOn::waitFor;
    if (const auto refusal = upgrade.keepOthersOut(waiter, loggedOn))
        return tellRefusal(tool, *refusal);
    if (const auto refusal = upgrade.carryOut()) return tellRefusal(tool, *refusal);
    tool.out << (upgrade.backup().empty()
                     ? fmt::format(tool_texts::upgradedElsewhere, plan.location)
                     : fmt::format(tool_texts::upgraded, plan.location, plan.from,
                                   booksFormatVersion, upgrade.backup()))
             << '\n';
    return ExitCode::done;
}

}  // namespace

void addUpgradeCommand(CLI::App& app, Tool& tool) {
    const auto options = std::make_shared<UpgradeOptions>();
    CLI::App* command = app.add_subcommand("upgrade", tool_texts::upgradeCommand);
    command->add_option("BOOKS", options->books, tool_texts::booksArgument)->required();
    command->add_flag("--dry-run", options->isDryRun, tool_texts::dryRunUpgrade);
    command->add_flag("--force", options->isForced, tool_texts::forceUpgrade);
    command->callback(
        [&tool, options] { tool.action = [&tool, options] { return upgrade(tool, *options); }; });
}

}  // namespace chengheng
