#include "data/connection/database.h"

#include <deque>

namespace chengheng {
namespace {

constexpr std::string_view savepointSql = "SAVEPOINT batch";
constexpr std::string_view releaseSql = "RELEASE SAVEPOINT batch";
constexpr const char* backToSavepointSql = "ROLLBACK TO SAVEPOINT batch; RELEASE SAVEPOINT batch";

Status unbalanced(const char* detail) { return Status::of(Failure::unreadable, detail); }

}  // namespace

/// A batch on its way to the engine.
struct Database::Run {
    struct Draft {
        PreparedStatement* statement;
        std::size_t firstValue;
        std::size_t valueCount;
    };

    std::vector<Draft> drafts;
    std::vector<Value> values;
    std::deque<std::string> texts;
    IdCounters counters;
    bool isInNamedTransaction = false;
    bool writesHeldCounters = false;  ///< those of the open unit, too

    /// Makes room for what a batch of so many letters is likely to hold.
    void reserve(std::size_t length) {
        constexpr std::size_t shortestStatement = 64;
        constexpr std::size_t shortestValue = 7;
        drafts.reserve(length / shortestStatement + 4);
        values.reserve(length / shortestValue + 4);
    }
    void add(PreparedStatement* statement, std::span<const Value> statementValues) {
        drafts.push_back({statement, values.size(), statementValues.size()});
        values.insert(values.end(), statementValues.begin(), statementValues.end());
    }
    std::vector<Command> commands() const {
        std::vector<Command> ready;
        ready.reserve(drafts.size());
        for (const Draft& draft : drafts)
            ready.push_back(
                {draft.statement, std::span(values).subspan(draft.firstValue, draft.valueCount)});
        return ready;
    }
};

Status Database::executeBatch(std::string_view batch, std::int64_t* changed) {
    if (m_isUnitLost) return lostUnit();
    if (needsUnit()) return inUnitOfItsOwn([&] { return executeBatch(batch, changed); });
    m_statements.forgetSurplus();
    BatchReader reader(batch);
    Run run;
    run.reserve(batch.size());
    Status status = isInUnit() ? addSavepoint(run) : Status::done();
    if (status) status = readBatch(reader, run);
    if (status) {
        if (isInUnit()) {
            status = runInUnit(run, changed);
        } else {
            status = addHeldCounters(run);
            if (status) status = m_engine->execute(run.commands(), changed);
        }
    }
    m_statements.dropOneOffs();
    return status;
}

Status Database::readBatch(BatchReader& reader, Run& run) {
    ReadStatement statement;
    while (reader.next(statement)) {
        if (Status status = addStatement(statement, run); !status) return status;
    }
    if (!reader.status()) return reader.status();
    if (run.isInNamedTransaction) return unbalanced("BEGIN TRANSACTION without COMMIT TRANSACTION");
    return Status::done();
}

Status Database::addStatement(const ReadStatement& statement, Run& run) {
    // The batch is one transaction anyway: the marks only have to come in pairs.
    if (statement.kind == StatementKind::begin || statement.kind == StatementKind::commit) {
        const bool begins = statement.kind == StatementKind::begin;
        if (begins == run.isInNamedTransaction)
            return unbalanced(begins ? "BEGIN TRANSACTION inside another"
                                     : "COMMIT TRANSACTION without BEGIN TRANSACTION");
        run.isInNamedTransaction = begins;
        return Status::done();
    }
    if (statement.kind == StatementKind::select)
        return Status::of(Failure::unreadable, "SELECT in a batch of changes");
    CachedStatement* cached = nullptr;
    if (Status status = m_statements.find(statement, cached); !status) return status;
    if (cached->translated.isIdUpdate) {
        run.counters.holdBack(statement.values[1].text,
                              static_cast<int>(statement.values[0].integer));
        return Status::done();
    }
    if (cached->translated.touchesIdTable) {
        if (Status status = addHeldCounters(run); !status) return status;
    }
    run.add(cached->prepared.get(), statement.values);
    const auto values = std::span(run.values).last(statement.values.size());
    return normaliseDates(cached->translated, values, run.texts);
}

Status Database::addHeldCounters(Run& run) {
    PreparedStatement* write = nullptr;
    if (Status status = m_statements.findPlain(writeCounterSql, 2, write); !status) return status;
    const auto addAll = [&](const IdCounters& counters) {
        for (const IdCounters::Counter& counter : counters.all()) {
            if (!counter.isHeldBack) continue;
            const std::string& row = run.texts.emplace_back(counter.row);
            const Value values[] = {Value::of(std::int64_t{counter.value}),
                                    Value::of(std::string_view(row))};
            run.add(write, values);
        }
    };
    if (!run.writesHeldCounters) addAll(m_counters);
    run.writesHeldCounters = true;
    addAll(run.counters);
    run.counters.forget();
    return Status::done();
}

Status Database::addSavepoint(Run& run) {
    PreparedStatement* savepoint = nullptr;
    if (Status status = m_statements.findPlain(savepointSql, 0, savepoint); !status) return status;
    run.add(savepoint, {});
    return Status::done();
}

Status Database::runInUnit(Run& run, std::int64_t* changed) {
    PreparedStatement* release = nullptr;
    if (Status status = m_statements.findPlain(releaseSql, 0, release); !status) return status;
    run.add(release, {});
    if (m_log != nullptr) m_log->changes().mark();
    Status status = m_engine->execute(run.commands(), changed);
    if (!status) {
        if (m_log != nullptr) m_log->changes().backToMark();
        // A savepoint that cannot be reached any more means the whole unit is lost.
        if (Status back = m_engine->script(backToSavepointSql); !back) m_isUnitLost = true;
        return status;
    }
    // Only now: what a failed batch has written is back to be written.
    if (run.writesHeldCounters) m_counters.forget();
    for (const IdCounters::Counter& counter : run.counters.all())
        m_counters.holdBack(counter.row, counter.value);
    if (m_log == nullptr) return Status::done();
    m_log->changes().release();
    return m_log->writeParts();
}

Status Database::executeLogged(std::span<const Command> commands, std::int64_t* changed) {
    if (m_log == nullptr) return m_engine->execute(commands, changed);
    m_log->changes().mark();
    Status status = m_engine->execute(commands, changed);
    if (status) {
        m_log->changes().release();
        return m_log->writeParts();
    }
    m_log->changes().backToMark();
    // Of several, those before the one that failed stand until the unit is undone.
    if (commands.size() > 1) m_log->changes().missed();
    return status;
}

Status Database::readRows(const Command& command, const std::function<Status(Cursor&)>& reader) {
    std::unique_ptr<Cursor> cursor;
    if (Status status = m_engine->open(command, cursor); !status) return status;
    return reader(*cursor);
}

Status Database::select(std::string_view text, const std::function<Status(Cursor&)>& reader) {
    m_statements.forgetSurplus();
    BatchReader batch(text);
    ReadStatement statement;
    if (!batch.next(statement))
        return batch.status() ? Status::of(Failure::unreadable, "no statement") : batch.status();
    if (statement.kind != StatementKind::select)
        return Status::of(Failure::unreadable, "not a SELECT");
    CachedStatement* cached = nullptr;
    Status status = m_statements.find(statement, cached);
    if (!status) return status;
    std::vector<Value> values(statement.values.begin(), statement.values.end());
    std::deque<std::string> texts;
    status = normaliseDates(cached->translated, values, texts);
    if (status && batch.next(statement))
        status = Status::of(Failure::unreadable, "more than one statement");
    if (status) status = batch.status();
    if (status && cached->translated.touchesIdTable) status = writeHeldCounters();
    if (status) status = readRows({cached->prepared.get(), values}, reader);
    m_statements.dropOneOffs();
    return status;
}

Status Database::executePlain(std::string_view sql, std::span<const Value> values,
                              std::int64_t* changed) {
    if (needsUnit()) return inUnitOfItsOwn([&] { return executePlain(sql, values, changed); });
    PreparedStatement* statement = nullptr;
    if (Status status = m_statements.findPlain(sql, static_cast<int>(values.size()), statement);
        !status)
        return status;
    Run run;
    run.add(statement, values);
    return executeLogged(run.commands(), changed);
}

Status Database::executeForEach(std::string_view sql, std::size_t valuesOfARow,
                                std::span<const Value> values) {
    if (needsUnit())
        return inUnitOfItsOwn([&] { return executeForEach(sql, valuesOfARow, values); });
    constexpr std::size_t rowsAtOnce = 500;
    PreparedStatement* statement = nullptr;
    Status status = m_statements.findPlain(sql, static_cast<int>(valuesOfARow), statement);
    while (status && !values.empty()) {
        std::vector<Command> commands;
        for (; !values.empty() && commands.size() < rowsAtOnce;
             values = values.subspan(valuesOfARow))
            commands.push_back({statement, values.first(valuesOfARow)});
        status = executeLogged(commands, nullptr);
    }
    return status;
}

Status Database::selectPlain(std::string_view sql, std::span<const Value> values,
                             const std::function<Status(Cursor&)>& reader) {
    PreparedStatement* statement = nullptr;
    if (Status status = m_statements.findPlain(sql, static_cast<int>(values.size()), statement);
        !status)
        return status;
    return readRows({statement, values}, reader);
}

}  // namespace chengheng
