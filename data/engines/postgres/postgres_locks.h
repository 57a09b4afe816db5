#pragma once

#include <optional>
#include <string>
#include <vector>

#include "data/engines/postgres/lock_sessions.h"
#include "data/locks/held_locks.h"

namespace chengheng {

/// The locks of a schema on a server: advisory locks of our session, by the numbers of their
/// names. The server frees them when the session ends, however it ends.
///
/// A lock that is not free is asked for again and again instead of having the server wait:
/// the connection stays free for other statements meanwhile, a wait is given up by not
/// asking any more, and an open transaction is not touched by it.
class PostgresLocks final : public LockService {
  public:
    explicit PostgresLocks(PostgresConnection& connection)
        : m_connection(connection), m_sessions(connection) {}

    Status lock(std::string_view names, LockMode mode, bool wait) override;
    void unlock(std::string_view names, LockMode mode) override;
    bool holds(std::string_view name, LockMode mode) const override;
    void setWaiter(LockWaiter* waiter) override { m_waiter = waiter; }
    LockWaiter* waiter() const override { return m_waiter; }
    void setIdentity(const LockIdentity& identity) override { m_identity = identity; }
    const LockHolder& lastHolder() const override { return m_lastHolder; }

    /// Frees and tells what could not be freed or told while a transaction was open.
    void transactionEnded();

  private:
    bool isCurrent() const;
    Status connect();
    Status takeMissing(const std::vector<LockName>& missing, LockMode mode,
                       const std::string& publishing, std::size_t& taken);
    Status refuse(const LockWish& wish);
    Status awaitGrant(const LockWish& wish);
    Status waitOnce(const LockWish& wish, bool& isCrossed, bool& isGranted);
    LockRecord ownRecord(const std::vector<LockName>& names, LockMode mode) const;
    /// With its name as LockSessions::numbered() gives it.
    static LockWish numberedWish(const LockWish& wish);
    LockRecord numberedRecord(const LockWish& wish) const;
    void publish();
    void release(const std::vector<LockName>& names, LockMode mode);
    void free(const std::vector<LockName>& names, LockMode mode);
    Status freeOwed();

    PostgresConnection& m_connection;
    LockSessions m_sessions;
    int m_generation = 0;  ///< of the connection that holds the locks
    LockIdentity m_identity;
    HeldLocks m_held;
    std::vector<std::string> m_owed;  ///< calls that free what is no longer held
    LockWaiter* m_waiter = nullptr;
    LockHolder m_lastHolder;
};

}  // namespace chengheng
