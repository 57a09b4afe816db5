#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <memory>
#include <ostream>
#include <span>

#include "base/system/workstation.h"
#include "base/values/numbers.h"
#include "base/values/text.h"
#include "books/carrying/carry_forward.h"
#include "books/carrying/carry_repeat.h"
#include "books/carrying/carry_table.h"
#include "books/carrying/carry_texts.h"
#include "tool/carry_texts.h"
#include "tool/command_line.h"
#include "tool/commands.h"
#include "tool/json_text.h"
#include "tool/report_file.h"
#include "tool/tool_session.h"
#include "tool/tool_texts.h"

namespace chengheng {
namespace {

struct CarryOptions {
    std::string books;
    bool isDryRun = false;
    bool isVerifying = false;
    bool isRepeating = false;
    bool isJson = false;
    ReportFile output;

    /// It only looks.
    bool isReading() const { return isDryRun || isVerifying; }
};

Json jsonOf(const EntryFigures& figures) {
    return {{"money", figures.money}, {"foreign", figures.foreign}, {"quantity", figures.quantity}};
}

Json jsonOf(std::span<const CarryDifference> differences) {
    Json list = Json::array();
    for (const CarryDifference& each : differences)
        list.push_back({{"code", each.code},
                        {"name", each.name},
                        {"detail", each.detail},
                        {"measure", each.measure},
                        {"closing", each.closing},
                        {"opening", each.opening}});
    return list;
}

Json jsonOf(std::span<const CarryObstacle> obstacles) {
    Json list = Json::array();
    for (const CarryObstacle& each : obstacles)
        list.push_back({{"code", each.code}, {"text", each.text}});
    return list;
}

std::string jsonOf(const CarryPreview& preview) {
    Json accounts = Json::array();
    for (const CarryPreview::Account& each : preview.accounts)
        accounts.push_back({{"code", each.code},
                            {"name", each.name},
                            {"side", each.isDebit ? "debit" : "credit"},
                            {"closing", jsonOf(each.closing)},
                            {"opening", each.opening}});
    return jsonText({{"filled", preview.isFilled},
                     {"browsing", preview.isBrowsing},
                     {"sameAccounts", !preview.plan.hasDifferingCharts},
                     {"debitTotal", preview.debitTotal},
                     {"creditTotal", preview.creditTotal},
                     {"accounts", accounts},
                     {"details", preview.plan.details.size()},
                     {"obstacles", jsonOf(std::span(preview.plan.obstacles))}}) +
           '\n';
}

std::string textOf(const CarryPreview& preview) {
    std::string text;
    for (const CarryPreview::Account& each : preview.accounts)
        text += printableLine(fmt::format(
                    carry_texts::plannedAccount, each.code, each.name, directionText(each.isDebit),
                    ftoaWithSap(each.closing.money, 2), ftoaWithSap(each.opening, 2))) +
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

ExitCode writeTable(Tool& tool, const CarryOptions& options, const CarryTable& table,
                    ExitCode result) {
    const ExitCode code = writeReport(tool, options.output, reportOf(table));
    return code == ExitCode::done ? result : code;
}

ExitCode showPreview(Tool& tool, const BooksRegistry& registry, const CarryOptions& options,
                     std::vector<Notice>& untold) {
    CarryPreview preview;
    const Outcome outcome = previewCarry(registry, preview, untold);
    if (outcome != Outcome::done) return codeOf(outcome);
    const bool mayBeDone = preview.refusal() == nullptr && preview.plan.obstacles.empty();
    const ExitCode code = mayBeDone ? ExitCode::done : ExitCode::faultsFound;
    if (options.output.count() > 0) return writeTable(tool, options, carryTable(preview), code);
    tool.out << (options.isJson ? jsonOf(preview) : textOf(preview));
    if (preview.refusal() != nullptr) tool.err << preview.refusal() << '\n';
    for (const CarryObstacle& obstacle : preview.plan.obstacles)
        tool.err << printableLine(obstacle.text) << '\n';
    return code;
}

ExitCode showProof(Tool& tool, const BooksRegistry& registry, const CarryOptions& options,
                   std::vector<Notice>& untold) {
    std::vector<CarryDifference> differences;
    const Outcome outcome = verifyCarry(registry, differences, untold);
    if (outcome != Outcome::done) return codeOf(outcome);
    const ExitCode code = differences.empty() ? ExitCode::done : ExitCode::faultsFound;
    if (options.output.count() > 0) return writeTable(tool, options, carryTable(differences), code);
    if (options.isJson) {
        tool.out << jsonText({{"differences", jsonOf(std::span(differences))}}) << '\n';
    } else {
        for (const CarryDifference& each : differences)
            tool.out << printableLine(differenceText(each)) << '\n';
        tool.out << (differences.empty() ? std::string(carry_texts::proven)
                                         : fmt::format(carry_texts::differing, differences.size()))
                 << '\n';
    }
    return code;
}

ExitCode carry(Tool& tool, const BooksRegistry& registry, const CarryOptions& options,
               std::vector<Notice>& untold) {
    const CarriedForward carried = carryForward(registry, untold);
    if (carried.outcome != Outcome::done) return codeOf(carried.outcome);
    if (options.isJson)
        tool.out << jsonText({{"carried", true}, {"text", carried.remark}}) << '\n';
    else
        tool.out << carried.remark << '\n';
    return ExitCode::done;
}

void showRepeat(Tool& tool, const RepeatPlan& plan, bool isJson, bool isDone) {
    const std::string text = plan.isEmpty() ? carry_texts::proven : plan.text(isDone);
    if (isJson) {
        tool.out << jsonText({{"carried", isDone},
                              {"differences", jsonOf(std::span(plan.carried))},
                              {"left", jsonOf(std::span(plan.left))},
                              {"obstacles", jsonOf(std::span(plan.obstacles))},
                              {"text", text}})
                 << '\n';
        return;
    }
    for (const CarryDifference& each : plan.carried)
        tool.out << printableLine(differenceText(each)) << '\n';
    tool.out << text << '\n';
}

ExitCode repeat(Tool& tool, const BooksRegistry& registry, const CarryOptions& options,
                std::vector<Notice>& untold) {
    RepeatPlan plan;
    const Outcome looked = lookAtRepeat(registry, plan, untold);
    if (looked != Outcome::done) return codeOf(looked);
    const bool isDone = !options.isDryRun && !plan.carried.empty();
    if (isDone) {
        ToolMessages messages(tool, false);
        const Outcome carried = repeatCarry(plan, messages);
        if (carried != Outcome::done) return codeOf(carried);
    }
    const ExitCode code = plan.left.empty() ? ExitCode::done : ExitCode::faultsFound;
    if (options.output.count() > 0) return writeTable(tool, options, carryTable(plan), code);
    showRepeat(tool, plan, options.isJson, isDone);
    for (const CarryObstacle& obstacle : plan.obstacles)
        tool.err << printableLine(obstacle.text) << '\n';
    return code;
}

ExitCode work(Tool& tool, const BooksRegistry& registry, const CarryOptions& options,
              std::vector<Notice>& untold) {
    if (options.isRepeating) return repeat(tool, registry, options, untold);
    const auto chosen = options.isDryRun ? showPreview : options.isVerifying ? showProof : carry;
    return chosen(tool, registry, options, untold);
}

ExitCode runCarry(Tool& tool, const CarryOptions& options) {
    const int files = options.output.count();
    if (files > 1 || (files == 1 && !options.isReading())) {
        tool.err << (files > 1 ? tool_texts::onePrintFile : tool_texts::carryFileOfReading) << '\n';
        return ExitCode::wrongUsage;
    }
    if (files == 1)
        if (const auto code = prepareReportFile(tool, options.output)) return *code;
    auto engine = openBooks(tool, options.books,
                            options.isReading() ? BooksUse::reading : BooksUse::changing);
    if (engine == nullptr) return ExitCode::failed;
    ToolSession session(std::move(engine), options.books);
    if (const auto refused = session.logOn(tool, options.books)) return *refused;
    const BooksRegistry registry(booksHome());
    std::vector<Notice> untold;
    const ExitCode code = work(tool, registry, options, untold);
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
    CLI::Option* verify =
        command->add_flag("--verify", options->isVerifying, tool_texts::verifyCarry)->excludes(dry);
    command->add_flag("--repeat", options->isRepeating, tool_texts::repeatCarry)->excludes(verify);
    command->add_flag("--json", options->isJson, tool_texts::jsonOption);
    addWriter(*command, tool);
    addReportFile(*command, options->output);
}

}  // namespace chengheng
