#pragma once

namespace chengheng {

/// What chbooks returns. Scripts rely on the numbers: they must not change.
enum class ExitCode {
    done = 0,
    faultsFound = 1,   ///< the check found faults
    wrongUsage = 2,    ///< the command line cannot be read
    notOpened = 3,     ///< books or file missing, foreign, damaged, newer or unreachable
    targetExists = 4,  ///< what was to be made is there already
    wrongInput = 5,    ///< a given value breaks a rule of the books
    failed = 6,        ///< the work failed on the way; nothing was changed
};

}  // namespace chengheng
