#include "operationlog/log_reading.h"

#include <algorithm>
#include <limits>

#include "data/transfer/stored_tables.h"
#include "operationlog/account_entries.h"
#include "operationlog/log_sql.h"

namespace chengheng {

Status findLog(Engine& engine, bool& isThere) { return engine.hasTable("OperationLog", isThere); }

LogEntry entryOf(const Cursor& row) {
    return {.number = row.integer(0),
            .time = std::string(row.text(1)),
            .operatorId = static_cast<std::int32_t>(row.integer(2)),
            .operatorName = std::string(row.text(3)),
            .workstation = std::string(row.text(4)),
            .process = row.integer(5),
            .program = std::string(row.text(6)),
            .function = static_cast<std::int32_t>(row.integer(7)),
            .words = std::string(row.text(8)),
            .unit = std::string(row.text(9)),
            .parts = static_cast<std::int32_t>(row.integer(10)),
            .rows = row.integer(11),
            .partsHash = std::string(row.text(12)),
            .hash = std::string(row.text(13))};
}

Status readEntry(Engine& engine, std::int64_t number, LogEntry& entry, bool& isFound) {
    isFound = false;
    // No row has a number that its column cannot hold.
    if (number < 0 || number > std::numeric_limits<std::int32_t>::max()) return Status::done();
    const std::string sql = log_sql::entry(static_cast<std::int32_t>(number));
    return forEachRow(engine, sql, {}, [&](const Cursor& row) {
        entry = entryOf(row);
        isFound = true;
        return Status::done();
    });
}

Status readLogOperators(Engine& engine, std::vector<std::string>& names) {
    names.clear();
    return forEachRow(engine, log_sql::operators, {}, [&names](const Cursor& row) {
        names.emplace_back(row.text(0));
        return Status::done();
    });
}

Status readLogFunctions(Engine& engine, std::vector<std::int32_t>& functions) {
    functions.clear();
    return forEachRow(engine, log_sql::functions, {}, [&functions](const Cursor& row) {
        functions.push_back(static_cast<std::int32_t>(row.integer(0)));
        return Status::done();
    });
}

/// Clocks may go back: the times of a filter are a range of numbers with some others among them.
Status LogPages::readRange() {
    m_highest = std::numeric_limits<std::int32_t>::max();
    if (m_filter.from.empty() && m_filter.to.empty()) return Status::done();
    return forEachRow(m_engine, log_sql::numbersWithin(m_filter), {}, [this](const Cursor& row) {
        const bool isAny = row.kind(0) != ValueKind::null;
        m_lowest = isAny ? static_cast<std::int32_t>(row.integer(0)) : 1;
        m_highest = isAny ? static_cast<std::int32_t>(row.integer(1)) : 0;
        return Status::done();
    });
}

Status LogPages::begin() {
    Status status = readRange();
    if (!status) return status;
    if (!m_filter.account.empty()) {
        status = findAccountIds(m_engine, m_filter.account, m_accounts);
        if (m_accounts.empty()) m_highest = m_lowest - 1;
    }
    m_isBegun = status.isDone();
    return status;
}

Status LogPages::readCandidates(int count, std::vector<LogEntry>& entries) {
    const std::string sql = log_sql::page(
        m_filter, m_accounts, {.lowest = m_lowest, .highest = m_highest, .limit = count},
        m_engine.dialect().likeEscape);
    const Status status = forEachRow(m_engine, sql, {}, [&entries](const Cursor& row) {
        entries.push_back(entryOf(row));
        return Status::done();
    });
    if (!status) return status;
    const bool isLast = entries.size() < static_cast<std::size_t>(count);
    m_highest = isLast ? m_lowest - 1 : static_cast<std::int32_t>(entries.back().number - 1);
    return status;
}

Status LogPages::read(int count, std::vector<LogEntry>& entries) {
    Status status = m_isBegun ? Status::done() : begin();
    const std::size_t wanted = entries.size() + static_cast<std::size_t>(std::max(count, 0));
    while (status && !isAtEnd() && entries.size() < wanted) {
        std::vector<LogEntry> candidates;
        status = readCandidates(static_cast<int>(wanted - entries.size()), candidates);
        for (LogEntry& entry : candidates) {
            bool isWanted = m_accounts.empty();
            if (status && !isWanted)
                status = touchesAccounts(m_engine, entry.unit, m_accounts, isWanted);
            if (status && isWanted) entries.push_back(std::move(entry));
        }
    }
    return status;
}

}  // namespace chengheng
