#include "bench/raw_codes.h"

#include <cstring>

#include "bench/timing.h"

namespace bench {
namespace {

void copyText(sqlite3_stmt* row, int column, char* target, std::size_t size) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(row, column));
    const auto length = static_cast<std::size_t>(sqlite3_column_bytes(row, column));
    require(length < size, "a text of the floor's size");
    std::memcpy(target, text, length);
    target[length] = '\0';
}

}  // namespace

sqlite3_stmt* prepare(sqlite3* database, const char* sql) {
    sqlite3_stmt* statement = nullptr;
    require(sqlite3_prepare_v2(database, sql, -1, &statement, nullptr) == SQLITE_OK, sql);
    return statement;
}

std::vector<RawCode> rawCodes(sqlite3_stmt* statement) {
    std::vector<RawCode> rows;
    while (sqlite3_step(statement) == SQLITE_ROW) {
        RawCode& row = rows.emplace_back();
        row.id = sqlite3_column_int(statement, 0);
        copyText(statement, 1, row.code, sizeof row.code);
        copyText(statement, 2, row.name, sizeof row.name);
        copyText(statement, 3, row.type, sizeof row.type);
        row.grade = sqlite3_column_int(statement, 4);
        row.end = sqlite3_column_int(statement, 5);
        row.direct = sqlite3_column_int(statement, 6);
        row.cash = sqlite3_column_int(statement, 7);
        row.bank = sqlite3_column_int(statement, 8);
        copyText(statement, 9, row.assBook, sizeof row.assBook);
        copyText(statement, 10, row.help, sizeof row.help);
        row.exchange = sqlite3_column_int(statement, 11);
        row.number = sqlite3_column_int(statement, 12);
        copyText(statement, 13, row.page, sizeof row.page);
        row.amount = sqlite3_column_int(statement, 14);
        copyText(statement, 15, row.unit, sizeof row.unit);
    }
    sqlite3_reset(statement);
    return rows;
}

}  // namespace bench
