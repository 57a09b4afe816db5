#include "data/engines/sqlite/sqlite_upkeep.h"

#include <cerrno>
#include <filesystem>
#include <fstream>

#include "base/system/owner_only_file.h"
#include "base/system/system_error.h"
#include "data/engines/sqlite/sqlite_connection.h"
#include "data/engines/sqlite/sqlite_failure.h"

namespace chengheng {
namespace {

struct FinishBackup {
    void operator()(sqlite3_backup* backup) const { sqlite3_backup_finish(backup); }
};

/// Hands the first cell of each row of a statement to `take`.
template <class Take>
Status readCells(sqlite3* connection, const char* sql, Take take) {
    const auto forward = [](void* into, int, char** cells, char**) {
        (*static_cast<Take*>(into))(cells[0] == nullptr ? "" : cells[0]);
        return 0;
    };
    return sqliteStatus(sqlite3_exec(connection, sql, forward, &take, nullptr), connection);
}

Status copyPages(sqlite3* from, sqlite3* to) {
    std::unique_ptr<sqlite3_backup, FinishBackup> backup(
        sqlite3_backup_init(to, "main", from, "main"));
    if (backup == nullptr) return sqliteFailure(sqlite3_errcode(to), to);
    const int stepped = sqlite3_backup_step(backup.get(), -1);
    const int finished = sqlite3_backup_finish(backup.release());
    if (stepped == SQLITE_DONE && finished == SQLITE_OK) return Status::done();
    return sqliteFailure(stepped == SQLITE_DONE ? finished : stepped, to);
}

/// Brings everything into the file itself; closing would not tell that it could not.
Status emptyLog(sqlite3* connection) {
    return sqliteStatus(
        sqlite3_wal_checkpoint_v2(connection, "main", SQLITE_CHECKPOINT_TRUNCATE, nullptr, nullptr),
        connection);
}

}  // namespace

Status readSqliteFacts(sqlite3* connection, EngineFacts& facts) {
    facts = {"SQLite", sqlite3_libversion(), 0};
    std::int64_t pages = 0;
    std::int64_t pageSize = 0;
    const auto number = [](std::int64_t& into) {
        return [&into](const char* text) { into = std::strtoll(text, nullptr, 10); };
    };
    Status status = readCells(connection, "PRAGMA page_count", number(pages));
    if (status) status = readCells(connection, "PRAGMA page_size", number(pageSize));
    facts.bytes = pages * pageSize;
    return status;
}

Status hasSqliteLog(sqlite3* connection, bool& hasLog) {
    return readCells(connection, "PRAGMA journal_mode",
                     [&hasLog](const char* text) { hasLog = std::string_view(text) == "wal"; });
}

Status verifySqlite(sqlite3* connection, std::vector<std::string>& faults) {
    // A value that may not stand in its column is no corruption.
    Status status = sqliteStatus(
        sqlite3_exec(connection, passOverChecks, nullptr, nullptr, nullptr), connection);
    if (status)
        status = readCells(connection, "PRAGMA integrity_check", [&faults](const char* text) {
            if (std::string_view(text) != "ok") faults.emplace_back(text);
        });
    const int minded = sqlite3_exec(connection, mindChecks, nullptr, nullptr, nullptr);
    if (status) status = sqliteStatus(minded, connection);
    // Where the corruption is such that the check itself cannot go on, it is the finding.
    if (status.failure != Failure::damaged) return status;
    faults.push_back(status.detail);
    return Status::done();
}

Status copySqliteToFile(sqlite3* connection, const std::string& path) {
    OpenedSqlite made;
    Status status = openSqliteFile(path, OpenMode::create, made);
    if (!status) return status;
    SqliteConnection copy = std::move(made.connection);
    status = copyPages(connection, copy.get());
    if (status) status = emptyLog(copy.get());
    copy.reset();
    if (!status) removeSqliteFiles(path);
    return status;
}

// Read through the connection's own handle: closing another one would drop the locks of this
// process on the file.
Status copySqliteBytes(sqlite3* connection, const std::string& path) {
    sqlite3_file* file = nullptr;
    sqlite3_file_control(connection, "main", SQLITE_FCNTL_FILE_POINTER, &file);
    if (file == nullptr || file->pMethods == nullptr) return Status::of(Failure::refused, path);
    sqlite3_int64 left = 0;
    int code = file->pMethods->xFileSize(file, &left);
    Status status = sqliteStatus(code, connection);
    if (status) status = createOwnerOnlyFile(path);
    if (!status) return status;
    std::ofstream copy(path, std::ios::binary);
    std::vector<char> part(std::size_t{1} << 20);
    for (sqlite3_int64 at = 0; code == SQLITE_OK && copy && left > 0;) {
        const auto size = static_cast<int>(std::min<sqlite3_int64>(left, std::ssize(part)));
        code = file->pMethods->xRead(file, part.data(), size, at);
        errno = 0;
        if (code == SQLITE_OK) copy.write(part.data(), size);
        at += size;
        left -= size;
    }
    copy.close();
    if (code != SQLITE_OK) status = sqliteFailure(code, connection);
    if (status && !copy) status = systemFailure(errno, path);
    if (!status) removeSqliteFiles(path);
    return status;
}

}  // namespace chengheng
