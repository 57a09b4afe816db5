// Auxiliary opening entries: what the window shows of an account with many of them, and writing
// those of many units at once.

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <unordered_map>
#include <vector>

#include "auxiliary/entries/entry_reading.h"
#include "auxiliary/entries/entry_service.h"
#include "auxiliary/transfer/entry_import.h"
#include "bench/sample_books.h"
#include "bench/silent_messages.h"
#include "bench/timing.h"
#include "session/host_globals.h"

namespace {

using bench::require;

constexpr int accounts = 100;
constexpr int shownEntries = 50'000;
constexpr int writtenEntries = 3'000;
constexpr int periods = 12;

const chengheng::AuxiliaryMember& member() {
    return chengheng::memberOf(chengheng::AuxiliaryKind::unit);
}

/// An entry as a program that knows nothing but the engine would show it.
struct RawEntry {
    int line, header;
    std::string date, sign;
    int number;
    std::string summary;
    int direction;
    double money, foreign, quantity;
    int unit;
    std::string name;
};

sqlite3_stmt* prepare(sqlite3* raw, const char* sql) {
    sqlite3_stmt* statement = nullptr;
    require(sqlite3_prepare_v2(raw, sql, -1, &statement, nullptr) == SQLITE_OK, sql);
    return statement;
}

void insert(sqlite3_stmt* statement) {
    require(sqlite3_step(statement) == SQLITE_DONE, "the floor's insert");
    sqlite3_reset(statement);
}

class EntriesBench {
  public:
    EntriesBench() {
        m_books.run("UPDATE Code SET sAssBook = 'B', bEnd = 1, bDirect = 1 WHERE lId <= 2");
        m_books.run(
            "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 5000) "
            "INSERT INTO Enter (lId, lClassId, sEnterCode, sEnterName) "
            "SELECT i, 1, printf('U%05d', i), printf('客户%05d有限公司', i) FROM n");
        require(m_books.database().DBSelect("books") != 0, "selecting");
        std::vector<chengheng::AuxiliaryAccount> found;
        require(readAuxiliaryAccounts(m_books.database(), member(), found).isDone() &&
                    found.size() == 2,
                "the accounts");
        m_shown = found[0];
        m_written = found[1];
    }

    void run() {
        reading();
        writing();
        importing();
    }

  private:
    void fill() {
        m_books.run("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " +
                    std::to_string(shownEntries) +
                    ") INSERT INTO RegMain (lId, dtDate, sSign, lNumber) "
                    "SELECT i, '2025-12-31', '记', i FROM n");
        m_books.run(
            "INSERT INTO RegSub (lId, lTieId, lLine, sDigest, lCodeId, bDirect, mMoney, lEnterId, "
            "bBegin) SELECT lId, lId, 1, '应收货款', " +
            std::to_string(m_shown.id) + ", 1, lId * 1.25, lId % 5000 + 1, 1 FROM RegMain");
    }

    void readRaw() {
        sqlite3_stmt* read = prepare(
            m_books.raw(),
            "SELECT s.lId, m.lId, m.dtDate, m.sSign, m.lNumber, s.sDigest, s.bDirect, s.mMoney, "
            "s.mFgn, s.dAmt, s.lEnterId, e.sEnterName FROM RegSub s JOIN RegMain m ON m.lId = "
            "s.lTieId "
            "JOIN Enter e ON e.lId = s.lEnterId WHERE s.bBegin <> 0 AND s.lCodeId = ? AND "
            "s.lEnterId <> 0 ORDER BY s.lId");
        sqlite3_bind_int(read, 1, m_shown.id);
        std::vector<RawEntry> entries;
        const auto text = [read](int column) {
            return reinterpret_cast<const char*>(sqlite3_column_text(read, column));
        };
        while (sqlite3_step(read) == SQLITE_ROW)
            entries.push_back({sqlite3_column_int(read, 0), sqlite3_column_int(read, 1), text(2),
                               text(3), sqlite3_column_int(read, 4), text(5),
                               sqlite3_column_int(read, 6), sqlite3_column_double(read, 7),
                               sqlite3_column_double(read, 8), sqlite3_column_double(read, 9),
                               sqlite3_column_int(read, 10), text(11)});
        sqlite3_finalize(read);
        require(entries.size() == shownEntries, "the floor's read");
    }

    void reading() {
        fill();
        bench::Pair pair;
        pair.floor = [this] { readRaw(); };
        pair.ours = [this] {
            std::vector<chengheng::AuxiliaryEntry> entries;
            require(readEntries(m_books.database(), member(), m_shown, entries).isDone() &&
                        entries.size() == shownEntries,
                    "reading");
        };
        bench::reportTimes("opening entries of an account read, 50000", pair, 1.5);
        m_books.run("DELETE FROM RegSub");
        m_books.run("DELETE FROM RegMain");
    }

    void reset() {
        for (const char* table : {"RegSub", "RegMain", "AssAcc"})
            m_books.run(std::string("DELETE FROM ") + table);
    }

    void writeRaw() {
        sqlite3* raw = m_books.raw();
        sqlite3_stmt* header = prepare(
            raw,
            "INSERT INTO RegMain (lId, dtDate, sSign, lNumber) VALUES (?, '2025-12-31', ?, ?)");
        sqlite3_stmt* line = prepare(
            raw,
            "INSERT INTO RegSub (lId, lTieId, lLine, sDigest, lCodeId, bDirect, mMoney, lEnterId, "
            "bBegin) VALUES (?1, ?1, 1, '应收货款', ?2, 1, ?3, ?1, 1)");
        sqlite3_stmt* sums = prepare(
            raw,
            "INSERT INTO AssAcc VALUES (?, ?, ?, 0, 0, NULL, ?, '', ?, 0, 0, 0, 0, 0, 0, 0, 0)");
        m_books.run("BEGIN IMMEDIATE");
        for (int id = 1, row = 0; id <= writtenEntries; ++id) {
            sqlite3_bind_int(header, 1, id);
            sqlite3_bind_text(header, 2, "记", -1, SQLITE_STATIC);
            sqlite3_bind_int(header, 3, id);
            insert(header);
            sqlite3_bind_int(line, 1, id);
            sqlite3_bind_int(line, 2, m_written.id);
            sqlite3_bind_double(line, 3, id * 1.25);
            insert(line);
            for (int period = 1; period <= periods; ++period) {
                sqlite3_bind_int(sums, 1, ++row);
                sqlite3_bind_int(sums, 2, period);
                sqlite3_bind_int(sums, 3, m_written.id);
                sqlite3_bind_int(sums, 4, id);
                sqlite3_bind_double(sums, 5, id * 1.25);
                insert(sums);
            }
        }
        m_books.run("COMMIT");
        for (sqlite3_stmt* statement : {header, line, sums}) sqlite3_finalize(statement);
    }

    void writing() {
        std::vector<chengheng::EntryChange> changes;
        for (int unit = 1; unit <= writtenEntries; ++unit) {
            chengheng::AuxiliaryEntry entry;
            entry.content = {.date = {2025, 12, 31},
                             .sign = "记",
                             .number = unit,
                             .summary = "应收货款",
                             .of = {.unit = unit},
                             .isDebit = true,
                             .money = unit * 1.25};
            entry.names.unit = nameOfUnit(unit);
            changes.push_back({.before = {}, .after = entry});
        }
        bench::Pair pair;
        pair.reset = [this] { reset(); };
        pair.floor = [this] { writeRaw(); };
        pair.ours = [&] {
            require(m_service.write(m_written, changes) == chengheng::Outcome::done, "writing");
        };
        bench::reportTimes("opening entries of as many units written, 3000", pair, 1.5);
    }

    static std::string nameOfUnit(int unit) {
        std::string digits = std::to_string(unit);
        digits.insert(0, 5 - digits.size(), '0');
        return "客户" + digits + "有限公司";
    }

    /// What a program does that knows the file and the engine: amounts by the names of units.
    void importRaw() {
        std::unordered_map<std::string, int> ids;
        sqlite3_stmt* units = prepare(m_books.raw(), "SELECT lId, sEnterName FROM Enter");
        while (sqlite3_step(units) == SQLITE_ROW)
            ids.emplace(reinterpret_cast<const char*>(sqlite3_column_text(units, 1)),
                        sqlite3_column_int(units, 0));
        sqlite3_finalize(units);
        std::ifstream file(m_file);
        std::string line;
        std::getline(file, line);
        double total = 0;
        int rows = 0;
        for (; std::getline(file, line); ++rows) {
            const std::size_t name = line.find(',') + 1;
            const std::size_t amount = line.find(',', name) + 1;
            require(ids.contains(line.substr(name, amount - 1 - name)), "a unit");
            total += std::strtod(line.c_str() + amount, nullptr);
        }
        require(rows == writtenEntries && total > 0, "the floor's file");
        writeRaw();
    }

    void importing() {
        std::ofstream file(m_file);
        file << "摘要,单位,金额,凭证类别,凭证号\n";
        for (int unit = 1; unit <= writtenEntries; ++unit)
            file << "应收货款," << nameOfUnit(unit) << ',' << unit * 1.25 << ",记," << unit << '\n';
        file.close();
        m_books.run(
            "INSERT INTO zAccountM (lId, dtStart, sCodeLen, lYear) VALUES (1, '2026-01-01', '52', "
            "2026)");
        m_books.run("INSERT INTO Sign (lId, sSign, sSignName) VALUES (1, '记', '记帐凭证')");
        bench::Pair pair;
        pair.reset = [this] { reset(); };
        pair.floor = [this] { importRaw(); };
        pair.ours = [this] {
            const auto plan =
                chengheng::EntryImport(m_messages, member(), m_written).planFile(m_file);
            require(plan && plan->mayBeApplied(), "planning");
            auto changes = plan->changes();
            require(m_service.write(m_written, changes) == chengheng::Outcome::done, "importing");
        };
        bench::reportTimes("opening entries of as many units imported, 3000", pair, 1.5);
        std::filesystem::remove(m_file);
    }

    const std::string m_file = std::filesystem::temp_directory_path() / "chengheng-entries.csv";
    bench::SampleBooks m_books{accounts};
    chengheng::HostSession m_session{{.database = &m_books.database(), .databaseName = "books"}};
    bench::SilentMessages m_messages;
    chengheng::EntryService m_service{m_messages, member()};
    chengheng::AuxiliaryAccount m_shown;
    chengheng::AuxiliaryAccount m_written;
};

}  // namespace

int main() { EntriesBench().run(); }
