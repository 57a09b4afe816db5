#pragma once

#include <string>
#include <utility>

namespace chengheng {

/// Why a data operation did not happen. The caller turns it into words; see
/// session/failure_texts.h for the Chinese message of each.
enum class Failure {
    none,
    missing,         ///< the file, schema or record is not there
    foreign,         ///< a file or schema that does not hold a set of books
    damaged,         ///< the database reports corruption
    readOnly,        ///< the file or server refuses writing
    newerVersion,    ///< written by a newer program
    olderVersion,    ///< books of an older layout, to be upgraded before anybody works with them
    unreachable,     ///< the server cannot be reached or refuses the log-on
    lost,            ///< the connection broke during use
    full,            ///< no room left on the disk
    busy,            ///< another connection holds the database
    unreadable,      ///< a statement or condition that cannot be read
    refused,         ///< the engine refused the statement
    notPermitted,    ///< whoever is connected to the server may not do that
    notOpen,         ///< no database of that name is open or selected
    crossedWait,     ///< two workstations wait for each other's locks
    cancelled,       ///< the operator gave up waiting
    wrongValue,      ///< a column holds what may not stand there
    notStorable,     ///< a value that may not stand in its column, and was not stored
    noIdLeft,        ///< a table's ids have reached the largest number there is
    passwordNeeded,  ///< the server wants a password, or another one than it was given
    unconfirmed,     ///< a file stands but may not outlast a power failure; a server took the
                     ///< last step of a transaction and was gone before it answered
};

/// Outcome of a data operation: done, or a failure with the engine's own detail.
struct [[nodiscard]] Status {
    Failure failure = Failure::none;
    std::string detail;

    static Status done() { return {}; }
    static Status of(Failure failure, std::string detail = {}) {
        return {failure, std::move(detail)};
    }
    bool isDone() const { return failure == Failure::none; }
    explicit operator bool() const { return isDone(); }
};

}  // namespace chengheng
