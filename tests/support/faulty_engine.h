#pragma once

#include <functional>
#include <memory>
#include <utility>

#include "data/engine/engine.h"

namespace chengheng {

/// A real engine whose n-th call fails.
///
/// Every call that reaches the database is one: prepare, execute, open, script, begin, commit,
/// the savepoints, hasTable, ensureConnected, verify, copyToFile, and the first step of a cursor. A
/// call that fails does nothing; a commit that fails has rolled back. Rollbacks are not counted:
/// they are how the failure of the others is answered. After `lost`, the transaction is gone and
/// every call fails until ensureConnected, as with a server that went away; locks stay.
class FaultyEngine final : public Engine {
  public:
    explicit FaultyEngine(std::unique_ptr<Engine> engine) : m_engine(std::move(engine)) {}

    /// The n-th call from now on, counted from 1, fails; 0 lets all go well.
    void failCall(int number, Failure failure = Failure::full);
    /// The process ends before the n-th call from now on, as a power failure would end it.
    void dieAtCall(int number) { m_dieAt = m_calls + number; }
    /// Something happens before the n-th call from now on; 0 lets nothing happen.
    void beforeCall(int number, std::function<void()> happening) {
        m_happensAt = m_calls + number;
        m_happening = std::move(happening);
    }
    /// Calls since the last failCall.
    int calls() const { return m_calls; }
    /// Whether the call that was to fail was reached.
    bool hasFailed() const { return m_failAt > 0 && m_calls >= m_failAt; }
    Engine& real() { return *m_engine; }

    /// Counts a call that is about to be made; not done when it is the one to fail.
    Status enter();

    const EngineDialect& dialect() const override { return m_engine->dialect(); }
    Status prepare(std::string_view sql, int parameters,
                   std::unique_ptr<PreparedStatement>& statement) override;
    Status execute(std::span<const Command> commands, std::int64_t* changed) override;
    Status open(const Command& command, std::unique_ptr<Cursor>& cursor) override;
    Status script(std::string_view sql) override;
    Status begin() override;
    Status beginAlone() override;
    Status commit() override;
    Status rollback() override;
    Status savepoint(int depth) override;
    Status releaseSavepoint(int depth) override;
    Status rollbackToSavepoint(int depth) override;
    bool inTransaction() const override { return m_engine->inTransaction(); }
    Status ensureConnected() override;
    bool isReadOnly() const override { return m_engine->isReadOnly(); }
    Status hasTable(std::string_view name, bool& found) override;
    LockService& locks() override { return m_locks != nullptr ? *m_locks : m_engine->locks(); }
    void watchChanges(ChangeWatcher* watcher) override { m_engine->watchChanges(watcher); }
    /// Locks to be used instead of the real engine's; not owned.
    void replaceLocks(LockService& locks) { m_locks = &locks; }
    std::string secretAddress() const override { return m_engine->secretAddress(); }
    Status passwordVerifier(const std::string& role, const std::string& password,
                            std::string& verifier) override {
        return m_engine->passwordVerifier(role, password, verifier);
    }
    Status facts(EngineFacts& facts) override { return m_engine->facts(facts); }
    Status beginReading() override;
    Status verify(std::vector<std::string>& faults) override;
    std::optional<Status> copyToFile(const std::string& path) override;

  private:
    std::unique_ptr<Engine> m_engine;
    LockService* m_locks = nullptr;
    Failure m_failure = Failure::none;
    int m_failAt = 0;
    int m_dieAt = 0;
    int m_happensAt = 0;
    std::function<void()> m_happening;
    int m_calls = 0;
    bool m_isLost = false;
};

}  // namespace chengheng
