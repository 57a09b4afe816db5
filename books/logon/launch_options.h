#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/values/date.h"

namespace chengheng {

/// What the program returns. Scripts rely on the numbers: they must not change.
enum class ProgramExit {
    done = 0,
    failed = 1,         ///< something that must not happen
    wrongUsage = 2,     ///< the command line cannot be read
    notOpened = 3,      ///< the books given cannot be opened
    logonRefused = 4,   ///< operator, password or date given are refused
    withoutScreen = 5,  ///< there is no graphical display
};

/// What the command line of the program asks for.
struct LaunchOptions {
    std::string books = {};  ///< path or server address
    std::string operatorName = {};
    std::string passwordFile = {};
    std::optional<Date> date = {};
    std::string launchArgument = {};  ///< -ERPCONSOLE or -ERPSINGLE as it was written

    /// Whether everything is given that a log-on without a window needs.
    bool isComplete() const {
        return !books.empty() && !operatorName.empty() && !passwordFile.empty();
    }
};

/// A command line that was read: options to go by, or a text to print before the end.
struct LaunchReading {
    LaunchOptions options;
    std::optional<ProgramExit> exit;  ///< set when the program is to end at once
    std::string text;                 ///< help, version, or what is wrong
};

/// Reads the arguments after the program's name.
LaunchReading readLaunchOptions(std::vector<std::string> arguments);

}  // namespace chengheng
