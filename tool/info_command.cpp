#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <memory>
#include <ostream>

#include "base/system/workstation.h"
#include "base/values/text.h"
#include "books/checking/books_summary.h"
#include "data/engines/open_engine.h"
#include "tool/commands.h"
#include "tool/json_text.h"
#include "tool/tool_texts.h"
#include "tool/writer_texts.h"

namespace chengheng {
namespace {

struct InfoOptions {
    std::string books;
    bool isJson = false;
};

std::string jsonOf(const BooksSummary& books, const std::string& location) {
    Json tables = Json::object();
    for (const auto& [table, rows] : books.tables) tables[table] = rows;
    Json uses = Json::array();
    for (const auto& [name, moment] : books.uses)
        uses.push_back(
            {{"operator", name}, {"administrator", name.empty()}, {"at", minuteText(moment)}});
    return jsonText({{"location", shownLocation(location)},
                     {"name", books.name},
                     {"company", books.company},
                     {"year", books.year},
                     {"start", isoText(books.start)},
                     {"levelPattern", books.levelPattern},
                     {"foreignCurrency", books.hasForeignCurrency},
                     {"formatVersion", books.formatVersion},
                     {"engine", {{"name", books.engine.name}, {"version", books.engine.version}}},
                     {"bytes", books.engine.bytes},
                     {"lastUses", uses},
                     {"tables", tables}});
}

std::string textOf(const BooksSummary& books, const std::string& location) {
    std::string text =
        fmt::format(tool_texts::infoHead, printableLine(books.name), printableLine(books.company),
                    books.year, isoText(books.start), books.levelPattern,
                    books.hasForeignCurrency ? tool_texts::yes : tool_texts::no, books.engine.name,
                    books.engine.version, books.formatVersion, books.engine.bytes / 1024,
                    shownLocation(location));
    if (!books.uses.empty()) text += tool_texts::lastUses;
    for (const auto& [name, moment] : books.uses)
        text += fmt::format(tool_texts::lastUse, minuteText(moment),
                            name.empty() ? tool_texts::administratorWrote : printableLine(name));
    text += tool_texts::rowCounts;
    for (const auto& [table, rows] : books.tables)
        text += fmt::format("  {:<14} {:>9}\n", table, rows);
    return text;
}

ExitCode showInfo(Tool& tool, const InfoOptions& options) {
    const auto engine = openBooks(tool, options.books);
    if (engine == nullptr) return ExitCode::failed;
    BooksSummary books;
    const Status status = readBooksSummary(*engine, books);
    if (!status) return tellFailure(tool, status, options.books);
    if (options.isJson)
        tool.out << jsonOf(books, options.books) << '\n';
    else
        tool.out << textOf(books, options.books);
    return ExitCode::done;
}

}  // namespace

void addInfoCommand(CLI::App& app, Tool& tool) {
    const auto options = std::make_shared<InfoOptions>();
    CLI::App* command = app.add_subcommand("info", tool_texts::infoCommand);
    command->add_option("BOOKS", options->books, tool_texts::booksArgument)->required();
    command->add_flag("--json", options->isJson, tool_texts::jsonOption);
    command->callback(
        [&tool, options] { tool.action = [&tool, options] { return showInfo(tool, *options); }; });
}

}  // namespace chengheng
