#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <memory>
#include <ostream>

#include "base/system/workstation.h"
#include "base/values/numbers.h"
#include "base/values/text.h"
#include "books/carrying/carry_forward.h"
#include "books/carrying/carry_texts.h"
#include "tool/carry_texts.h"
#include "tool/command_line.h"
#include "tool/commands.h"
#include "tool/json_text.h"
#include "tool/tool_session.h"
#include "tool/tool_texts.h"

namespace chengheng {
namespace {

struct CarryOptions {
    std::string books;
    bool isDryRun = false;
    bool isVerifying = false;
    bool isJson = false;
};

Json jsonOf(const EntryFigures& figures) {
    return {{"money", figures.money}, {"foreign", figures.foreign}, {"quantity", figures.quantity}};
}

std::string jsonOf(const CarryPreview& preview) {
    Json accounts = Json::array();
    for (const CarryPreview::Account& each : preview.accounts)
        accounts.push_back({{"code", each.code},
                            {"name", each.name},
                            {"side", each.isDebit ? "debit" : "credit"},
                            {"closing", jsonOf(each.closing)},
                            {"opening", each.opening}});
    Json obstacles = Json::array();
    for (const CarryObstacle& each : preview.plan.obstacles)
        obstacles.push_back({{"code", each.code}, {"text", each.text}});
    return jsonText({{"filled", preview.isFilled},
                     {"sameAccounts", !preview.plan.hasDifferingCharts},
                     {"debitTotal", preview.debitTotal},
                     {"creditTotal", preview.creditTotal},
                     {"accounts", accounts},
                     {"details", preview.plan.details.size()},
                     {"obstacles", obstacles}}) +
           '\n';
}

std::string textOf(const CarryPreview& preview) {
    std::string text;
    for (const CarryPreview::Account& each : preview.accounts)
        text += printableLine(fmt::format(carry_texts::plannedAccount, each.code, each.name,
                                          each.isDebit ? carry_texts::debit : carry_texts::credit,
                                          ftoaWithSap(each.closing.money, 2),
                                          ftoaWithSap(each.opening, 2))) +
                '\n';
    for (const std::string* classes :
         {&preview.balance.debitClasses, &preview.balance.creditClasses})
        text += *classes;
    std::erase(text, '\r');
    return text +
           fmt::format(carry_texts::plannedTotal, preview.accounts.size(),
                       ftoaWithSap(preview.debitTotal, 2), ftoaWithSap(preview.creditTotal, 2)) +
           '\n' + preview.balance.result + '\n';
}

ExitCode codeOf(Outcome outcome) {
    return outcome == Outcome::refused ? ExitCode::wrongInput : exitCodeOf(outcome);
}

ExitCode showPreview(Tool& tool, const BooksRegistry& registry, bool isJson,
                     std::vector<Notice>& untold) {
    CarryPreview preview;
    const Outcome outcome = previewCarry(registry, preview, untold);
    if (outcome != Outcome::done) return codeOf(outcome);
    tool.out << (isJson ? jsonOf(preview) : textOf(preview));
    if (preview.isFilled) tool.err << carry_texts::alreadyFilled << '\n';
    for (const CarryObstacle& obstacle : preview.plan.obstacles)
        tool.err << printableLine(obstacle.text) << '\n';
    const bool mayBeDone = !preview.isFilled && preview.plan.obstacles.empty();
    return mayBeDone ? ExitCode::done : ExitCode::faultsFound;
}

ExitCode showProof(Tool& tool, const BooksRegistry& registry, bool isJson,
                   std::vector<Notice>& untold) {
    std::vector<CarryDifference> differences;
    const Outcome outcome = verifyCarry(registry, differences, untold);
    if (outcome != Outcome::done) return codeOf(outcome);
    if (isJson) {
        Json list = Json::array();
        for (const CarryDifference& each : differences)
            list.push_back({{"code", each.code},
                            {"name", each.name},
                            {"detail", each.detail},
                            {"measure", each.measure},
                            {"closing", each.closing},
                            {"opening", each.opening}});
        tool.out << jsonText({{"differences", list}}) << '\n';
    } else {
        for (const CarryDifference& each : differences)
            tool.out << printableLine(differenceText(each)) << '\n';
        tool.out << (differences.empty() ? std::string(carry_texts::proven)
                                         : fmt::format(carry_texts::differing, differences.size()))
                 << '\n';
    }
    return differences.empty() ? ExitCode::done : ExitCode::faultsFound;
}

ExitCode carry(Tool& tool, const BooksRegistry& registry, bool isJson,
               std::vector<Notice>& untold) {
    const CarriedForward carried = carryForward(registry, untold);
    if (carried.outcome != Outcome::done) return codeOf(carried.outcome);
    if (isJson)
        tool.out << jsonText({{"carried", true}, {"text", carried.remark}}) << '\n';
    else
        tool.out << carried.remark << '\n';
    return ExitCode::done;
}

ExitCode runCarry(Tool& tool, const CarryOptions& options) {
    const bool isReading = options.isDryRun || options.isVerifying;
    auto engine =
        openBooks(tool, options.books, isReading ? BooksUse::reading : BooksUse::changing);
    if (engine == nullptr) return ExitCode::failed;
    const ToolSession session(std::move(engine), options.books);
    const BooksRegistry registry(booksHome());
    std::vector<Notice> untold;
    const auto work = options.isDryRun ? showPreview : options.isVerifying ? showProof : carry;
    const ExitCode code = work(tool, registry, options.isJson, untold);
    ToolMessages messages(tool, false);
    for (const Notice& notice : untold) messages.tell(notice);
    return code;
}

}  // namespace

void addCarryCommand(CLI::App& app, Tool& tool) {
    const auto options = std::make_shared<CarryOptions>();
    CLI::App* command =
        addBooksCommand(app, tool, "carry-forward", tool_texts::carryCommand, options->books,
                        [&tool, options] { return runCarry(tool, *options); });
    CLI::Option* dry = command->add_flag("--dry-run", options->isDryRun, tool_texts::dryRunCarry);
    command->add_flag("--verify", options->isVerifying, tool_texts::verifyCarry)->excludes(dry);
    command->add_flag("--json", options->isJson, tool_texts::jsonOption);
}

}  // namespace chengheng
