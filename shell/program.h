#pragma once

#include <functional>
#include <string>
#include <vector>

#include "books/logon/launch_options.h"

namespace chengheng {

/// What stands between the command line and the exit code: log-on, in a window unless the
/// options are complete, then the work. Wants a QApplication.
ProgramExit runShell(const LaunchOptions& options, const std::function<void()>& work);

/// The program from its command line to its exit code. What an operator who has logged on
/// works with is handed in: it returns when they are done.
int startProgram(const std::vector<std::string>& arguments, const std::function<void()>& work);

}  // namespace chengheng
