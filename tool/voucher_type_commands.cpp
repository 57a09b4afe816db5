#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <memory>
#include <ostream>

#include "data/engine/engine.h"
#include "tool/command_line.h"
#include "tool/commands.h"
#include "tool/output_file.h"
#include "tool/row_import.h"
#include "tool/tool_session.h"
#include "tool/tool_texts.h"
#include "vouchertype/transfer/voucher_type_import.h"
#include "vouchertype/transfer/voucher_type_transfer_texts.h"

namespace chengheng {
namespace {

struct VoucherTypeOptions {
    std::string books;
    RowImport import = {};
    OutputFile output = {};
};

ExitCode importTypes(Tool& tool, const VoucherTypeOptions& options) {
    const RowImport& import = options.import;
    const BooksUse use = import.isDryRun ? BooksUse::reading : BooksUse::changing;
    auto engine = openBooks(tool, options.books, use);
    if (engine == nullptr) return ExitCode::failed;
    ToolSession session(std::move(engine), options.books);
    if (const auto refused = session.logOn(tool, options.books)) return *refused;
    ToolMessages messages(tool, import.acceptsAll);
    VoucherTypeImport planned(messages);
    const auto plan = planned.plan(import.file);
    if (!plan) return ExitCode::failed;
    return showAndApply(tool, import, *plan, [&] { return planned.apply(*plan); });
}

ExitCode exportTypes(Tool& tool, const VoucherTypeOptions& options) {
    const OutputFile& file = options.output;
    if (const auto refused = refuseTarget(tool, file)) return *refused;
    auto engine = openBooks(tool, options.books);
    if (engine == nullptr) return ExitCode::failed;
    const ToolSession session(std::move(engine), options.books);
    ToolMessages messages(tool, false);
    const Outcome outcome = exportVoucherTypes(messages, file.path, file.overwrite());
    if (outcome == Outcome::done)
        wordsBeside(tool, file) << fmt::format(voucher_type_transfer_texts::exported, file.path)
                                << '\n';
    return exitCodeOf(outcome);
}

}  // namespace

void addImportVoucherTypesCommand(CLI::App& app, Tool& tool) {
    const auto options = std::make_shared<VoucherTypeOptions>();
    CLI::App* command =
        addBooksCommand(app, tool, "import-voucher-types", tool_texts::importVoucherTypesCommand,
                        options->books, [&tool, options] { return importTypes(tool, *options); });
    addImportOptions(*command, options->import, tool_texts::voucherTypeFileArgument);
    addWriter(*command, tool);
}

void addExportVoucherTypesCommand(CLI::App& app, Tool& tool) {
    const auto options = std::make_shared<VoucherTypeOptions>();
    CLI::App* command =
        addBooksCommand(app, tool, "export-voucher-types", tool_texts::exportVoucherTypesCommand,
                        options->books, [&tool, options] { return exportTypes(tool, *options); });
    command->add_option("FILE", options->output.path, tool_texts::exportFileArgument)->required();
    command->add_flag("--force", options->output.isForced, tool_texts::forceFile);
}

}  // namespace chengheng
