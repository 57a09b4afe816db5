// What the operation log costs: the same work on books that keep it and on books that do not, and
// the room that its rows take.

#include <string>

#include "bench/post_all.h"
#include "bench/sample_books.h"
#include "bench/timing.h"
#include "data/access/unit_of_work.h"
#include "data/log/log_author.h"
#include "opening/storing/zero_row_sweep.h"

namespace {

using bench::require;

/// Books with a log and books without one, which hold the same.
class LogBench {
  public:
    explicit LogBench(int accounts) : m_with(accounts), m_without(accounts) {
        m_with.database().keepLog({.operatorId = 1,
                                   .operatorName = "王芳",
                                   .workstation = "财务1",
                                   .process = 4711,
                                   .program = "bench"});
        for (bench::SampleBooks* books : both())
            books->run("CREATE TABLE Kept AS SELECT * FROM AccSum");
    }

    void run() {
        sweeping();
        editing();
        posting();
        reportRoom();
    }

  private:
    std::vector<bench::SampleBooks*> both() { return {&m_with, &m_without}; }
    std::string of(const char* work) const {
        return std::string("log kept: ") + work + ", " + std::to_string(m_with.accounts()) +
               " accounts";
    }
    void emptyBoth(const char* filling) {
        for (bench::SampleBooks* books : both()) {
            books->run("DELETE FROM AccSum");
            books->run(filling);
            books->run("PRAGMA wal_checkpoint(TRUNCATE)");
        }
    }

    static void sweep(bench::SampleBooks& books) {
        chengheng::UnitOfWork unit(books.database());
        require(unit.isOpen() && sweepZeroRows(books.database()).isDone() && unit.commit().isDone(),
                "the sweep");
    }
    void sweeping() {
        bench::Pair pair;
        pair.reset = [this] { emptyBoth("INSERT INTO AccSum SELECT * FROM Kept"); };
        pair.ours = [this] { sweep(m_with); };
        pair.floor = [this] { sweep(m_without); };
        bench::reportTimes(of("sweep of rows without figures"), pair, 1.15, 5);
    }

    static void edit(bench::SampleBooks& books) {
        require(books.database().QRYExecuteSQL(
                    "UPDATE AccSum SET mBegin = mBegin + 1 WHERE lCodeId = 7") != 0,
                "an edit");
    }
    void editing() {
        bench::Pair pair;
        pair.ours = [this] { edit(m_with); };
        pair.floor = [this] { edit(m_without); };
        bench::reportTimes(of("twelve rows of an account in a unit of their own"), pair, 1.15, 31);
    }

    void posting() {
        bench::Pair pair;
        pair.reset = [this] {
            emptyBoth("UPDATE ABIdTable SET lLastId = 0 WHERE sTable = 'AccSum'");
        };
        pair.ours = [this] { bench::postAll(m_with.database(), m_with.accounts()); };
        pair.floor = [this] { bench::postAll(m_without.database(), m_without.accounts()); };
        bench::reportTimes(of("text batches of 12 inserts and the id update"), pair, 1.15, 5);
    }

    void reportRoom() {
        sqlite3_stmt* query = nullptr;
        require(sqlite3_prepare_v2(m_with.raw(),
                                   "SELECT sum(length(sPacked)), sum(lRows) FROM OperationLogPart "
                                   "WHERE sTable = 'AccSum' AND lRows > 100",
                                   -1, &query, nullptr) == SQLITE_OK &&
                    sqlite3_step(query) == SQLITE_ROW,
                "reading the room of the log");
        constexpr double mebibyte = 1024.0 * 1024.0;
        const double packed = sqlite3_column_double(query, 0);
        const double rows = sqlite3_column_double(query, 1);
        sqlite3_finalize(query);
        constexpr double mostBytesOfARow = 40;
        bench::reportMemory(of("room of the packed rows, against 40 bytes each"), packed / mebibyte,
                            rows * mostBytesOfARow / mebibyte, 1);
    }

    bench::SampleBooks m_with;
    bench::SampleBooks m_without;
};

}  // namespace

int main() {
    for (const int accounts : {10'000, 50'000}) LogBench(accounts).run();
}
