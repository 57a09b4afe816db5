// The opening balance window, from the command to the first painted page, measured against the
// bare read of what it shows: while the balances may be edited, and so rows that carry nothing are
// swept first, and once vouchers are there.

#include <QApplication>
#include <functional>
#include <optional>
#include <string>

#include "bench/grouped_books.h"
#include "bench/raw_codes.h"
#include "bench/timing.h"
#include "data/lookups/cached_records.h"
#include "opening/storing/opening_sql.h"
#include "opening/window/CNbCwBegleftDlg.h"
#include "screen/application.h"
#include "screen/grid/CVCF1.h"
#include "session/host_globals.h"

namespace {

using bench::require;

class OpeningWindowBench {
  public:
    explicit OpeningWindowBench(int accounts)
        : m_books(accounts),
          m_session({.database = &m_books.database(), .databaseName = "books"}),
          m_lookups("books") {
        // The first window sweeps the rows that carry nothing; the others find none.
        open();
    }

    void run() {
        report("open and painted", [this] { readRaw(); });
        report("open and painted, against sweep and read", [this] {
            sweepRaw();
            readRaw();
        });
        m_books.run("INSERT INTO RegMain (lId, byPeroid) VALUES (1, 1)");
        report("of books with vouchers open and painted", [this] { readRaw(); });
    }

  private:
    void report(const char* work, const std::function<void()>& floor) {
        bench::Pair pair;
        pair.reset = [this] { m_window.reset(); };
        pair.floor = floor;
        pair.ours = [this] { open(); };
        bench::reportTimes("opening balance window " + std::string(work) + ", " +
                               std::to_string(m_books.accounts()) + " accounts",
                           pair, 1.6, 9);
    }
    void readRaw() {
        require(m_books.readRaw().size() == static_cast<std::size_t>(m_books.accounts()),
                "raw read");
    }
    /// Asks for the rows that carry nothing; there are none.
    void sweepRaw() {
        sqlite3_stmt* sizes = bench::prepare(m_books.raw(), chengheng::opening_sql::sumSizes);
        while (sqlite3_step(sizes) == SQLITE_ROW)
            require(sqlite3_column_double(sizes, 0) != 0, "finding nothing to sweep");
        sqlite3_finalize(sizes);
    }
    void open() {
        m_window.emplace();
        m_window->show();
        QCoreApplication::processEvents();
        auto* const grid = m_window->findChild<CVCF1*>("openings");
        require(grid != nullptr && !grid->grab().isNull(), "painting the grid");
        require(grid->model()->rowCount() == m_books.accounts(), "listing the accounts");
    }

    bench::GroupedBooks m_books;
    chengheng::HostSession m_session;
    chengheng::BookLookups m_lookups;
    std::optional<CNbCwBegleftDlg> m_window;
};

}  // namespace

int main(int count, char** arguments) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(count, arguments);
    chengheng::prepareApplication(application);
    for (const int accounts : {10'000, 50'000}) OpeningWindowBench(accounts).run();
}
