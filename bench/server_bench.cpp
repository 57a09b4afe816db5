// Posting over loopback to a PostgreSQL server: the same batches as for a file, against
// hand-written pipeline mode.

#include <libpq-fe.h>

#include <charconv>
#include <cstdlib>
#include <string>

#include "bench/post_all.h"
#include "bench/timing.h"
#include "data/CNbCwDB.h"

namespace {

using bench::require;

constexpr const char* insertSql =
    "INSERT INTO AccSum VALUES($1,$2,$3,$4,0.00,0.00,$5,0.00,0.00,$6,0.00,0.00)";

/// A number as text, in a buffer of its own.
struct NumberText {
    char text[32];

    template <class Number>
    const char* operator()(Number number) {
        *std::to_chars(text, text + sizeof text - 1, number).ptr = '\0';
        return text;
    }
};

void command(PGconn* server, const std::string& sql) {
    PGresult* result = PQexec(server, sql.c_str());
    require(PQresultStatus(result) == PGRES_COMMAND_OK, PQerrorMessage(server));
    PQclear(result);
}

/// Takes the results of a pipeline up to its synchronisation.
void takeResults(PGconn* server) {
    while (true) {
        PGresult* result = PQgetResult(server);
        if (result == nullptr) continue;
        const ExecStatusType status = PQresultStatus(result);
        PQclear(result);
        if (status == PGRES_PIPELINE_SYNC) return;
        require(status == PGRES_COMMAND_OK, "the floor's insert");
    }
}

void postRaw(PGconn* server, int accounts) {
    command(server, "BEGIN");
    require(PQenterPipelineMode(server) == 1, "pipeline mode");
    NumberText id, code, period, begin, amount, foreign;
    int last = 0;
    for (int account = 1; account <= accounts; ++account) {
        for (int month = 1; month <= 12; ++month) {
            const char* values[] = {id(++last),
                                    code(account),
                                    period(month),
                                    begin(account * 1.25),
                                    amount(account * 0.5),
                                    foreign(account * 0.25)};
            require(PQsendQueryPrepared(server, "post", 6, values, nullptr, nullptr, 0) == 1,
                    "sending the floor's insert");
        }
        require(PQpipelineSync(server) == 1, "ending the floor's batch");
        takeResults(server);
    }
    require(PQexitPipelineMode(server) == 1, "leaving pipeline mode");
    command(server,
            "UPDATE ABIdTable SET lLastId = " + std::to_string(last) + " WHERE sTable = 'AccSum'");
    command(server, "COMMIT");
}

/// The given address with "schema=bench" added.
std::string withSchema(const std::string& address) {
    return address + (address.find('?') == std::string::npos ? "?" : "&") + "schema=bench";
}

}  // namespace

int main() {
    const char* address = std::getenv("CHENGHENG_TEST_POSTGRES");
    require(address != nullptr, "finding the address of the private server");
    PGconn* server = PQconnectdb(address);
    require(PQstatus(server) == CONNECTION_OK, "connecting the floor");
    command(server, "SET client_min_messages = error");
    command(server, "DROP SCHEMA IF EXISTS bench CASCADE");
    CNbCwDB database;
    NbCwDBInfo info;
    require(database.DBOpen(info, withSchema(address).c_str(), "books", 0) != 0,
            "creating the books");
    require(database.DBSelect("books") != 0, "selecting the books");
    command(server, "SET search_path = bench");
    PQclear(PQprepare(server, "post", insertSql, 0, nullptr));

    for (const int accounts : {10'000, 50'000}) {
        bench::Pair pair;
        pair.reset = [&] {
            command(server, "TRUNCATE AccSum");
            command(server, "UPDATE ABIdTable SET lLastId = 0 WHERE sTable = 'AccSum'");
        };
        pair.floor = [&] { postRaw(server, accounts); };
        pair.ours = [&] { bench::postAll(database, accounts); };
        bench::reportTimes("text batches on PostgreSQL, " + std::to_string(accounts) + " accounts",
                           pair, 1.5, accounts > 10'000 ? 1 : 3);
    }
    database.DBClose("books");
    command(server, "DROP SCHEMA bench CASCADE");
    PQfinish(server);
}
