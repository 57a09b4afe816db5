#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "data/locks/held_locks.h"

namespace chengheng {

/// A lock that a connection waits for.
struct LockWish {
    LockName name;
    LockMode mode = LockMode::shared;
};

/// What a connection tells the others about itself and its locks.
struct LockRecord {
    std::int64_t seat = 0;  ///< tells the connections of one database apart; not written
    std::string operatorName;
    std::string station;
    std::int64_t process = 0;
    std::vector<HeldLock> held;
    std::optional<LockWish> wish;
};

/// The record as text with its length and a checksum in front, at most `limit` bytes long:
/// held locks that do not fit are left out.
std::string writeLockRecord(const LockRecord& record, std::size_t limit);

/// Reads such a text, whatever follows it; nothing when it is not one, or half of one.
std::optional<LockRecord> readLockRecord(std::string_view text);

/// The one among the others who stands longest in the way of a wish; only the name of the
/// lock is known when none of them does.
LockHolder findLockHolder(std::span<const LockRecord> others, const LockWish& wish);

/// Whether we wait, directly or through others, for somebody who waits for us, and are the
/// one to give way: the connection with the highest seat of those that wait in a circle, so
/// that exactly one of them does.
bool mustGiveWay(std::span<const LockRecord> others, const LockRecord& own);

}  // namespace chengheng
