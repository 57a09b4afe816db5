#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "data/engine/engine.h"
#include "data/log/chain.h"
#include "data/log/row_bytes.h"
#include "operationlog/log_rows.h"

namespace chengheng {

/// The balances of an account and a period, whose rows come and go under other ids.
struct BalancesOf {
    std::int32_t account = 0;
    int period = 0;
};

/// A row of the books, whose history is asked for; of one column of it where that is named.
struct HistorySubject {
    std::string table;
    std::int32_t id = 0;  ///< means nothing of balances
    std::string column = {};
    std::optional<BalancesOf> balances = {};
};

/// What became of the row once, and what the entry says of it that tells so.
struct RowEvent {
    LogEntry entry;
    LoggedRow row;
};

/// The history of a row, newest first, a page at a time.
class RowHistory {
  public:
    RowHistory(Engine& engine, HistorySubject subject)
        : m_engine(engine), m_subject(std::move(subject)) {}

    /// Adds what the next entries tell, at least `count` times, and less only at the end.
    Status read(std::size_t count, std::vector<RowEvent>& events);
    bool isAtEnd() const { return m_highest < 1; }

  private:
    Status begin();
    Status readEntries(std::vector<LogEntry>& entries);
    Status addEvents(const LogEntry& entry, std::vector<RowEvent>& events);
    Status readPartBehindLast(const LogEntry& entry, LogRows& rows);
    bool hasColumn(const LoggedRow& row) const;
    bool isWanted(const LoggedRow& row);

    Engine& m_engine;
    HistorySubject m_subject;
    bool m_isBegun = false;
    std::set<std::int64_t> m_ids;  ///< that the row is known to have, or to have had
    std::int32_t m_highest = std::numeric_limits<std::int32_t>::max();
};

}  // namespace chengheng
