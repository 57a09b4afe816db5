#pragma once

#include <optional>
#include <string>

#include "report/layout/report.h"
#include "tool/output_file.h"
#include "tool/tool.h"

namespace CLI {
class App;
}

namespace chengheng {

/// The file that a command writes a report to, by the option that named it.
struct ReportFile {
    std::string pdf;
    std::string xlsx;
    std::string csv;
    bool isForced = false;
    bool isJson = false;  ///< what was written is told as JSON

    OutputFile file() const { return {!pdf.empty() ? pdf : !xlsx.empty() ? xlsx : csv, isForced}; }
    int count() const { return int{!pdf.empty()} + int{!xlsx.empty()} + int{!csv.empty()}; }
};

/// Adds --pdf, --xlsx, --csv and --force.
void addReportFile(CLI::App& command, ReportFile& file);

/// What is to be said before any work is done: that the file cannot be written, or what the program
/// said that writes PDF files in the place of this one.
std::optional<ExitCode> prepareReportFile(Tool& tool, const ReportFile& file);

/// Writes it and says so.
ExitCode writeReport(Tool& tool, const ReportFile& file, const Report& report);

}  // namespace chengheng
