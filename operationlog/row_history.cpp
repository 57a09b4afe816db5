#include "operationlog/row_history.h"

#include <algorithm>

#include "data/transfer/stored_tables.h"
#include "operationlog/log_reading.h"
#include "operationlog/log_rows.h"
#include "operationlog/log_sql.h"

namespace chengheng {
namespace {

constexpr int entriesAtOnce = 32;

}  // namespace

bool RowHistory::isWanted(const LoggedRow& row) const {
    if (row.id != m_subject.id) return false;
    return m_subject.column.empty() || std::ranges::find(row.columns, m_subject.column,
                                                         &LoggedColumn::name) != row.columns.end();
}

Status RowHistory::readEntries(std::vector<LogEntry>& entries) {
    const std::string sql = log_sql::entriesOfRow(
        m_subject.table, m_subject.id, {.lowest = 1, .highest = m_highest, .limit = entriesAtOnce});
    const Status status = forEachRow(m_engine, sql, {}, [&entries](const Cursor& row) {
        entries.push_back(entryOf(row));
        return Status::done();
    });
    if (!status) return status;
    const bool isLast = entries.size() < static_cast<std::size_t>(entriesAtOnce);
    m_highest = isLast ? 0 : static_cast<std::int32_t>(entries.back().number - 1);
    return status;
}

Status RowHistory::addEvents(const LogEntry& entry, std::vector<RowEvent>& events) {
    const auto first = static_cast<std::ptrdiff_t>(events.size());
    LogRows rows;
    Status status = Status::done();
    do {
        const Value values[] = {
            Value::of(std::string_view(entry.unit)), Value::of(std::int64_t{rows.part}),
            Value::of(std::string_view(m_subject.table)), Value::of(std::int64_t{m_subject.id})};
        status = readPart(m_engine, log_sql::partOfRowBehind, values, rows);
        for (LoggedRow& row : rows.rows)
            if (status && isWanted(row)) events.push_back({entry, std::move(row)});
    } while (status && rows.part != 0);
    std::reverse(events.begin() + first, events.end());
    return status;
}

Status RowHistory::read(std::size_t count, std::vector<RowEvent>& events) {
    const std::size_t wanted = events.size() + count;
    Status status = Status::done();
    while (status && !isAtEnd() && events.size() < wanted) {
        std::vector<LogEntry> entries;
        status = readEntries(entries);
        for (const LogEntry& entry : entries)
            if (status) status = addEvents(entry, events);
    }
    return status;
}

}  // namespace chengheng
