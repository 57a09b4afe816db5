#pragma once

#include <chrono>
#include <string>
#include <string_view>

#include "base/values/status.h"

namespace chengheng {

/// Advisory lock modes, as the module passes them to SQLLock.
enum class LockMode { shared = 1, exclusive = 2 };

/// Who holds a lock that somebody waits for.
struct LockHolder {
    std::string lockName;
    std::string operatorName;
    std::string function;  ///< the function of the program that took it, e.g. 会计科目
    std::string station;
    std::chrono::system_clock::time_point since;
};

/// Asked again and again, about ten times a second, while a lock is waited for.
class LockWaiter {
  public:
    virtual ~LockWaiter() = default;
    /// False gives the wait up. `waited` is the time since the request.
    virtual bool keepWaiting(const LockHolder& holder, std::chrono::milliseconds waited) = 0;
    /// The wait is over, granted or not.
    virtual void waitEnded() {}
    /// What a wait that was given up is: cancelled by a person, who knows it, or busy where only
    /// patience has ended.
    virtual Failure givenUpAs() const { return Failure::cancelled; }
};

/// Waits up to a limit and then gives up; what programs without a screen use.
class PatientWaiter : public LockWaiter {
  public:
    explicit PatientWaiter(std::chrono::milliseconds limit) : m_limit(limit) {}
    bool keepWaiting(const LockHolder&, std::chrono::milliseconds waited) override {
        return waited < m_limit;
    }
    Failure givenUpAs() const override { return Failure::busy; }

  private:
    std::chrono::milliseconds m_limit;
};

/// What a connection tells the others about itself.
struct LockIdentity {
    std::string operatorName;
    std::string function;
};

/// Advisory locks by name, owned by one connection and gone with it, however it ends.
/// Names are compared without regard to case. Asking again for what is held changes
/// nothing, and one release frees it; the two modes of one name are held and released
/// each for itself.
class LockService {
  public:
    virtual ~LockService() = default;

    /// Takes every name of a space-separated list in that mode, or none of them. Names are
    /// taken in one fixed order, so that two lists never block each other half-way.
    /// Failure: busy (waiter gave up at once, its patience ended, or wait not wanted), cancelled (a
    /// person gave up), crossedWait (the holder waits for us), or a failure of the connection.
    virtual Status lock(std::string_view names, LockMode mode, bool wait) = 0;
    virtual void unlock(std::string_view names, LockMode mode) = 0;
    virtual bool holds(std::string_view name, LockMode mode) const = 0;

    /// Not owned; null restores the default, a wait of five seconds.
    virtual void setWaiter(LockWaiter* waiter) = 0;
    virtual LockWaiter* waiter() const = 0;
    virtual void setIdentity(const LockIdentity& identity) = 0;
    /// The holder met by the last request that was not granted.
    virtual const LockHolder& lastHolder() const = 0;
};

}  // namespace chengheng
