#include "data/engines/postgres/postgres_pipeline.h"

#include <charconv>
#include <vector>

#include "data/engines/postgres/postgres_cursor.h"

namespace chengheng {
namespace {

// Answers are read when so much is under way: neither side then waits with full buffers for
// the other one, and a failure early in a long run is not met at its end only.
constexpr std::size_t mostAwaited = 1000;
constexpr std::size_t mostBytesSent = 256 * 1024;

std::int64_t changedRows(PGresult* result) {
    const std::string_view digits = PQcmdTuples(result);
    std::int64_t rows = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), rows);
    return rows;
}

PostgresStatement& statementOf(const Command& command) {
    return static_cast<PostgresStatement&>(*command.statement);
}

ChangeKind kindOf(const PGresult* result, bool isUpdate) {
    if (isUpdate) return ChangeKind::changed;
    const std::string_view done = PQcmdStatus(const_cast<PGresult*>(result));
    return done.starts_with("DELETE") ? ChangeKind::deleted : ChangeKind::inserted;
}

void tellRows(const WatchedStatement& text, PostgresResult result, ChangeWatcher& watcher) {
    RowChange change{.kind = kindOf(result.get(), text.isUpdate),
                     .table = text.table,
                     .before = {},
                     .after = {}};
    PostgresCursor rows(std::move(result));
    std::vector<Value> cells(static_cast<std::size_t>(rows.columns()));
    const std::span<const Value> all(cells);
    if (text.isUpdate) change.before = all.first(all.size() / 2);
    if (text.isUpdate) change.after = all.subspan(all.size() / 2);
    if (change.kind == ChangeKind::inserted) change.after = all;
    if (change.kind == ChangeKind::deleted) change.before = all;
    while (rows.next() == Cursor::Step::row) {
        for (int column = 0; column < rows.columns(); ++column)
            cells[static_cast<std::size_t>(column)] = rows.value(column);
        watcher.take(change);
    }
}

}  // namespace

Status PostgresPipeline::run(std::span<const std::string> controls,
                             std::span<const Command> commands, Received& received) {
    if (!m_connection.isConnected()) return m_connection.lost();
    if (PQenterPipelineMode(m_connection.handle()) == 0)
        return Status::of(Failure::refused, PQerrorMessage(m_connection.handle()));
    m_awaited.clear();
    m_bytesSent = 0;
    return finish(sendAll(controls, commands, received), received);
}

Status PostgresPipeline::check(std::span<const Command> commands) {
    for (const Command& command : commands) {
        if (static_cast<std::size_t>(statementOf(command).parameters()) != command.values.size())
            return Status::of(Failure::refused, "wrong number of values for a statement");
        if (Status status = checkValues(command.values); !status) return status;
    }
    return Status::done();
}

Status PostgresPipeline::sendAll(std::span<const std::string> controls,
                                 std::span<const Command> commands, Received& received) {
    for (const std::string& control : controls)
        if (!sendControl(control)) return m_connection.lost();
    for (const Command& command : commands) {
        if (!sendCommand(command)) return m_connection.lost();
        if (m_awaited.size() < mostAwaited && m_bytesSent < mostBytesSent) continue;
        if (Status status = takeAnswers(received); !status) return status;
    }
    return Status::done();
}

bool PostgresPipeline::sendControl(const std::string& control) {
    m_awaited.push_back({nullptr, false});
    return PQsendQueryParams(m_connection.handle(), control.c_str(), 0, nullptr, nullptr, nullptr,
                             nullptr, 0) != 0;
}

bool PostgresPipeline::sendCommand(const Command& command) {
    PostgresStatement& statement = statementOf(command);
    PGconn* connection = m_connection.handle();
    if (!statement.isPreparedOn(m_connection.generation())) {
        if (PQsendPrepare(connection, statement.name().c_str(), statement.sql().c_str(), 0,
                          nullptr) == 0)
            return false;
        statement.setPreparedOn(m_connection.generation());
        m_awaited.push_back({&statement, true});
        m_bytesSent += statement.sql().size();
    }
    m_parameters.fill(command.values);
    m_awaited.push_back({&statement, false});
    m_bytesSent += m_parameters.bytes();
    return PQsendQueryPrepared(connection, statement.name().c_str(), m_parameters.count(),
                               m_parameters.texts(), nullptr, nullptr, 0) != 0;
}

Status PostgresPipeline::takeAnswers(Received& received) {
    if (PQsendFlushRequest(m_connection.handle()) == 0) return m_connection.lost();
    return readAnswers(received);
}

Status PostgresPipeline::readAnswers(Received& received) {
    Status status = Status::done();
    for (std::size_t at = 0; at < m_awaited.size(); ++at) {
        PostgresResult result(PQgetResult(m_connection.handle()));
        if (result == nullptr) return m_connection.lost();
        const ExecStatusType kind = PQresultStatus(result.get());
        if (kind == PGRES_COMMAND_OK || kind == PGRES_TUPLES_OK) {
            note(m_awaited[at], std::move(result), received);
        } else {
            // What follows the failed command is answered as skipped.
            if (m_awaited[at].isPreparation) m_awaited[at].statement->setNotPrepared();
            if (status) status = m_connection.failureOf(result.get());
            if (status.failure == Failure::lost) return status;
        }
        result.reset();
        // Each answer is followed by a mark that it is complete.
        PQclear(PQgetResult(m_connection.handle()));
    }
    m_awaited.clear();
    m_bytesSent = 0;
    return status;
}

void PostgresPipeline::note(const Awaited& awaited, PostgresResult result, Received& received) {
    if (awaited.isPreparation || awaited.statement == nullptr) return;
    received.changed += changedRows(result.get());
    if (m_watcher != nullptr && !awaited.statement->text().table.empty())
        tellRows(awaited.statement->text(), std::move(result), *m_watcher);
    else
        received.last = std::move(result);
}

Status PostgresPipeline::finish(Status status, Received& received) {
    if (!m_connection.isConnected()) return status;
    if (PQpipelineSync(m_connection.handle()) == 0) return m_connection.lost();
    Status rest = readAnswers(received);
    if (status) status = rest;
    if (!m_connection.isConnected()) return status;
    const PostgresResult sync(PQgetResult(m_connection.handle()));
    if (PQresultStatus(sync.get()) == PGRES_PIPELINE_SYNC &&
        PQexitPipelineMode(m_connection.handle()) != 0)
        return status;
    Status failure = sync == nullptr ? m_connection.lost() : m_connection.failureOf(sync.get());
    m_connection.drop();
    return status ? failure : status;
}

}  // namespace chengheng
