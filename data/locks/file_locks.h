#pragma once

#include <optional>
#include <string>
#include <vector>

#include "data/locks/byte_range_lock.h"
#include "data/locks/held_locks.h"
#include "data/locks/lock_record.h"

namespace chengheng {

/// The locks of a database file: bytes of a companion file beside it, "Nbzw.db.locks".
///
/// A lock's byte lies where the number of its name says. Each connection has a seat in the
/// companion file: a byte it keeps locked as long as it lives, and a record of what it holds
/// and waits for. A record counts only while its seat's byte is locked, so that what a
/// killed process left behind means nothing. Records serve to name a holder and to notice
/// crossed waits; exclusion itself rests on the locked bytes alone.
class FileLocks final : public LockService {
  public:
    explicit FileLocks(std::string databasePath) : m_databasePath(std::move(databasePath)) {}

    Status lock(std::string_view names, LockMode mode, bool wait) override;
    void unlock(std::string_view names, LockMode mode) override;
    bool holds(std::string_view name, LockMode mode) const override;
    void setWaiter(LockWaiter* waiter) override { m_waiter = waiter; }
    LockWaiter* waiter() const override { return m_waiter; }
    void setIdentity(const LockIdentity& identity) override;
    const LockHolder& lastHolder() const override { return m_lastHolder; }

  private:
    Status connect();
    Status takeSeat();
    Status take(const LockName& name, LockMode mode, bool wait);
    Status tryTake(const LockWish& wish, bool& isGranted);
    Status awaitGrant(const LockWish& wish);
    void release(const std::vector<LockName>& names, LockMode mode);
    Status publish();
    LockRecord ownRecord() const;
    std::vector<LockRecord> readOthers() const;

    std::string m_databasePath;
    LockFile m_file;
    std::int64_t m_seat = 0;
    LockIdentity m_identity;
    HeldLocks m_held;
    std::optional<LockWish> m_wish;
    LockWaiter* m_waiter = nullptr;
    LockHolder m_lastHolder;
};

}  // namespace chengheng
