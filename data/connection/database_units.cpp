#include "data/connection/database.h"

#include <fmt/format.h>

#include "data/connection/id_counters.h"

namespace chengheng {
namespace {

constexpr std::string_view readCounterSql = "SELECT lLastId FROM ABIdTable WHERE sTable = $1";

Status wrongCounter(std::string_view row, std::string_view stored) {
    return Status::of(Failure::wrongValue, fmt::format("ABIdTable {} lLastId: {}", row, stored));
}

}  // namespace

Status Database::lostUnit() {
    return Status::of(Failure::lost, "the unit of work was lost with its connection");
}

Database::~Database() {
    if (m_log != nullptr) m_engine->watchChanges(nullptr);
}

void Database::keepLog(LogAuthor author) {
    if (m_layout != booksFormatVersion || m_engine->isReadOnly()) return;
    if (m_log != nullptr) return m_log->changeAuthor(std::move(author));
    m_log = std::make_unique<OperationLog>(*m_engine, std::move(author));
    m_engine->watchChanges(&m_log->changes());
    // Those that are prepared already tell nothing of rows.
    m_statements.forgetAll();
}

Status Database::noteInLog(LogWords words) {
    if (m_log == nullptr) return Status::done();
    return inUnitOfItsOwn([&] {
        m_log->note(std::move(words));
        return Status::done();
    });
}

Status Database::inUnitOfItsOwn(const std::function<Status()>& change) {
    Status status = beginUnit();
    if (status) status = change();
    if (status) return commitUnit();
    rollbackUnit();
    return status;
}

Status Database::beginUnit() {
    if (m_isUnitLost) return lostUnit();
    Status status = m_depth == 0 ? m_engine->begin() : m_engine->savepoint(m_depth);
    if (!status) return status;
    if (m_log != nullptr) m_depth == 0 ? m_log->changes().clear() : m_log->changes().mark();
    m_countersBefore.push_back(m_counters);
    ++m_depth;
    return Status::done();
}

Status Database::commitUnit() {
    if (m_depth == 0) return Status::of(Failure::refused, "no unit of work is open");
    Status status = m_isUnitLost ? lostUnit() : Status::done();
    if (m_depth > 1) {
        if (status) status = m_engine->releaseSavepoint(m_depth - 1);
        if (!status) {
            rollbackUnit();
            return status;
        }
        if (m_log != nullptr) m_log->changes().release();
        m_countersBefore.pop_back();
        --m_depth;
        return Status::done();
    }
    // The order of the log is taken last, so that others wait for it no longer than need be.
    if (status && m_log != nullptr) status = m_log->writeEntry();
    if (status) status = writeHeldCounters();
    if (status) status = m_engine->commit();
    if (!status) {
        rollbackUnit();
        return status;
    }
    if (m_log != nullptr) m_log->clear();
    m_counters.forget();
    m_countersBefore.clear();
    m_depth = 0;
    return Status::done();
}

void Database::rollbackUnit() {
    if (m_depth == 0) return;
    --m_depth;
    if (m_depth == 0) {
        // A rollback that fails leaves nothing to do: the engine drops the transaction with
        // its connection.
        if (m_engine->inTransaction()) static_cast<void>(m_engine->rollback());
        if (m_log != nullptr) m_log->clear();
        m_counters.forget();
        m_countersBefore.clear();
        m_isUnitLost = false;
        return;
    }
    if (!m_isUnitLost && !m_engine->rollbackToSavepoint(m_depth)) m_isUnitLost = true;
    if (m_log != nullptr) m_log->changes().backToMark();
    m_counters = std::move(m_countersBefore.back());
    m_countersBefore.pop_back();
}

Status Database::writeHeldCounters() {
    for (const IdCounters::Counter& counter : m_counters.all()) {
        if (!counter.isHeldBack) continue;
        const Value values[] = {Value::of(std::int64_t{counter.value}),
                                Value::of(std::string_view(counter.row))};
        if (Status status = executePlain(writeCounterSql, values); !status) return status;
    }
    m_counters.forget();
    return Status::done();
}

Status Database::lastId(std::string_view row, int& id) {
    if (const IdCounters::Counter* known = m_counters.find(row)) {
        id = known->value;
        return Status::done();
    }
    std::string sql(readCounterSql);
    if (isInUnit()) sql += m_engine->dialect().rowLock;
    const Value values[] = {Value::of(row)};
    id = 0;
    bool isThere = false;
    const auto read = [&](Cursor& cursor) {
        const Cursor::Step step = cursor.next();
        if (step == Cursor::Step::failed) return cursor.status();
        isThere = step == Cursor::Step::row;
        if (!isThere) return Status::done();
        const std::int64_t stored = cursor.integer(0);
        id = static_cast<int>(stored);
        const bool isId = cursor.kind(0) == ValueKind::integer && id == stored && id >= 0;
        return isId ? Status::done() : wrongCounter(row, cursor.text(0));
    };
    if (Status status = selectPlain(sql, values, read); !status) return status;
    if (isInUnit() && isThere) m_counters.learn(row, id);
    return Status::done();
}

Status Database::setLastId(std::string_view row, int id) {
    if (isInUnit()) {
        m_counters.holdBack(row, id);
        return Status::done();
    }
    const Value values[] = {Value::of(std::int64_t{id}), Value::of(row)};
    return executePlain(writeCounterSql, values);
}

Status Database::ensureConnected() {
    if (isInUnit()) return m_isUnitLost ? lostUnit() : Status::done();
    return m_engine->ensureConnected();
}

}  // namespace chengheng
