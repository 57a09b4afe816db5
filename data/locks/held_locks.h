#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/engine/lock_service.h"

namespace chengheng {

/// A name of a lock list: compared by its key, shown as it was given.
struct LockName {
    std::string key;
    std::string spelling;
};

/// The key of a lock name: its letters in lower case. Nothing is known about names here;
/// one that no table bears is a lock like any other.
std::string lockKey(std::string_view name);

/// The names of a list separated by blanks, each once, in the one order in which everybody
/// takes them.
std::vector<LockName> readLockNames(std::string_view list);

/// A number for a key, the same in every process and on every machine.
std::uint64_t lockNumber(std::string_view key);

/// A lock that a connection holds, and for which function since when.
struct HeldLock {
    LockName name;
    LockMode mode = LockMode::shared;
    std::string function;
    std::chrono::system_clock::time_point since;
};

/// What one connection holds. Both modes of a name are held each for itself; to others the
/// stronger one counts.
class HeldLocks {
  public:
    bool holds(std::string_view key, LockMode mode) const;
    /// The stronger of the modes in which a name is held.
    std::optional<LockMode> effectiveMode(std::string_view key) const;
    /// Adds a lock; one that is held already stays as it is.
    void add(const LockName& name, LockMode mode, const std::string& function);
    void remove(std::string_view key, LockMode mode);
    void clear() { m_locks.clear(); }
    const std::vector<HeldLock>& all() const { return m_locks; }

  private:
    std::vector<HeldLock> m_locks;
};

}  // namespace chengheng
