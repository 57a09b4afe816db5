// Last year's balances carried forward: both years read, all periods of the new one written.

#include <array>
#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

#include "bench/raw_codes.h"
#include "bench/sample_books.h"
#include "bench/timing.h"
#include "books/carrying/carry_forward.h"
#include "session/host_globals.h"

namespace {

using bench::require;

/// An account as a program that knows nothing but the engine would match it.
struct RawAccount {
    int id;
    std::array<char, 20> code;
    bool isDebit;
};

class CarryingBench {
  public:
    explicit CarryingBench(int accounts) : m_before(accounts), m_now(accounts) {
        setYear(m_before, 2025);
        setYear(m_now, 2026);
        chengheng::RegistryChange change(m_registry);
        change.enter({1, "帐套", "", {}}, {2025, m_before.folder() + "/Nbzw.db"});
        change.enter({1, "帐套", "", {}}, {2026, m_now.folder() + "/Nbzw.db"});
        require(change.save().isDone(), "listing the books");
    }

    void run() {
        bench::Pair pair;
        pair.reset = [this] {
            m_now.run("DELETE FROM AccSum");
            m_now.run("UPDATE ABIdTable SET lLastId = 0 WHERE sTable = 'AccSum'");
            m_now.run("PRAGMA wal_checkpoint(TRUNCATE)");
        };
        pair.floor = [this] { carryRaw(); };
        pair.ours = [this] {
            std::vector<chengheng::Notice> untold;
            require(chengheng::carryForward(m_registry, untold).outcome == chengheng::Outcome::done,
                    "carrying forward");
        };
        bench::reportTimes(
            "balances carried forward, " + std::to_string(m_now.accounts()) + " accounts", pair,
            1.3);
    }

  private:
    static void setYear(bench::SampleBooks& books, int year) {
        books.run(
            "INSERT INTO zAccountM (lId, sName, dtStart, sCodeLen, bFgn, lYear) VALUES "
            "(1, '帐套', '" +
            std::to_string(year) + "-01-01', '4222', 1, " + std::to_string(year) + ")");
    }
    static std::vector<RawAccount> readAccounts(bench::SampleBooks& books) {
        sqlite3_stmt* read = bench::prepare(
            books.raw(), "SELECT lId, sCode, bDirect FROM Code WHERE lId > 0 ORDER BY lId");
        std::vector<RawAccount> accounts;
        while (sqlite3_step(read) == SQLITE_ROW) {
            RawAccount& account = accounts.emplace_back();
            account.id = sqlite3_column_int(read, 0);
            account.isDebit = sqlite3_column_int(read, 2) == 1;
            std::strncpy(account.code.data(),
                         reinterpret_cast<const char*>(sqlite3_column_text(read, 1)),
                         account.code.size() - 1);
        }
        sqlite3_finalize(read);
        return accounts;
    }
    /// Accounts stand by their ids, which begin with 1 and have no gaps.
    void carryRaw() {
        const std::vector<RawAccount> before = readAccounts(m_before);
        const std::vector<RawAccount> now = readAccounts(m_now);
        require(before.size() == now.size(), "the floor's accounts");
        for (std::size_t at = 0; at < now.size(); ++at)
            require(before[at].id == now[at].id && before[at].code == now[at].code,
                    "the floor's comparison");
        sqlite3_stmt* read = bench::prepare(
            m_before.raw(), "SELECT * FROM AccSum WHERE byPeroid = 12 ORDER BY lCodeId");
        sqlite3_stmt* insert = bench::prepare(
            m_now.raw(), "INSERT INTO AccSum VALUES (?, ?, ?, ?, 0, 0, ?, 0, 0, ?, 0, 0)");
        m_now.run("BEGIN IMMEDIATE");
        int id = 0;
        while (sqlite3_step(read) == SQLITE_ROW) {
            const int account = sqlite3_column_int(read, 1);
            const int sign = before[static_cast<std::size_t>(account) - 1].isDebit ? 1 : -1;
            std::array<double, 3> closing{};
            for (int measure = 0; measure < 3; ++measure)
                closing[static_cast<std::size_t>(measure)] =
                    sqlite3_column_double(read, 3 + measure * 3) +
                    sign * (sqlite3_column_double(read, 4 + measure * 3) -
                            sqlite3_column_double(read, 5 + measure * 3));
            if (closing[0] == 0 && closing[1] == 0 && closing[2] == 0) continue;
            for (int period = 1; period <= 12; ++period) {
                sqlite3_bind_int(insert, 1, ++id);
                sqlite3_bind_int(insert, 2, account);
                sqlite3_bind_int(insert, 3, period);
                for (int measure = 0; measure < 3; ++measure)
                    sqlite3_bind_double(insert, 4 + measure,
                                        closing[static_cast<std::size_t>(measure)]);
                require(sqlite3_step(insert) == SQLITE_DONE, "the floor's row");
                sqlite3_reset(insert);
            }
        }
        m_now.run("UPDATE ABIdTable SET lLastId = " + std::to_string(id) +
                  " WHERE sTable = 'AccSum'");
        m_now.run("COMMIT");
        sqlite3_finalize(read);
        sqlite3_finalize(insert);
    }

    bench::SampleBooks m_before;
    bench::SampleBooks m_now;
    chengheng::HostSession m_session{{.database = &m_now.database(), .databaseName = "books"}};
    chengheng::BooksRegistry m_registry{m_now.folder()};
};

}  // namespace

int main() {
    for (const int accounts : {10'000, 50'000}) CarryingBench(accounts).run();
}
