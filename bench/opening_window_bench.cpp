// The opening balance window, from the command to the first painted page, measured against the
// bare read of what it shows.

#include <QApplication>
#include <optional>

#include "bench/grouped_books.h"
#include "bench/timing.h"
#include "data/lookups/cached_records.h"
#include "host/screen/CVCF1.h"
#include "host/screen/application.h"
#include "host/services/host_globals.h"
#include "opening/window/CNbCwBegleftDlg.h"

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
        bench::Pair pair;
        pair.reset = [this] { m_window.reset(); };
        pair.floor = [this] {
            require(m_books.readRaw().size() == static_cast<std::size_t>(m_books.accounts()),
                    "raw read");
        };
        pair.ours = [this] { open(); };
        bench::reportTimes("opening balance window open and painted, " +
                               std::to_string(m_books.accounts()) + " accounts",
                           pair, 3, 9);
    }

  private:
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
