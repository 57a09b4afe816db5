#include "tool/report_file.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <ostream>

#include "report/engine/report_run.h"
#include "report/output/report_sheet.h"
#include "session/log_notes.h"
#include "session/session_texts.h"
#include "sheets/files/sheet_files.h"
#include "tool/json_text.h"
#include "tool/pdf_program.h"
#include "tool/tool_texts.h"

namespace chengheng {
namespace {

ExitCode writeFile(Tool& tool, const ReportFile& file, CReport& report) {
    const Overwrite overwrite = file.file().overwrite();
    if (!file.pdf.empty()) return tool.writePdf(tool, report, file.pdf, overwrite);
    const Sheet sheet = sheetOf(report);
    const auto failure = file.xlsx.empty() ? writeCsv(sheet, file.csv, overwrite)
                                           : writeXlsx(sheet, file.xlsx, overwrite);
    if (!failure) return ExitCode::done;
    tool.err << failure->text() << '\n';
    return ExitCode::failed;
}

}  // namespace

void addReportFile(CLI::App& command, ReportFile& file) {
    command.add_option("--pdf", file.pdf, tool_texts::pdfOption);
    command.add_option("--xlsx", file.xlsx, tool_texts::xlsxOption);
    command.add_option("--csv", file.csv, tool_texts::csvOption);
    command.add_flag("--force", file.isForced, tool_texts::forceFile);
}

std::optional<ExitCode> prepareReportFile(Tool& tool, const ReportFile& file) {
    if (const auto refused = refuseTarget(tool, file.file())) return refused;
    if (!file.pdf.empty() && !tool.writePdf) return runPdfProgram(tool);
    return std::nullopt;
}

ExitCode writeReport(Tool& tool, const ReportFile& file, const Report& report) {
    ExitCode code = ExitCode::failed;
    const auto refusal =
        runReport(report, [&](CReport& engine) { code = writeFile(tool, file, engine); });
    if (refusal) tool.err << refusal->notice.text << '\n';
    if (code != ExitCode::done) return code;
    noteOutput(session_texts::exported, report.title, file.file().path);
    std::ostream& words = wordsBeside(tool, file.file());
    if (file.isJson)
        words << jsonText({{"report", report.title}, {"file", file.file().path}}) << '\n';
    else
        words << fmt::format(tool_texts::reportWritten, report.title, file.file().path) << '\n';
    return code;
}

}  // namespace chengheng
