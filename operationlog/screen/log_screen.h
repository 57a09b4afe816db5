#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/messages/messages.h"
#include "data/log/chain.h"
#include "data/log/row_bytes.h"
#include "operationlog/log_filter.h"
#include "operationlog/log_reading.h"

namespace chengheng {

/// The names of the fields that a wrong entry of the filter leads back to.
namespace log_field {
inline constexpr const char* from = "from";
inline constexpr const char* to = "to";
}  // namespace log_field

/// A cell of a row that an entry tells of, in words.
struct LogChange {
    ChangeKind kind = ChangeKind::changed;
    std::string table;
    std::int64_t id = 0;
    std::string row;  ///< its name; empty where nobody knows it any more
    std::string column;
    std::string before;  ///< empty where the row was not there
    std::string after;   ///< empty where it was taken out
};

/// What the window of the operation log shows: the entries of a filter as far as somebody looked,
/// and what the selected one did.
class LogScreen {
  public:
    explicit LogScreen(IMessages& messages) : m_messages(messages) {}

    /// Reads whom and what the log tells of, and looks for its newest entries. False when it could
    /// not.
    bool open();
    const std::vector<std::string>& operators() const { return m_operators; }
    const std::vector<std::int32_t>& functions() const { return m_functions; }

    /// Looks for the entries of a filter, its times as they were typed. False when a time is
    /// none or the log cannot be read. What is shown stays until showFound().
    bool look(LogFilter typed);
    void showFound();
    const LogFilter& filter() const { return m_filter; }

    const std::vector<LogEntry>& entries() const { return m_entries; }
    bool hasMore() const { return m_pages != nullptr && !m_pages->isAtEnd() && !m_hasFailed; }
    /// The entries behind those that are shown; what keeps them from being read is told by
    /// tellFailure.
    std::vector<LogEntry> readMore();
    void add(std::vector<LogEntry> entries);
    /// How many there are, in words.
    std::string countText() const;

    /// Shows what an entry did; none beyond the last.
    void select(std::size_t row);
    std::string heading() const;
    const std::vector<LogChange>& changes() const { return m_changes; }
    bool hasMoreChanges() const { return m_selected && !m_isSelectedRead; }
    std::vector<LogChange> readMoreChanges();
    void add(std::vector<LogChange> changes);

    /// Tells what kept something from being read since the last time.
    void tellFailure();

  private:
    /// What a search has found and nobody sees yet.
    struct Found {
        LogFilter filter;
        std::unique_ptr<LogPages> pages;
        std::vector<LogEntry> entries;
    };

    bool readMoment(std::string& moment, const char* field);
    Status readPart(std::vector<LogChange>& changes);

    IMessages& m_messages;
    std::vector<std::string> m_operators;
    std::vector<std::int32_t> m_functions;
    LogFilter m_filter;
    std::unique_ptr<LogPages> m_pages;
    std::vector<LogEntry> m_entries;
    Found m_found;
    std::optional<LogEntry> m_selected;
    std::int32_t m_part = 0;  ///< the last one of the selected entry that was read
    bool m_isSelectedRead = false;
    std::vector<LogChange> m_changes;
    bool m_hasFailed = false;
    std::optional<Notice> m_failure;
};

}  // namespace chengheng
