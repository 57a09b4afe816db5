#pragma once

#include "data/locks/held_locks.h"

namespace chengheng {

/// The locks of a database that only one connection can ever see, or that nobody can write:
/// always granted, and remembered.
class MemoryLocks final : public LockService {
  public:
    Status lock(std::string_view names, LockMode mode, bool wait) override;
    void unlock(std::string_view names, LockMode mode) override;
    bool holds(std::string_view name, LockMode mode) const override;
    void setWaiter(LockWaiter* waiter) override { m_waiter = waiter; }
    LockWaiter* waiter() const override { return m_waiter; }
    void setIdentity(const LockIdentity&) override {}
    const LockHolder& lastHolder() const override { return m_nobody; }

  private:
    HeldLocks m_held;
    LockHolder m_nobody;
    LockWaiter* m_waiter = nullptr;
};

}  // namespace chengheng
