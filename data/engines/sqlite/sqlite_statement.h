#pragma once

#include <sqlite3.h>

#include <memory>
#include <string_view>
#include <utility>

#include "data/engine/engine.h"
#include "data/engines/sqlite/sqlite_wait.h"
#include "data/engines/sqlite/unwritable_file.h"
#include "data/engines/sqlite/updated_columns.h"

namespace chengheng {

struct FinalizeStatement {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};

class SqliteStatement final : public PreparedStatement {
  public:
    explicit SqliteStatement(sqlite3_stmt* statement, const TableInfo* plainInsert = nullptr,
                             UpdatedColumns updated = {})
        : m_statement(statement), m_plainInsert(plainInsert), m_updated(std::move(updated)) {}
    sqlite3_stmt* handle() const { return m_statement.get(); }
    /// The table that its values are a row of as they stand; null where that is not so.
    const TableInfo* plainInsert() const { return m_plainInsert; }
    /// What it changes in rows that are there.
    const UpdatedColumns& updated() const { return m_updated; }

  private:
    std::unique_ptr<sqlite3_stmt, FinalizeStatement> m_statement;
    const TableInfo* m_plainInsert;
    UpdatedColumns m_updated;
};

/// A stored cell; its text lives as long as SQLite keeps it.
Value sqliteValue(sqlite3_value* stored);

/// Prepares the one statement of a text that must have that many parameters.
Status prepareSqlite(sqlite3* connection, UpdateListener& updates, std::string_view sql,
                     int parameters, std::unique_ptr<PreparedStatement>& statement);

/// Binds the values, which are borrowed until the statement is reset.
Status bindSqlite(sqlite3_stmt* statement, std::span<const Value> values);

/// Runs a statement to its end, whatever rows it gives.
Status runSqlite(const Command& command);

/// Reads a bound statement; resets it when it goes. The others outlive it;
/// of a file that cannot be written it is told, null of any other.
class SqliteCursor final : public Cursor {
  public:
    SqliteCursor(sqlite3_stmt* statement, SqliteWait& wait, const UnwritableFile* unwritable)
        : m_statement(statement), m_wait(wait), m_unwritable(unwritable) {}
    ~SqliteCursor() override { sqlite3_reset(m_statement); }
    SqliteCursor(const SqliteCursor&) = delete;
    SqliteCursor& operator=(const SqliteCursor&) = delete;

    Step next() override;
    Status status() const override { return m_status; }
    int columns() const override { return sqlite3_column_count(m_statement); }
    ValueKind kind(int column) const override;
    std::int64_t integer(int column) const override {
        return sqlite3_column_int64(m_statement, column);
    }
    double real(int column) const override { return sqlite3_column_double(m_statement, column); }
    std::string_view text(int column) const override;
    Value value(int column) const override {
        return sqliteValue(sqlite3_column_value(m_statement, column));
    }

  private:
    sqlite3_stmt* m_statement;
    SqliteWait& m_wait;
    const UnwritableFile* m_unwritable;
    Status m_status;
};

}  // namespace chengheng
