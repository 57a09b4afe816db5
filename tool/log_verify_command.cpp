#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <memory>
#include <ostream>

#include "base/system/owned_files.h"
#include "base/system/staged_file.h"
#include "base/values/text.h"
#include "data/engine/engine.h"
#include "data/engines/open_engine.h"
#include "operationlog/verifying/log_verification.h"
#include "session/failure_texts.h"
#include "sheets/sheet_failure.h"
#include "tool/command_line.h"
#include "tool/commands.h"
#include "tool/json_text.h"
#include "tool/log_command_texts.h"
#include "tool/log_commands.h"
#include "tool/output_file.h"
#include "tool/tool_texts.h"

namespace chengheng {
namespace {

constexpr std::size_t longestSealFile = 64 * 1024;

struct VerifyOptions {
    std::string books;
    std::string seal;
    bool isJson = false;
};

struct SealOptions {
    std::string books;
    OutputFile output;
    bool isJson = false;
};

/// The seal in a file, if one is named. What keeps it from being read is said.
std::optional<ExitCode> readSealFile(Tool& tool, const std::string& file,
                                     std::optional<LogSeal>& seal) {
    if (file.empty()) return std::nullopt;
    std::string text;
    if (const Status status = readFile(file, longestSealFile, text); !status) {
        tool.err << whileReading(status, file).text() << '\n';
        return ExitCode::failed;
    }
    seal = parseSeal(text);
    if (seal) return std::nullopt;
    tool.err << fmt::format(log_command_texts::noSeal, file) << '\n';
    return ExitCode::failed;
}

Json jsonOf(const LogEnd& end) {
    return {{"number", end.number}, {"time", end.time}, {"hash", end.hash}};
}

Json jsonOf(const RowFault& fault) {
    return {{"table", fault.table},
            {"id", fault.id},
            {"column", fault.column},
            {"entry", fault.entry},
            {"text", textOf(fault)}};
}

std::string jsonOf(const LogVerification& result, const std::string& location) {
    Json rows = Json::array();
    for (const RowFault& fault : result.rows.faults) rows.push_back(jsonOf(fault));
    const auto& fault = result.chain.fault;
    Json json = {{"location", shownLocation(location)},
                 {"sound", result.isSound()},
                 {"entries", result.chain.entries},
                 {"end", jsonOf(result.chain.end)},
                 {"firstFault",
                  fault ? Json{{"entry", fault->first}, {"text", textOf(*fault)}} : Json(nullptr)},
                 {"strayParts", result.strayParts},
                 {"comparedRows", result.rows.rows},
                 {"rowFaultCount", result.rows.count},
                 {"rowFaults", rows}};
    if (result.isSealWhole) json["sealWhole"] = *result.isSealWhole;
    return jsonText(json) + '\n';
}

std::string wordsOf(const LogVerification& result, const std::optional<LogSeal>& seal) {
    std::string text;
    const auto faults = faultTexts(result);
    for (const std::string& fault : faults) text += printableLine(fault) + '\n';
    const auto kept = static_cast<std::int64_t>(result.rows.faults.size());
    const std::int64_t unlisted = result.rows.count - kept;
    if (unlisted > 0) text += fmt::format(log_command_texts::moreRows, unlisted);
    if (seal && result.isSealWhole) text += textOf(*seal, *result.isSealWhole) + '\n';
    if (result.isSound())
        return text + fmt::format(log_command_texts::sound, result.chain.entries, result.rows.rows,
                                  result.chain.end.hash);
    const bool isSealBroken = !result.isSealWhole.value_or(true);
    return text + fmt::format(
                      log_command_texts::faultCount, result.rows.rows,
                      static_cast<std::int64_t>(faults.size()) + unlisted + (isSealBroken ? 1 : 0));
}

ExitCode verify(Tool& tool, const VerifyOptions& options) {
    std::optional<LogSeal> seal;
    if (const auto refused = readSealFile(tool, options.seal, seal)) return *refused;
    const auto engine = openLoggedBooks(tool, options.books);
    if (engine == nullptr) return ExitCode::failed;
    LogVerification result;
    const Status status = verifyLog(*engine, seal, result);
    if (!status) return tellFailure(tool, status, options.books);
    tool.out << (options.isJson ? jsonOf(result, options.books) : wordsOf(result, seal));
    return result.isSound() ? ExitCode::done : ExitCode::faultsFound;
}

ExitCode writeSeal(Tool& tool, const SealOptions& options, const LogSeal& seal) {
    StagedFile file(options.output.path, options.output.overwrite());
    Status status = file.status();
    if (status) status = file.write(sealText(seal));
    if (status) status = file.place();
    if (!status) {
        tool.err << whileWriting(status, options.output.path).text() << '\n';
        return ExitCode::failed;
    }
    std::ostream& words = wordsBeside(tool, options.output);
    if (options.isJson)
        words << jsonText({{"file", options.output.path}, {"end", jsonOf(seal.end)}}) << '\n';
    else
        words << fmt::format(log_command_texts::sealed, seal.end.number, options.output.path)
              << '\n';
    return ExitCode::done;
}

ExitCode seal(Tool& tool, const SealOptions& options) {
    if (const auto refused = refuseTarget(tool, options.output)) return *refused;
    const auto engine = openLoggedBooks(tool, options.books);
    if (engine == nullptr) return ExitCode::failed;
    LogSeal seal;
    const Status status = readSeal(*engine, seal);
    if (!status) return tellFailure(tool, status, options.books);
    if (seal.end.number > 0) return writeSeal(tool, options, seal);
    tool.err << log_command_texts::emptyLog << '\n';
    return ExitCode::wrongInput;
}

}  // namespace

void addLogVerifyCommand(CLI::App& log, Tool& tool) {
    const auto options = std::make_shared<VerifyOptions>();
    CLI::App* command =
        addBooksCommand(log, tool, "verify", log_command_texts::verifyCommand, options->books,
                        [&tool, options] { return verify(tool, *options); });
    command->add_option("--seal", options->seal, log_command_texts::sealOption);
    command->add_flag("--json", options->isJson, tool_texts::jsonOption);
}

void addLogSealCommand(CLI::App& log, Tool& tool) {
    const auto options = std::make_shared<SealOptions>();
    CLI::App* command =
        addBooksCommand(log, tool, "seal", log_command_texts::sealCommand, options->books,
                        [&tool, options] { return seal(tool, *options); });
    command->add_option("FILE", options->output.path, log_command_texts::sealFileArgument)
        ->required();
    command->add_flag("--force", options->output.isForced, tool_texts::forceFile);
    command->add_flag("--json", options->isJson, tool_texts::jsonOption);
}

}  // namespace chengheng
