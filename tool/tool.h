#pragma once

#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

#include "base/system/output_target.h"
#include "tool/exit_codes.h"

namespace CLI {
class App;
}

class CReport;

namespace chengheng {

struct Tool;

/// Who writes with a command: an operator of the books, or nobody of them where none is named.
struct ToolOperator {
    std::string name;
    std::string passwordFile;
};

/// Writes a finished report as a PDF file, or says why not.
using PdfWriter = std::function<ExitCode(Tool& tool, CReport& report, const std::string& path,
                                         Overwrite overwrite)>;

/// What the commands of the tool share. A command's own part of the command line sets
/// `action`, which runs when the whole line has been read.
struct Tool {
    std::ostream& out;
    std::ostream& err;
    std::function<ExitCode()> action;
    PdfWriter writePdf;                    ///< none in a program that paints no pages
    std::vector<std::string> commandLine;  ///< what follows the program's name
    ToolOperator writer = {};              ///< as the command line names him
};

/// Runs one command line and gives the exit code. All text is UTF-8, whatever the locale.
int runTool(int argc, const char* const* argv, std::ostream& out, std::ostream& err,
            const PdfWriter& writePdf = {});

}  // namespace chengheng
