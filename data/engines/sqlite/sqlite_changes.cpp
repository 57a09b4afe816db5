// The declarations of the hook are there for whoever asks for them; the library has it.
#define SQLITE_ENABLE_PREUPDATE_HOOK
#include "data/engines/sqlite/sqlite_changes.h"

#include "data/engines/sqlite/plain_insert.h"
#include "data/engines/sqlite/sqlite_statement.h"
#include "data/tables/schema.h"

namespace chengheng {
namespace {

/// False when a cell cannot be had.
bool readCells(sqlite3* connection, int (*read)(sqlite3*, int, sqlite3_value**),
               std::vector<Value>& cells) {
    const int count = sqlite3_preupdate_count(connection);
    cells.clear();
    for (int column = 0; column < count; ++column) {
        sqlite3_value* stored = nullptr;
        if (read(connection, column, &stored) != SQLITE_OK) return false;
        cells.push_back(sqliteValue(stored));
    }
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
    }
    return m_isLastWatched;
}

/// SQLite keeps a whole amount as a whole number, and tells one that is put in so.
void SqliteChanges::makeAmounts(std::vector<Value>& cells) const {
    for (const std::size_t place : m_amounts)
        if (place < cells.size() && cells[place].kind == ValueKind::integer)
            cells[place] = Value::of(static_cast<double>(cells[place].integer));
}

bool SqliteChanges::isExpected(std::string_view table) const {
    return m_expected != nullptr && m_expected->name == table &&
           areStoredAsGiven(*m_expected, m_expectedRow);
}

void SqliteChanges::take(int operation, std::string_view table) {
    if (!isWatched(table)) return;
    RowChange change{.kind = ChangeKind::changed, .table = table, .before = {}, .after = {}};
    if (operation == SQLITE_INSERT) change.kind = ChangeKind::inserted;
    if (operation == SQLITE_DELETE) change.kind = ChangeKind::deleted;
    m_before.clear();
    m_after.clear();
    const bool isGiven = operation == SQLITE_INSERT && isExpected(table);
    if (isGiven) m_after.assign(m_expectedRow.begin(), m_expectedRow.end());
    const bool isRead =
        isGiven ||
        ((operation == SQLITE_INSERT || readCells(m_connection, sqlite3_preupdate_old, m_before)) &&
         (operation == SQLITE_DELETE || readCells(m_connection, sqlite3_preupdate_new, m_after)));
    makeAmounts(m_after);
    change.before = m_before;
    change.after = m_after;
    if (isRead)
        m_watcher.take(change);
    else
        m_watcher.missed();
}

}  // namespace chengheng
