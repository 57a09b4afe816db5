#pragma once

#include <string>
#include <vector>

#include "tests/support/engine_cases.h"
#include "tests/support/run_program.h"
#include "tests/support/small_books.h"

namespace chengheng {

/// What chbooks returns; numbers, because a script sees nothing else.
namespace chbooks_exit {

inline constexpr int done = 0;
inline constexpr int faultsFound = 1;
inline constexpr int wrongUsage = 2;
inline constexpr int failed = 3;
inline constexpr int targetExists = 4;
inline constexpr int wrongInput = 5;

}  // namespace chbooks_exit

/// A list of books of its own, and a locale without Chinese: the texts do not depend on it.
inline ProgramSettings chbooksSettings() {
    static const std::string home = freshFolder();
    return {{"LC_ALL", "C"}, {"CHENGHENG_HOME", home}};
}

inline ProgramRun chbooks(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), CHENGHENG_CHBOOKS);
    return runProgram(arguments, chbooksSettings());
}

/// The place of small books in which everything is right.
inline std::string smallBooks(const EngineCase& kind) {
    const std::string location = freshLocation(kind);
    fillSmallBooks(*openForTest(location));
    return location;
}

}  // namespace chengheng
