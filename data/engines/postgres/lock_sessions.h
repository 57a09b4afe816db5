#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "data/engines/postgres/postgres_connection.h"
#include "data/locks/lock_record.h"

namespace chengheng {

/// The numbers under which the locks of one schema stand on the server. Programs of
/// different versions meet in them; they must not change.
class ServerLockNumbers {
  public:
    explicit ServerLockNumbers(const std::string& schema);

    /// "pg_try_advisory_lock(1, 2)" for a name in a mode.
    std::string tryLock(const LockName& name, LockMode mode) const;
    std::string unlock(const LockName& name, LockMode mode) const;
    /// A lock that anybody can have: it only shows the others what its owner waits for.
    std::string showWish(const LockWish& wish) const;
    std::string hideWish(const LockWish& wish) const;

    std::uint32_t heldClass() const { return m_heldClass; }
    std::uint32_t wishClass(LockMode mode) const;
    static std::uint32_t nameNumber(const LockName& name);

  private:
    std::uint32_t m_heldClass;
    std::uint32_t m_sharedWishClass;
    std::uint32_t m_exclusiveWishClass;
};

/// What the sessions of a schema know of each other: the server tells who holds and awaits
/// which lock, a table of the schema in whose name and for which function. Without that
/// table, on a server that refuses writing say, locks work and their holders have no names.
class LockSessions {
  public:
    explicit LockSessions(PostgresConnection& connection)
        : m_connection(connection), m_numbers(connection.address().schema) {}

    const ServerLockNumbers& numbers() const { return m_numbers; }

    /// The statement that publishes the record of this session, to be run in front of another
    /// one; "" when nothing can be published. Inside a transaction nothing is: others would
    /// not see it, and a failure would end the transaction.
    std::string publishing(const LockRecord& record);
    /// That statement failed: it is not worth another try on this connection.
    void stopPublishing();
    /// Whether something was not published because a transaction was open.
    bool isBehind() const { return m_isBehind; }
    /// What the other sessions hold and await; the keys of their locks are numbers in digits,
    /// see numbered().
    Status readOthers(std::vector<LockRecord>& others);
    /// The same name under such a key.
    static LockName numbered(const LockName& name);

  private:
    bool findTable();

    PostgresConnection& m_connection;
    ServerLockNumbers m_numbers;
    int m_generation = 0;  ///< the connection on which the following is known
    bool m_isTableUsable = false;
    bool m_isTableRefused = false;
    bool m_isBehind = false;
};

}  // namespace chengheng
