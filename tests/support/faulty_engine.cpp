#include "tests/support/faulty_engine.h"

#include <signal.h>

namespace chengheng {
namespace {

constexpr const char* explanation = "made to fail";

/// A real cursor whose first step may fail.
class FaultyCursor final : public Cursor {
  public:
    FaultyCursor(FaultyEngine& engine, std::unique_ptr<Cursor> cursor)
        : m_engine(engine), m_cursor(std::move(cursor)) {}

    Step next() override {
        if (m_isFirst) m_status = m_engine.enter();
        m_isFirst = false;
        return m_status ? m_cursor->next() : Step::failed;
    }
    Status status() const override { return m_status ? m_cursor->status() : m_status; }
    int columns() const override { return m_cursor->columns(); }
    ValueKind kind(int column) const override { return m_cursor->kind(column); }
    std::int64_t integer(int column) const override { return m_cursor->integer(column); }
    double real(int column) const override { return m_cursor->real(column); }
    std::string_view text(int column) const override { return m_cursor->text(column); }

  private:
    FaultyEngine& m_engine;
    std::unique_ptr<Cursor> m_cursor;
    Status m_status;
    bool m_isFirst = true;
};

}  // namespace

void FaultyEngine::failCall(int number, Failure failure) {
    m_failAt = number;
    m_failure = failure;
    m_calls = 0;
}

Status FaultyEngine::enter() {
    ++m_calls;
    if (m_calls == m_dieAt) raise(SIGKILL);
    if (m_calls == m_happensAt) m_happening();
    if (m_isLost) return Status::of(Failure::lost, explanation);
    if (m_calls != m_failAt) return Status::done();
    m_isLost = m_failure == Failure::lost;
    if (m_isLost && m_engine->inTransaction()) {
        if (Status undone = m_engine->rollback(); !undone) return undone;
    }
    return Status::of(m_failure, explanation);
}

Status FaultyEngine::prepare(std::string_view sql, int parameters,
                             std::unique_ptr<PreparedStatement>& statement) {
    if (Status entered = enter(); !entered) return entered;
    return m_engine->prepare(sql, parameters, statement);
}

Status FaultyEngine::execute(std::span<const Command> commands, std::int64_t* changed) {
    if (Status entered = enter(); !entered) return entered;
    return m_engine->execute(commands, changed);
}

Status FaultyEngine::open(const Command& command, std::unique_ptr<Cursor>& cursor) {
    if (Status entered = enter(); !entered) return entered;
    std::unique_ptr<Cursor> opened;
    Status status = m_engine->open(command, opened);
    if (status) cursor = std::make_unique<FaultyCursor>(*this, std::move(opened));
    return status;
}

Status FaultyEngine::script(std::string_view sql) {
    if (Status entered = enter(); !entered) return entered;
    return m_engine->script(sql);
}

Status FaultyEngine::begin() {
    if (Status entered = enter(); !entered) return entered;
    return m_engine->begin();
}

Status FaultyEngine::beginAlone() {
    if (Status entered = enter(); !entered) return entered;
    return m_engine->beginAlone();
}

Status FaultyEngine::beginReading() {
    if (Status entered = enter(); !entered) return entered;
    return m_engine->beginReading();
}

Status FaultyEngine::commit() {
    Status entered = enter();
    if (entered) return m_engine->commit();
    if (m_engine->inTransaction()) {
        if (Status undone = m_engine->rollback(); !undone) return undone;
    }
    return entered;
}

Status FaultyEngine::rollback() {
    if (m_isLost) return Status::of(Failure::lost, explanation);
    return m_engine->rollback();
}

Status FaultyEngine::savepoint(int depth) {
    if (Status entered = enter(); !entered) return entered;
    return m_engine->savepoint(depth);
}

Status FaultyEngine::releaseSavepoint(int depth) {
    if (Status entered = enter(); !entered) return entered;
    return m_engine->releaseSavepoint(depth);
}

Status FaultyEngine::rollbackToSavepoint(int depth) {
    if (m_isLost) return Status::of(Failure::lost, explanation);
    return m_engine->rollbackToSavepoint(depth);
}

Status FaultyEngine::ensureConnected() {
    if (m_isLost)
        m_isLost = false;
    else if (Status entered = enter(); !entered)
        return entered;
    return m_engine->ensureConnected();
}

Status FaultyEngine::verify(std::vector<std::string>& faults) {
    if (Status entered = enter(); !entered) return entered;
    return m_engine->verify(faults);
}

std::optional<Status> FaultyEngine::copyToFile(const std::string& path) {
    if (Status entered = enter(); !entered) return entered;
    return m_engine->copyToFile(path);
}

Status FaultyEngine::hasTable(std::string_view name, bool& found) {
    if (Status entered = enter(); !entered) return entered;
    return m_engine->hasTable(name, found);
}

}  // namespace chengheng
