#pragma once

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "data/engine/engine.h"
#include "data/log/chain.h"
#include "data/log/row_bytes.h"

namespace chengheng {

/// A row of the books, whose history is asked for; of one column of it where that is named.
struct HistorySubject {
    std::string table;
    std::int32_t id = 0;
    std::string column = {};
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
    Status readEntries(std::vector<LogEntry>& entries);
    Status addEvents(const LogEntry& entry, std::vector<RowEvent>& events);
    bool isWanted(const LoggedRow& row) const;

    Engine& m_engine;
    HistorySubject m_subject;
    std::int32_t m_highest = std::numeric_limits<std::int32_t>::max();
};

}  // namespace chengheng
