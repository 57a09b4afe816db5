#pragma once

#include <functional>
#include <iosfwd>

#include "host/tool/exit_codes.h"

namespace CLI {
class App;
}

namespace chengheng {

/// What the commands of the tool share. A command's own part of the command line sets
/// `action`, which runs when the whole line has been read.
struct Tool {
    std::ostream& out;
    std::ostream& err;
    std::function<ExitCode()> action;
};

/// Runs one command line and gives the exit code. All text is UTF-8, whatever the locale.
int runTool(int argc, const char* const* argv, std::ostream& out, std::ostream& err);

}  // namespace chengheng
