#include "data/locks/held_locks.h"

#include <algorithm>

#include "base/values/text.h"

namespace chengheng {
namespace {

constexpr std::string_view blanks = " \t\r\n";

}  // namespace

std::string lockKey(std::string_view name) { return inSmallLetters(name); }

std::vector<LockName> readLockNames(std::string_view list) {
    std::vector<LockName> names;
    for (std::size_t start = list.find_first_not_of(blanks); start != std::string_view::npos;) {
        const std::size_t end = std::min(list.find_first_of(blanks, start), list.size());
        const std::string_view name = list.substr(start, end - start);
        names.push_back({lockKey(name), std::string(name)});
        start = list.find_first_not_of(blanks, end);
    }
    std::ranges::stable_sort(names, {}, &LockName::key);
    const auto repeated = std::ranges::unique(names, {}, &LockName::key);
    names.erase(repeated.begin(), repeated.end());
    return names;
}

std::uint64_t lockNumber(std::string_view key) {
    // FNV-1a. Programs of different versions meet in these numbers; they must not change.
    std::uint64_t number = 0xcbf29ce484222325U;
    for (const char letter : key) {
        number ^= static_cast<unsigned char>(letter);
        number *= 0x100000001b3U;
    }
    return number;
}

bool HeldLocks::holds(std::string_view key, LockMode mode) const {
    return std::ranges::any_of(
        m_locks, [&](const HeldLock& lock) { return lock.mode == mode && lock.name.key == key; });
}

std::optional<LockMode> HeldLocks::effectiveMode(std::string_view key) const {
    if (holds(key, LockMode::exclusive)) return LockMode::exclusive;
    if (holds(key, LockMode::shared)) return LockMode::shared;
    return std::nullopt;
}

void HeldLocks::add(const LockName& name, LockMode mode, const std::string& function) {
    if (!holds(name.key, mode))
        m_locks.push_back({name, mode, function, std::chrono::system_clock::now()});
}

void HeldLocks::remove(std::string_view key, LockMode mode) {
    std::erase_if(m_locks,
                  [&](const HeldLock& lock) { return lock.mode == mode && lock.name.key == key; });
}

}  // namespace chengheng
