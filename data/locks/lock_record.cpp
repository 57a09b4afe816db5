#include "data/locks/lock_record.h"

#include <algorithm>
#include <charconv>

namespace chengheng {
namespace {

// Programs of different versions read each other's records: a new layout needs a new sign.
constexpr std::string_view sign = "chlk1";
constexpr char between = '\t';
constexpr char lineEnd = '\n';

std::string cleaned(std::string_view text) {
    std::string clean(text);
    const auto isControl = [](char letter) { return static_cast<unsigned char>(letter) < ' '; };
    std::ranges::replace_if(clean, isControl, ' ');
    return clean;
}

std::string line(std::initializer_list<std::string_view> fields) {
    std::string text;
    for (const std::string_view field : fields) (text += cleaned(field)) += between;
    text.back() = lineEnd;
    return text;
}

std::string_view takeUpTo(std::string_view& text, char end) {
    const std::size_t at = text.find(end);
    const std::string_view part = text.substr(0, at);
    text.remove_prefix(at == std::string_view::npos ? text.size() : at + 1);
    return part;
}

template <class Number>
bool readNumber(std::string_view text, Number& number) {
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    return read.ec == std::errc() && read.ptr == text.data() + text.size();
}

std::string modeText(LockMode mode) { return std::to_string(static_cast<int>(mode)); }

bool readMode(std::string_view text, LockMode& mode) {
    mode = text == "2" ? LockMode::exclusive : LockMode::shared;
    return text == "1" || text == "2";
}

LockName nameOf(std::string_view spelling) { return {lockKey(spelling), std::string(spelling)}; }

std::int64_t millisecondsOf(std::chrono::system_clock::time_point time) {
    return std::chrono::duration_cast<std::chrono::milliseconds>(time.time_since_epoch()).count();
}

std::string heldLine(const HeldLock& lock) {
    return line({"held", lock.name.spelling, modeText(lock.mode),
                 std::to_string(millisecondsOf(lock.since)), lock.function});
}

bool readOwner(std::string_view fields, LockRecord& record) {
    record.operatorName = takeUpTo(fields, between);
    record.station = takeUpTo(fields, between);
    return readNumber(fields, record.process);
}

bool readHeld(std::string_view fields, LockRecord& record) {
    // Far beyond any date, and within what a clock counts.
    constexpr std::int64_t latest = 9'000'000'000'000;
    HeldLock lock;
    lock.name = nameOf(takeUpTo(fields, between));
    std::int64_t since = 0;
    if (!readMode(takeUpTo(fields, between), lock.mode)) return false;
    if (!readNumber(takeUpTo(fields, between), since) || since < 0 || since > latest) return false;
    lock.since = std::chrono::system_clock::time_point(std::chrono::milliseconds(since));
    lock.function = fields;
    record.held.push_back(std::move(lock));
    return true;
}

bool readWish(std::string_view fields, LockRecord& record) {
    LockWish wish;
    wish.name = nameOf(takeUpTo(fields, between));
    if (!readMode(fields, wish.mode)) return false;
    record.wish = std::move(wish);
    return true;
}

bool readLine(std::string_view fields, LockRecord& record) {
    const std::string_view kind = takeUpTo(fields, between);
    if (kind == "owner") return readOwner(fields, record);
    if (kind == "held") return readHeld(fields, record);
    if (kind == "wish") return readWish(fields, record);
    return false;
}

bool isInTheWay(const HeldLock& lock, const LockWish& wish) {
    const bool isConflict = lock.mode == LockMode::exclusive || wish.mode == LockMode::exclusive;
    return isConflict && lock.name.key == wish.name.key;
}

bool waitsFor(const LockRecord& waiting, const LockRecord& holding) {
    return waiting.wish && std::ranges::any_of(holding.held, [&](const HeldLock& lock) {
               return isInTheWay(lock, *waiting.wish);
           });
}

}  // namespace

std::string writeLockRecord(const LockRecord& record, std::size_t limit) {
    constexpr std::size_t headingSize = 64;  // more than the longest heading
    std::string body =
        line({"owner", record.operatorName, record.station, std::to_string(record.process)});
    if (record.wish)
        body += line({"wish", record.wish->name.spelling, modeText(record.wish->mode)});
    for (const HeldLock& lock : record.held) {
        const std::string text = heldLine(lock);
        if (headingSize + body.size() + text.size() <= limit) body += text;
    }
    return line({sign, std::to_string(body.size()), std::to_string(lockNumber(body))}) + body;
}

std::optional<LockRecord> readLockRecord(std::string_view text) {
    std::string_view heading = takeUpTo(text, lineEnd);
    std::size_t size = 0;
    std::uint64_t checksum = 0;
    if (takeUpTo(heading, between) != sign) return std::nullopt;
    if (!readNumber(takeUpTo(heading, between), size) || size > text.size()) return std::nullopt;
    if (!readNumber(heading, checksum)) return std::nullopt;
    std::string_view body = text.substr(0, size);
    if (lockNumber(body) != checksum) return std::nullopt;
    LockRecord record;
    while (!body.empty())
        if (!readLine(takeUpTo(body, lineEnd), record)) return std::nullopt;
    return record;
}

LockHolder findLockHolder(std::span<const LockRecord> others, const LockWish& wish) {
    LockHolder holder;
    holder.lockName = wish.name.spelling;
    holder.since = std::chrono::system_clock::now();
    bool isFound = false;
    for (const LockRecord& other : others) {
        for (const HeldLock& lock : other.held) {
            if (!isInTheWay(lock, wish) || (isFound && lock.since >= holder.since)) continue;
            isFound = true;
            holder = {wish.name.spelling, other.operatorName, lock.function, other.station,
                      lock.since};
        }
    }
    return holder;
}

bool mustGiveWay(std::span<const LockRecord> others, const LockRecord& own) {
    // Goes from one who waits to those waited for, over lower seats than ours only: every
    // circle has one highest seat, and only that one finds its way back to itself.
    std::vector<const LockRecord*> reached;
    std::vector<const LockRecord*> unread{&own};
    while (!unread.empty()) {
        const LockRecord* waiting = unread.back();
        unread.pop_back();
        if (waiting != &own && waitsFor(*waiting, own)) return true;
        for (const LockRecord& other : others) {
            const bool isNew = std::ranges::find(reached, &other) == reached.end();
            if (!isNew || other.seat >= own.seat || !waitsFor(*waiting, other)) continue;
            reached.push_back(&other);
            unread.push_back(&other);
        }
    }
    return false;
}

}  // namespace chengheng
