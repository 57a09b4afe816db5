#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <functional>
#include <memory>
#include <ostream>

#include "auxiliary/entries/entry_reading.h"
#include "auxiliary/transfer/entry_import.h"
#include "base/values/numbers.h"
#include "base/values/text.h"
#include "data/access/host_database.h"
#include "data/engine/engine.h"
#include "opening/storing/saving.h"
#include "session/last_failure.h"
#include "tool/command_line.h"
#include "tool/commands.h"
#include "tool/json_text.h"
#include "tool/output_file.h"
#include "tool/tool_session.h"
#include "tool/tool_texts.h"

namespace chengheng {
namespace {

struct AuxiliaryOptions {
    std::string books;
    std::string account;
    std::string file;
    bool isDryRun = false;
    bool isJson = false;
    bool isForced = false;

    OutputFile output() const { return {file, isForced}; }
};

/// Works on the opening entries of the account that a command names.
ExitCode withEntries(Tool& tool, const AuxiliaryOptions& options, BooksUse use,
                     const std::function<ExitCode(const EntryAccount&, IMessages&)>& work) {
    auto engine = openBooks(tool, options.books, use);
    if (engine == nullptr) return ExitCode::failed;
    ToolSession session(std::move(engine), options.books);
    if (const auto refused = session.logOn(tool, options.books)) return *refused;
    ToolMessages messages(tool, false);
    EntryAccount found;
    const Outcome outcome = findEntryAccount(messages, options.account, found);
    return outcome == Outcome::done ? work(found, messages) : exitCodeOf(outcome);
}

Json jsonOf(const PlannedEntry& row, const AuxiliaryMember& member) {
    constexpr std::pair<Dimension, const char*> dimensions[] = {
        {Dimension::department, "department"},
        {Dimension::person, "person"},
        {Dimension::unit, "unit"},
        {Dimension::item, "project"}};
    const EntryNames& names = row.entry ? row.entry->names : row.input.names;
    Json json{{"row", row.row},
              {"column", row.column},
              {"heading", row.heading},
              {"fate", row.isRefused() ? "refused" : "new"},
              {"reason", row.reason},
              {"alreadyThere", row.isThere},
              {"summary", row.input.summary}};
    for (const auto& [dimension, name] : dimensions)
        if (member.has(dimension)) json[name] = nameOf(names, dimension);
    json["direction"] = row.input.isDebit ? "debit" : "credit";
    json["amount"] = row.input.money;
    return json;
}

std::string jsonOf(const EntryPlan& plan, const AuxiliaryMember& member) {
    Json rows = Json::array();
    for (const PlannedEntry& row : plan.rows) rows.push_back(jsonOf(row, member));
    return jsonText({{"new", plan.rows.size() - plan.refusedCount()},
                     {"refused", plan.refusedCount()},
                     {"alreadyThere", plan.repeatedCount()},
                     {"ignoredHeadings", plan.ignored},
                     {"rows", rows}}) +
           '\n';
}

std::string textOf(const EntryPlan& plan, const AuxiliaryMember& member) {
    std::string text;
    for (const std::string& heading : plan.ignored)
        text += fmt::format(tool_texts::ignoredHeading, printableLine(heading));
    for (const PlannedEntry& row : plan.rows) {
        text += fmt::format(tool_texts::plannedRow, row.row, fateTitle(row.fate),
                            printableLine(namesText(row, member)), printableLine(row.input.money));
        if (row.isRefused())
            text += fmt::format(tool_texts::plannedRefusal, printableLine(refusalText(row)));
        if (row.isThere) text += fmt::format(tool_texts::plannedRefusal, tool_texts::entryIsThere);
    }
    return text + fmt::format(tool_texts::entrySummary, plan.rows.size() - plan.refusedCount(),
                              plan.refusedCount());
}

/// The entries with the sums of the accounts above, which closing their window would write.
ExitCode writeEntries(const EntryAccount& to, const EntryPlan& plan, IMessages& messages) {
    auto changes = plan.changes();
    OpeningBooks books;
    return exitCodeOf(EntryService(messages, *to.member).write(to.account, changes, [&books] {
        return saveOpeningBooks(*g_pDB, books);
    }));
}

ExitCode importAuxiliary(Tool& tool, const AuxiliaryOptions& options) {
    const BooksUse use = options.isDryRun ? BooksUse::reading : BooksUse::changing;
    const auto import = [&](const EntryAccount& to, IMessages& messages) {
        const auto plan = EntryImport(messages, *to.member, to.account).planFile(options.file);
        if (!plan) return ExitCode::failed;
        tool.out << (options.isJson ? jsonOf(*plan, *to.member) : textOf(*plan, *to.member));
        if (plan->refusedCount() > 0) {
            tool.err << tool_texts::cellsRefused << '\n';
            return ExitCode::wrongInput;
        }
        if (options.isDryRun || !plan->mayBeApplied()) return ExitCode::done;
        const ExitCode code = writeEntries(to, *plan, messages);
        if (code == ExitCode::done && !options.isJson)
            tool.out << fmt::format(tool_texts::imported, options.file) << '\n';
        return code;
    };
    return withEntries(tool, options, use, import);
}

ExitCode exportAuxiliary(Tool& tool, const AuxiliaryOptions& options) {
    const OutputFile file = options.output();
    if (const auto refused = refuseTarget(tool, file)) return *refused;
    const auto write = [&](const EntryAccount& from, IMessages& messages) {
        std::vector<AuxiliaryEntry> entries;
        if (!readEntries(*g_pDB, *from.member, from.account, entries)) {
            tellLastFailure(messages);
            return ExitCode::failed;
        }
        const Outcome outcome = exportEntries(messages, *from.member, from.account, entries,
                                              file.path, file.overwrite());
        if (outcome == Outcome::done)
            wordsBeside(tool, file) << fmt::format(tool_texts::entriesExported, file.path) << '\n';
        return exitCodeOf(outcome);
    };
    return withEntries(tool, options, BooksUse::reading, write);
}

CLI::App* add(CLI::App& app, Tool& tool, const char* name, const char* summary,
              const std::shared_ptr<AuxiliaryOptions>& options, const char* fileText,
              ExitCode (*run)(Tool&, const AuxiliaryOptions&)) {
    CLI::App* command = addBooksCommand(app, tool, name, summary, options->books,
                                        [&tool, options, run] { return run(tool, *options); });
    command->add_option("ACCOUNT", options->account, tool_texts::entryAccountArgument)->required();
    command->add_option("FILE", options->file, fileText)->required();
    return command;
}

}  // namespace

void addImportAuxiliaryCommand(CLI::App& app, Tool& tool) {
    const auto options = std::make_shared<AuxiliaryOptions>();
    CLI::App* command = add(app, tool, "import-auxiliary", tool_texts::importAuxiliaryCommand,
                            options, tool_texts::entryFileArgument, importAuxiliary);
    addWriter(*command, tool);
    command->add_flag("--dry-run", options->isDryRun, tool_texts::dryRunOption);
    command->add_flag("--json", options->isJson, tool_texts::jsonOption);
}

void addExportAuxiliaryCommand(CLI::App& app, Tool& tool) {
    const auto options = std::make_shared<AuxiliaryOptions>();
    CLI::App* command = add(app, tool, "export-auxiliary", tool_texts::exportAuxiliaryCommand,
                            options, tool_texts::exportFileArgument, exportAuxiliary);
    command->add_flag("--force", options->isForced, tool_texts::forceFile);
}

}  // namespace chengheng
