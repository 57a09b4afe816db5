#pragma once

namespace chengheng {

/// What chbooks returns. Scripts rely on the numbers: they must not change.
enum class ExitCode {
    done = 0,
    faultsFound = 1,   ///< the check found faults, the books do not balance, no type
                       ///< may be that of the voucher, last year cannot be carried or differs,
                       ///< roles of a server may write more than their operators, the operation
                       ///< log or the books are not as it was written
    wrongUsage = 2,    ///< the command line cannot be read
    failed = 3,        ///< books, a file or a server failed; nothing was changed
    targetExists = 4,  ///< what was to be made is there already
    wrongInput = 5,    ///< a given value breaks a rule of the books
};

}  // namespace chengheng
