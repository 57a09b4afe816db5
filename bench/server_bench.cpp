// Posting over loopback to a PostgreSQL server: the same batches as for a file, against
// hand-written pipeline mode.

#include <cstdlib>
#include <string>

#include "bench/post_all.h"
#include "bench/raw_server.h"
#include "bench/timing.h"
#include "data/access/CNbCwDB.h"

namespace {

using bench::NumberText;
using bench::require;

constexpr const char* schema = "bench";

constexpr const char* insertSql =
    "INSERT INTO AccSum VALUES($1,$2,$3,$4,0.00,0.00,$5,0.00,0.00,$6,0.00,0.00)";

void postRaw(bench::RawServer& server, int accounts) {
    NumberText id, code, period, begin, amount, foreign;
    int last = 0;
    server.run("BEGIN");
    for (int account = 1; account <= accounts; ++account)
        server.pipeline([&] {
            for (int month = 1; month <= 12; ++month)
                server.send("post",
                            {id(++last), code(account), period(month), begin(account * 1.25),
                             amount(account * 0.5), foreign(account * 0.25)});
        });
    server.run("UPDATE ABIdTable SET lLastId = " + std::to_string(last) +
               " WHERE sTable = 'AccSum'");
    server.run("COMMIT");
}

}  // namespace

int main() {
    const char* address = std::getenv("CHENGHENG_TEST_POSTGRES");
    require(address != nullptr, "finding the address of the private server");
    bench::RawServer server(address, schema);
    CNbCwDB database;
    NbCwDBInfo info;
    require(database.DBOpen(info, bench::withSchema(address, schema).c_str(), "books", 0) != 0,
            "creating the books");
    require(database.DBSelect("books") != 0, "selecting the books");
    server.prepare("post", insertSql);

    for (const int accounts : {10'000, 50'000}) {
        bench::Pair pair;
        pair.reset = [&] {
            server.run("TRUNCATE AccSum");
            server.run("UPDATE ABIdTable SET lLastId = 0 WHERE sTable = 'AccSum'");
        };
        pair.floor = [&] { postRaw(server, accounts); };
        pair.ours = [&] { bench::postAll(database, accounts); };
        bench::reportTimes("text batches on PostgreSQL, " + std::to_string(accounts) + " accounts",
                           pair, 1.5, accounts > 10'000 ? 1 : 3);
    }
    database.DBClose("books");
    server.run(std::string("DROP SCHEMA ") + schema + " CASCADE");
}
