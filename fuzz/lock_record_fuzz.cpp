// Reads any bytes as the record of who holds which locks, as they are and with a heading that
// fits them, which no change of bytes would keep.

#include "data/locks/lock_record.h"

#include "fuzz/fuzz_support.h"

namespace {

using namespace chengheng;

bool isSame(const HeldLock& one, const HeldLock& other) {
    return one.name.key == other.name.key && one.name.spelling == other.name.spelling &&
           one.mode == other.mode && one.since == other.since && one.function == other.function;
}

bool isSame(const LockRecord& one, const LockRecord& other) {
    const bool isSameWish = one.wish.has_value() == other.wish.has_value() &&
                            (!one.wish || (one.wish->name.spelling == other.wish->name.spelling &&
                                           one.wish->mode == other.wish->mode));
    return isSameWish && one.operatorName == other.operatorName && one.station == other.station &&
           one.process == other.process &&
           std::equal(one.held.begin(), one.held.end(), other.held.begin(), other.held.end(),
                      [](const HeldLock& a, const HeldLock& b) { return isSame(a, b); });
}

void check(std::string_view text) {
    const std::optional<LockRecord> read = readLockRecord(text);
    if (!read) return;
    // Control characters become blanks when a record is written.
    constexpr std::size_t limit = 1U << 20U;
    const auto once = readLockRecord(writeLockRecord(*read, limit));
    require(once.has_value(), "what was read can be written and read");
    const auto twice = readLockRecord(writeLockRecord(*once, limit) + "whatever follows");
    require(twice && isSame(*once, *twice), "it reads back the same");
    require(once->held.size() == read->held.size(), "no lock is lost");
    require(writeLockRecord(*read, 512).size() <= 512 || read->operatorName.size() > 100 ||
                read->station.size() > 100 || read->wish,
            "a record keeps to its limit");
    const std::array<LockRecord, 1> others{*read};
    if (read->wish) findLockHolder(others, *read->wish);
    mustGiveWay(others, *once);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const FuzzInput input(data, size);
    check(input.text());
    const std::string body(input.text());
    const std::string heading =
        "chlk1\t" + std::to_string(body.size()) + "\t" + std::to_string(lockNumber(body)) + "\n";
    check(heading + body);
    return 0;
}
