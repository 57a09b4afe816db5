// The chart of accounts window, measured against the bare read of its accounts.

#include <QApplication>
#include <QLineEdit>
#include <optional>
#include <string>

#include "accounts/screen/chart_commands.h"
#include "accounts/screen/chart_screen.h"
#include "accounts/window/CNbCwBursarDlg.h"
#include "accounts/window/chart_model.h"
#include "bench/raw_codes.h"
#include "bench/sample_books.h"
#include "bench/timing.h"
#include "data/lookups/cached_records.h"
#include "data/tables/accounts.h"
#include "screen/application.h"
#include "screen/grid/CVCF1.h"
#include "session/host_globals.h"

namespace {

namespace chart_command = chengheng::chart_command;
using bench::require;

class MeasuredChart : public CNbCwBursarDlg {
  public:
    using CNbCwBursarDlg::OnCommand;

    CVCF1& grid() const { return *findChild<CVCF1*>("chart"); }
    /// Paints the page in sight.
    void paint() {
        QCoreApplication::processEvents();
        require(!grid().grab().isNull(), "painting the grid");
    }
};

class ChartBench {
  public:
    explicit ChartBench(int accounts)
        : m_books(accounts),
          m_session({.database = &m_books.database(), .databaseName = "books"}),
          m_lookups("books") {
        m_books.run("INSERT INTO zCodeClass (lId, lNum, sClsName) VALUES (1, 1, '资产')");
        m_raw = bench::prepare(m_books.raw(), "SELECT * FROM Code WHERE lId > 0 ORDER BY sCode");
        m_pair.floor = [this] {
            require(bench::rawCodes(m_raw).size() == static_cast<std::size_t>(m_books.accounts()),
                    "raw read");
        };
    }
    ~ChartBench() { sqlite3_finalize(m_raw); }
    ChartBench(const ChartBench&) = delete;
    ChartBench& operator=(const ChartBench&) = delete;

    void run() {
        opening();
        open();
        switching();
        finding();
        saving();
    }

  private:
    void open() {
        m_window.emplace();
        m_window->show();
        m_window->paint();
        require(m_window->grid().model()->rowCount() == m_books.accounts(), "listing the chart");
    }
    void report(const std::string& work, double target) {
        bench::reportTimes(work + " of " + std::to_string(m_books.accounts()) + " accounts", m_pair,
                           target);
    }
    void opening() {
        m_pair.reset = [this] { m_window.reset(); };
        m_pair.ours = [this] { open(); };
        report("chart window open and painted", 3);
        m_pair.reset = [] {};
    }
    void switching() {
        m_pair.ours = [this] {
            require(m_window->OnCommand(chart_command::allAccounts + 1), "switching the tab");
            m_window->paint();
        };
        report("switch to the tab of a class", 3);
    }
    void finding() {
        m_pair.ours = [this] {
            auto* field = m_window->findChild<QLineEdit*>("search");
            field->setText(QString::number(1000000 + m_books.accounts()));
            m_window->paint();
            require(m_window->grid().currentRow() == m_books.accounts() - 1, "searching");
            field->clear();
        };
        report("search as you type, painted,", 1);
        m_pair.ours = [this] {
            require(m_screen.find(std::to_string(1000000 + m_books.accounts())).has_value(),
                    "finding");
        };
        require(m_screen.load("资产").isDone(), "reading the accounts");
        report("find the last", 0.5);
    }
    void saving() {
        chengheng::ChartModel model(m_screen, m_search);
        _CodeInfo account;
        account.sType = "资产";
        account.byGrade = 2;
        m_pair.ours = [&] {
            account.lId = ++m_lastId + m_books.accounts();
            account.sCode = "1000500" + std::to_string(m_lastId);
            require(model.place(account) >= 0, "placing a saved account");
        };
        report("row of a saved account among those", 0.1);
    }

    bench::SampleBooks m_books;
    chengheng::HostSession m_session;
    chengheng::BookLookups m_lookups;
    sqlite3_stmt* m_raw = nullptr;
    bench::Pair m_pair;
    std::optional<MeasuredChart> m_window;
    chengheng::ChartScreen m_screen;
    chengheng::ChartSearch m_search{m_screen};
    int m_lastId = 0;
};

}  // namespace

int main(int count, char** arguments) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(count, arguments);
    chengheng::prepareApplication(application);
    for (const int accounts : {10'000, 50'000}) ChartBench(accounts).run();
}
