// Reading an operation log of a million entries: pages by filter, the history of a row.

#include <string>
#include <vector>

#include "bench/raw_codes.h"
#include "bench/sample_books.h"
#include "bench/timing.h"
#include "data/connection/database.h"
#include "data/log/packing.h"
#include "data/log/row_bytes.h"
#include "operationlog/log_reading.h"
#include "operationlog/log_sql.h"
#include "operationlog/row_history.h"

namespace {

using namespace chengheng;
using bench::require;

constexpr int entries = 1'000'000;
constexpr int pageSize = 100;
constexpr int historyPage = 32;
constexpr double target = 1.5;
constexpr log_sql::PageRange everything{.lowest = 1, .highest = 2147483647, .limit = pageSize};

std::string packedChange() {
    const Value before[] = {Value::of(std::int64_t{1500}), Value::of(1.5)};
    const Value after[] = {Value::of(std::int64_t{1500}), Value::of(2.5)};
    std::string bytes = rowBytesHead({"lId", "mBegin"});
    addRowBytes({.kind = ChangeKind::changed, .table = "AccSum", .before = before, .after = after},
                bytes);
    return packed(bytes);
}

/// One in five thousand is of an operator who is seldom there, one in ten of the chart.
void fill(bench::SampleBooks& books) {
    books.run(
        "WITH RECURSIVE n(i) AS (VALUES (1) UNION ALL SELECT i + 1 FROM n WHERE i < 1000000) "
        "INSERT INTO OperationLog SELECT i, strftime('%Y-%m-%dT%H:%M:%S.000+08:00', 1735689600 + i "
        "* 30, 'unixepoch'), i % 4, CASE WHEN i % 5000 = 0 THEN 'x' ELSE 'y' || (i % 4) END, "
        "'station', 4711, 'chengheng 1.0', i % 80, 'words of entry ' || i, "
        "lower(hex(randomblob(16))), 1, 1, 'f', 'e' FROM n");
    books.run(
        "INSERT INTO OperationLogPart SELECT sUnit, 1, CASE WHEN lId % 1000 = 1 THEN 'Code' ELSE "
        "'AccSum' END, lId % 3000, lId % 3000, lId % 3000, lId % 3000, 1, '" +
        packedChange() + "' FROM OperationLog");
}

/// The statement of a page, prepared and stepped.
void floorOf(bench::SampleBooks& books, const std::string& sql, int rows) {
    sqlite3_stmt* statement = bench::prepare(books.raw(), sql.c_str());
    int count = 0;
    std::size_t bytes = 0;
    while (sqlite3_step(statement) == SQLITE_ROW) {
        ++count;
        for (int column = 0; column < sqlite3_column_count(statement); ++column) {
            require(sqlite3_column_text(statement, column) != nullptr, "a cell of the floor");
            bytes += static_cast<std::size_t>(sqlite3_column_bytes(statement, column));
        }
    }
    sqlite3_finalize(statement);
    require(count == rows && bytes > 0, "the floor's page");
}

void benchPage(bench::SampleBooks& books, const std::string& name, const LogFilter& filter,
               const std::vector<std::int32_t>& accounts = {}) {
    Engine& engine = books.database().selectedDatabase()->engine();
    const std::string sql =
        log_sql::page(filter, accounts, everything, engine.dialect().likeEscape);
    const bench::Pair pair{.ours =
                               [&] {
                                   std::vector<LogEntry> page;
                                   require(LogPages(engine, filter).read(pageSize, page).isDone() &&
                                               page.size() == pageSize,
                                           "a page");
                               },
                           .floor = [&] { floorOf(books, sql, pageSize); }};
    bench::reportTimes(name + " of 1000000 log entries", pair, target, 15);
}

void benchHistory(bench::SampleBooks& books) {
    Engine& engine = books.database().selectedDatabase()->engine();
    log_sql::PageRange range = everything;
    range.limit = historyPage;
    const std::string sql = log_sql::entriesOfRow("AccSum", 1500, range);
    const bench::Pair pair{
        .ours =
            [&] {
                std::vector<RowEvent> events;
                RowHistory history(engine, {.table = "AccSum", .id = 1500});
                require(history.read(historyPage, events).isDone() && events.size() == historyPage,
                        "a history");
            },
        .floor = [&] { floorOf(books, sql, historyPage); }};
    bench::reportTimes("history of a row in 1000000 log entries", pair, target, 15);
}

}  // namespace

int main() {
    bench::SampleBooks books(10);
    fill(books);
    benchPage(books, "first page", {});
    benchPage(books, "page of an operator", {.operatorName = "x"});
    benchPage(books, "page of a function", {.function = 35});
    benchPage(books, "page of words", {.text = "entry 99"});
    benchHistory(books);
    books.run("INSERT INTO Code (lId, sCode) VALUES (1500, '9999')");
    benchPage(books, "page of an account", {.account = "9999"}, {1500});
}
