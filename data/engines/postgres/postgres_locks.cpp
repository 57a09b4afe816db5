#include "data/engines/postgres/postgres_locks.h"

#include <charconv>
#include <thread>

#include "base/system/this_process.h"

namespace chengheng {
namespace {

using namespace std::chrono_literals;

constexpr auto defaultPatience = 5s;
constexpr auto pollInterval = 100ms;

std::chrono::milliseconds timeSince(std::chrono::steady_clock::time_point start) {
    return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() -
                                                                 start);
}

/// Takes the locks from the first to the last, up to one that is not free; its result is how
/// many were taken.
std::string takeSql(const ServerLockNumbers& numbers, const std::vector<LockName>& names,
                    LockMode mode) {
    std::string sql = "SELECT ";
    for (const LockName& name : names) sql += "CASE WHEN " + numbers.tryLock(name, mode) + " THEN ";
    sql += std::to_string(names.size());
    for (std::size_t at = names.size(); at-- > 0;) sql += " ELSE " + std::to_string(at) + " END";
    return sql;
}

}  // namespace

bool PostgresLocks::isCurrent() const {
    return m_connection.isConnected() && m_generation == m_connection.generation();
}

Status PostgresLocks::connect() {
    if (!m_connection.isConnected()) return Status::of(Failure::lost, "not connected");
    if (isCurrent()) return freeOwed();
    // What an earlier connection held is gone with it.
    m_held.clear();
    m_owed.clear();
    m_generation = m_connection.generation();
    return Status::done();
}

LockRecord PostgresLocks::ownRecord(const std::vector<LockName>& names, LockMode mode) const {
    HeldLocks held = m_held;
    for (const LockName& name : names) held.add(name, mode, m_identity.function);
    return {0, m_identity.operatorName, stationName(), processNumber(), held.all(), std::nullopt};
}

Status PostgresLocks::takeMissing(const std::vector<LockName>& missing, LockMode mode,
                                  const std::string& publishing, std::size_t& taken) {
    taken = 0;
    PostgresResult result;
    const std::string take = takeSql(m_sessions.numbers(), missing, mode);
    Status status = m_connection.run(publishing + take, &result);
    if (!status && !publishing.empty()) {
        m_sessions.stopPublishing();
        free(missing, mode);
        status = m_connection.run(take, &result);
    }
    if (!status) {
        // Some may have been taken before the failure.
        free(missing, mode);
        return status;
    }
    const std::string_view digits = PQgetvalue(result.get(), 0, 0);
    std::from_chars(digits.data(), digits.data() + digits.size(), taken);
    for (std::size_t at = 0; at < taken; ++at) m_held.add(missing[at], mode, m_identity.function);
    return status;
}

Status PostgresLocks::lock(std::string_view names, LockMode mode, bool wait) {
    Status status = connect();
    if (!status) return status;
    std::vector<LockName> missing = readLockNames(names);
    std::erase_if(missing, [&](const LockName& name) { return m_held.holds(name.key, mode); });
    std::vector<LockName> granted;
    while (status && !missing.empty()) {
        std::size_t taken = 0;
        status = takeMissing(missing, mode, m_sessions.publishing(ownRecord(missing, mode)), taken);
        const auto end = missing.begin() + static_cast<std::ptrdiff_t>(taken);
        granted.insert(granted.end(), missing.begin(), end);
        missing.erase(missing.begin(), end);
        if (!status || missing.empty()) break;
        const LockWish wish{missing.front(), mode};
        status = wait ? awaitGrant(wish) : refuse(wish);
        if (!status) break;
        granted.push_back(missing.front());
        missing.erase(missing.begin());
    }
    if (!status) release(granted, mode);
    return status;
}

Status PostgresLocks::refuse(const LockWish& wish) {
    std::vector<LockRecord> others;
    if (Status status = m_sessions.readOthers(others); !status) return status;
    m_lastHolder = findLockHolder(others, {LockSessions::numbered(wish.name), wish.mode});
    return Status::of(Failure::busy, wish.name.spelling);
}

LockWish PostgresLocks::numberedWish(const LockWish& wish) {
    return {LockSessions::numbered(wish.name), wish.mode};
}

LockRecord PostgresLocks::numberedRecord(const LockWish& wish) const {
    LockRecord own;
    own.seat = PQbackendPID(m_connection.handle());
    own.held = m_held.all();
    for (HeldLock& lock : own.held) lock.name = LockSessions::numbered(lock.name);
    own.wish = numberedWish(wish);
    return own;
}

Status PostgresLocks::awaitGrant(const LockWish& wish) {
    PatientWaiter patience(defaultPatience);
    LockWaiter& waiter = m_waiter == nullptr ? patience : *m_waiter;
    const auto start = std::chrono::steady_clock::now();
    const ServerLockNumbers& numbers = m_sessions.numbers();
    Status status = m_connection.run("SELECT " + numbers.showWish(wish));
    if (!status) return status;
    bool wasCrossed = false;
    for (bool isGranted = false; status && !isGranted;) {
        bool isCrossed = false;
        status = waitOnce(wish, isCrossed, isGranted);
        if (!status || isGranted) break;
        // Seen twice: who waits shows it for a moment longer.
        if (isCrossed && wasCrossed)
            status = Status::of(Failure::crossedWait, wish.name.spelling);
        else if (!waiter.keepWaiting(m_lastHolder, timeSince(start)))
            status =
                Status::of(timeSince(start) < pollInterval ? Failure::busy : waiter.givenUpAs(),
                           wish.name.spelling);
        if (!status) break;
        wasCrossed = isCrossed;
        std::this_thread::sleep_for(pollInterval);
    }
    waiter.waitEnded();
    if (!isCurrent()) return Status::of(Failure::lost, "the locks were lost while waiting");
    if (status) publish();
    m_owed.push_back(numbers.hideWish(wish));
    // What cannot be freed now is freed with the next request.
    static_cast<void>(freeOwed());
    return status;
}

Status PostgresLocks::waitOnce(const LockWish& wish, bool& isCrossed, bool& isGranted) {
    if (!isCurrent()) return Status::of(Failure::lost, "the locks were lost while waiting");
    std::size_t taken = 0;
    Status status = takeMissing({wish.name}, wish.mode, {}, taken);
    isGranted = status && taken == 1;
    if (!status || isGranted) return status;
    std::vector<LockRecord> others;
    status = m_sessions.readOthers(others);
    m_lastHolder = findLockHolder(others, numberedWish(wish));
    isCrossed = mustGiveWay(others, numberedRecord(wish));
    return status;
}

void PostgresLocks::unlock(std::string_view names, LockMode mode) {
    if (isCurrent()) release(readLockNames(names), mode);
}

void PostgresLocks::publish() {
    if (!isCurrent()) return;
    const std::string publishing = m_sessions.publishing(ownRecord({}, LockMode::shared));
    // Without it the others miss a name, and are kept out all the same.
    if (!publishing.empty() && !m_connection.run(publishing)) m_sessions.stopPublishing();
}

void PostgresLocks::transactionEnded() {
    static_cast<void>(freeOwed());
    if (m_sessions.isBehind() && !m_held.all().empty()) publish();
}

void PostgresLocks::release(const std::vector<LockName>& names, LockMode mode) {
    std::vector<LockName> held = names;
    std::erase_if(held, [&](const LockName& name) { return !m_held.holds(name.key, mode); });
    for (const LockName& name : held) m_held.remove(name.key, mode);
    free(held, mode);
}

void PostgresLocks::free(const std::vector<LockName>& names, LockMode mode) {
    for (const LockName& name : names) m_owed.push_back(m_sessions.numbers().unlock(name, mode));
    // What cannot be freed now is freed at the end of the transaction or with the next
    // request; a connection that is lost has freed everything.
    static_cast<void>(freeOwed());
}

Status PostgresLocks::freeOwed() {
    if (m_owed.empty() || !isCurrent()) return Status::done();
    std::string sql = "SELECT ";
    for (const std::string& call : m_owed) sql += (sql.size() > 7 ? ", " : "") + call;
    if (PQtransactionStatus(m_connection.handle()) == PQTRANS_INERROR)
        return Status::of(Failure::refused, "a statement of the transaction has failed");
    Status status = m_connection.run(sql);
    if (status) m_owed.clear();
    return status;
}

bool PostgresLocks::holds(std::string_view name, LockMode mode) const {
    return isCurrent() && m_held.holds(lockKey(name), mode);
}

}  // namespace chengheng
