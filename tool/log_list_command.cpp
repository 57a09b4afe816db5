#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <limits>
#include <memory>
#include <ostream>

#include "base/values/text.h"
#include "data/engine/engine.h"
#include "operationlog/log_names.h"
#include "operationlog/log_reading.h"
#include "operationlog/log_rows.h"
#include "operationlog/row_names.h"
#include "tool/command_line.h"
#include "tool/commands.h"
#include "tool/json_text.h"
#include "tool/log_command_texts.h"
#include "tool/log_commands.h"
#include "tool/tool_texts.h"

namespace chengheng {
namespace {

constexpr NumberRange limitRange{1, 1'000'000};
constexpr NumberRange entryRange{1, std::numeric_limits<int>::max()};
constexpr int entriesAtOnce = 200;

struct ListOptions {
    std::string books;
    LogFilterOptions wanted;
    int limit = 100;
    bool isJson = false;
};

Json jsonOf(const LogEntry& entry) {
    return {{"number", entry.number},
            {"time", entry.time},
            {"operatorId", entry.operatorId},
            {"operator", entry.operatorName},
            {"workstation", entry.workstation},
            {"process", entry.process},
            {"program", entry.program},
            {"function", entry.function},
            {"functionName", shownFunction(entry.function)},
            {"words", entry.words},
            {"rows", entry.rows},
            {"hash", entry.hash}};
}

std::string lineOf(const LogEntry& entry) {
    return fmt::format(log_command_texts::entryLine, entry.number, shownLogTime(entry.time),
                       printableLine(entry.operatorName), printableLine(entry.workstation),
                       printableLine(entry.words), entry.rows);
}

/// Hands over the entries that are wanted, a page at a time.
Status forEachEntry(Engine& engine, const ListOptions& options,
                    const std::function<void(const LogEntry&)>& receive, bool& hasMore) {
    LogPages pages(engine, options.wanted.filter);
    int left = options.limit;
    Status status = Status::done();
    while (status && left > 0 && !pages.isAtEnd()) {
        std::vector<LogEntry> page;
        status = pages.read(std::min(left, entriesAtOnce), page);
        left -= static_cast<int>(page.size());
        for (const LogEntry& entry : page) receive(entry);
    }
    std::vector<LogEntry> next;
    if (status && !pages.isAtEnd()) status = pages.read(1, next);
    hasMore = !next.empty();
    return status;
}

ExitCode listAsJson(Tool& tool, Engine& engine, const ListOptions& options) {
    Json entries = Json::array();
    bool hasMore = false;
    const Status status = forEachEntry(
        engine, options, [&entries](const LogEntry& entry) { entries.push_back(jsonOf(entry)); },
        hasMore);
    if (!status) return tellFailure(tool, status, options.books);
    tool.out << jsonText({{"entries", entries}, {"more", hasMore}}) << '\n';
    return ExitCode::done;
}

ExitCode listLog(Tool& tool, ListOptions& options) {
    if (const auto refused = completeFilter(tool, options.wanted)) return *refused;
    const auto engine = openLoggedBooks(tool, options.books);
    if (engine == nullptr) return ExitCode::failed;
    if (options.isJson) return listAsJson(tool, *engine, options);
    bool hasMore = false;
    bool isAny = false;
    const Status status = forEachEntry(
        *engine, options,
        [&](const LogEntry& entry) {
            isAny = true;
            tool.out << lineOf(entry);
        },
        hasMore);
    if (!status) return tellFailure(tool, status, options.books);
    if (!isAny) tool.out << log_command_texts::noEntries;
    if (hasMore) tool.out << log_command_texts::moreEntries;
    return ExitCode::done;
}

struct ShowOptions {
    std::string books;
    int number = 0;
    bool isJson = false;
};

Json jsonOf(const LoggedCell& cell) {
    if (const auto* const number = std::get_if<std::int64_t>(&cell)) return *number;
    if (const auto* const number = std::get_if<double>(&cell)) return *number;
    if (const auto* const text = std::get_if<std::string>(&cell)) return *text;
    return nullptr;
}

const char* wordOf(ChangeKind kind) {
    constexpr const char* words[] = {"inserted", "changed", "deleted"};
    return words[static_cast<std::size_t>(kind)];
}

Json jsonOf(const std::string& table, const LoggedRow& row, const std::string& rowName) {
    Json columns = Json::array();
    for (const LoggedColumn& column : row.columns) {
        Json cell = {{"column", column.name}, {"name", shownColumn(table, column.name)}};
        if (row.kind != ChangeKind::inserted) cell["before"] = jsonOf(column.before);
        if (row.kind != ChangeKind::deleted) cell["after"] = jsonOf(column.after);
        columns.push_back(std::move(cell));
    }
    return {{"table", table},     {"name", shownTable(table)},  {"id", row.id},
            {"rowName", rowName}, {"change", wordOf(row.kind)}, {"columns", columns}};
}

std::string textOf(const std::string& table, const LoggedRow& row, const std::string& rowName) {
    const std::string named = rowName.empty() ? "" : ' ' + printableLine(rowName);
    std::string text = fmt::format(log_command_texts::rowLine, shownKind(row.kind),
                                   printableLine(shownTable(table)), named, row.id);
    for (const LoggedColumn& column : row.columns) {
        const std::string name = printableLine(shownColumn(table, column.name));
        const auto shown = [&](const LoggedCell& cell) {
            return printableLine(shownLogCell(table, column.name, cell));
        };
        if (row.kind == ChangeKind::changed)
            text += fmt::format(log_command_texts::changedCell, name, shown(column.before),
                                shown(column.after));
        else
            text +=
                fmt::format(log_command_texts::onlyCell, name,
                            shown(row.kind == ChangeKind::inserted ? column.after : column.before));
    }
    return text;
}

using ReceiveRow =
    std::function<void(const std::string& table, const LoggedRow& row, const std::string& rowName)>;

Status forEachLoggedRow(Engine& engine, const LogEntry& entry, const ReceiveRow& receive) {
    LogRows rows;
    LogRowNames rowNames(engine);
    Status status = Status::done();
    do {
        std::vector<std::string> names;
        status = readPartBehind(engine, entry.unit, rows.part, rows);
        if (status) status = rowNames.find(rows.table, rows.rows, names);
        for (std::size_t at = 0; status && at < rows.rows.size(); ++at)
            receive(rows.table, rows.rows[at], names[at]);
    } while (status && rows.part != 0);
    return status;
}

std::string headOf(const LogEntry& entry) {
    return fmt::format(log_command_texts::entryHead, entry.number, entry.time,
                       printableLine(entry.operatorName), entry.operatorId,
                       printableLine(entry.workstation), entry.process,
                       printableLine(entry.program), shownFunction(entry.function),
                       printableLine(entry.words), entry.hash, entry.rows);
}

ExitCode showEntry(Tool& tool, const ShowOptions& options) {
    const auto engine = openLoggedBooks(tool, options.books);
    if (engine == nullptr) return ExitCode::failed;
    LogEntry entry;
    bool isFound = false;
    Status status = readEntry(*engine, options.number, entry, isFound);
    if (status && !isFound) {
        tool.err << fmt::format(log_command_texts::noEntry, options.number) << '\n';
        return ExitCode::wrongInput;
    }
    Json json = jsonOf(entry);
    json["changes"] = Json::array();
    if (status && !options.isJson) tool.out << headOf(entry);
    if (status)
        status = forEachLoggedRow(*engine, entry, [&](const auto&... row) {
            if (options.isJson)
                json["changes"].push_back(jsonOf(row...));
            else
                tool.out << textOf(row...);
        });
    if (!status) return tellFailure(tool, status, options.books);
    if (options.isJson) tool.out << jsonText(json) << '\n';
    return ExitCode::done;
}

}  // namespace

void addLogListCommand(CLI::App& log, Tool& tool) {
    const auto options = std::make_shared<ListOptions>();
    CLI::App* command =
        addBooksCommand(log, tool, "list", log_command_texts::listCommand, options->books,
                        [&tool, options] { return listLog(tool, *options); });
    addLogFilter(*command, options->wanted);
    addNumber(*command, "--limit", options->limit, limitRange, log_command_texts::limitOption);
    command->add_flag("--json", options->isJson, tool_texts::jsonOption);
}

void addLogShowCommand(CLI::App& log, Tool& tool) {
    const auto options = std::make_shared<ShowOptions>();
    CLI::App* command =
        addBooksCommand(log, tool, "show", log_command_texts::showCommand, options->books,
                        [&tool, options] { return showEntry(tool, *options); });
    addNumber(*command, "NUMBER", options->number, entryRange, log_command_texts::numberArgument)
        ->required();
    command->add_flag("--json", options->isJson, tool_texts::jsonOption);
}

}  // namespace chengheng
