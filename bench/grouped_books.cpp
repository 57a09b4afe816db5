#include "bench/grouped_books.h"

#include <cstring>

#include "bench/raw_codes.h"

namespace bench {

GroupedBooks::GroupedBooks(int accounts) : SampleBooks(accounts) {
    const std::string group = std::to_string(accountsInAGroup);
    run("INSERT INTO zAccountM (lId, dtStart, sCodeLen, lYear) "
        "VALUES (1, '2026-01-01', '52', 2026)");
    run("INSERT INTO zCodeClass (lId, lNum, sClsName, bDirect) VALUES (1, 1, '资产', 1)");
    run("UPDATE Code SET sAssBook = '', bEnd = (lId - 1) % " + group +
        " <> 0, sCode = (10000 + (lId - 1) / " + group + ") || CASE (lId - 1) % " + group +
        " WHEN 0 THEN '' ELSE 10 + (lId - 1) % " + group + " END");
    run("UPDATE ABIdTable SET lLastId = " + std::to_string(rows()) + " WHERE sTable = 'AccSum'");
    run("ANALYZE");
}

std::vector<RawAccount> GroupedBooks::readRaw() {
    sqlite3_stmt* codes = prepare(raw(), "SELECT * FROM Code WHERE lId > 0 ORDER BY sCode");
    const auto rows = rawCodes(codes);
    sqlite3_finalize(codes);
    std::vector<int> places(rows.size() + 1);
    std::vector<RawAccount> accounts(rows.size());
    for (std::size_t place = 0; place < rows.size(); ++place) {
        places[static_cast<std::size_t>(rows[place].id)] = static_cast<int>(place);
        std::memcpy(accounts[place].code, rows[place].code, sizeof rows[place].code);
        accounts[place].isEnd = rows[place].end != 0;
    }
    sqlite3_stmt* sums = prepare(
        raw(), "SELECT * FROM AccSum WHERE byPeroid = 1 AND mBegin IS NOT NULL ORDER BY lCodeId");
    while (sqlite3_step(sums) == SQLITE_ROW) {
        RawAccount& account = accounts[static_cast<std::size_t>(
            places[static_cast<std::size_t>(sqlite3_column_int(sums, 1))])];
        account.money = sqlite3_column_double(sums, 3);
        account.quantity = sqlite3_column_double(sums, 6);
        account.foreign = sqlite3_column_double(sums, 9);
    }
    sqlite3_finalize(sums);
    rollUpRaw(accounts);
    return accounts;
}

}  // namespace bench
