#pragma once

#include <sys/types.h>

#include <chrono>
#include <string>

#include "data/engine/lock_service.h"

namespace chengheng {

/// A second workstation on the same books: a process of its own that does as it is told.
class OtherWorkstation {
  public:
    struct Answer {
        Status status;
        LockHolder holder;  ///< whom the last lock that was refused met; `since` is not told
    };

    /// The database must exist.
    explicit OtherWorkstation(const std::string& location);
    ~OtherWorkstation();
    OtherWorkstation(const OtherWorkstation&) = delete;
    OtherWorkstation& operator=(const OtherWorkstation&) = delete;

    /// Sends a command without waiting for what comes of it.
    void send(const std::string& command);
    bool hasAnswered(std::chrono::milliseconds within = {});
    /// What came of the oldest command sent; throws after a minute without an answer.
    Answer answer();
    Status ask(const std::string& command);

    Status lock(const std::string& names, LockMode mode);
    /// Sends a request that waits up to that long.
    void startLock(const std::string& names, LockMode mode,
                   std::chrono::milliseconds patience = std::chrono::seconds(30));
    void unlock(const std::string& names, LockMode mode);

    /// Ends the process as a power failure would.
    void kill();

  private:
    pid_t m_process = -1;
    int m_line = -1;
    std::string m_received;
};

}  // namespace chengheng
