#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <functional>
#include <memory>
#include <ostream>

#include "base/values/text.h"
#include "data/access/host_database.h"
#include "data/engine/engine.h"
#include "opening/balance/trial_balance.h"
#include "opening/editing/opening_transfer.h"
#include "opening/editing/step_writer.h"
#include "session/last_failure.h"
#include "session/open_books.h"
#include "sheets/files/sheet_export.h"
#include "tool/command_line.h"
#include "tool/commands.h"
#include "tool/json_text.h"
#include "tool/output_file.h"
#include "tool/tool_session.h"
#include "tool/tool_texts.h"

namespace chengheng {
namespace {

struct OpeningOptions {
    std::string books;
    std::string file;
    bool isDryRun = false;
    bool isJson = false;
    bool isForced = false;

    OutputFile output() const { return {file, isForced}; }
};

/// Works on the opening balances of the books that a command names.
ExitCode withOpenings(Tool& tool, const OpeningOptions& options, BooksUse use,
                      const std::function<ExitCode(OpeningBooks& books, IMessages&)>& work) {
    auto engine = openBooks(tool, options.books, use);
    if (engine == nullptr) return ExitCode::failed;
    ToolSession session(std::move(engine), options.books);
    if (const auto refused = session.logOn(tool, options.books)) return *refused;
    ToolMessages messages(tool, false);
    OpeningBooks books;
    if (selectOpenBooks() && readOpeningBooks(*g_pDB, books)) return work(books, messages);
    tellLastFailure(messages);
    return ExitCode::failed;
}

std::string jsonOf(const TrialBalance& balance) {
    Json classes = Json::array();
    for (const TrialBalance::ClassSum& each : balance.classes())
        classes.push_back({{"name", each.name},
                           {"side", each.isDebit ? "debit" : "credit"},
                           {"sum", each.sum.value()}});
    return jsonText({{"balanced", balance.isBalanced()},
                     {"difference", balance.difference()},
                     {"debitTotal", balance.debitTotal()},
                     {"creditTotal", balance.creditTotal()},
                     {"classes", classes}});
}

/// The five texts with the line ends of a terminal.
std::string textOf(const TrialBalance& balance) {
    std::string text;
    const TrialBalanceTexts texts = balance.texts();
    for (const std::string* each : texts.inOrder()) {
        text += *each;
        if (!text.ends_with('\n')) text += '\n';
    }
    std::erase(text, '\r');
    return text;
}

ExitCode showTrialBalance(Tool& tool, const OpeningOptions& options) {
    return withOpenings(tool, options, BooksUse::reading, [&](OpeningBooks& books, IMessages&) {
        const TrialBalance balance(books.classes, books.sheet.accounts());
        tool.out << (options.isJson ? jsonOf(balance) + '\n' : textOf(balance));
        return balance.isBalanced() ? ExitCode::done : ExitCode::faultsFound;
    });
}

const char* fateWord(CellFate fate) {
    switch (fate) {
        case CellFate::changed:
            return "changed";
        case CellFate::unchanged:
            return "unchanged";
        case CellFate::ignored:
            return "ignored";
        case CellFate::refused:
            break;
    }
    return "refused";
}

std::string jsonOf(const FigurePlan& plan) {
    Json cells = Json::array();
    for (const PlannedCell& cell : plan.cells)
        cells.push_back({{"row", cell.row + 1},
                         {"column", cell.column + 1},
                         {"heading", cell.heading},
                         {"code", cell.code},
                         {"name", cell.name},
                         {"text", cell.text},
                         {"fate", fateWord(cell.fate)},
                         {"reason", cell.reason},
                         {"disagrees", cell.disagrees},
                         {"before", cell.before},
                         {"after", cell.figure.value}});
    return jsonText({{"changed", plan.count(CellFate::changed)},
                     {"unchanged", plan.count(CellFate::unchanged)},
                     {"ignored", plan.count(CellFate::ignored)},
                     {"refused", plan.count(CellFate::refused)},
                     {"cells", cells}}) +
           '\n';
}

std::string textOf(const FigurePlan& plan) {
    std::string text;
    for (const PlannedCell& cell : plan.cells)
        if (cell.fate == CellFate::changed || cell.fate == CellFate::refused)
            text += printableLine(plannedCellText(cell)) + '\n';
    return text + fmt::format(tool_texts::cellSummary, plan.count(CellFate::changed),
                              plan.count(CellFate::unchanged), plan.count(CellFate::ignored),
                              plan.count(CellFate::refused));
}

ExitCode writePlan(OpeningBooks& books, const FigurePlan& plan, IMessages& messages) {
    const auto figures = plan.figures();
    EditStep written;
    return exitCodeOf(StepWriter(books).write(
        messages, [&](const OpeningSheet& sheet) { return typedStep(sheet, figures); }, written));
}

ExitCode importOpening(Tool& tool, const OpeningOptions& options) {
    const BooksUse use = options.isDryRun ? BooksUse::reading : BooksUse::changing;
    return withOpenings(tool, options, use, [&](OpeningBooks& books, IMessages& messages) {
        FigurePlan plan;
        if (const std::optional<SheetFailure> failure =
                planImportedFile(books.sheet, options.file, plan)) {
            tool.err << failure->text() << '\n';
            return ExitCode::failed;
        }
        markDisagreeing(plan, books.sheet);
        tool.out << (options.isJson ? jsonOf(plan) : textOf(plan));
        if (plan.count(CellFate::refused) > 0) {
            tool.err << tool_texts::cellsRefused << '\n';
            return ExitCode::wrongInput;
        }
        if (options.isDryRun || !plan.mayBeApplied()) return ExitCode::done;
        const ExitCode code = writePlan(books, plan, messages);
        if (code == ExitCode::done && !options.isJson)
            tool.out << fmt::format(tool_texts::imported, options.file) << '\n';
        return code;
    });
}

ExitCode exportOpening(Tool& tool, const OpeningOptions& options) {
    const OutputFile file = options.output();
    if (const auto refused = refuseTarget(tool, file)) return *refused;
    const auto write = [&](OpeningBooks& books, IMessages& messages) {
        const Outcome outcome =
            exportSheet(messages, exportedOpenings(books.sheet), file.path, file.overwrite());
        if (outcome == Outcome::done)
            wordsBeside(tool, file) << fmt::format(tool_texts::openingExported, file.path) << '\n';
        return exitCodeOf(outcome);
    };
    return withOpenings(tool, options, BooksUse::reading, write);
}

CLI::App* add(CLI::App& app, Tool& tool, const char* name, const char* summary,
              const std::shared_ptr<OpeningOptions>& options,
              ExitCode (*run)(Tool&, const OpeningOptions&)) {
    return addBooksCommand(app, tool, name, summary, options->books,
                           [&tool, options, run] { return run(tool, *options); });
}

}  // namespace

void addTrialBalanceCommand(CLI::App& app, Tool& tool) {
    const auto options = std::make_shared<OpeningOptions>();
    CLI::App* command =
        add(app, tool, "trial-balance", tool_texts::trialBalanceCommand, options, showTrialBalance);
    command->add_flag("--json", options->isJson, tool_texts::jsonOption);
}

void addImportOpeningCommand(CLI::App& app, Tool& tool) {
    const auto options = std::make_shared<OpeningOptions>();
    CLI::App* command =
        add(app, tool, "import-opening", tool_texts::importOpeningCommand, options, importOpening);
    command->add_option("FILE", options->file, tool_texts::openingFileArgument)->required();
    addWriter(*command, tool);
    command->add_flag("--dry-run", options->isDryRun, tool_texts::dryRunCells);
    command->add_flag("--json", options->isJson, tool_texts::jsonOption);
}

void addExportOpeningCommand(CLI::App& app, Tool& tool) {
    const auto options = std::make_shared<OpeningOptions>();
    CLI::App* command =
        add(app, tool, "export-opening", tool_texts::exportOpeningCommand, options, exportOpening);
    command->add_option("FILE", options->file, tool_texts::exportFileArgument)->required();
    command->add_flag("--force", options->isForced, tool_texts::forceFile);
}

}  // namespace chengheng
