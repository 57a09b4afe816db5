#include "data/engines/sqlite/sqlite_statement.h"

#include "data/engines/sqlite/plain_insert.h"
#include "data/engines/sqlite/sqlite_failure.h"

namespace chengheng {
namespace {

bool isBlank(std::string_view text) {
    return text.find_first_not_of(" \t\r\n;") == std::string_view::npos;
}

int bindOne(sqlite3_stmt* statement, int number, const Value& value) {
    switch (value.kind) {
        case ValueKind::integer:
            return sqlite3_bind_int64(statement, number, value.integer);
        case ValueKind::real:
            return sqlite3_bind_double(statement, number, value.real);
        case ValueKind::text:
            // An empty text may come without an address, which would be taken for NULL.
            return sqlite3_bind_text64(statement, number,
                                       value.text.empty() ? "" : value.text.data(),
                                       value.text.size(), SQLITE_STATIC, SQLITE_UTF8);
        case ValueKind::null:
            break;
    }
    return sqlite3_bind_null(statement, number);
}

}  // namespace

Value sqliteValue(sqlite3_value* stored) {
    switch (sqlite3_value_type(stored)) {
        case SQLITE_NULL:
            return Value::ofNull();
        case SQLITE_INTEGER:
            return Value::of(std::int64_t{sqlite3_value_int64(stored)});
        case SQLITE_FLOAT:
            return Value::of(sqlite3_value_double(stored));
        default: {
            const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(stored));
            const auto size = static_cast<std::size_t>(sqlite3_value_bytes(stored));
            return Value::of(text == nullptr ? std::string_view() : std::string_view(text, size));
        }
    }
}

Status prepareSqlite(sqlite3* connection, UpdateListener& updates, std::string_view sql,
                     int parameters, std::unique_ptr<PreparedStatement>& statement) {
    sqlite3_stmt* prepared = nullptr;
    const char* rest = nullptr;
    updates.begin();
    const int code = sqlite3_prepare_v3(connection, sql.data(), static_cast<int>(sql.size()),
                                        SQLITE_PREPARE_PERSISTENT, &prepared, &rest);
    if (code != SQLITE_OK) return sqliteFailure(code, connection);
    auto made = std::make_unique<SqliteStatement>(prepared, plainInsertTable(sql), updates.take());
    if (prepared == nullptr) return Status::of(Failure::refused, "no statement");
    if (!isBlank(sql.substr(static_cast<std::size_t>(rest - sql.data()))))
        return Status::of(Failure::refused, "more than one statement");
    if (sqlite3_bind_parameter_count(prepared) != parameters)
        return Status::of(Failure::refused, "wrong number of parameters");
    statement = std::move(made);
    return Status::done();
}

Status bindSqlite(sqlite3_stmt* statement, std::span<const Value> values) {
    if (static_cast<int>(values.size()) != sqlite3_bind_parameter_count(statement))
        return Status::of(Failure::refused, "wrong number of values");
    int number = 0;
    for (const Value& value : values) {
        const int code = bindOne(statement, ++number, value);
        if (code != SQLITE_OK) return sqliteFailure(code, sqlite3_db_handle(statement));
    }
    return Status::done();
}

Status runSqlite(const Command& command) {
    sqlite3_stmt* statement = static_cast<SqliteStatement*>(command.statement)->handle();
    if (Status bound = bindSqlite(statement, command.values); !bound) return bound;
    int code = SQLITE_ROW;
    while (code == SQLITE_ROW) code = sqlite3_step(statement);
    const Status status =
        code == SQLITE_DONE ? Status::done() : sqliteFailure(code, sqlite3_db_handle(statement));
    sqlite3_reset(statement);
    return status;
}

Cursor::Step SqliteCursor::next() {
    if (m_wait.isAsking()) {
        m_status = Status::of(Failure::busy, "a call of this connection is waiting");
        return Step::failed;
    }
    const int code = sqlite3_step(m_statement);
    const bool isRead = code == SQLITE_ROW || code == SQLITE_DONE;
    m_status =
        m_wait.ended(isRead ? Status::done() : sqliteFailure(code, sqlite3_db_handle(m_statement)));
    // What looks like damage may be a page that was written meanwhile.
    if (code != SQLITE_ROW && m_unwritable != nullptr && m_unwritable->hasChanged())
        m_status = Status::of(Failure::readOnly, "another program wrote the file meanwhile");
    if (!m_status) return Step::failed;
    return code == SQLITE_ROW ? Step::row : Step::end;
}

ValueKind SqliteCursor::kind(int column) const {
    switch (sqlite3_column_type(m_statement, column)) {
        case SQLITE_NULL:
            return ValueKind::null;
        case SQLITE_INTEGER:
            return ValueKind::integer;
        case SQLITE_FLOAT:
            return ValueKind::real;
        default:
            return ValueKind::text;
    }
}

std::string_view SqliteCursor::text(int column) const {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(m_statement, column));
    if (text == nullptr) return {};
    return {text, static_cast<std::size_t>(sqlite3_column_bytes(m_statement, column))};
}

}  // namespace chengheng
