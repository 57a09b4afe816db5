#include "data/engines/sqlite/sqlite_wait.h"

#include <thread>
#include <utility>

namespace chengheng {
namespace {

using namespace std::chrono_literals;

constexpr auto patience = 5s;
constexpr auto interval = 50ms;

}  // namespace

SqliteWait::SqliteWait(sqlite3* connection, LockService& locks)
    : m_connection(connection), m_locks(locks) {
    sqlite3_busy_handler(m_connection, isBusy, this);
}

SqliteWait::~SqliteWait() { sqlite3_busy_handler(m_connection, nullptr, nullptr); }

int SqliteWait::isBusy(void* self, int count) {
    auto& wait = *static_cast<SqliteWait*>(self);
    if (count == 0) wait.m_start = std::chrono::steady_clock::now();
    if (!wait.goesOn()) return 0;
    std::this_thread::sleep_for(interval);
    return 1;
}

bool SqliteWait::goesOn() {
    const auto waited = std::chrono::duration_cast<std::chrono::milliseconds>(
        std::chrono::steady_clock::now() - m_start);
    LockWaiter* const waiter = m_locks.waiter();
    if (waiter == nullptr) return waited < patience;
    m_hasAsked = m_isAsking = true;
    const bool goesOn = waiter->keepWaiting({}, waited);
    m_isAsking = false;
    if (!goesOn) m_givenUpAs = waiter->givenUpAs();
    return goesOn;
}

Status SqliteWait::ended(Status status) {
    if (std::exchange(m_hasAsked, false)) {
        if (LockWaiter* const waiter = m_locks.waiter()) waiter->waitEnded();
    }
    const Failure givenUpAs = std::exchange(m_givenUpAs, Failure::busy);
    if (status.failure == Failure::busy) status.failure = givenUpAs;
    return status;
}

}  // namespace chengheng
