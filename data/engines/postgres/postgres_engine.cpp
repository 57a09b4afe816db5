#include "data/engines/postgres/postgres_engine.h"

#include <utility>

#include "base/values/text.h"
#include "data/engines/postgres/postgres_cursor.h"
#include "data/engines/postgres/postgres_dialect.h"
#include "data/engines/postgres/postgres_locks.h"
#include "data/engines/postgres/postgres_pipeline.h"
#include "data/engines/postgres/postgres_transaction.h"
#include "data/engines/postgres/postgres_upkeep.h"

namespace chengheng {
namespace {

/// Dropping statements from the server one by one would cost a way to it for each.
constexpr std::size_t mostRetired = 50;

class PostgresEngine final : public Engine {
  public:
    explicit PostgresEngine(PostgresAddress address) : m_connection(std::move(address)) {}
    ~PostgresEngine() override { m_connection.leave(); }
    PostgresEngine(const PostgresEngine&) = delete;
    PostgresEngine& operator=(const PostgresEngine&) = delete;

    Status connect(OpenMode mode);

    const EngineDialect& dialect() const override { return postgresDialect(); }
    Status prepare(std::string_view sql, int parameters,
                   std::unique_ptr<PreparedStatement>& statement) override;
    Status execute(std::span<const Command> commands, std::int64_t* changed) override;
    Status open(const Command& command, std::unique_ptr<Cursor>& cursor) override;
    Status script(std::string_view sql) override;

    Status begin() override { return m_transaction.begin("BEGIN"); }
    Status beginAlone() override;
    Status commit() override { return behind(m_transaction.commit()); }
    Status rollback() override { return behind(m_transaction.rollback()); }
    Status savepoint(int depth) override { return m_transaction.savepoint(depth); }
    Status releaseSavepoint(int depth) override { return m_transaction.releaseSavepoint(depth); }
    Status rollbackToSavepoint(int depth) override {
        return behind(m_transaction.rollbackToSavepoint(depth));
    }
    bool inTransaction() const override { return m_transaction.isOpen(); }

    Status ensureConnected() override;
    bool isReadOnly() const override { return m_connection.isReadOnly(); }
    Status hasTable(std::string_view name, bool& found) override;
    LockService& locks() override { return m_locks; }
    void watchChanges(ChangeWatcher* watcher) override {
        m_watcher = watcher;
        m_pipeline.tellChanges(watcher);
    }
    std::string secretAddress() const override { return addressText(m_connection.address()); }

    Status facts(EngineFacts& facts) override {
        return readPostgresFacts(m_transaction, m_connection, facts);
    }
    Status beginReading() override;
    Status passwordVerifier(const std::string& role, const std::string& password,
                            std::string& verifier) override;
    Status verify(std::vector<std::string>& faults) override {
        return verifyPostgres(m_transaction, m_connection, faults);
    }
    std::optional<Status> copyToFile(const std::string&) override { return std::nullopt; }

  private:
    /// Locks may have waited for the end of a transaction or of its failed part.
    Status behind(Status status) {
        m_locks.transactionEnded();
        return status;
    }
    Status run(std::span<const Command> commands, PostgresPipeline::Received& received);
    WatchedStatement textOf(std::string_view sql) const;
    Status prepareNow(PostgresStatement& statement);
    Status dropRetired();
    Status findSchema(bool& isFound);
    Status createSchema();

    PostgresConnection m_connection;
    PostgresTransaction m_transaction{m_connection};
    PostgresPipeline m_pipeline{m_connection};
    PostgresLocks m_locks{m_connection};
    std::shared_ptr<RetiredStatements> m_retired = std::make_shared<RetiredStatements>();
    ChangeWatcher* m_watcher = nullptr;
    int m_statementCount = 0;
};

Status PostgresEngine::connect(OpenMode mode) {
    if (Status status = m_connection.connect(); !status) return status;
    m_retired->generation = m_connection.generation();
    m_retired->names.clear();
    bool isFound = false;
    if (Status status = findSchema(isFound); !status) return status;
    if (mode == OpenMode::create) return createSchema();
    if (isFound) return Status::done();
    m_connection.drop();
    return Status::of(Failure::missing, m_connection.address().schema);
}

Status PostgresEngine::findSchema(bool& isFound) {
    PostgresResult result;
    const Status status = m_connection.run("SELECT 1 FROM pg_namespace WHERE nspname = " +
                                               quotedLiteral(m_connection.address().schema),
                                           &result);
    if (status) isFound = PQntuples(result.get()) > 0;
    return status;
}

Status PostgresEngine::createSchema() {
    // Who has locks is noted there by whoever asks for one, be there books or not.
    constexpr const char* lockNotes = "'locksession', 'locksession_pkey'";
    const std::string& schema = m_connection.address().schema;
    Status status = m_connection.run("CREATE SCHEMA IF NOT EXISTS " + quotedIdentifier(schema));
    PostgresResult result;
    if (status)
        status = m_connection.run(
            "SELECT 1 FROM pg_class JOIN pg_namespace n ON n.oid = relnamespace WHERE nspname = " +
                quotedLiteral(schema) + " AND relname NOT IN (" + lockNotes + ") LIMIT 1",
            &result);
    if (status && PQntuples(result.get()) > 0)
        return Status::of(Failure::refused, schema + ": the schema is not empty");
    return status;
}

Status PostgresEngine::prepare(std::string_view sql, int parameters,
                               std::unique_ptr<PreparedStatement>& statement) {
    if (Status status = m_transaction.mayRun(); !status) return status;
    auto made = std::make_unique<PostgresStatement>("s" + std::to_string(++m_statementCount),
                                                    textOf(sql), parameters, m_retired);
    // Inside a transaction a refusal would end it: there the statement is prepared with its
    // first run, behind the savepoint that its user may have set before it.
    if (!m_transaction.isOpen()) {
        if (Status status = prepareNow(*made); !status) return status;
    }
    statement = std::move(made);
    return Status::done();
}

WatchedStatement PostgresEngine::textOf(std::string_view sql) const {
    const std::string table = m_watcher != nullptr ? changedTable(sql) : std::string();
    if (!table.empty() && m_watcher->watches(table)) return watchedStatement(sql);
    return {.sql = std::string(sql), .table = {}, .isUpdate = false};
}

Status PostgresEngine::prepareNow(PostgresStatement& statement) {
    if (Status status = dropRetired(); !status) return status;
    const PostgresResult result(PQprepare(m_connection.handle(), statement.name().c_str(),
                                          statement.sql().c_str(), 0, nullptr));
    if (PQresultStatus(result.get()) != PGRES_COMMAND_OK)
        return m_connection.failureOf(result.get());
    statement.setPreparedOn(m_connection.generation());
    return Status::done();
}

Status PostgresEngine::dropRetired() {
    if (m_retired->names.size() < mostRetired) return Status::done();
    std::string sql;
    for (const std::string& name : std::exchange(m_retired->names, {}))
        sql += "DEALLOCATE " + name + "; ";
    return m_connection.run(sql);
}

Status PostgresEngine::run(std::span<const Command> commands,
                           PostgresPipeline::Received& received) {
    Status status = m_transaction.mayRun();
    if (status) status = PostgresPipeline::check(commands);
    if (status) status = m_pipeline.run(m_transaction.takeHeldBack(), commands, received);
    return status;
}

Status PostgresEngine::execute(std::span<const Command> commands, std::int64_t* changed) {
    if (changed != nullptr) *changed = 0;
    if (commands.empty()) return m_transaction.mayRun();
    PostgresPipeline::Received received;
    Status status = run(commands, received);
    if (status && changed != nullptr) *changed = received.changed;
    return status;
}

Status PostgresEngine::open(const Command& command, std::unique_ptr<Cursor>& cursor) {
    PostgresPipeline::Received received;
    const bool isInside = m_transaction.isOpen();
    Status status = PostgresPipeline::check({&command, 1});
    if (status && isInside) status = m_transaction.beginPart();
    if (!status) return status;
    status = run({&command, 1}, received);
    if (isInside) m_transaction.endPart(status);
    if (status) cursor = std::make_unique<PostgresCursor>(std::move(received.last));
    return status;
}

Status PostgresEngine::script(std::string_view sql) {
    if (Status status = m_transaction.mayRun(); !status) return status;
    return m_transaction.run(std::string(sql));
}

// Whoever opens books reads the number of their layout, and whoever logs on enters it in the list
// of those who are: both wait here for the end of the transaction.
Status PostgresEngine::beginAlone() {
    Status status = m_transaction.begin("BEGIN");
    if (!status) return status;
    status =
        m_transaction.run("LOCK TABLE BooksFormat, LoginInfoTbl IN ACCESS EXCLUSIVE MODE NOWAIT");
    if (status) return status;
    if (Status undone = rollback(); !undone) status.detail += "; " + undone.detail;
    return status;
}

Status PostgresEngine::beginReading() {
    Status status = m_transaction.begin("BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY");
    PostgresResult hidden;
    if (status)
        status = m_transaction.run(
            "SELECT tablename FROM pg_policies WHERE schemaname = current_schema() "
            "AND permissive = 'RESTRICTIVE' AND cmd IN ('SELECT', 'ALL') "
            "AND current_user = ANY (roles) AND row_security_active(format('%I.%I', schemaname, "
            "tablename)) ORDER BY tablename DESC LIMIT 1",
            &hidden);
    if (!status || PQntuples(hidden.get()) == 0) return status;
    status = Status::of(Failure::notPermitted, "rows are kept back of table " +
                                                   std::string(PQgetvalue(hidden.get(), 0, 0)));
    if (Status undone = rollback(); !undone) status.detail += "; " + undone.detail;
    return status;
}

Status PostgresEngine::passwordVerifier(const std::string& role, const std::string& password,
                                        std::string& verifier) {
    if (!m_connection.isConnected()) return Status::of(Failure::lost, "not connected");
    const std::unique_ptr<char, void (*)(void*)> made(
        PQencryptPasswordConn(m_connection.handle(), password.c_str(), role.c_str(),
                              "scram-sha-256"),
        PQfreemem);
    if (made == nullptr) return Status::of(Failure::refused, "the password cannot be encrypted");
    verifier = made.get();
    return Status::done();
}

Status PostgresEngine::ensureConnected() {
    if (m_connection.isConnected()) {
        Status answer = m_connection.run("");
        if (answer.failure != Failure::lost) return answer;
    }
    return connect(OpenMode::existing);
}

Status PostgresEngine::hasTable(std::string_view name, bool& found) {
    found = false;
    if (Status status = m_transaction.mayRun(); !status) return status;
    PostgresResult result;
    // Statements name tables without quotes, so the server knows them by their small letters,
    // whatever its language takes for those. Of the names as they are it has an index.
    const Status status = m_transaction.run(
        "SELECT 1 FROM pg_class JOIN pg_namespace n ON n.oid = relnamespace WHERE nspname = " +
            quotedLiteral(m_connection.address().schema) +
            " AND relkind IN ('r', 'p') AND relname = " + quotedLiteral(inSmallLetters(name)),
        &result);
    found = status && PQntuples(result.get()) > 0;
    return status;
}

}  // namespace

Status openPostgresEngine(std::string_view address, OpenMode mode,
                          std::unique_ptr<Engine>& engine) {
    PostgresAddress read;
    if (Status status = readPostgresAddress(address, read); !status) return status;
    auto made = std::make_unique<PostgresEngine>(std::move(read));
    if (Status status = made->connect(mode); !status) return status;
    engine = std::move(made);
    return Status::done();
}

}  // namespace chengheng
