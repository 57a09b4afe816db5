// What the operation log costs on a PostgreSQL server: the same work on books that keep it and on
// books that do not.

#include <unistd.h>

#include <cstdlib>
#include <string>

#include "bench/post_all.h"
#include "bench/raw_server.h"
#include "bench/timing.h"
#include "data/access/CNbCwDB.h"
#include "data/access/unit_of_work.h"
#include "data/log/log_author.h"
#include "data/sql/sql_format.h"
#include "opening/storing/zero_row_sweep.h"

namespace {

using bench::require;

std::string addressOfServer() {
    const char* address = std::getenv("CHENGHENG_TEST_POSTGRES");
    require(address != nullptr, "finding the address of the private server");
    return address;
}

/// Books in a schema of their own, which goes with the object.
class ServerBooks {
  public:
    ServerBooks(std::string schema, bool keepsLog)
        : m_schema(std::move(schema)), m_keepsLog(keepsLog), m_raw(addressOfServer(), m_schema) {
        open(m_database, 0);
    }
    ~ServerBooks() {
        m_database.DBClose("books");
        m_raw.run("DROP SCHEMA " + m_schema + " CASCADE");
    }
    ServerBooks(const ServerBooks&) = delete;
    ServerBooks& operator=(const ServerBooks&) = delete;

    CNbCwDB& database() { return m_database; }
    bench::RawServer& raw() { return m_raw; }
    void open(CNbCwDB& database, int flag) const {
        if (m_keepsLog)
            database.keepLog({.operatorId = 1,
                              .operatorName = "王芳",
                              .workstation = "财务1",
                              .process = getpid(),
                              .program = "bench"});
        NbCwDBInfo info;
        const std::string address = bench::withSchema(addressOfServer(), m_schema);
        require(database.DBOpen(info, address.c_str(), "books", flag) != 0, "opening the books");
        require(database.DBSelect("books") != 0, "selecting the books");
    }

  private:
    std::string m_schema;
    bool m_keepsLog;
    bench::RawServer m_raw;
    CNbCwDB m_database;
};

/// Twelve rows of each account; one account in twenty has nothing but zeros.
void fill(ServerBooks& books, int accounts) {
    books.raw().run("TRUNCATE AccSum");
    books.raw().run(
        "INSERT INTO AccSum (lId, lCodeId, byPeroid, mBegin) SELECT (account - 1) * 12 + period, "
        "account, period, CASE WHEN account % 20 = 0 THEN 0 ELSE account END FROM "
        "generate_series(1, " +
        std::to_string(accounts) + ") account, generate_series(1, 12) period");
    books.raw().run("ANALYZE AccSum");
}

void sweep(ServerBooks& books) {
    chengheng::UnitOfWork unit(books.database());
    require(unit.isOpen() && sweepZeroRows(books.database()).isDone() && unit.commit().isDone(),
            "the sweep");
}

}  // namespace

int main() {
    ServerBooks with("bench_log", true);
    ServerBooks without("bench_no_log", false);
    for (const int accounts : {10'000, 50'000}) {
        const std::string of = ", PostgreSQL, " + std::to_string(accounts) + " accounts";
        const int runs = accounts > 10'000 ? 1 : 3;
        bench::Pair posting;
        posting.reset = [&] {
            for (ServerBooks* books : {&with, &without}) {
                books->raw().run("TRUNCATE AccSum");
                books->raw().run("UPDATE ABIdTable SET lLastId = 0 WHERE sTable = 'AccSum'");
            }
        };
        posting.ours = [&] { bench::postAll(with.database(), accounts); };
        posting.floor = [&] { bench::postAll(without.database(), accounts); };
        bench::reportTimes("log kept: text batches of 12 inserts and the id update" + of, posting,
                           1.25, runs);
        bench::Pair sweeping;
        sweeping.reset = [&] {
            for (ServerBooks* books : {&with, &without}) fill(*books, accounts);
        };
        sweeping.ours = [&] { sweep(with); };
        sweeping.floor = [&] { sweep(without); };
        bench::reportTimes("log kept: sweep of rows without figures" + of, sweeping, 1.25, runs);
    }
}
