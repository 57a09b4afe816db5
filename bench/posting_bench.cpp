// Posting: the twelve rows of each account in one unit of work, and the sweep of rows that
// carry nothing.

#include <string>
#include <vector>

#include "bench/post_all.h"
#include "bench/sample_books.h"
#include "bench/timing.h"
#include "data/access/unit_of_work.h"
#include "data/sql/sql_format.h"
#include "opening/storing/zero_row_sweep.h"

namespace {

using bench::require;

constexpr const char* insertSql =
    "INSERT INTO AccSum VALUES(?,?,?,?,0.00,0.00,?,0.00,0.00,?,0.00,0.00)";
constexpr const char* zeroQuery =
    "SELECT Sum( abs(mBegin)+abs(mDebet)+abs(mCredit)+abs(dAmtBegin)+abs(dAmtDebet)"
    "+abs(dAmtCredit) + abs(mFgnBegin)+abs(mFgnDebet)+abs(mFgnCredit)), lCodeId FROM AccSum "
    "GROUP BY lCodeId";

void postRaw(bench::SampleBooks& books) {
    sqlite3_stmt* insert = nullptr;
    require(sqlite3_prepare_v2(books.raw(), insertSql, -1, &insert, nullptr) == SQLITE_OK,
            "preparing the floor's insert");
    books.run("BEGIN IMMEDIATE");
    int id = 0;
    for (int account = 1; account <= books.accounts(); ++account) {
        for (int period = 1; period <= 12; ++period) {
            sqlite3_bind_int(insert, 1, ++id);
            sqlite3_bind_int(insert, 2, account);
            sqlite3_bind_int(insert, 3, period);
            sqlite3_bind_double(insert, 4, account * 1.25);
            sqlite3_bind_double(insert, 5, account * 0.5);
            sqlite3_bind_double(insert, 6, account * 0.25);
            require(sqlite3_step(insert) == SQLITE_DONE, "the floor's insert");
            sqlite3_reset(insert);
        }
    }
    sqlite3_finalize(insert);
    books.run("UPDATE ABIdTable SET lLastId = " + std::to_string(id) + " WHERE sTable = 'AccSum'");
    books.run("COMMIT");
}

void benchPosting(bench::SampleBooks& books) {
    bench::Pair pair;
    pair.reset = [&] {
        books.run("DELETE FROM AccSum");
        books.run("UPDATE ABIdTable SET lLastId = 0 WHERE sTable = 'AccSum'");
        books.run("PRAGMA wal_checkpoint(TRUNCATE)");
    };
    pair.floor = [&] { postRaw(books); };
    pair.ours = [&] { bench::postAll(books.database(), books.accounts()); };
    bench::reportTimes("text batches of 12 inserts and the id update, " +
                           std::to_string(books.accounts()) + " accounts",
                       pair, 1.5, 3);
}

std::string joined(const std::vector<std::string>& ids) {
    std::string list;
    for (const std::string& id : ids) list.append(list.empty() ? "" : ",").append(id);
    return list;
}

void sweepRaw(bench::SampleBooks& books) {
    books.run("BEGIN IMMEDIATE");
    sqlite3_stmt* query = nullptr;
    require(sqlite3_prepare_v2(books.raw(), zeroQuery, -1, &query, nullptr) == SQLITE_OK,
            "preparing the floor's query");
    std::vector<std::string> empty;
    while (sqlite3_step(query) == SQLITE_ROW)
        if (sqlite3_column_double(query, 0) == 0)
            empty.push_back(std::to_string(sqlite3_column_int(query, 1)));
    sqlite3_finalize(query);
    require(!empty.empty(), "finding empty accounts");
    books.run("DELETE FROM AccSum WHERE lCodeId in ( " + joined(empty) + " )");
    books.run("ROLLBACK");
}

void sweepOurs(bench::SampleBooks& books) {
    CNbCwDB& database = books.database();
    chengheng::UnitOfWork unit(database);
    char** cells = nullptr;
    int columns = 0;
    int rows = 0;
    require(database.QRYGetData(zeroQuery, cells, columns, rows) == 0, "the zero-row query");
    std::vector<std::string> empty;
    for (int row = 0; row < rows; ++row)
        if (std::string_view(cells[row * columns]) == "0")
            empty.emplace_back(cells[row * columns + 1]);
    database.QRYReleaseBuffer(cells, columns, rows);
    require(!empty.empty(), "finding empty accounts");
    const std::string list = joined(empty);
    require(database.QRYExecuteSQL(chengheng::formatSql(
                "DELETE FROM AccSum WHERE lCodeId in ( %s )", chengheng::SqlFragment{list})) != 0,
            "deleting the empty accounts");
}

void benchSweep(bench::SampleBooks& books) {
    bench::Pair pair;
    pair.floor = [&] { sweepRaw(books); };
    pair.ours = [&] { sweepOurs(books); };
    bench::reportTimes(
        "zero-row query and delete, " + std::to_string(books.accounts()) + " accounts", pair, 1.2);
}

/// Nearly always there is nothing to sweep.
void benchNothingToSweep(bench::SampleBooks& books) {
    require(chengheng::sweepZeroRows(books.database()).isDone(), "the sweep");
    bench::reportLimit(
        "sweep with nothing to sweep, " + std::to_string(books.accounts()) + " accounts",
        [&] { require(chengheng::sweepZeroRows(books.database()).isDone(), "the sweep"); }, 5);
}

}  // namespace

int main() {
    for (const int accounts : {10'000, 50'000}) {
        bench::SampleBooks books(accounts);
        benchSweep(books);
        benchNothingToSweep(books);
        benchPosting(books);
    }
}
