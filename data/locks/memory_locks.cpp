#include "data/locks/memory_locks.h"

namespace chengheng {

Status MemoryLocks::lock(std::string_view names, LockMode mode, bool) {
    for (const LockName& name : readLockNames(names)) m_held.add(name, mode, {});
    return Status::done();
}

void MemoryLocks::unlock(std::string_view names, LockMode mode) {
    for (const LockName& name : readLockNames(names)) m_held.remove(name.key, mode);
}

bool MemoryLocks::holds(std::string_view name, LockMode mode) const {
    return m_held.holds(lockKey(name), mode);
}

}  // namespace chengheng
