// The declarations of the hook are there for whoever asks for them; the library has it.
#define SQLITE_ENABLE_PREUPDATE_HOOK
#include "data/engines/sqlite/sqlite_changes.h"

#include <algorithm>

#include "data/engines/sqlite/plain_insert.h"
#include "data/tables/schema.h"

namespace chengheng {
namespace {

using CellReader = int (*)(sqlite3*, int, sqlite3_value**);

/// False when a cell cannot be had.
bool readCell(sqlite3* connection, CellReader read, std::size_t column, Value& cell) {
    sqlite3_value* stored = nullptr;
    if (read(connection, static_cast<int>(column), &stored) != SQLITE_OK) return false;
    cell = sqliteValue(stored);
    return true;
}

bool readCells(sqlite3* connection, CellReader read, std::vector<Value>& cells) {
    cells.resize(static_cast<std::size_t>(sqlite3_preupdate_count(connection)));
    for (std::size_t column = 0; column < cells.size(); ++column)
        if (!readCell(connection, read, column, cells[column])) return false;
    return true;
}

std::vector<std::size_t> realColumns(std::string_view table) {
    std::vector<std::size_t> places;
    const TableInfo* const known = findTable(table);
    if (known == nullptr) return places;
    for (std::size_t at = 0; at < known->columns.size(); ++at)
        if (const ColumnType type = known->columns[at].type;
            type == ColumnType::real || type == ColumnType::single)
            places.push_back(at);
    return places;
}

/// The whole numbers of a row are the ids of what it is and belongs to.
std::vector<std::size_t> tellingColumns(std::string_view table) {
    std::vector<std::size_t> places;
    const TableInfo* const known = findTable(table);
    if (known == nullptr) return places;
    for (std::size_t at = 0; at < known->columns.size(); ++at)
        if (const ColumnType type = known->columns[at].type;
            type == ColumnType::integer || type == ColumnType::nullableInteger)
            places.push_back(at);
    return places;
}

}  // namespace

SqliteChanges::SqliteChanges(sqlite3* connection, ChangeWatcher& watcher)
    : m_connection(connection), m_watcher(watcher) {
    sqlite3_preupdate_hook(connection, &SqliteChanges::onChange, this);
}

SqliteChanges::~SqliteChanges() { sqlite3_preupdate_hook(m_connection, nullptr, nullptr); }

void SqliteChanges::onChange(void* self, sqlite3* /*connection*/, int operation,
                             const char* database, const char* table, sqlite3_int64 /*idBefore*/,
                             sqlite3_int64 /*idAfter*/) {
    if (std::string_view(database) == "main")
        static_cast<SqliteChanges*>(self)->take(operation, table);
}

bool SqliteChanges::isWatched(std::string_view table) {
    if (table != m_lastTable) {
        m_lastTable = table;
        m_isLastWatched = m_watcher.watches(table);
        m_amounts = realColumns(table);
        m_updated.clear();
    }
    return m_isLastWatched;
}

/// SQLite keeps a whole amount as a whole number, and tells one that is put in so.
void SqliteChanges::makeAmounts(std::vector<Value>& cells) const {
    for (const std::size_t place : m_amounts)
        if (place < cells.size() && cells[place].kind == ValueKind::integer)
            cells[place] = Value::of(static_cast<double>(cells[place].integer));
}

bool SqliteChanges::isGiven(std::string_view table) const {
    if (m_statement == nullptr) return false;
    const TableInfo* const filled = m_statement->plainInsert();
    return filled != nullptr && filled->name == table && areStoredAsGiven(*filled, m_values);
}

/// Columns that stay as they are and do not tell what the row is of are absent from both rows. What
/// the last row left in the others is written over.
bool SqliteChanges::readUpdated(const std::vector<std::size_t>& places) {
    const auto count = static_cast<std::size_t>(sqlite3_preupdate_count(m_connection));
    if (places.back() >= count) return false;
    if (m_updated != places || m_before.size() != count) beginUpdates(places, count);
    for (const std::size_t column : m_telling) {
        if (!readCell(m_connection, sqlite3_preupdate_old, column, m_before[column])) return false;
        m_after[column] = m_before[column];
    }
    for (const std::size_t column : places)
        if (!readCell(m_connection, sqlite3_preupdate_old, column, m_before[column]) ||
            !readCell(m_connection, sqlite3_preupdate_new, column, m_after[column]))
            return false;
    return true;
}

void SqliteChanges::beginUpdates(const std::vector<std::size_t>& places, std::size_t count) {
    m_updated = places;
    m_before.assign(count, Value::ofNull());
    m_after = m_before;
    m_telling.clear();
    for (const std::size_t column : tellingColumns(m_lastTable))
        if (column < count && !std::ranges::binary_search(places, column))
            m_telling.push_back(column);
}

bool SqliteChanges::readRow(int operation, std::string_view table) {
    if (operation == SQLITE_UPDATE && m_statement != nullptr) {
        const UpdatedColumns& updated = m_statement->updated();
        if (updated.table != nullptr && updated.table->name == table)
            return readUpdated(updated.places);
    }
    m_updated.clear();
    m_before.clear();
    m_after.clear();
    if (operation == SQLITE_INSERT && isGiven(table)) {
        m_after.assign(m_values.begin(), m_values.end());
        return true;
    }
    return (operation == SQLITE_INSERT ||
            readCells(m_connection, sqlite3_preupdate_old, m_before)) &&
           (operation == SQLITE_DELETE || readCells(m_connection, sqlite3_preupdate_new, m_after));
}

void SqliteChanges::take(int operation, std::string_view table) {
    if (!isWatched(table)) return;
    RowChange change{.kind = ChangeKind::changed, .table = table, .before = {}, .after = {}};
    if (operation == SQLITE_INSERT) change.kind = ChangeKind::inserted;
    if (operation == SQLITE_DELETE) change.kind = ChangeKind::deleted;
    if (!readRow(operation, table)) return m_watcher.missed();
    makeAmounts(m_after);
    change.before = m_before;
    change.after = m_after;
    m_watcher.take(change);
}

}  // namespace chengheng
