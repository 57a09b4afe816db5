#include "operationlog/verifying/log_walk.h"

#include <algorithm>
#include <limits>
#include <span>
#include <vector>

#include "data/transfer/stored_tables.h"
#include "operationlog/log_reading.h"
#include "operationlog/verifying/verifying_sql.h"

namespace chengheng {
namespace {

using verifying_sql::NumberRange;

constexpr NumberRange allNumbers{std::numeric_limits<std::int32_t>::min(),
                                 std::numeric_limits<std::int32_t>::max()};

// A part may be as long as a hundred thousand bytes.
constexpr std::int64_t partsAtOnce = 128;

LogPart partOf(const Cursor& row) {
    return {.number = static_cast<std::int32_t>(row.integer(1)),
            .table = std::string(row.text(2)),
            .lowestId = row.integer(3),
            .highestId = row.integer(4),
            .lowestAccount = row.integer(5),
            .highestAccount = row.integer(6),
            .rows = static_cast<std::int32_t>(row.integer(7)),
            .packed = std::string(row.text(8))};
}

class Walk {
  public:
    Walk(Engine& engine, LogOrder order, LogReceiver& receiver)
        : m_engine(engine), m_isNewestFirst(order == LogOrder::newestFirst), m_receiver(receiver) {}

    Status run() {
        NumberRange left = allNumbers;
        Status status = Status::done();
        bool isAtEnd = false;
        while (status && !isAtEnd && !m_receiver.isEnough()) {
            std::vector<LogEntry> page;
            status = forEachRow(m_engine, verifying_sql::entries(left, m_isNewestFirst), {},
                                [&page](const Cursor& row) {
                                    page.push_back(entryOf(row));
                                    return Status::done();
                                });
            isAtEnd = page.empty() || !goBehind(page.back().number, left);
            if (status) status = walkPage(page);
        }
        return status;
    }

  private:
    /// False where nothing can come behind it.
    bool goBehind(std::int64_t number, NumberRange& left) const {
        const auto last = static_cast<std::int32_t>(number);
        const bool isLast = last == (m_isNewestFirst ? allNumbers.lowest : allNumbers.highest);
        if (isLast) return false;
        (m_isNewestFirst ? left.highest : left.lowest) = m_isNewestFirst ? last - 1 : last + 1;
        return true;
    }

    Status walkPage(std::span<const LogEntry> page) {
        Status status = Status::done();
        while (status && !page.empty() && !m_receiver.isEnough()) {
            std::size_t count = 1;
            std::int64_t parts = page.front().parts;
            while (count < page.size() && parts + page[count].parts <= partsAtOnce)
                parts += page[count++].parts;
            status = parts > partsAtOnce ? walkLarge(page.front()) : walkGroup(page.first(count));
            page = page.subspan(count);
        }
        return status;
    }

    Status readParts(std::span<const LogEntry> group, const NumberRange& numbers,
                     const std::function<Status(const Cursor&)>& receive) {
        const auto [lowest, highest] = std::minmax(group.front().number, group.back().number);
        const Value values[] = {Value::of(lowest), Value::of(highest),
                                Value::of(std::int64_t{numbers.lowest}),
                                Value::of(std::int64_t{numbers.highest})};
        return forEachRow(m_engine, verifying_sql::parts(m_isNewestFirst), values, receive);
    }

    Status walkGroup(std::span<const LogEntry> group) {
        std::size_t at = 0;
        Status status = m_receiver.begin(group[at]);
        const auto goTo = [&](std::size_t wanted) {
            while (status && at < wanted) {
                status = m_receiver.end(group[at++]);
                if (status && at < group.size()) status = m_receiver.begin(group[at]);
            }
        };
        if (!status) return status;
        const Status read = readParts(group, allNumbers, [&](const Cursor& row) {
            std::size_t owner = at;
            while (owner < group.size() && group[owner].number != row.integer(0)) ++owner;
            // Beside the entries that were read nothing has come: it is one moment.
            if (owner < group.size()) goTo(owner);
            if (status) status = m_receiver.take(group[at], partOf(row));
            return status;
        });
        if (read) goTo(group.size());
        return read ? status : read;
    }

    /// The parts of one entry in pieces; those of wrong numbers are in the first and the last.
    Status walkLarge(const LogEntry& entry) {
        std::vector<NumberRange> pieces;
        std::int32_t lowest = allNumbers.lowest;
        for (std::int64_t end = partsAtOnce; end < entry.parts; end += partsAtOnce) {
            pieces.push_back({lowest, static_cast<std::int32_t>(end)});
            lowest = pieces.back().highest + 1;
        }
        pieces.push_back({lowest, allNumbers.highest});
        if (m_isNewestFirst) std::ranges::reverse(pieces);
        Status status = m_receiver.begin(entry);
        for (const NumberRange& piece : pieces)
            if (status)
                status = readParts({&entry, 1}, piece, [&](const Cursor& row) {
                    return m_receiver.take(entry, partOf(row));
                });
        return status ? m_receiver.end(entry) : status;
    }

    Engine& m_engine;
    bool m_isNewestFirst;
    LogReceiver& m_receiver;
};

}  // namespace

Status walkLog(Engine& engine, LogOrder order, LogReceiver& receiver) {
    return Walk(engine, order, receiver).run();
}

}  // namespace chengheng
