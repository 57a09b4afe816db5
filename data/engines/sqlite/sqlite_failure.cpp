#include "data/engines/sqlite/sqlite_failure.h"

#include "base/system/system_error.h"

namespace chengheng {
namespace {

Failure systemFailureOf(sqlite3* connection) {
    const int error = connection == nullptr ? 0 : sqlite3_system_errno(connection);
    return failureOfSystemError(error);
}

/// A file that is open and cannot be used: the disk is full, or gone.
Failure failureInUse(sqlite3* connection) {
    return systemFailureOf(connection) == Failure::full ? Failure::full : Failure::lost;
}

Failure failureOf(int code, sqlite3* connection) {
    switch (code & 0xFF) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
        case SQLITE_PROTOCOL:
            return Failure::busy;
        case SQLITE_READONLY:
            return code == SQLITE_READONLY_DBMOVED ? Failure::missing : Failure::readOnly;
        case SQLITE_PERM:
            return Failure::readOnly;
        case SQLITE_FULL:
            return Failure::full;
        case SQLITE_IOERR:
            return failureInUse(connection);
        case SQLITE_CANTOPEN:
            return systemFailureOf(connection);
        case SQLITE_CORRUPT:
        case SQLITE_NOTADB:
            return Failure::damaged;
        case SQLITE_INTERRUPT:
            return Failure::cancelled;
        case SQLITE_CONSTRAINT:
            return code == SQLITE_CONSTRAINT_CHECK ? Failure::notStorable : Failure::refused;
        default:
            return Failure::refused;
    }
}

}  // namespace

Status sqliteFailure(int code, sqlite3* connection) {
    const char* text = connection == nullptr ? sqlite3_errstr(code) : sqlite3_errmsg(connection);
    return Status::of(failureOf(code, connection), text);
}

Status sqliteStatus(int code, sqlite3* connection) {
    return code == SQLITE_OK ? Status::done() : sqliteFailure(code, connection);
}

}  // namespace chengheng
