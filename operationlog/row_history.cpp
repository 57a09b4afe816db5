#include "operationlog/row_history.h"

#include <algorithm>
#include <ranges>

#include "data/transfer/stored_tables.h"
#include "operationlog/log_reading.h"
#include "operationlog/log_sql.h"

namespace chengheng {
namespace {

constexpr int entriesAtOnce = 32;

/// What a row that came or went had in a column.
bool holds(const LoggedRow& row, std::string_view column, std::int64_t value) {
    return std::ranges::any_of(row.columns, [&](const LoggedColumn& each) {
        const LoggedCell& cell = row.kind == ChangeKind::inserted ? each.after : each.before;
        return each.name == column && cell == LoggedCell(value);
    });
}

}  // namespace

/// The row of balances as it is now, if any. Those before it tell their account when they go.
Status RowHistory::begin() {
    m_isBegun = true;
    if (!m_subject.balances) {
        m_ids.insert(m_subject.id);
        return Status::done();
    }
    const Value values[] = {Value::of(std::int64_t{m_subject.balances->account}),
                            Value::of(std::int64_t{m_subject.balances->period})};
    return forEachRow(m_engine, log_sql::balancesOf(m_subject.table), values,
                      [this](const Cursor& row) {
                          m_ids.insert(row.integer(0));
                          return Status::done();
                      });
}

bool RowHistory::hasColumn(const LoggedRow& row) const {
    return m_subject.column.empty() || std::ranges::find(row.columns, m_subject.column,
                                                         &LoggedColumn::name) != row.columns.end();
}

/// Asked of the newest row first.
bool RowHistory::isWanted(const LoggedRow& row) {
    const auto& of = m_subject.balances;
    if (of && row.kind != ChangeKind::changed && holds(row, "lCodeId", of->account) &&
        holds(row, "byPeroid", of->period))
        m_ids.insert(row.id);
    return m_ids.contains(row.id);
}

Status RowHistory::readEntries(std::vector<LogEntry>& entries) {
    const log_sql::PageRange range{.lowest = 1, .highest = m_highest, .limit = entriesAtOnce};
    const std::string sql =
        m_subject.balances
            ? log_sql::entriesOfAccount(m_subject.table, m_subject.balances->account, range)
            : log_sql::entriesOfRow(m_subject.table, m_subject.id, range);
    const Status status = forEachRow(m_engine, sql, {}, [&entries](const Cursor& row) {
        entries.push_back(entryOf(row));
        return Status::done();
    });
    if (!status) return status;
    const bool isLast = entries.size() < static_cast<std::size_t>(entriesAtOnce);
    m_highest = isLast ? 0 : static_cast<std::int32_t>(entries.back().number - 1);
    return status;
}

Status RowHistory::readPartBehindLast(const LogEntry& entry, LogRows& rows) {
    std::vector<Value> values{Value::of(std::string_view(entry.unit)),
                              Value::of(std::int64_t{rows.part}),
                              Value::of(std::string_view(m_subject.table))};
    const auto& of = m_subject.balances;
    values.push_back(Value::of(std::int64_t{of ? of->account : m_subject.id}));
    return readPart(m_engine, of ? log_sql::partOfTableBehind : log_sql::partOfRowBehind, values,
                    rows);
}

Status RowHistory::addEvents(const LogEntry& entry, std::vector<RowEvent>& events) {
    std::vector<LoggedRow> found;
    LogRows rows;
    Status status = Status::done();
    do {
        status = readPartBehindLast(entry, rows);
        for (LoggedRow& row : rows.rows)
            if (hasColumn(row) && (m_subject.balances || row.id == m_subject.id))
                found.push_back(std::move(row));
    } while (status && rows.part != 0);
    for (LoggedRow& row : found | std::views::reverse)
        if (status && isWanted(row)) events.push_back({entry, std::move(row)});
    return status;
}

Status RowHistory::read(std::size_t count, std::vector<RowEvent>& events) {
    const std::size_t wanted = events.size() + count;
    Status status = m_isBegun ? Status::done() : begin();
    while (status && !isAtEnd() && events.size() < wanted) {
        std::vector<LogEntry> entries;
        status = readEntries(entries);
        for (const LogEntry& entry : entries)
            if (status) status = addEvents(entry, events);
    }
    return status;
}

}  // namespace chengheng
