#pragma once

#include <sqlite3.h>

#include <chrono>

#include "base/values/status.h"
#include "data/engine/lock_service.h"

namespace chengheng {

/// What happens while another program holds the file: whoever waits for locks is asked, so that a
/// screen shows the wait and it can be given up; without one it ends after five seconds. The
/// connection and the locks outlive it.
class SqliteWait {
  public:
    SqliteWait(sqlite3* connection, LockService& locks);
    ~SqliteWait();
    SqliteWait(const SqliteWait&) = delete;
    SqliteWait& operator=(const SqliteWait&) = delete;

    /// While somebody is asked, nothing else may use the connection.
    bool isAsking() const { return m_isAsking; }
    /// To be called with what a call of the connection came to.
    Status ended(Status status);

  private:
    static int isBusy(void* self, int count);
    bool goesOn();

    sqlite3* m_connection;
    LockService& m_locks;
    std::chrono::steady_clock::time_point m_start;
    bool m_isAsking = false;
    bool m_hasAsked = false;
    Failure m_givenUpAs = Failure::busy;  ///< of the call that is under way
};

}  // namespace chengheng
