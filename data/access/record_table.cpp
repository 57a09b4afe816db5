#include "data/access/record_table.h"

#include <algorithm>
#include <deque>
#include <set>
#include <string_view>
#include <vector>

#include "base/values/text.h"
#include "data/connection/id_counters.h"
#include "data/connection/row_io.h"
#include "data/layout/layout_steps.h"

namespace chengheng {
namespace {

bool startsWithOrderBy(std::string_view condition) {
    constexpr std::string_view order = "ORDER BY";
    const auto start = condition.find_first_not_of(" \t\r\n");
    return start != std::string_view::npos &&
           isSameInAnyCase(condition.substr(start, order.size()), order);
}

/// "SELECT lId, sCode, ... FROM Code"; what a table of an older layout lacks is 0.
std::string selectSql(const TableInfo& table, int layout = booksFormatVersion) {
    const std::set<std::string> missing = columnsMissingFrom(layout, table.name);
    std::string columns;
    for (const ColumnInfo& column : table.columns)
        columns += std::string(columns.empty() ? "" : ", ") +
                   (missing.contains(column.name) ? "0 AS " : "") + column.name;
    return "SELECT " + columns + " FROM " + table.name;
}

/// "INSERT INTO Code VALUES ($1, $2, ...)"
std::string insertSql(const TableInfo& table) {
    std::string places;
    for (std::size_t number = 1; number <= table.columns.size(); ++number)
        places += (number > 1 ? ", $" : "$") + std::to_string(number);
    return "INSERT INTO " + table.name + " VALUES (" + places + ")";
}

/// "UPDATE Code SET lId = $1, sCode = $2, ... WHERE lId = $1"
std::string updateSql(const TableInfo& table) {
    std::string assignments;
    int number = 0;
    for (const ColumnInfo& column : table.columns) {
        ++number;
        assignments += (number > 1 ? ", " : "") + column.name + " = $" + std::to_string(number);
    }
    return "UPDATE " + table.name + " SET " + assignments + " WHERE lId = $1";
}

/// Posted and unposted vouchers share one sequence of ids: the other counter of a pair.
const char* partnerRow(std::string_view idRow) {
    if (idRow == "RegMain") return "UnRegMain";
    if (idRow == "RegSub") return "UnRegSub";
    if (idRow == "UnRegMain") return "RegMain";
    if (idRow == "UnRegSub") return "RegSub";
    return nullptr;
}

/// So many ids, of which the first is told.
Status takeNextIds(Database& database, std::string_view idRow, int count, int& first) {
    int id = 0;
    if (Status status = database.lastId(idRow, id); !status) return status;
    const char* partner = partnerRow(idRow);
    if (partner != nullptr) {
        int partnerId = 0;
        if (Status status = database.lastId(partner, partnerId); !status) return status;
        id = std::max(id, partnerId);
    }
    if (Status status = checkIdsLeft(id, count); !status) return status;
    first = id + 1;
    id += count;
    Status status = database.setLastId(idRow, id);
    return status && partner != nullptr ? database.setLastId(partner, id) : status;
}

/// A change of the one row of an id.
Status changeRow(Database& database, const std::string& sql, std::span<const Value> values) {
    std::int64_t changed = 0;
    Status status = database.executePlain(sql, values, &changed);
    return status && changed == 0 ? Status::of(Failure::missing, "no row of that id") : status;
}

}  // namespace

RecordTable::RecordTable(const RecordType& type)
    : m_type(type),
      m_select(selectSql(type.table)),
      m_insert(insertSql(type.table)),
      m_update(updateSql(type.table)),
      m_delete("DELETE FROM " + type.table.name + " WHERE lId = $1"),
      m_records(type) {}

std::string RecordTable::selectText(const Database& database, const char* condition) const {
    const bool isOfToday = database.layout() == booksFormatVersion;
    std::string text = isOfToday ? m_select : selectSql(m_type.table, database.layout());
    if (condition == nullptr || condition[0] == '\0') return text;
    return text + (startsWithOrderBy(condition) ? " " : " WHERE ") + condition;
}

Status RecordTable::read(Database& database, const char* condition) {
    const auto readAll = [this](Cursor& cursor) {
        while (true) {
            const Cursor::Step step = cursor.next();
            if (step == Cursor::Step::failed) return cursor.status();
            if (step == Cursor::Step::end) return Status::done();
            if (Status status = readRecord(cursor, m_type, m_records.append()); !status)
                return status;
        }
    };
    m_records.clear();
    Status status = database.select(selectText(database, condition), readAll);
    if (status && m_records.count() == 0) status = Status::of(Failure::missing, "no rows");
    if (!status) m_records.clear();
    return status;
}

Status RecordTable::readTexts(Database& database, const char* condition) {
    m_texts = std::make_unique<TextResult>();
    const auto readAll = [this](Cursor& cursor) { return m_texts->read(cursor); };
    Status status = database.select(selectText(database, condition), readAll);
    if (status && m_texts->rows() == 0) status = Status::of(Failure::missing, "no rows");
    if (!status) m_texts.reset();
    return status;
}

void RecordTable::release() {
    m_records.clear();
    m_texts.reset();
}

Status RecordTable::add(Database& database, std::span<const void* const> records,
                        int& firstId) const {
    int first = 0;
    const int count = static_cast<int>(records.size());
    if (Status status = takeNextIds(database, m_type.table.idRow, count, first); !status)
        return status;
    std::deque<std::string> texts;
    std::vector<Value> values;
    values.reserve(records.size() * m_type.table.columns.size());
    for (std::int64_t id = first; const void* record : records) {
        const std::vector<Value> row = recordValues(m_type, record, texts);
        values.push_back(Value::of(id++));
        values.insert(values.end(), row.begin() + 1, row.end());
    }
    Status status = database.executeForEach(m_insert, m_type.table.columns.size(), values);
    if (status) firstId = first;
    return status;
}

Status RecordTable::edit(Database& database, const void* record) const {
    std::deque<std::string> texts;
    return changeRow(database, m_update, recordValues(m_type, record, texts));
}

Status RecordTable::remove(Database& database, int id) const {
    const Value values[] = {Value::of(std::int64_t{id})};
    return changeRow(database, m_delete, values);
}

}  // namespace chengheng
