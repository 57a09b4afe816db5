// Opening balances over loopback on a PostgreSQL server: reading and rolling up, saving the
// accounts above others, one edit from the keystroke to the disk, the sweep.

#include <cstdlib>
#include <cstring>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "bench/grouped_books.h"
#include "bench/grouped_server_books.h"
#include "bench/raw_server.h"
#include "bench/silent_messages.h"
#include "bench/timing.h"
#include "data/access/unit_of_work.h"
#include "opening/screen/opening_work.h"
#include "opening/sheet/roll_up.h"
#include "opening/storing/opening_sql.h"
#include "opening/storing/saving.h"
#include "opening/storing/zero_row_sweep.h"
#include "session/host_globals.h"

namespace {

using bench::NumberText;
using bench::require;

constexpr std::size_t editedLine = 7;
/// The floor edits another group: its sums are not those of the accounts below.
constexpr int rawEdited[] = {41, 48};
constexpr const char* schema = "opening_bench";

/// The books of GroupedBooks on a server.
class ServerOpeningBench {
  public:
    ServerOpeningBench(const std::string& address, int accounts)
        : m_accounts(accounts), m_raw(address, schema) {
        NbCwDBInfo info;
        const std::string books = bench::withSchema(address, schema);
        require(m_database.DBOpen(info, books.c_str(), "books", 0) != 0, "creating the books");
        bench::fillGroupedBooks(m_raw, accounts);
        m_raw.prepare("read", "SELECT * FROM AccSum WHERE lCodeId = $1");
        m_raw.prepare("update",
                      "UPDATE AccSum SET mBegin = $1, mFgnBegin = $2, dAmtBegin = $3 "
                      "WHERE lCodeId = $4");
        m_raw.prepare("insert",
                      "INSERT INTO AccSum VALUES($1,$2,$3,$4,0.0,0.0,$5,0.0,0.0,0.0,0.0,0.0)");
        m_session.emplace(
            chengheng::SessionFacts{.database = &m_database, .databaseName = "books"});
    }
    ~ServerOpeningBench() {
        m_session.reset();
        m_database.DBClose("books");
        m_raw.run(std::string("DROP SCHEMA ") + schema + " CASCADE");
    }
    ServerOpeningBench(const ServerOpeningBench&) = delete;
    ServerOpeningBench& operator=(const ServerOpeningBench&) = delete;

    void run() {
        sweeping();
        reading();
        saving(
            "update path", [this] { changeParents(); }, &ServerOpeningBench::updateRaw);
        saving(
            "rebuild path", [this] { deleteParents(); }, &ServerOpeningBench::insertRaw);
        editing();
    }

  private:
    std::string of(const std::string& work) const {
        return work + " on PostgreSQL, " + std::to_string(m_accounts) + " accounts";
    }
    std::string ofParents() const {
        return " WHERE (lCodeId - 1) % " + std::to_string(bench::accountsInAGroup) + " = 0";
    }
    std::vector<bench::RawAccount> readRaw();
    void reading() {
        bench::Pair pair;
        pair.floor = [this] {
            require(readRaw().size() == static_cast<std::size_t>(m_accounts), "raw read");
        };
        pair.ours = [this] {
            require(m_database.DBSelect("books") != 0, "selecting");
            require(chengheng::readOpeningBooks(m_database, m_read).isDone(), "reading");
        };
        bench::reportTimes(of("opening data ready for the grid"), pair, 1.3);
    }

    void changeParents() { m_raw.run("UPDATE AccSum SET mBegin = mBegin + 1" + ofParents()); }
    void deleteParents() { m_raw.run("DELETE FROM AccSum" + ofParents()); }
    void updateRaw(int id) {
        NumberText money, foreign, quantity, account;
        m_raw.execute("update", {money(id * 1.5), foreign(0.0), quantity(id * 2.5), account(id)});
    }
    /// The twelve rows go out at once, as in any pipeline.
    void insertRaw(int id) {
        NumberText row, account, month, money, quantity;
        m_raw.pipeline([&] {
            for (int period = 1; period <= 12; ++period)
                m_raw.send("insert", {row(++m_lastId), account(id), month(period), money(id * 1.5),
                                      quantity(id * 2.5)});
        });
    }
    void saveRaw(void (ServerOpeningBench::*write)(int)) {
        m_lastId = 100 * m_accounts;
        m_raw.run("BEGIN");
        NumberText account;
        for (int id = 1; id <= m_accounts; ++id) {
            if (!bench::isAboveOthers(id)) continue;
            m_raw.execute("read", {account(id)});
            (this->*write)(id);
        }
        m_raw.run("COMMIT");
    }
    void saving(const char* path, const std::function<void()>& reset,
                void (ServerOpeningBench::*write)(int)) {
        bench::Pair pair;
        pair.reset = reset;
        pair.floor = [this, write] { saveRaw(write); };
        pair.ours = [this] {
            chengheng::UnitOfWork unit(m_database);
            require(unit.isOpen() && chengheng::postParents(m_database, m_read.sheet).isDone() &&
                        unit.commit().isDone(),
                    "saving");
        };
        bench::reportTimes(of(std::string("save of all accounts above others, ") + path), pair, 1.5,
                           3);
    }

    void editRaw() {
        m_amount += 1;
        NumberText money, zero, account;
        m_raw.run("BEGIN");
        for (const int id : rawEdited)
            m_raw.execute("update", {money(m_amount), zero(0.0), zero(0.0), account(id)});
        m_raw.run("COMMIT");
    }
    void editing() {
        bench::SilentMessages messages;
        chengheng::OpeningWork work(messages);
        const std::size_t column =
            chengheng::placeOf(chengheng::OpeningField::opening, chengheng::OpeningLayout::simple);
        bench::Pair pair;
        pair.floor = [this] { editRaw(); };
        pair.ours = [&] {
            m_amount += 1;
            require(work.endEdit(editedLine, column, std::to_string(m_amount)) ==
                        chengheng::Outcome::done,
                    "an edit");
        };
        // What the floor wrote is read before the edit that is timed.
        pair.reset = [&] {
            require(work.refresh() == chengheng::Outcome::done, "reading the window");
        };
        bench::reportTimes(of("one edit, keystroke to durable"), pair, 1.5, 15);
    }

    void sweepRaw() {
        m_raw.run("BEGIN");
        std::string ids;
        m_raw.query(chengheng::opening_sql::sumSizes, [&ids](const PGresult* rows, int row) {
            if (std::strtod(PQgetvalue(rows, row, 0), nullptr) == 0)
                ids.append(ids.empty() ? "" : ",").append(PQgetvalue(rows, row, 1));
        });
        require(!ids.empty(), "finding empty accounts");
        m_raw.run("DELETE FROM AccSum WHERE lCodeId IN (" + ids + ")");
        m_raw.run("ROLLBACK");
    }
    void sweeping() {
        bench::Pair pair;
        pair.floor = [this] { sweepRaw(); };
        pair.ours = [this] {
            require(m_database.DBSelect("books") != 0, "selecting");
            chengheng::UnitOfWork unit(m_database);
            require(chengheng::sweepZeroRows(m_database).isDone(), "sweeping");
        };
        bench::reportTimes(of("sweep of rows without figures"), pair, 1.2);
        const auto sweep = [this] {
            require(chengheng::sweepZeroRows(m_database).isDone(), "sweeping");
        };
        sweep();
        bench::reportLimit(of("sweep with nothing to sweep"), sweep, 5);
    }

    int m_accounts;
    bench::RawServer m_raw;
    CNbCwDB m_database;
    std::optional<chengheng::HostSession> m_session;
    chengheng::OpeningBooks m_read;
    int m_lastId = 0;
    double m_amount = 1;
};

std::vector<bench::RawAccount> ServerOpeningBench::readRaw() {
    std::vector<bench::RawAccount> accounts;
    accounts.reserve(static_cast<std::size_t>(m_accounts));
    std::vector<std::size_t> places(static_cast<std::size_t>(m_accounts) + 1);
    m_raw.query("SELECT * FROM Code WHERE lId > 0 ORDER BY sCode", [&](const PGresult* rows,
                                                                       int row) {
        bench::RawAccount& account = accounts.emplace_back();
        places[static_cast<std::size_t>(std::atoi(PQgetvalue(rows, row, 0)))] = accounts.size() - 1;
        std::strncpy(account.code, PQgetvalue(rows, row, 1), sizeof account.code - 1);
        account.isEnd = std::atoi(PQgetvalue(rows, row, 5)) != 0;
    });
    m_raw.query("SELECT * FROM AccSum WHERE byPeroid = 1 AND mBegin IS NOT NULL ORDER BY lCodeId",
                [&](const PGresult* rows, int row) {
                    const int id = std::atoi(PQgetvalue(rows, row, 1));
                    bench::RawAccount& account = accounts[places[static_cast<std::size_t>(id)]];
                    account.money = std::strtod(PQgetvalue(rows, row, 3), nullptr);
                    account.quantity = std::strtod(PQgetvalue(rows, row, 6), nullptr);
                    account.foreign = std::strtod(PQgetvalue(rows, row, 9), nullptr);
                });
    bench::rollUpRaw(accounts);
    return accounts;
}

}  // namespace

int main() {
    const char* address = std::getenv("CHENGHENG_TEST_POSTGRES");
    require(address != nullptr, "finding the address of the private server");
    for (const int accounts : {10'000, 50'000}) ServerOpeningBench(address, accounts).run();
}
