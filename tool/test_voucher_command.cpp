#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <ostream>

#include "base/values/text.h"
#include "data/engine/engine.h"
#include "sheets/files/plan_import.h"
#include "sheets/files/sheet_export.h"
#include "tool/command_line.h"
#include "tool/commands.h"
#include "tool/json_text.h"
#include "tool/tool_session.h"
#include "tool/tool_texts.h"
#include "tool/voucher_texts.h"
#include "vouchertype/tester/trial_reading.h"
#include "vouchertype/tester/trial_sheet.h"

namespace chengheng {
namespace {

struct TestVoucherOptions {
    std::string books;
    std::string file;
    std::string type;
    bool isJson = false;
};

std::optional<std::vector<TrialLine>> readLines(IMessages& messages, const std::string& file) {
    const auto sheet = readSheetToImport(messages, file);
    if (!sheet) return std::nullopt;
    std::vector<TrialLine> lines;
    auto failure = readTrialLines(*sheet, lines);
    if (!failure) return lines;
    messages.tell(sheetWarning(whileReading(std::move(*failure), file).text()));
    return std::nullopt;
}

std::string jsonOf(const TrialResult& result) {
    Json types = Json::array();
    for (const TypeVerdict& verdict : result.verdicts)
        types.push_back({{"number", verdict.type.sSign},
                         {"name", verdict.type.sSignName},
                         {"allowed", verdict.isAllowed},
                         {"reason", verdict.isAllowed ? "" : verdict.words},
                         {"lines", verdict.lines}});
    return jsonText({{"faults", result.faults}, {"notes", result.notes}, {"types", types}}) + '\n';
}

std::string textOf(const TrialResult& result) {
    std::string text;
    for (const std::string& fault : result.faults) text += printableLine(fault) + '\n';
    for (const std::string& note : result.notes)
        text += fmt::format(voucher_texts::note, printableLine(note));
    for (const TypeVerdict& verdict : result.verdicts)
        text += fmt::format(voucher_texts::verdict,
                            verdict.isAllowed ? voucher_texts::allowed : voucher_texts::refused,
                            printableLine(verdict.type.sSign),
                            printableLine(verdict.type.sSignName), printableLine(verdict.words));
    return text;
}

/// A voucher that no type takes, or not the one that is asked for, has faults.
ExitCode codeOf(const TrialResult& result) {
    if (result.verdicts.empty()) return ExitCode::wrongInput;
    return std::ranges::any_of(result.verdicts, &TypeVerdict::isAllowed) ? ExitCode::done
                                                                         : ExitCode::faultsFound;
}

ExitCode testVoucher(Tool& tool, const TestVoucherOptions& options) {
    ToolMessages messages(tool, false);
    auto engine = openBooks(tool, options.books);
    if (engine == nullptr) return ExitCode::failed;
    const ToolSession session(std::move(engine), options.books);
    auto books = readTrialBooks(messages);
    if (!books) return ExitCode::failed;
    if (!options.type.empty()) {
        std::erase_if(books->types,
                      [&](const _SignInfo& type) { return type.sSign != options.type; });
        if (books->types.empty()) {
            tool.err << fmt::format(voucher_texts::typeUnknown, options.type) << '\n';
            return ExitCode::wrongInput;
        }
    }
    const auto lines = readLines(messages, options.file);
    if (!lines) return ExitCode::failed;
    const TrialResult result = tryVoucher(*lines, *books);
    tool.out << (options.isJson ? jsonOf(result) : textOf(result));
    return codeOf(result);
}

}  // namespace

void addTestVoucherCommand(CLI::App& app, Tool& tool) {
    const auto options = std::make_shared<TestVoucherOptions>();
    CLI::App* command =
        addBooksCommand(app, tool, "test-voucher", voucher_texts::testVoucherCommand,
                        options->books, [&tool, options] { return testVoucher(tool, *options); });
    command->add_option("FILE", options->file, voucher_texts::voucherFileArgument)->required();
    command->add_option("--type", options->type, voucher_texts::typeOption);
    command->add_flag("--json", options->isJson, tool_texts::jsonOption);
}

}  // namespace chengheng
