#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "data/engine/engine.h"
#include "data/log/chain.h"
#include "operationlog/log_filter.h"

namespace chengheng {

/// Whether the books have an operation log; those of older layouts have none.
Status findLog(Engine& engine, bool& isThere);

/// The entry in the row of a select of all columns.
LogEntry entryOf(const Cursor& row);

/// The entry of a number; `isFound` tells whether there is one.
Status readEntry(Engine& engine, std::int64_t number, LogEntry& entry, bool& isFound);

/// Those whom the log tells of, by name.
Status readLogOperators(Engine& engine, std::vector<std::string>& names);
/// The functions that it tells of, by number; 0 among them where entries are of none.
Status readLogFunctions(Engine& engine, std::vector<std::int32_t>& functions);

/// The entries that a filter lets through, newest first, a page at a time. What is written
/// meanwhile stands before them.
class LogPages {
  public:
    LogPages(Engine& engine, LogFilter filter) : m_engine(engine), m_filter(std::move(filter)) {}

    /// Adds the next entries, at most `count`, and fewer only at the end.
    Status read(int count, std::vector<LogEntry>& entries);
    bool isAtEnd() const { return m_isBegun && m_highest < m_lowest; }

  private:
    Status begin();
    Status readRange();
    Status readCandidates(int count, std::vector<LogEntry>& entries);

    Engine& m_engine;
    LogFilter m_filter;
    bool m_isBegun = false;
    std::int32_t m_lowest = 1;
    std::int32_t m_highest = 0;  ///< what has not been read yet is not above it
    std::vector<std::int32_t> m_accounts;
};

}  // namespace chengheng
