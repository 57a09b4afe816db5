#include "bench/grouped_server_books.h"

#include <string>

#include "bench/grouped_books.h"

namespace bench {

void fillGroupedBooks(RawServer& server, int accounts) {
    const std::string count = std::to_string(accounts);
    const std::string group = std::to_string(accountsInAGroup);
    server.run(
        "INSERT INTO zAccountM (lId, dtStart, sCodeLen, lYear) VALUES (1, '2026-01-01', '52', "
        "2026)");
    server.run("INSERT INTO zCodeClass (lId, lNum, sClsName, bDirect) VALUES (1, 1, '资产', 1)");
    server.run("INSERT INTO Code SELECT id, (10000 + (id - 1) / " + group +
               ")::text || CASE WHEN "
               "(id - 1) % " +
               group + " = 0 THEN '' ELSE (10 + (id - 1) % " + group +
               ")::text END, '往来单位核算科目' || id, '资产', 1, CASE WHEN (id - 1) % " + group +
               " = 0 THEN 0 ELSE 1 END, 1, 0, 0, '', 'WLDW' || id, 0, 0, '金额式', 0, '' "
               "FROM generate_series(1, " +
               count + ") id");
    server.run(
        "INSERT INTO AccSum SELECT (id - 1) * 12 + month, id, month, amount, amount * 0.5, "
        "0, 0, amount, 0, 0, 0, 0 FROM generate_series(1, " +
        count +
        ") id, generate_series(1, 12) month, LATERAL (SELECT CASE WHEN id % 20 = 0 THEN 0 "
        "ELSE id * 12.34 + month END AS amount) amounts");
    server.run("UPDATE ABIdTable SET lLastId = 12 * " + count + " WHERE sTable = 'AccSum'");
    server.run("ANALYZE");
}

}  // namespace bench
