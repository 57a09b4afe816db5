// Reading rows: into records, and as text cells.

#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <string>
#include <vector>

#include "bench/raw_codes.h"
#include "bench/sample_books.h"
#include "bench/timing.h"
#include "data/tables/accounts.h"
#include "data/tables/balances.h"

namespace {

using bench::prepare;
using bench::rawCodes;
using bench::require;

struct RawSum {
    int id, code, period;
    double figures[9];
};

std::vector<RawSum> rawSums(sqlite3_stmt* statement) {
    std::vector<RawSum> rows;
    while (sqlite3_step(statement) == SQLITE_ROW) {
        RawSum& row = rows.emplace_back();
        row.id = sqlite3_column_int(statement, 0);
        row.code = sqlite3_column_int(statement, 1);
        row.period = sqlite3_column_int(statement, 2);
        for (int at = 0; at < 9; ++at) row.figures[at] = sqlite3_column_double(statement, 3 + at);
    }
    sqlite3_reset(statement);
    return rows;
}

void benchSums(bench::SampleBooks& books) {
    sqlite3_stmt* raw = prepare(books.raw(), "SELECT * FROM AccSum");
    bench::Pair pair;
    pair.floor = [&] {
        require(rawSums(raw).size() == static_cast<std::size_t>(books.rows()), "raw read");
    };
    pair.ours = [&] {
        _AccSumInfo** rows = nullptr;
        int count = 0;
        require(books.database().AccSum_GetInfo(rows, count, nullptr) == 0, "AccSum_GetInfo");
        require(count == books.rows(), "reading every row");
        books.database().AccSum_ReleaseAllBuffer();
    };
    bench::reportTimes("AccSum_GetInfo of " + std::to_string(books.rows()) + " rows", pair, 1.3);

    pair.ours = [&] {
        char** cells = nullptr;
        int columns = 0;
        int rows = 0;
        require(books.database().QRYGetData("SELECT * FROM AccSum", cells, columns, rows) == 0,
                "QRYGetData");
        require(rows == books.rows(), "reading every row as text");
        books.database().QRYReleaseBuffer(cells, columns, rows);
    };
    bench::reportTimes("QRYGetData of " + std::to_string(books.rows()) + " rows as text cells",
                       pair, 2.2);
    sqlite3_finalize(raw);
}

void benchCodes(bench::SampleBooks& books) {
    sqlite3_stmt* raw = prepare(books.raw(), "SELECT * FROM Code WHERE lId > 0 ORDER BY sCode");
    bench::Pair pair;
    pair.floor = [&] {
        require(rawCodes(raw).size() == static_cast<std::size_t>(books.accounts()), "raw read");
    };
    pair.ours = [&] {
        _CodeInfo** rows = nullptr;
        int count = 0;
        require(books.database().Code_GetInfo(rows, count, "lId > 0 ORDER BY sCode") == 0,
                "Code_GetInfo");
        require(count == books.accounts(), "reading every account");
        books.database().Code_ReleaseAllBuffer();
    };
    bench::reportTimes("Code_GetInfo of " + std::to_string(books.accounts()) + " accounts", pair,
                       1.3, 9);
    sqlite3_finalize(raw);
}

/// Makes the peak of this process's memory what it uses now.
void forgetPeak() {
    std::ofstream control("/proc/self/clear_refs");
    control << "5" << std::flush;
    require(control.good(), "resetting the peak memory");
}

/// The peak of the memory this process has used since then, in MiB.
double peakMemory() {
    std::ifstream status("/proc/self/status");
    std::string word;
    while (status >> word) {
        if (word != "VmHWM:") continue;
        double kibibytes = 0;
        status >> kibibytes;
        return kibibytes / 1024;
    }
    require(false, "reading the peak memory");
    return 0;
}

/// Runs in a process of its own, so that nothing read before counts.
void benchMemory(int accounts) {
    std::fflush(stdout);
    const pid_t child = ::fork();
    require(child >= 0, "starting a process");
    if (child == 0) {
        bench::SampleBooks books(accounts);
        _AccSumInfo** rows = nullptr;
        int count = 0;
        // A first small read, so that the connection's own memory is there before.
        require(books.database().AccSum_GetInfo(rows, count, "lCodeId = 1") == 0, "small read");
        forgetPeak();
        const double before = peakMemory();
        require(books.database().AccSum_GetInfo(rows, count, nullptr) == 0, "full read");
        const double records = static_cast<double>(sizeof(_AccSumInfo)) * count / (1024 * 1024);
        bench::reportMemory("memory of a full read of " + std::to_string(count) + " rows",
                            peakMemory() - before, records, 1.5);
        books.database().AccSum_ReleaseAllBuffer();
        books.close();
        ::_exit(0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    require(status == 0, "the memory benchmark");
}

}  // namespace

int main() {
    for (const int accounts : {10'000, 50'000}) {
        bench::SampleBooks books(accounts);
        benchSums(books);
        benchCodes(books);
    }
    benchMemory(50'000);
}
