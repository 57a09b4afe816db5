#include "data/engines/sqlite/sqlite_connection.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <filesystem>

#include "base/system/owner_only_file.h"
#include "data/engines/sqlite/sqlite_failure.h"

namespace chengheng {
namespace {

// Written into every file; it must not change.
constexpr int applicationId = 0x63684C64;  // "chLd"

// LIKE compares bytes, as it does on a server. The cache holds the balances of some 50,000
// accounts; reads are not mapped into memory, so that a failing disk is an error and not a
// signal. What is sorted stays in one piece of memory up to the size of the cache; were it told
// to stay there always, each row would be a piece of its own.
constexpr const char* settings =
    "PRAGMA journal_mode = WAL;"
    "PRAGMA synchronous = FULL;"
    "PRAGMA foreign_keys = OFF;"
    "PRAGMA case_sensitive_like = ON;"
    "PRAGMA cache_size = -16384;"
    "PRAGMA journal_size_limit = 67108864;";

constexpr const char* readingSettings =
    "PRAGMA foreign_keys = OFF;"
    "PRAGMA case_sensitive_like = ON;"
    "PRAGMA cache_size = -16384;";

constexpr int busyMilliseconds = 5000;

Status runScript(sqlite3* connection, const char* script) {
    return sqliteStatus(sqlite3_exec(connection, script, nullptr, nullptr, nullptr), connection);
}

/// Nobody asks how much memory SQLite has; counting takes a lock with each piece.
void countNoMemory() {
    [[maybe_unused]] static const int code = sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
}

Status openConnection(const char* path, int flags, SqliteConnection& connection) {
    countNoMemory();
    sqlite3* opened = nullptr;
    const int code = sqlite3_open_v2(path, &opened,
                                     flags | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE, nullptr);
    connection.reset(opened);
    if (code != SQLITE_OK) return sqliteFailure(code, opened);
    sqlite3_busy_timeout(opened, busyMilliseconds);
    // A misspelt name in double quotes is an error, never a text.
    sqlite3_db_config(opened, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(opened, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
    sqlite3_db_config(opened, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    // A file may come from anywhere: nothing that was planted in it runs.
    sqlite3_db_config(opened, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    sqlite3_db_config(opened, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
    sqlite3_db_config(opened, SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr);
    return Status::done();
}

/// Whether the file begins as every SQLite file does. Reads through the connection's own
/// handle: closing another handle on the file would drop the locks of this process on it.
bool hasSqliteHeader(sqlite3* connection) {
    static constexpr char magic[] = "SQLite format 3";
    sqlite3_file* file = nullptr;
    sqlite3_file_control(connection, "main", SQLITE_FCNTL_FILE_POINTER, &file);
    std::array<char, sizeof magic> header{};
    if (file == nullptr || file->pMethods == nullptr) return false;
    const int code = file->pMethods->xRead(file, header.data(), sizeof magic, 0);
    return code == SQLITE_OK && std::memcmp(header.data(), magic, sizeof magic) == 0;
}

Status readMark(sqlite3* connection, int& mark) {
    const auto take = [](void* into, int, char** cells, char**) {
        *static_cast<int*>(into) = std::atoi(cells[0]);
        return 0;
    };
    return sqliteStatus(sqlite3_exec(connection, "PRAGMA application_id", take, &mark, nullptr),
                        connection);
}

Status writeMark(sqlite3* connection) {
    const std::string script = "PRAGMA application_id = " + std::to_string(applicationId);
    return runScript(connection, script.c_str());
}

Status checkMark(sqlite3* connection, const std::string& path) {
    // Until the file is known to be ours, its log is not brought into it on closing.
    sqlite3_db_config(connection, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
    int mark = 0;
    const Status read = readMark(connection, mark);
    if (read.failure == Failure::damaged && !hasSqliteHeader(connection))
        return Status::of(Failure::foreign, path + ": not a SQLite database");
    if (!read) return read;
    if (mark != applicationId)
        return Status::of(Failure::foreign, path + ": a database of another program");
    sqlite3_db_config(connection, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 0, nullptr);
    return Status::done();
}

Status openWritable(const std::string& path, SqliteConnection& connection) {
    Status status = openConnection(path.c_str(), SQLITE_OPEN_READWRITE, connection);
    if (status) status = checkMark(connection.get(), path);
    return status ? runScript(connection.get(), settings) : status;
}

Status openForReading(const std::string& address, int flags, const std::string& path,
                      SqliteConnection& connection) {
    Status status = openConnection(address.c_str(), SQLITE_OPEN_READONLY | flags, connection);
    if (status) status = checkMark(connection.get(), path);
    return status ? runScript(connection.get(), readingSettings) : status;
}

/// The engine keeps files of its own beside a database that others may write. Where it cannot,
/// the file is read as it stands, unless a log holds what is missing in it.
Status openUnwritable(const std::string& path, OpenedSqlite& opened) {
    const Status status = openForReading(path, 0, path, opened.connection);
    constexpr std::array hindrances{Failure::readOnly, Failure::missing, Failure::unreachable};
    if (std::ranges::find(hindrances, status.failure) == hindrances.end()) return status;
    UnwritableFile file(path);
    if (!file.isWhole())
        return Status::of(Failure::readOnly, path + ": its log cannot be brought in");
    opened.unwritable = file;
    return openForReading(file.address(), SQLITE_OPEN_URI, path, opened.connection);
}

Status openExisting(const std::string& path, OpenMode mode, OpenedSqlite& opened) {
    switch (fileState(path)) {
        case FileState::absent:
            return Status::of(Failure::missing, path);
        case FileState::notAFile:
            return Status::of(Failure::foreign, path + ": not a file");
        case FileState::readOnly:
            return mode == OpenMode::readable ? openUnwritable(path, opened)
                                              : Status::of(Failure::readOnly, path);
        case FileState::writable:
            break;
    }
    return openWritable(path, opened.connection);
}

Status createNew(const std::string& path, SqliteConnection& connection) {
    if (Status created = createOwnerOnlyFile(path); !created) return created;
    Status status = openConnection(path.c_str(), SQLITE_OPEN_READWRITE, connection);
    if (status) status = writeMark(connection.get());
    if (status) status = runScript(connection.get(), settings);
    if (status) return status;
    connection.reset();
    removeSqliteFiles(path);
    return status;
}

}  // namespace

void removeSqliteFiles(const std::string& path) {
    std::error_code ignored;  // the failure told is the one that came first
    for (const char* suffix : {"", "-wal", "-shm", "-journal"})
        std::filesystem::remove(path + suffix, ignored);
}

Status openSqliteFile(const std::string& path, OpenMode mode, OpenedSqlite& opened) {
    OpenedSqlite made;
    const Status status = mode == OpenMode::create ? createNew(path, made.connection)
                                                   : openExisting(path, mode, made);
    if (status) opened = std::move(made);
    return status;
}

Status openSqliteMemory(SqliteConnection& connection) {
    SqliteConnection opened;
    Status status = openConnection(":memory:", SQLITE_OPEN_READWRITE, opened);
    if (status) status = writeMark(opened.get());  // a copy in a file must be known as ours
    if (status) status = runScript(opened.get(), settings);
    if (status) connection = std::move(opened);
    return status;
}

}  // namespace chengheng
