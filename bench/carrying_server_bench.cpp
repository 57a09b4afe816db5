// Last year's balances carried forward over loopback on a PostgreSQL server: both years' schemas
// read, all periods of the new one written.

#include <array>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "bench/raw_server.h"
#include "bench/timing.h"
#include "books/carrying/carry_forward.h"
#include "data/access/CNbCwDB.h"
#include "session/host_globals.h"

namespace {

using bench::NumberText;
using bench::require;

constexpr const char* schemaBefore = "carrying_bench_2025";
constexpr const char* schemaNow = "carrying_bench_2026";
/// Rows that go out before the floor waits for the server.
constexpr int rowsAtOnce = 600;

/// An account as a program that knows nothing but the engine would match it.
struct RawAccount {
    int id;
    std::array<char, 20> code;
    bool isDebit;
};

/// The books of a year in a schema of their own.
class YearOnServer {
  public:
    YearOnServer(const std::string& address, const char* schema, int year, int accounts)
        : m_schema(schema), m_raw(address, schema), m_address(bench::withSchema(address, schema)) {
        NbCwDBInfo info;
        require(m_database.DBOpen(info, m_address.c_str(), "books", 0) != 0, "creating the books");
        m_raw.run(
            "INSERT INTO zAccountM (lId, sName, dtStart, sCodeLen, bFgn, lYear) VALUES "
            "(1, '帐套', '" +
            std::to_string(year) + "-01-01', '52', 1, " + std::to_string(year) + ")");
        m_raw.run("INSERT INTO zCodeClass (lId, lNum, sClsName, bDirect) VALUES (1, 1, '资产', 1)");
        m_raw.run(
            "INSERT INTO Code SELECT id, (10000 + id)::text, '往来单位核算科目' || id, "
            "'资产', 1, 1, 1, 0, 0, '', 'WLDW' || id, 0, 0, '金额式', 0, '' "
            "FROM generate_series(1, " +
            std::to_string(accounts) + ") id");
    }
    ~YearOnServer() {
        m_database.DBClose("books");
        m_raw.run("DROP SCHEMA " + m_schema + " CASCADE");
    }
    YearOnServer(const YearOnServer&) = delete;
    YearOnServer& operator=(const YearOnServer&) = delete;

    bench::RawServer& raw() { return m_raw; }
    CNbCwDB& database() { return m_database; }
    const std::string& address() const { return m_address; }

    std::vector<RawAccount> readAccounts() {
        std::vector<RawAccount> accounts;
        m_raw.query("SELECT lId, sCode, bDirect FROM Code WHERE lId > 0 ORDER BY lId",
                    [&accounts](const PGresult* rows, int row) {
                        RawAccount& account = accounts.emplace_back();
                        account.id = std::atoi(PQgetvalue(rows, row, 0));
                        account.isDebit = std::atoi(PQgetvalue(rows, row, 2)) == 1;
                        std::strncpy(account.code.data(), PQgetvalue(rows, row, 1),
                                     account.code.size() - 1);
                    });
        return accounts;
    }

  private:
    std::string m_schema;
    bench::RawServer m_raw;
    std::string m_address;
    CNbCwDB m_database;
};

class CarryingServerBench {
  public:
    CarryingServerBench(const std::string& address, const std::string& folder, int accounts)
        : m_accounts(accounts),
          m_before(address, schemaBefore, 2025, accounts),
          m_now(address, schemaNow, 2026, accounts),
          m_registry(folder) {
        m_before.raw().run(
            "INSERT INTO AccSum SELECT (id - 1) * 12 + month, id, month, amount, amount * 0.5, "
            "0, 0, amount, 0, 0, 0, 0 FROM generate_series(1, " +
            std::to_string(accounts) +
            ") id, generate_series(1, 12) month, LATERAL (SELECT CASE WHEN id % 20 = 0 THEN 0 "
            "ELSE id * 12.34 + month END AS amount) amounts");
        m_before.raw().run("ANALYZE");
        m_now.raw().run("ANALYZE");
        m_now.raw().prepare("insert",
                            "INSERT INTO AccSum VALUES ($1, $2, $3, $4, 0, 0, $5, 0, 0, $6, 0, 0)");
        chengheng::RegistryChange change(m_registry);
        change.enter({1, "帐套", "", {}}, {2025, m_before.address()});
        change.enter({1, "帐套", "", {}}, {2026, m_now.address()});
        require(change.save().isDone(), "listing the books");
        m_session.emplace(
            chengheng::SessionFacts{.database = &m_now.database(), .databaseName = "books"});
    }

    void run() {
        bench::Pair pair;
        pair.reset = [this] {
            m_now.raw().run("DELETE FROM AccSum");
            m_now.raw().run("UPDATE ABIdTable SET lLastId = 0 WHERE sTable = 'AccSum'");
            m_now.raw().run("VACUUM AccSum");
        };
        pair.floor = [this] { carryRaw(); };
        pair.ours = [this] {
            std::vector<chengheng::Notice> untold;
            require(chengheng::carryForward(m_registry, untold).outcome == chengheng::Outcome::done,
                    "carrying forward");
        };
        bench::reportTimes(
            "balances carried forward on PostgreSQL, " + std::to_string(m_accounts) + " accounts",
            pair, 1.3, 3);
    }

  private:
    struct Closing {
        int account;
        std::array<double, 3> figures;
    };
    /// Accounts stand by their ids, which begin with 1 and have no gaps.
    std::vector<Closing> readClosings(const std::vector<RawAccount>& accounts) {
        std::vector<Closing> closings;
        m_before.raw().query(
            "SELECT * FROM AccSum WHERE byPeroid = 12 ORDER BY lCodeId",
            [&](const PGresult* rows, int row) {
                const auto number = [&](int column) {
                    return std::strtod(PQgetvalue(rows, row, column), nullptr);
                };
                Closing closing{std::atoi(PQgetvalue(rows, row, 1)), {}};
                const int sign =
                    accounts[static_cast<std::size_t>(closing.account) - 1].isDebit ? 1 : -1;
                for (int measure = 0; measure < 3; ++measure)
                    closing.figures[static_cast<std::size_t>(measure)] =
                        number(3 + measure * 3) +
                        sign * (number(4 + measure * 3) - number(5 + measure * 3));
                const auto& [money, quantity, foreign] = closing.figures;
                if (money != 0 || quantity != 0 || foreign != 0) closings.push_back(closing);
            });
        return closings;
    }
    void carryRaw() {
        const std::vector<RawAccount> before = m_before.readAccounts();
        const std::vector<RawAccount> now = m_now.readAccounts();
        require(before.size() == now.size(), "the floor's accounts");
        for (std::size_t at = 0; at < now.size(); ++at)
            require(before[at].id == now[at].id && before[at].code == now[at].code,
                    "the floor's comparison");
        const std::vector<Closing> closings = readClosings(before);
        bench::RawServer& server = m_now.raw();
        server.run("BEGIN");
        int id = 0;
        for (auto next = closings.begin(); next != closings.end();)
            server.pipeline([&] {
                for (int sent = 0; sent < rowsAtOnce && next != closings.end(); ++next)
                    for (int period = 1; period <= 12; ++period, ++sent)
                        sendRow(++id, *next, period);
            });
        server.run("UPDATE ABIdTable SET lLastId = " + std::to_string(id) +
                   " WHERE sTable = 'AccSum'");
        server.run("COMMIT");
    }
    void sendRow(int id, const Closing& closing, int period) {
        NumberText row, account, month, money, quantity, foreign;
        const auto& figures = closing.figures;
        m_now.raw().send("insert", {row(id), account(closing.account), month(period),
                                    money(figures[0]), quantity(figures[1]), foreign(figures[2])});
    }

    int m_accounts;
    YearOnServer m_before;
    YearOnServer m_now;
    chengheng::BooksRegistry m_registry;
    std::optional<chengheng::HostSession> m_session;
};

}  // namespace

int main() {
    const char* address = std::getenv("CHENGHENG_TEST_POSTGRES");
    require(address != nullptr, "finding the address of the private server");
    const std::filesystem::path folder =
        std::filesystem::temp_directory_path() / "chengheng-carrying-bench";
    for (const int accounts : {10'000, 50'000}) {
        std::filesystem::create_directories(folder);
        CarryingServerBench(address, folder.string(), accounts).run();
        std::filesystem::remove_all(folder);
    }
}
