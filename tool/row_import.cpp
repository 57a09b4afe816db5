#include "tool/row_import.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <ostream>

#include "base/values/text.h"
#include "tool/commands.h"
#include "tool/json_text.h"
#include "tool/tool_texts.h"

namespace chengheng {
namespace {

const char* fateWord(RowFate fate) {
    switch (fate) {
        case RowFate::added:
            return "new";
        case RowFate::changed:
            return "changed";
        case RowFate::unchanged:
            return "unchanged";
        case RowFate::refused:
            break;
    }
    return "refused";
}

std::string jsonOf(const RowPlan& plan) {
    Json rows = Json::array();
    for (const PlannedRow& row : plan.rows)
        rows.push_back({{"row", row.row},
                        {"column", row.column},
                        {"heading", row.heading},
                        {"code", row.code},
                        {"name", row.name},
                        {"fate", fateWord(row.fate)},
                        {"reason", row.reason},
                        {"questions", row.questions}});
    return jsonText({{"new", plan.count(RowFate::added)},
                     {"changed", plan.count(RowFate::changed)},
                     {"unchanged", plan.count(RowFate::unchanged)},
                     {"refused", plan.count(RowFate::refused)},
                     {"ignoredHeadings", plan.ignored},
                     {"rows", rows}}) +
           '\n';
}

std::string textOf(const RowPlan& plan) {
    std::string text;
    for (const std::string& heading : plan.ignored)
        text += fmt::format(tool_texts::ignoredHeading, printableLine(heading));
    for (const PlannedRow& row : plan.rows) {
        text += fmt::format(tool_texts::plannedRow, row.row, fateTitle(row.fate),
                            printableLine(row.code), printableLine(row.name));
        if (row.fate == RowFate::refused)
            text += fmt::format(tool_texts::plannedRefusal, printableLine(refusalText(row)));
        for (const std::string& question : row.questions)
            text += fmt::format(tool_texts::plannedQuestion, question);
    }
    return text + fmt::format(tool_texts::planSummary, plan.count(RowFate::added),
                              plan.count(RowFate::changed), plan.count(RowFate::unchanged),
                              plan.count(RowFate::refused));
}

}  // namespace

void addImportOptions(CLI::App& command, RowImport& import, const char* fileText) {
    command.add_option("FILE", import.file, fileText)->required();
    command.add_flag("--dry-run", import.isDryRun, tool_texts::dryRunOption);
    command.add_flag("--accept", import.acceptsAll, tool_texts::acceptOption);
    command.add_flag("--json", import.isJson, tool_texts::jsonOption);
}

ExitCode showAndApply(Tool& tool, const RowImport& import, const RowPlan& plan,
                      const std::function<Outcome()>& apply) {
    tool.out << (import.isJson ? jsonOf(plan) : textOf(plan));
    if (import.isDryRun) return plan.isAcceptable() ? ExitCode::done : ExitCode::wrongInput;
    const Outcome outcome = apply();
    const bool wasAsked = outcome == Outcome::refused && plan.isAcceptable() &&
                          plan.rowsWithQuestions() > 0 && !import.acceptsAll;
    if (wasAsked) tool.err << tool_texts::notAccepted << '\n';
    if (outcome == Outcome::done && !import.isJson)
        tool.out << fmt::format(tool_texts::imported, import.file) << '\n';
    return exitCodeOf(outcome);
}

}  // namespace chengheng
