// Currencies with a year of daily rates: opening their window, showing a month, adding one.

#include <fmt/format.h>

#include <charconv>
#include <string>
#include <vector>

#include "bench/raw_codes.h"
#include "bench/sample_books.h"
#include "bench/silent_messages.h"
#include "bench/timing.h"
#include "currency/currency_form.h"
#include "currency/screen/rate_overview.h"
#include "session/host_globals.h"

namespace {

using bench::require;
using chengheng::CurrencyForm;
using chengheng::RateKind;
using chengheng::RateOverview;

constexpr int accounts = 500;
constexpr int currencies = 50;
constexpr int year = 2026;
constexpr int days = 365;
constexpr int months = 12;
/// What is over in a moment is done so many times.
constexpr int times = 200;

/// A rate as a program that knows nothing but the engine would keep it.
struct RawRate {
    int id;
    int year, month, day;
    double rate, adjustRate;
};

class CurrenciesBench {
  public:
    CurrenciesBench() {
        m_books.run(fmt::format(
            "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < {}) "
            "INSERT INTO Cyrency SELECT i, i, printf('C%02d', i), printf('外币%02d', i), 1, 5, 0 "
            "FROM n",
            currencies));
        fillRates("ExchgFix", months, "date('2026-01-01', '+' || (j - 1) || ' months')");
        fillRates("ExchgFlt", days, "date('2026-01-01', '+' || (j - 1) || ' days')");
        m_books.run("UPDATE Code SET byExchId = lId % 50 + 1 WHERE lId <= 20");
        setCounters();
        require(m_books.database().DBSelect("books") != 0, "selecting");
    }
    ~CurrenciesBench() {
        for (sqlite3_stmt* statement : {m_all, m_one, m_used, m_fixed, m_month})
            sqlite3_finalize(statement);
    }
    CurrenciesBench(const CurrenciesBench&) = delete;
    CurrenciesBench& operator=(const CurrenciesBench&) = delete;

    void run() {
        opening();
        showing();
        adding();
    }

  private:
    void fillRates(const char* table, int rows, const char* day) {
        m_books.run(fmt::format(
            "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < {0}), "
            "d(j) AS (SELECT 1 UNION ALL SELECT j + 1 FROM d WHERE j < {1}) "
            "INSERT INTO {2} SELECT (i - 1) * {1} + j, i, {3}, CAST(strftime('%m', {3}) AS "
            "INTEGER), 7.0 + j / 1000.0, 0 FROM n, d",
            currencies, rows, table, day));
    }
    void setCounters() {
        m_books.run(
            fmt::format("UPDATE ABIdTable SET lLastId = {} WHERE sTable = 'Cyrency'", currencies));
        m_books.run(fmt::format("UPDATE ABIdTable SET lLastId = {} WHERE sTable = 'ExchgFix'",
                                currencies * months));
        m_books.run(fmt::format("UPDATE ABIdTable SET lLastId = {} WHERE sTable = 'ExchgFlt'",
                                currencies * days));
    }
    sqlite3_stmt* prepare(const char* sql) { return bench::prepare(m_books.raw(), sql); }

    static std::string text(sqlite3_stmt* row, int column) {
        return reinterpret_cast<const char*>(sqlite3_column_text(row, column));
    }
    static std::vector<_CyrencyInfo> readRaw(sqlite3_stmt* read) {
        std::vector<_CyrencyInfo> found;
        while (sqlite3_step(read) == SQLITE_ROW)
            found.push_back({sqlite3_column_int(read, 0),
                             static_cast<std::uint8_t>(sqlite3_column_int(read, 1)), text(read, 2),
                             text(read, 3), static_cast<std::int16_t>(sqlite3_column_int(read, 4)),
                             static_cast<std::uint8_t>(sqlite3_column_int(read, 5)),
                             static_cast<float>(sqlite3_column_double(read, 6))});
        sqlite3_reset(read);
        return found;
    }
    static int numberIn(const char* text, int length) {
        int number = 0;
        std::from_chars(text, text + length, number);
        return number;
    }
    /// A rate belongs to its day, wherever it stands in the list.
    static std::size_t readRates(sqlite3_stmt* read) {
        std::vector<RawRate> found;
        while (sqlite3_step(read) == SQLITE_ROW) {
            const auto* date = reinterpret_cast<const char*>(sqlite3_column_text(read, 2));
            found.push_back({sqlite3_column_int(read, 0), numberIn(date, 4), numberIn(date + 5, 2),
                             numberIn(date + 8, 2), sqlite3_column_double(read, 4),
                             sqlite3_column_double(read, 5)});
        }
        sqlite3_reset(read);
        return found.size();
    }
    bool isUsed() {
        const bool found = sqlite3_step(m_used) == SQLITE_ROW;
        sqlite3_reset(m_used);
        return found;
    }

    void opening() {
        bench::Pair pair;
        pair.floor = [this] {
            for (int time = 0; time < times; ++time)
                require(readRaw(m_all).size() == currencies && readRaw(m_one).size() == 1 &&
                            !isUsed() && readRates(m_fixed) == months,
                        "the floor's opening");
        };
        pair.ours = [this] {
            for (int time = 0; time < times; ++time) {
                CurrencyForm form(m_messages, {year, 5, 31});
                RateOverview overview(form, m_messages, {});
                form.open();
                overview.follow();
                require(form.leaves().rowCount() == currencies &&
                            form.sheet().rowCount() == months && !form.isUsed(),
                        "opening");
            }
        };
        bench::reportTimes("currencies opened, 50 with a year of rates", pair, 1.3);
    }

    void showing() {
        CurrencyForm form(m_messages, {year, 5, 31});
        RateOverview overview(form, m_messages, {});
        form.open();
        form.showKind(RateKind::floating);
        overview.follow();
        bench::Pair pair;
        pair.floor = [this] {
            for (int time = 0; time < times; ++time) {
                sqlite3_bind_int(m_month, 1, time % 2 + 7);
                require(readRates(m_month) == 31, "the floor's month");
            }
        };
        pair.ours = [&] {
            for (int time = 0; time < times; ++time) {
                form.showMonth(time % 2 + 7);
                overview.follow();
                require(form.sheet().rowCount() == 31 && form.sheet().idIn(30) != 0, "a month");
            }
        };
        bench::reportTimes("month of daily rates shown, of 50 currencies", pair, 1.3);
    }

    void removeLast() {
        m_books.run(fmt::format("DELETE FROM Cyrency WHERE lId > {}", currencies));
        m_books.run(fmt::format("DELETE FROM ExchgFix WHERE byExchId > {}", currencies));
        m_books.run(fmt::format("DELETE FROM ExchgFlt WHERE byExchId > {}", currencies));
        setCounters();
    }

    static void bindRate(sqlite3_stmt* insert, int id, int month, int day) {
        const std::string date = fmt::format("{}-{:02}-{:02}", year, month, day);
        sqlite3_bind_int(insert, 1, id);
        sqlite3_bind_text(insert, 2, date.c_str(), -1, SQLITE_TRANSIENT);
        sqlite3_bind_int(insert, 3, month);
        require(sqlite3_step(insert) == SQLITE_DONE, "the floor's rate");
        sqlite3_reset(insert);
    }
    void addRaw() {
        sqlite3_stmt* fixed = prepare("INSERT INTO ExchgFix VALUES (?, 51, ?, ?, 0, 0)");
        sqlite3_stmt* floating = prepare("INSERT INTO ExchgFlt VALUES (?, 51, ?, ?, 0, 0)");
        m_books.run("BEGIN IMMEDIATE");
        m_books.run("INSERT INTO Cyrency VALUES (51, 51, 'NEW', '新币', 1, 5, 0.00001)");
        int id = currencies * months;
        int dayId = currencies * days;
        for (int month = 1; month <= months; ++month) {
            bindRate(fixed, ++id, month, 1);
            for (int day = 1; day <= chengheng::daysInMonth(year, month); ++day)
                bindRate(floating, ++dayId, month, day);
        }
        m_books.run("UPDATE ABIdTable SET lLastId = 51 WHERE sTable = 'Cyrency'");
        m_books.run("UPDATE ABIdTable SET lLastId = 612 WHERE sTable = 'ExchgFix'");
        m_books.run("UPDATE ABIdTable SET lLastId = 18615 WHERE sTable = 'ExchgFlt'");
        m_books.run("COMMIT");
        sqlite3_finalize(fixed);
        sqlite3_finalize(floating);
    }

    void adding() {
        chengheng::CurrencyService service(m_messages);
        bench::Pair pair;
        pair.reset = [this] { removeLast(); };
        pair.floor = [this] { addRaw(); };
        pair.ours = [&] {
            _CyrencyInfo added;
            require(service.add({"NEW", "新币"}, year, added) == chengheng::Outcome::done,
                    "adding");
        };
        bench::reportTimes("currency added with 12 and 365 rates", pair, 1.5, 15);
    }

    bench::SampleBooks m_books{accounts};
    chengheng::HostSession m_session{{.database = &m_books.database(), .databaseName = "books"}};
    bench::SilentMessages m_messages;
    sqlite3_stmt* m_all = prepare("SELECT * FROM Cyrency WHERE lId > 0 ORDER BY lId");
    sqlite3_stmt* m_one = prepare("SELECT * FROM Cyrency WHERE lId = 1");
    sqlite3_stmt* m_used = prepare("SELECT * FROM Code WHERE byExchId = 1 LIMIT 1");
    sqlite3_stmt* m_fixed = prepare("SELECT * FROM ExchgFix WHERE byExchId = 1 ORDER BY byPeroid");
    sqlite3_stmt* m_month =
        prepare("SELECT * FROM ExchgFlt WHERE byExchId = 1 AND byPeroid = ? ORDER BY dtDate");
};

}  // namespace

int main() { CurrenciesBench().run(); }
