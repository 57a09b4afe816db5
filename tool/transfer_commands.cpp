#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <memory>
#include <ostream>
#include <vector>

#include "books/copying/books_transfer.h"
#include "books/logon/books_session.h"
#include "books/logon/foreign_objects_text.h"
#include "data/engines/open_engine.h"
#include "tool/commands.h"
#include "tool/output_file.h"
#include "tool/tool_texts.h"

namespace chengheng {
namespace {

struct TransferOptions {
    std::string from;
    std::string to;
    bool isForced = false;
};

/// One of the commands that bring books from one place to another.
struct TransferCommand {
    const char* name;
    const char* summary;
    const char* fromName;
    const char* fromText;
    const char* toName;
    const char* toText;
    const char* forceText;
    fmt::format_string<std::string, std::string> done;
    std::optional<Refusal> (*run)(const std::string&, const std::string&, Overwrite,
                                  TransferRemarks*);
    bool isIntoFile = false;  ///< and so may go to standard output
};

constexpr TransferCommand backupCommand{"backup",
                                        tool_texts::backupCommand,
                                        "BOOKS",
                                        tool_texts::booksArgument,
                                        "FILE",
                                        tool_texts::backupFileArgument,
                                        tool_texts::forceFile,
                                        tool_texts::backedUp,
                                        backUpBooks,
                                        true};

constexpr TransferCommand restoreCommand{"restore",
                                         tool_texts::restoreCommand,
                                         "FILE",
                                         tool_texts::backupFileArgument,
                                         "BOOKS",
                                         tool_texts::newBooksArgument,
                                         tool_texts::forceBooks,
                                         tool_texts::restored,
                                         restoreBooks};

constexpr TransferCommand copyCommand{"copy",
                                      tool_texts::copyCommand,
                                      "FROM",
                                      tool_texts::booksArgument,
                                      "TO",
                                      tool_texts::newBooksArgument,
                                      tool_texts::forceBooks,
                                      tool_texts::copied,
                                      copyBooks};

ExitCode run(Tool& tool, const TransferCommand& command, const TransferOptions& options) {
    const Overwrite overwrite = options.isForced ? Overwrite::replaceBooks : Overwrite::refuse;
    const std::string from = foundBooks(tool, options.from);
    const bool isOutput = command.isIntoFile && isStandardOutput(options.to);
    const std::string to = isOutput ? options.to : locationOfBooks(options.to);
    TransferRemarks remarks;
    if (const auto refusal = command.run(from, to, overwrite, &remarks))
        return tellRefusal(tool, *refusal);
    for (const ForeignObject& object : remarks.leftOut)
        wordsBeside(tool, {to}) << fmt::format(tool_texts::objectLeftOut, nameOf(object)) << '\n';
    if (!remarks.notLogged.empty()) tool.err << remarks.notLogged << '\n';
    wordsBeside(tool, {to}) << fmt::format(command.done, shownLocation(from), shownLocation(to))
                            << '\n';
    return ExitCode::done;
}

void add(CLI::App& app, Tool& tool, const TransferCommand& command) {
    const auto options = std::make_shared<TransferOptions>();
    CLI::App* added = app.add_subcommand(command.name, command.summary);
    added->add_option(command.fromName, options->from, command.fromText)->required();
    added->add_option(command.toName, options->to, command.toText)->required();
    added->add_flag("--force", options->isForced, command.forceText);
    added->callback([&tool, &command, options] {
        tool.action = [&tool, &command, options] { return run(tool, command, *options); };
    });
}

}  // namespace

void addBackupCommand(CLI::App& app, Tool& tool) { add(app, tool, backupCommand); }
void addRestoreCommand(CLI::App& app, Tool& tool) { add(app, tool, restoreCommand); }
void addCopyCommand(CLI::App& app, Tool& tool) { add(app, tool, copyCommand); }

}  // namespace chengheng
