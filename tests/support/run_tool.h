#pragma once

#include <sstream>
#include <string>
#include <vector>

#include "tool/tool.h"

namespace chengheng {

// The numbers that scripts rely on.
inline constexpr int toolDone = 0;
inline constexpr int toolFaultsFound = 1;
inline constexpr int toolWrongUsage = 2;
inline constexpr int toolFailed = 3;
inline constexpr int toolTargetExists = 4;
inline constexpr int toolWrongInput = 5;

struct ToolRun {
    int code;
    std::string out;
    std::string err;
};

/// A command line of chbooks, run within the test.
inline ToolRun runInProcess(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "chbooks");
    std::vector<const char*> words;
    for (const std::string& argument : arguments) words.push_back(argument.c_str());
    std::ostringstream out;
    std::ostringstream err;
    const int code = runTool(static_cast<int>(words.size()), words.data(), out, err);
    return {code, out.str(), err.str()};
}

}  // namespace chengheng
