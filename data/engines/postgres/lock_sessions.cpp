#include "data/engines/postgres/lock_sessions.h"

#include <charconv>

namespace chengheng {
namespace {

constexpr std::size_t longestRecord = 65536;

/// Sessions that ended leave their rows behind; the first of a new session clears them away,
/// unless another one is at it.
constexpr const char* clearTableSql =
    "DELETE FROM LockSession WHERE lProcess IN (SELECT lProcess FROM LockSession WHERE lProcess "
    "NOT IN (SELECT pid FROM pg_stat_activity) FOR UPDATE SKIP LOCKED)";

constexpr const char* createTableSql =
    "CREATE UNLOGGED TABLE IF NOT EXISTS LockSession (lProcess integer PRIMARY KEY, "
    "sRecord text COLLATE \"C\" NOT NULL); "
    "GRANT SELECT, INSERT, UPDATE, DELETE ON LockSession TO PUBLIC";

std::uint32_t folded(std::uint64_t number) {
    return static_cast<std::uint32_t>(number ^ (number >> 32));
}

std::string call(std::string_view function, std::uint32_t lockClass, std::uint32_t number) {
    // The server takes signed numbers.
    return std::string(function) + "(" + std::to_string(static_cast<std::int32_t>(lockClass)) +
           ", " + std::to_string(static_cast<std::int32_t>(number)) + ")";
}

std::string publishSql(const LockRecord& record) {
    return "INSERT INTO LockSession VALUES (pg_backend_pid(), " +
           quotedLiteral(writeLockRecord(record, longestRecord)) +
           ") ON CONFLICT (lProcess) DO UPDATE SET sRecord = excluded.sRecord; ";
}

std::string othersSql(const ServerLockNumbers& numbers, bool hasTable) {
    const auto type = [](std::uint32_t number) { return std::to_string(number) + "::oid"; };
    return std::string("SELECT l.pid, l.classid, l.objid, l.mode = 'ExclusiveLock', ") +
           (hasTable ? "s.sRecord FROM pg_locks l LEFT JOIN LockSession s ON s.lProcess = l.pid"
                     : "NULL FROM pg_locks l") +
           " WHERE l.locktype = 'advisory' AND l.objsubid = 2 AND l.granted"
           " AND l.pid <> pg_backend_pid() AND l.database ="
           " (SELECT oid FROM pg_database WHERE datname = current_database())"
           " AND l.classid IN (" +
           type(numbers.heldClass()) + ", " + type(numbers.wishClass(LockMode::shared)) + ", " +
           type(numbers.wishClass(LockMode::exclusive)) + ") ORDER BY l.pid";
}

std::uint32_t numberIn(const PostgresResult& result, int row, int column) {
    const std::string_view digits = PQgetvalue(result.get(), row, column);
    std::uint32_t number = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return number;
}

LockName nameOf(std::uint32_t number) { return {std::to_string(number), {}}; }

/// A lock that the server says is held, with what its holder published about it.
HeldLock heldLock(std::uint32_t number, LockMode mode, const std::optional<LockRecord>& published) {
    HeldLock held{nameOf(number), mode, {}, std::chrono::system_clock::now()};
    if (!published) return held;
    for (const HeldLock& told : published->held) {
        if (told.mode != mode || ServerLockNumbers::nameNumber(told.name) != number) continue;
        held.function = told.function;
        held.since = told.since;
    }
    return held;
}

}  // namespace

ServerLockNumbers::ServerLockNumbers(const std::string& schema)
    : m_heldClass(folded(lockNumber("held " + schema))),
      m_sharedWishClass(folded(lockNumber("wish 1 " + schema))),
      m_exclusiveWishClass(folded(lockNumber("wish 2 " + schema))) {}

std::uint32_t ServerLockNumbers::wishClass(LockMode mode) const {
    return mode == LockMode::shared ? m_sharedWishClass : m_exclusiveWishClass;
}

std::uint32_t ServerLockNumbers::nameNumber(const LockName& name) {
    return folded(lockNumber(name.key));
}

std::string ServerLockNumbers::tryLock(const LockName& name, LockMode mode) const {
    return call(mode == LockMode::shared ? "pg_try_advisory_lock_shared" : "pg_try_advisory_lock",
                m_heldClass, nameNumber(name));
}

std::string ServerLockNumbers::unlock(const LockName& name, LockMode mode) const {
    return call(mode == LockMode::shared ? "pg_advisory_unlock_shared" : "pg_advisory_unlock",
                m_heldClass, nameNumber(name));
}

std::string ServerLockNumbers::showWish(const LockWish& wish) const {
    return call("pg_try_advisory_lock_shared", wishClass(wish.mode), nameNumber(wish.name));
}

std::string ServerLockNumbers::hideWish(const LockWish& wish) const {
    return call("pg_advisory_unlock_shared", wishClass(wish.mode), nameNumber(wish.name));
}

bool LockSessions::findTable() {
    // Two sessions may make it at once; then one fails, and finds it there all the same.
    constexpr int tries = 3;
    for (int time = 0; time < tries && m_connection.isConnected(); ++time) {
        m_isTableUsable = m_connection.run(clearTableSql).isDone();
        if (m_isTableUsable) return true;
        // Whether it could be made shows in the next round.
        static_cast<void>(m_connection.run(createTableSql));
    }
    m_isTableRefused = true;
    return false;
}

std::string LockSessions::publishing(const LockRecord& record) {
    if (m_generation != m_connection.generation()) {
        m_generation = m_connection.generation();
        m_isTableUsable = m_isTableRefused = false;
    }
    m_isBehind = PQtransactionStatus(m_connection.handle()) != PQTRANS_IDLE;
    if (m_isBehind || m_isTableRefused) return {};
    return m_isTableUsable || findTable() ? publishSql(record) : std::string();
}

void LockSessions::stopPublishing() {
    m_isTableUsable = false;
    m_isTableRefused = true;
}

Status LockSessions::readOthers(std::vector<LockRecord>& others) {
    others.clear();
    PostgresResult result;
    const Status status = m_connection.run(othersSql(m_numbers, m_isTableUsable), &result);
    if (!status) return status;
    constexpr int recordColumn = 4;
    std::optional<LockRecord> published;
    for (int row = 0; row < PQntuples(result.get()); ++row) {
        const std::int64_t session = numberIn(result, row, 0);
        if (others.empty() || others.back().seat != session) {
            published = readLockRecord(PQgetvalue(result.get(), row, recordColumn));
            LockRecord& other = others.emplace_back();
            other.seat = session;
            if (published) other.operatorName = published->operatorName;
            if (published) other.station = published->station;
        }
        const std::uint32_t lockClass = numberIn(result, row, 1);
        const std::uint32_t number = numberIn(result, row, 2);
        const bool isExclusive = *PQgetvalue(result.get(), row, 3) == 't';
        const LockMode heldMode = isExclusive ? LockMode::exclusive : LockMode::shared;
        if (lockClass == m_numbers.heldClass())
            others.back().held.push_back(heldLock(number, heldMode, published));
        else
            others.back().wish = {nameOf(number), lockClass == m_numbers.wishClass(LockMode::shared)
                                                      ? LockMode::shared
                                                      : LockMode::exclusive};
    }
    return status;
}

LockName LockSessions::numbered(const LockName& name) {
    return {std::to_string(ServerLockNumbers::nameNumber(name)), name.spelling};
}

}  // namespace chengheng
