#pragma once

#include <string>
#include <utility>
#include <vector>

namespace chengheng {

/// What came of a program.
struct ProgramRun {
    int exitCode = -1;  ///< -1 when a signal ended it
    std::string out;
    std::string err;
};

using ProgramSettings = std::vector<std::pair<std::string, std::string>>;

/// Runs a program to its end, without a terminal and with nothing to read; the settings are
/// added to its environment. Throws when it cannot be started.
ProgramRun runProgram(const std::vector<std::string>& command,
                      const ProgramSettings& settings = {});

/// Runs a program in a terminal of its own. Each text of `answers` is typed, with Enter, as
/// soon as the program has shown `prompt` once more. `out` is what the terminal showed.
ProgramRun runInTerminal(const std::vector<std::string>& command, const std::string& prompt,
                         const std::vector<std::string>& answers,
                         const ProgramSettings& settings = {});

}  // namespace chengheng
