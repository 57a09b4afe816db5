#pragma once

#include <fmt/format.h>

#include <string>
#include <vector>

#include "data/engine/lock_service.h"

namespace chengheng {

/// Real locks that note what is asked of them: "lock Code 2", "unlock Code 2".
class LoggedLocks final : public LockService {
  public:
    explicit LoggedLocks(LockService& locks) : m_locks(locks) {}

    const std::vector<std::string>& log() const { return m_log; }
    void forget() { m_log.clear(); }

    Status lock(std::string_view names, LockMode mode, bool wait) override {
        note("lock", names, mode);
        return m_locks.lock(names, mode, wait);
    }
    void unlock(std::string_view names, LockMode mode) override {
        note("unlock", names, mode);
        m_locks.unlock(names, mode);
    }
    bool holds(std::string_view name, LockMode mode) const override {
        return m_locks.holds(name, mode);
    }
    void setWaiter(LockWaiter* waiter) override { m_locks.setWaiter(waiter); }
    LockWaiter* waiter() const override { return m_locks.waiter(); }
    void setIdentity(const LockIdentity& identity) override { m_locks.setIdentity(identity); }
    const LockHolder& lastHolder() const override { return m_locks.lastHolder(); }

  private:
    void note(const char* what, std::string_view names, LockMode mode) {
        m_log.push_back(fmt::format("{} {} {}", what, names, static_cast<int>(mode)));
    }

    LockService& m_locks;
    std::vector<std::string> m_log;
};

}  // namespace chengheng
