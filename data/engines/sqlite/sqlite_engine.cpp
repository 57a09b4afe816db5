#include "data/engines/sqlite/sqlite_engine.h"

#include <filesystem>
#include <string>

#include "data/engines/sqlite/sqlite_changes.h"
#include "data/engines/sqlite/sqlite_connection.h"
#include "data/engines/sqlite/sqlite_failure.h"
#include "data/engines/sqlite/sqlite_statement.h"
#include "data/engines/sqlite/sqlite_upkeep.h"
#include "data/engines/sqlite/sqlite_wait.h"
#include "data/locks/file_locks.h"
#include "data/locks/memory_locks.h"
#include "data/sql/sql_format.h"
#include "data/tables/schema.h"

namespace chengheng {
namespace {

std::string columnDeclaration(ColumnType type) {
    switch (type) {
        case ColumnType::integer:
        case ColumnType::byte:
        case ColumnType::flag:
            return "INTEGER NOT NULL DEFAULT 0";
        case ColumnType::nullableInteger:
            return "INTEGER DEFAULT NULL";
        case ColumnType::real:
        case ColumnType::single:
            return "REAL NOT NULL DEFAULT 0";
        case ColumnType::text:
            return "TEXT COLLATE BINARY NOT NULL DEFAULT ''";
        case ColumnType::date:
            return "TEXT COLLATE BINARY NOT NULL DEFAULT '1899-12-31'";
    }
    return {};
}

std::string wholeNumber(const std::string& name, const char* range) {
    return "typeof(" + name + ") = 'integer' AND " + name + " BETWEEN " + range;
}

// The type of a column keeps nothing out: a text stays a text beside numbers.
std::string columnCheck(const ColumnInfo& column) {
    switch (column.type) {
        case ColumnType::integer:
            return wholeNumber(column.name, "-2147483648 AND 2147483647");
        case ColumnType::nullableInteger:
            return column.name + " IS NULL OR " +
                   wholeNumber(column.name, "-2147483648 AND 2147483647");
        case ColumnType::byte:
            return wholeNumber(column.name, "0 AND 255");
        case ColumnType::flag:
            return wholeNumber(column.name, "-32768 AND 32767");
        case ColumnType::real:
            return column.name + " BETWEEN " + finiteReal;
        case ColumnType::single:
            return column.name + " BETWEEN " + finiteSingle;
        case ColumnType::text:
        case ColumnType::date:
            break;
    }
    return {};
}

/// "CREATE TRIGGER OperationLog_keep_UPDATE BEFORE UPDATE ON OperationLog ..."
std::string guardSql(const std::string& table, const std::string& event) {
    return "CREATE TRIGGER " + table + "_keep_" + event + " BEFORE " + event + " ON " + table +
           " BEGIN SELECT RAISE(ABORT, '" + table + " is only added to'); END";
}

std::string guard(const std::string& table) {
    return guardSql(table, "UPDATE") + ";\n" + guardSql(table, "DELETE") + ";\n";
}

/// A guard counts as one only as this program makes it.
const std::string& otherObjectsSql() {
    static const std::string sql = [] {
        std::string guards;
        for (const TableInfo& table : allTables())
            for (const char* event : {"UPDATE", "DELETE"})
                if (table.isAddedToOnly)
                    guards += (guards.empty() ? "" : ", ") +
                              formatSql("'%s'", guardSql(table.name, event));
        return "SELECT type, name FROM sqlite_master WHERE type <> 'table' AND coalesce(sql, '') "
               "NOT IN (" +
               guards + ") ORDER BY type, name";
    }();
    return sql;
}

const EngineDialect& sqliteDialect() {
    static const EngineDialect dialect{

        .likeEscape = " ESCAPE '\\'",
        .rowLock = "",
        .columnDeclaration = columnDeclaration,
        .columnCheck = columnCheck,
        .checksOff = passOverChecks,
        .checksOn = mindChecks,
        .guard = guard,
        .otherObjects = otherObjectsSql(),
        .now = "(julianday('now') - 2440587.5) * 86400.0"};
    return dialect;
}

class SqliteEngine final : public Engine {
  public:
    SqliteEngine(OpenedSqlite opened, std::unique_ptr<LockService> locks)
        : m_connection(std::move(opened.connection)),
          m_unwritable(std::move(opened.unwritable)),
          m_locks(std::move(locks)),
          m_wait(m_connection.get(), *m_locks),
          m_updates(m_connection.get()) {}

    const EngineDialect& dialect() const override { return sqliteDialect(); }

    Status prepare(std::string_view sql, int parameters,
                   std::unique_ptr<PreparedStatement>& statement) override {
        if (Status free = mayCall(); !free) return free;
        return m_wait.ended(
            prepareSqlite(m_connection.get(), m_updates, sql, parameters, statement));
    }
    Status execute(std::span<const Command> commands, std::int64_t* changed) override;
    Status open(const Command& command, std::unique_ptr<Cursor>& cursor) override;
    Status script(std::string_view sql) override;

    Status begin() override;
    Status beginAlone() override;
    Status commit() override;
    Status rollback() override;
    Status savepoint(int depth) override { return atDepth("SAVEPOINT unit", depth); }
    Status releaseSavepoint(int depth) override { return atDepth("RELEASE unit", depth); }
    Status rollbackToSavepoint(int depth) override { return atDepth("ROLLBACK TO unit", depth); }
    bool inTransaction() const override { return m_isInTransaction; }

    Status ensureConnected() override;
    bool isReadOnly() const override {
        return sqlite3_db_readonly(m_connection.get(), "main") == 1;
    }
    Status hasTable(std::string_view name, bool& found) override;
    LockService& locks() override { return *m_locks; }
    void watchChanges(ChangeWatcher* watcher) override {
        m_changes.reset();
        if (watcher != nullptr)
            m_changes = std::make_unique<SqliteChanges>(m_connection.get(), *watcher);
    }

    Status facts(EngineFacts& facts) override {
        if (Status free = mayCall(); !free) return free;
        return m_wait.ended(readSqliteFacts(m_connection.get(), facts));
    }
    Status beginReading() override;
    Status verify(std::vector<std::string>& faults) override {
        if (Status free = mayCall(); !free) return free;
        return m_wait.ended(verifySqlite(m_connection.get(), faults));
    }
    std::optional<Status> copyToFile(const std::string& path) override {
        return m_isWithoutLog ? copySqliteBytes(m_connection.get(), path)
                              : copySqliteToFile(m_connection.get(), path);
    }

  private:
    Status mayCall() const;
    Status run(const std::string& sql);
    Status runAll(std::span<const Command> commands);
    Status beginWith(const char* sql);
    void takeUpLog();
    Status atDepth(const char* verb, int depth);
    Status checkTransaction() const;
    Status remember(Status status);

    SqliteConnection m_connection;
    std::optional<UnwritableFile> m_unwritable;
    std::unique_ptr<LockService> m_locks;
    SqliteWait m_wait;
    UpdateListener m_updates;
    std::unique_ptr<SqliteChanges> m_changes;  ///< while somebody watches
    bool m_isInTransaction = false;
    bool m_isWithoutLog = false;  ///< so that nobody else can have the file open
    Status m_transactionLoss;     ///< what made SQLite end the transaction by itself
};

Status SqliteEngine::mayCall() const {
    return m_wait.isAsking() ? Status::of(Failure::busy, "a call of this connection is waiting")
                             : Status::done();
}

/// SQLite ends a transaction by itself when the disk is full or fails. What follows must
/// then not be written on its own, so the transaction fails until its owner ends it.
Status SqliteEngine::checkTransaction() const {
    if (Status free = mayCall(); !free) return free;
    if (!m_isInTransaction || sqlite3_get_autocommit(m_connection.get()) == 0)
        return Status::done();
    if (!m_transactionLoss) return m_transactionLoss;
    return Status::of(Failure::lost, "the transaction was rolled back");
}

Status SqliteEngine::remember(Status status) {
    if (m_isInTransaction && m_transactionLoss && !status) {
        if (sqlite3_get_autocommit(m_connection.get()) != 0) m_transactionLoss = status;
    }
    return status;
}

Status SqliteEngine::run(const std::string& sql) {
    if (Status free = mayCall(); !free) return free;
    sqlite3* connection = m_connection.get();
    return m_wait.ended(
        sqliteStatus(sqlite3_exec(connection, sql.c_str(), nullptr, nullptr, nullptr), connection));
}

Status SqliteEngine::runAll(std::span<const Command> commands) {
    Status status;
    for (const Command& command : commands) {
        if (m_changes != nullptr)
            m_changes->expect(*static_cast<SqliteStatement*>(command.statement), command.values);
        status = m_wait.ended(runSqlite(command));
        if (!status) break;
    }
    if (m_changes != nullptr) m_changes->expectNothing();
    return status ? status : remember(std::move(status));
}

Status SqliteEngine::execute(std::span<const Command> commands, std::int64_t* changed) {
    if (changed != nullptr) *changed = 0;
    if (Status alive = checkTransaction(); !alive) return alive;
    const bool isOwnTransaction = commands.size() > 1 && !m_isInTransaction;
    if (isOwnTransaction) {
        if (Status begun = begin(); !begun) return begun;
    }
    const std::int64_t before = sqlite3_total_changes64(m_connection.get());
    Status status = runAll(commands);
    if (isOwnTransaction) {
        if (status)
            status = commit();
        else if (Status undone = rollback(); !undone)
            status.detail += "; " + undone.detail;
    }
    if (status && changed != nullptr)
        *changed = sqlite3_total_changes64(m_connection.get()) - before;
    return status;
}

Status SqliteEngine::open(const Command& command, std::unique_ptr<Cursor>& cursor) {
    if (Status alive = checkTransaction(); !alive) return alive;
    // Whoever has a command has a statement that was prepared.
    // NOLINTNEXTLINE(clang-analyzer-core.CallAndMessage)
    sqlite3_stmt* statement = static_cast<SqliteStatement*>(command.statement)->handle();
    if (Status bound = bindSqlite(statement, command.values); !bound) return bound;
    if (m_unwritable && m_unwritable->hasChanged())
        return Status::of(Failure::readOnly, "another program writes the file meanwhile");
    cursor =
        std::make_unique<SqliteCursor>(statement, m_wait, m_unwritable ? &*m_unwritable : nullptr);
    return Status::done();
}

Status SqliteEngine::script(std::string_view sql) {
    if (Status alive = checkTransaction(); !alive) return alive;
    return remember(run(std::string(sql)));
}

Status SqliteEngine::beginWith(const char* sql) {
    if (m_isInTransaction) return Status::of(Failure::refused, "a transaction is open already");
    Status begun = run(sql);
    m_isInTransaction = begun.isDone();
    m_transactionLoss = Status::done();
    if (!begun) {
        if (Status undone = rollback(); !undone) begun.detail += "; " + undone.detail;
    }
    return begun;
}

Status SqliteEngine::begin() {
    if (isReadOnly()) return Status::of(Failure::readOnly, "the file takes no writes");
    return beginWith("BEGIN IMMEDIATE");
}

// To give up the log, a connection must be the only one; without it, a transaction keeps others
// even from reading. One who came in between has taken the log up again.
Status SqliteEngine::beginAlone() {
    if (m_isInTransaction) return Status::of(Failure::refused, "a transaction is open already");
    Status status = run("PRAGMA journal_mode = DELETE");
    if (!status) return status;
    m_isWithoutLog = true;
    status = beginWith("BEGIN EXCLUSIVE");
    bool hasLog = false;
    if (status) status = hasSqliteLog(m_connection.get(), hasLog);
    if (status && hasLog) status = Status::of(Failure::busy, "opened by another connection");
    if (!status && m_isInTransaction) {
        if (Status undone = rollback(); !undone) status.detail += "; " + undone.detail;
    }
    if (!status) takeUpLog();
    return status;
}

/// What goes wrong here is made good with the next opening.
void SqliteEngine::takeUpLog() {
    if (!m_isWithoutLog) return;
    m_isWithoutLog = false;
    static_cast<void>(run("PRAGMA journal_mode = WAL").isDone());
}

// A transaction of SQLite sees the database as it stands at its first read, so one is made.
Status SqliteEngine::beginReading() { return beginWith("BEGIN; SELECT 1 FROM sqlite_schema"); }

Status SqliteEngine::commit() {
    if (!m_isInTransaction) return Status::of(Failure::refused, "no transaction is open");
    Status status = checkTransaction();
    if (status) status = run("COMMIT");
    if (!status) {
        if (Status undone = rollback(); !undone) status.detail += "; " + undone.detail;
    }
    m_isInTransaction = false;
    takeUpLog();
    return status;
}

Status SqliteEngine::rollback() {
    m_isInTransaction = false;
    Status status;
    if (sqlite3_get_autocommit(m_connection.get()) == 0) status = run("ROLLBACK");
    takeUpLog();
    return status;
}

Status SqliteEngine::atDepth(const char* verb, int depth) {
    if (Status alive = checkTransaction(); !alive) return alive;
    return remember(run(verb + std::to_string(depth)));
}

Status SqliteEngine::ensureConnected() {
    int hasMoved = 0;
    sqlite3_file_control(m_connection.get(), "main", SQLITE_FCNTL_HAS_MOVED, &hasMoved);
    if (hasMoved != 0) return Status::of(Failure::missing, "the file was removed or replaced");
    // Whether it can be read the next statement tells; a read of its own would double its cost.
    return mayCall();
}

Status SqliteEngine::hasTable(std::string_view name, bool& found) {
    found = false;
    std::unique_ptr<PreparedStatement> statement;
    Status status =
        prepare("SELECT 1 FROM sqlite_schema WHERE type = 'table' AND name = $1 COLLATE NOCASE", 1,
                statement);
    if (!status) return status;
    const Value value = Value::of(name);
    std::unique_ptr<Cursor> cursor;
    status = open({statement.get(), {&value, 1}}, cursor);
    if (!status) return status;
    const Cursor::Step step = cursor->next();
    found = step == Cursor::Step::row;
    return step == Cursor::Step::failed ? cursor->status() : Status::done();
}

}  // namespace

Status openSqliteEngine(std::string_view location, OpenMode mode, std::unique_ptr<Engine>& engine) {
    OpenedSqlite opened;
    if (location == ":memory:") {
        if (Status status = openSqliteMemory(opened.connection); !status) return status;
        engine = std::make_unique<SqliteEngine>(std::move(opened), std::make_unique<MemoryLocks>());
        return Status::done();
    }
    if (location.empty()) return Status::of(Failure::missing, "no file is named");
    // By the file's own name, whatever links led to it: everybody meets at one place.
    std::error_code unseen;
    std::filesystem::path real = std::filesystem::canonical(location, unseen);
    if (unseen) real = std::filesystem::absolute(location);
    const std::string path = real.string();
    if (Status status = openSqliteFile(path, mode, opened); !status) return status;
    sqlite3* const connection = opened.connection.get();
    std::unique_ptr<LockService> locks;
    if (sqlite3_db_readonly(connection, "main") == 0)
        locks = std::make_unique<FileLocks>(sqlite3_db_filename(connection, "main"));
    else
        locks = std::make_unique<MemoryLocks>();
    engine = std::make_unique<SqliteEngine>(std::move(opened), std::move(locks));
    return Status::done();
}

}  // namespace chengheng
