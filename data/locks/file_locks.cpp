#include "data/locks/file_locks.h"

#include <algorithm>
#include <thread>

#include "base/system/this_process.h"

namespace chengheng {
namespace {

using namespace std::chrono_literals;

// The layout of the companion file. Programs of different versions meet in it; these values
// must not change.
constexpr std::int64_t seatSize = 65536;
constexpr std::int64_t seatCount = 4096;
constexpr std::int64_t namesBegin = std::int64_t{1} << 41;
constexpr std::uint64_t namesRange = std::uint64_t{1} << 40;

constexpr auto defaultPatience = 5s;
constexpr auto pollInterval = 50ms;

std::int64_t seatByte(std::int64_t seat) { return seat * seatSize; }

std::int64_t nameByte(const LockName& name) {
    return namesBegin + static_cast<std::int64_t>(lockNumber(name.key) % namesRange);
}

std::chrono::milliseconds timeSince(std::chrono::steady_clock::time_point start) {
    return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() -
                                                                 start);
}

}  // namespace

Status FileLocks::connect() {
    if (m_file.isOpen() && (!m_held.all().empty() || !m_file.isRemoved())) return Status::done();
    Status status = m_file.open(m_databasePath + ".locks", m_databasePath);
    if (status) status = takeSeat();
    if (status) status = publish();
    if (!status) m_file.close();
    return status;
}

Status FileLocks::takeSeat() {
    for (m_seat = 0; m_seat < seatCount; ++m_seat) {
        bool isGranted = false;
        Status status = m_file.tryLock(seatByte(m_seat), LockMode::exclusive, isGranted);
        if (!status || isGranted) return status;
    }
    return Status::of(Failure::busy, "too many connections");
}

LockRecord FileLocks::ownRecord() const {
    return {m_seat, m_identity.operatorName, stationName(), processNumber(), m_held.all(), m_wish};
}

Status FileLocks::publish() {
    return m_file.write(seatByte(m_seat), writeLockRecord(ownRecord(), seatSize));
}

std::vector<LockRecord> FileLocks::readOthers() const {
    std::vector<LockRecord> others;
    const std::int64_t used = (m_file.size() + seatSize - 1) / seatSize;
    for (std::int64_t seat = 0; seat < std::min(used, seatCount); ++seat) {
        if (seat == m_seat || !m_file.isLockedByOthers(seatByte(seat))) continue;
        auto record = readLockRecord(m_file.read(seatByte(seat), seatSize));
        if (!record) continue;  // being written this moment, or by a newer program
        record->seat = seat;
        others.push_back(std::move(*record));
    }
    return others;
}

Status FileLocks::tryTake(const LockWish& wish, bool& isGranted) {
    isGranted = m_held.effectiveMode(wish.name.key) == LockMode::exclusive;
    if (!isGranted) {
        Status status = m_file.tryLock(nameByte(wish.name), wish.mode, isGranted);
        if (!status) return status;
    }
    if (isGranted) m_held.add(wish.name, wish.mode, m_identity.function);
    return Status::done();
}

Status FileLocks::take(const LockName& name, LockMode mode, bool wait) {
    const LockWish wish{name, mode};
    bool isGranted = false;
    Status status = tryTake(wish, isGranted);
    if (!status || isGranted) return status;
    if (!wait) {
        m_lastHolder = findLockHolder(readOthers(), wish);
        return Status::of(Failure::busy, name.spelling);
    }
    m_wish = wish;
    status = publish();
    if (status) status = awaitGrant(wish);
    m_wish.reset();
    return status;
}

Status FileLocks::awaitGrant(const LockWish& wish) {
    PatientWaiter patience(defaultPatience);
    LockWaiter& waiter = m_waiter == nullptr ? patience : *m_waiter;
    const auto start = std::chrono::steady_clock::now();
    bool wasCrossed = false;
    Status status;
    for (bool isGranted = false; status && !isGranted;) {
        const std::vector<LockRecord> others = readOthers();
        m_lastHolder = findLockHolder(others, wish);
        // Seen twice: a record may be a moment older than the locks it tells of.
        const bool isCrossed = mustGiveWay(others, ownRecord());
        if (isCrossed && wasCrossed)
            status = Status::of(Failure::crossedWait, wish.name.spelling);
        else if (!waiter.keepWaiting(m_lastHolder, timeSince(start)))
            status =
                Status::of(timeSince(start) < pollInterval ? Failure::busy : waiter.givenUpAs(),
                           wish.name.spelling);
        if (!status) break;
        wasCrossed = isCrossed;
        std::this_thread::sleep_for(pollInterval);
        status = tryTake(wish, isGranted);
    }
    waiter.waitEnded();
    return status;
}

Status FileLocks::lock(std::string_view names, LockMode mode, bool wait) {
    Status status = connect();
    if (!status) return status;
    std::vector<LockName> taken;
    for (const LockName& name : readLockNames(names)) {
        if (m_held.holds(name.key, mode)) continue;
        status = take(name, mode, wait);
        if (!status) break;
        taken.push_back(name);
    }
    if (status && !taken.empty()) status = publish();
    if (!status) release(taken, mode);
    return status;
}

void FileLocks::unlock(std::string_view names, LockMode mode) {
    if (m_file.isOpen()) release(readLockNames(names), mode);
}

void FileLocks::release(const std::vector<LockName>& names, LockMode mode) {
    std::vector<LockName> released;
    for (const LockName& name : names) {
        if (!m_held.holds(name.key, mode)) continue;
        m_held.remove(name.key, mode);
        released.push_back(name);
    }
    // First told, then done, so that no record tells of a lock that is gone. A record that
    // cannot be written costs the others a name and must not keep them waiting.
    static_cast<void>(publish());
    for (const LockName& name : released) {
        bool isGranted = false;
        const std::optional<LockMode> rest = m_held.effectiveMode(name.key);
        const Status freed =
            rest ? m_file.tryLock(nameByte(name), *rest, isGranted) : m_file.unlock(nameByte(name));
        // Closing frees what the system would not free by the byte.
        if (!freed && m_held.all().empty()) m_file.close();
    }
}

bool FileLocks::holds(std::string_view name, LockMode mode) const {
    return m_held.holds(lockKey(name), mode);
}

void FileLocks::setIdentity(const LockIdentity& identity) {
    m_identity = identity;
    // A record that cannot be written now is written with the next lock, or tells of it.
    if (m_file.isOpen()) static_cast<void>(publish());
}

}  // namespace chengheng
