// What the operation log costs: the same work on books that keep it and on books that do not, and
// the room that its rows take.

#include <string>
#include <utility>

#include "accounts/transfer/import_plan.h"
#include "accounts/transfer/plan_writing.h"
#include "bench/grouped_books.h"
#include "bench/post_all.h"
#include "bench/timing.h"
#include "data/access/unit_of_work.h"
#include "data/log/log_author.h"
#include "opening/storing/opening_reading.h"
#include "opening/storing/saving.h"
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
        for (bench::GroupedBooks* books : both())
            books->run("CREATE TABLE Kept AS SELECT * FROM AccSum");
    }

    void run() {
        sweeping();
        editing();
        posting();
        reportRoom();
        saving();
        importing();
    }

  private:
    std::vector<bench::GroupedBooks*> both() { return {&m_with, &m_without}; }
    std::string of(const char* work) const {
        return std::string("log kept: ") + work + ", " + std::to_string(m_with.accounts()) +
               " accounts";
    }
    void emptyBoth(const char* filling) {
        for (bench::GroupedBooks* books : both()) {
            books->run("DELETE FROM AccSum");
            books->run(filling);
            // Else the pages of what was logged before lie between those of the rows.
            books->run("VACUUM");
            books->run("PRAGMA wal_checkpoint(TRUNCATE)");
        }
    }

    static void sweep(bench::GroupedBooks& books) {
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

    static void edit(bench::GroupedBooks& books) {
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

    void save(bench::GroupedBooks& books) {
        chengheng::UnitOfWork unit(books.database());
        require(unit.isOpen() && postParents(books.database(), m_read.sheet).isDone() &&
                    unit.commit().isDone(),
                "saving");
    }
    void saving() {
        emptyBoth("INSERT INTO AccSum SELECT * FROM Kept");
        require(readOpeningBooks(m_with.database(), m_read).isDone(), "reading");
        bench::Pair pair;
        pair.reset = [this] {
            for (bench::GroupedBooks* books : both())
                books->run("UPDATE AccSum SET mBegin = mBegin + 1 WHERE (lCodeId - 1) % " +
                           std::to_string(bench::accountsInAGroup) + " = 0");
        };
        pair.ours = [this] { save(m_with); };
        pair.floor = [this] { save(m_without); };
        bench::reportTimes(of("save of all accounts above others"), pair, 1.15, 5);
    }

    /// As many accounts again, in groups behind those that are there.
    chengheng::ImportPlan planOfImport() {
        using chengheng::ChartField;
        chengheng::ChartState state;
        require(readChartState(m_with.database(), state).isDone(), "reading the chart");
        chengheng::ChartSheet sheet;
        for (int account = 0; account < m_with.accounts(); ++account) {
            const int member = account % bench::accountsInAGroup;
            chengheng::ChartRow& row = sheet.rows.emplace_back();
            row.row = sheet.rows.size() + 1;
            const auto say = [&row](ChartField field, std::string text) {
                row.cells[static_cast<std::size_t>(field)] = std::move(text);
            };
            say(ChartField::className, "资产");
            say(ChartField::code,
                std::to_string(firstImported + account / bench::accountsInAGroup) +
                    (member == 0 ? "" : std::to_string(10 + member)));
            say(ChartField::name, "往来单位核算科目" + std::to_string(account));
        }
        chengheng::ImportPlan plan = planImport(sheet, state);
        require(plan.added.size() == static_cast<std::size_t>(m_with.accounts()), "the plan");
        return plan;
    }
    static void import(bench::GroupedBooks& books, const chengheng::ImportPlan& plan) {
        chengheng::UnitOfWork unit(books.database());
        require(
            unit.isOpen() && writePlan(books.database(), plan).isDone() && unit.commit().isDone(),
            "importing");
    }
    void importing() {
        const chengheng::ImportPlan plan = planOfImport();
        bench::Pair pair;
        pair.reset = [this] {
            for (bench::GroupedBooks* books : both()) {
                books->run("DELETE FROM Code WHERE sCode >= '" + std::to_string(firstImported) +
                           "'");
                books->run(
                    "UPDATE ABIdTable SET lLastId = (SELECT max(lId) FROM Code) WHERE sTable "
                    "= 'Code'");
                books->run("PRAGMA wal_checkpoint(TRUNCATE)");
            }
        };
        pair.ours = [&] { import(m_with, plan); };
        pair.floor = [&] { import(m_without, plan); };
        bench::reportTimes(of("import of as many accounts"), pair, 1.15, 3);
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

    static constexpr int firstImported = 50'000;

    bench::GroupedBooks m_with;
    bench::GroupedBooks m_without;
    chengheng::OpeningBooks m_read;
};

}  // namespace

int main() {
    for (const int accounts : {10'000, 50'000}) LogBench(accounts).run();
}
