// Opening balances: reading and rolling up, saving the accounts above others, one edit from the
// keystroke to the disk.

#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include "bench/raw_codes.h"
#include "bench/sample_books.h"
#include "bench/timing.h"
#include "data/unit_of_work.h"
#include "host/services/host_globals.h"
#include "opening/opening_work.h"
#include "opening/posting.h"
#include "opening/roll_up.h"
#include "opening/saving.h"

namespace {

using bench::require;

constexpr int accountsInAGroup = 20;
constexpr std::size_t editedLine = 7;
/// The floor edits another group: its sums are not those of the accounts below.
constexpr int rawEdited[] = {41, 48};

/// The sums of one account as a program that knows nothing but the engine would keep them.
struct RawAccount {
    char code[20];
    bool isEnd;
    double money, foreign, quantity;
};

bool isBelow(const char* code, const char* above) {
    return std::strncmp(code, above, std::strlen(above)) == 0;
}

/// Linear in code order: each end account is added to every account above it.
void rollUpRaw(std::vector<RawAccount>& accounts) {
    RawAccount* open[16];
    int depth = 0;
    for (RawAccount& account : accounts) {
        while (depth > 0 && !isBelow(account.code, open[depth - 1]->code)) --depth;
        if (!account.isEnd) {
            account.money = account.foreign = account.quantity = 0;
            open[depth++] = &account;
            continue;
        }
        for (int above = 0; above < depth; ++above) {
            open[above]->money += account.money;
            open[above]->foreign += account.foreign;
            open[above]->quantity += account.quantity;
        }
    }
}

class SilentMessages : public chengheng::IMessages {
  public:
    void tell(const chengheng::Notice& notice) override { require(false, notice.text.c_str()); }
    chengheng::Answer ask(const chengheng::Question&) override { return chengheng::Answer::no; }
};

/// Sample books whose accounts stand in groups of twenty, the first of each above the others.
class OpeningBench {
  public:
    explicit OpeningBench(int accounts)
        : m_books(accounts), m_session({.database = &m_books.database(), .databaseName = "books"}) {
        const std::string group = std::to_string(accountsInAGroup);
        m_books.run(
            "INSERT INTO zAccountM (lId, dtStart, sCodeLen, lYear) "
            "VALUES (1, '2026-01-01', '52', 2026)");
        m_books.run(
            "INSERT INTO zCodeClass (lId, lNum, sClsName, bDirect) "
            "VALUES (1, 1, '资产', 1)");
        m_books.run("UPDATE Code SET sAssBook = '', bEnd = (lId - 1) % " + group +
                    " <> 0, sCode = (10000 + (lId - 1) / " + group + ") || CASE (lId - 1) % " +
                    group + " WHEN 0 THEN '' ELSE 10 + (lId - 1) % " + group + " END");
        m_books.run("UPDATE ABIdTable SET lLastId = " + std::to_string(m_books.rows()) +
                    " WHERE sTable = 'AccSum'");
        m_books.run("ANALYZE");
    }

    void run() {
        reading();
        saving(
            "update path", [this] { changeParents(); }, &OpeningBench::updateRaw);
        saving(
            "rebuild path", [this] { deleteParents(); }, &OpeningBench::insertRaw);
        editing();
    }

  private:
    std::string of(const char* work) const {
        return std::string(work) + ", " + std::to_string(m_books.accounts()) + " accounts";
    }
    bool isParent(int id) const { return (id - 1) % accountsInAGroup == 0; }

    std::vector<RawAccount> readRaw() {
        sqlite3_stmt* codes =
            bench::prepare(m_books.raw(), "SELECT * FROM Code WHERE lId > 0 ORDER BY sCode");
        const auto rows = bench::rawCodes(codes);
        sqlite3_finalize(codes);
        std::vector<int> places(rows.size() + 1);
        std::vector<RawAccount> accounts(rows.size());
        for (std::size_t place = 0; place < rows.size(); ++place) {
            places[static_cast<std::size_t>(rows[place].id)] = static_cast<int>(place);
            std::memcpy(accounts[place].code, rows[place].code, sizeof rows[place].code);
            accounts[place].isEnd = rows[place].end != 0;
        }
        sqlite3_stmt* sums = bench::prepare(
            m_books.raw(),
            "SELECT * FROM AccSum WHERE byPeroid = 1 AND mBegin IS NOT NULL ORDER BY lCodeId");
        while (sqlite3_step(sums) == SQLITE_ROW) {
            RawAccount& account = accounts[static_cast<std::size_t>(
                places[static_cast<std::size_t>(sqlite3_column_int(sums, 1))])];
            account.money = sqlite3_column_double(sums, 3);
            account.quantity = sqlite3_column_double(sums, 6);
            account.foreign = sqlite3_column_double(sums, 9);
        }
        sqlite3_finalize(sums);
        rollUpRaw(accounts);
        return accounts;
    }
    void reading() {
        bench::Pair pair;
        pair.floor = [this] {
            require(readRaw().size() == static_cast<std::size_t>(m_books.accounts()), "raw read");
        };
        pair.ours = [this] {
            require(m_books.database().DBSelect("books") != 0, "selecting");
            require(chengheng::readOpeningBooks(m_books.database(), m_read).isDone(), "reading");
        };
        bench::reportTimes(of("opening data ready for the grid"), pair, 1.3);
    }

    void changeParents() {
        m_books.run("UPDATE AccSum SET mBegin = mBegin + 1 WHERE (lCodeId - 1) % " +
                    std::to_string(accountsInAGroup) + " = 0");
    }
    void deleteParents() {
        m_books.run("DELETE FROM AccSum WHERE (lCodeId - 1) % " + std::to_string(accountsInAGroup) +
                    " = 0");
    }
    void updateRaw(sqlite3_stmt* update, sqlite3_stmt*, int id) {
        sqlite3_bind_double(update, 1, id * 1.5);
        sqlite3_bind_double(update, 2, 0);
        sqlite3_bind_double(update, 3, id * 2.5);
        sqlite3_bind_int(update, 4, id);
        require(sqlite3_step(update) == SQLITE_DONE, "the floor's update");
        sqlite3_reset(update);
    }
    void insertRaw(sqlite3_stmt*, sqlite3_stmt* insert, int id) {
        for (int period = 1; period <= 12; ++period) {
            sqlite3_bind_int(insert, 1, ++m_lastId);
            sqlite3_bind_int(insert, 2, id);
            sqlite3_bind_int(insert, 3, period);
            sqlite3_bind_double(insert, 4, id * 1.5);
            sqlite3_bind_double(insert, 5, id * 2.5);
            require(sqlite3_step(insert) == SQLITE_DONE, "the floor's insert");
            sqlite3_reset(insert);
        }
    }
    void saveRaw(void (OpeningBench::*write)(sqlite3_stmt*, sqlite3_stmt*, int)) {
        m_lastId = 10 * m_books.rows();
        sqlite3* raw = m_books.raw();
        sqlite3_stmt* read = bench::prepare(raw, "SELECT * FROM AccSum WHERE lCodeId = ?");
        sqlite3_stmt* update = bench::prepare(
            raw, "UPDATE AccSum SET mBegin = ?, mFgnBegin = ?, dAmtBegin = ? WHERE lCodeId = ?");
        sqlite3_stmt* insert =
            bench::prepare(raw, "INSERT INTO AccSum VALUES(?,?,?,?,0.0,0.0,?,0.0,0.0,0.0,0.0,0.0)");
        m_books.run("BEGIN IMMEDIATE");
        for (int id = 1; id <= m_books.accounts(); ++id) {
            if (!isParent(id)) continue;
            sqlite3_bind_int(read, 1, id);
            while (sqlite3_step(read) == SQLITE_ROW) m_readRows += sqlite3_column_int(read, 2) > 0;
            sqlite3_reset(read);
            (this->*write)(update, insert, id);
        }
        m_books.run("COMMIT");
        for (sqlite3_stmt* statement : {read, update, insert}) sqlite3_finalize(statement);
    }
    void saving(const char* path, const std::function<void()>& reset,
                void (OpeningBench::*write)(sqlite3_stmt*, sqlite3_stmt*, int)) {
        bench::Pair pair;
        pair.reset = reset;
        pair.floor = [this, write] { saveRaw(write); };
        pair.ours = [this] {
            chengheng::UnitOfWork unit(m_books.database());
            require(unit.isOpen() &&
                        chengheng::postParents(m_books.database(), m_read.sheet).isDone() &&
                        unit.commit().isDone(),
                    "saving");
        };
        bench::reportTimes(of((std::string("save of all accounts above others, ") + path).c_str()),
                           pair, 1.5);
    }

    void editRaw() {
        m_amount += 1;
        sqlite3_stmt* update = bench::prepare(
            m_books.raw(),
            "UPDATE AccSum SET mBegin = ?, mFgnBegin = ?, dAmtBegin = ? WHERE lCodeId = ?");
        m_books.run("BEGIN IMMEDIATE");
        for (const int id : rawEdited) {
            sqlite3_bind_double(update, 1, m_amount);
            sqlite3_bind_double(update, 2, 0);
            sqlite3_bind_double(update, 3, 0);
            sqlite3_bind_int(update, 4, id);
            require(sqlite3_step(update) == SQLITE_DONE, "the floor's edit");
            sqlite3_reset(update);
        }
        m_books.run("COMMIT");
        sqlite3_finalize(update);
    }
    void editing() {
        SilentMessages messages;
        chengheng::OpeningWork work(messages);
        require(work.refresh(), "reading the window");
        const std::size_t column =
            chengheng::placeOf(chengheng::OpeningField::opening, work.sheet().layout());
        bench::Pair pair;
        pair.floor = [this] { editRaw(); };
        pair.ours = [&] {
            m_amount += 1;
            require(work.endEdit(editedLine, column, std::to_string(m_amount)), "an edit");
        };
        // What the floor wrote is read before the edit that is timed.
        pair.reset = [&] { require(work.refresh(), "reading the window"); };
        bench::reportTimes(of("one edit, keystroke to durable"), pair, 1.5, 15);
    }

    bench::SampleBooks m_books;
    chengheng::HostSession m_session;
    chengheng::OpeningBooks m_read;
    int m_lastId = 0;
    long m_readRows = 0;
    double m_amount = 1;
};

void benchRollUp(int count) {
    std::vector<chengheng::OpeningAccount> accounts(static_cast<std::size_t>(count));
    std::vector<RawAccount> raw(accounts.size());
    for (std::size_t place = 0; place < accounts.size(); ++place) {
        const std::size_t number = place % accountsInAGroup;
        chengheng::OpeningAccount& account = accounts[place];
        account.code = std::to_string(100000 + place / accountsInAGroup) +
                       (number == 0 ? "" : std::to_string(10 + number));
        account.isEnd = number != 0;
        account.balance(chengheng::Measure::money).opening = static_cast<double>(place) * 1.25;
        std::memcpy(raw[place].code, account.code.c_str(), account.code.size() + 1);
        raw[place].isEnd = account.isEnd;
        raw[place].money = account.opening();
    }
    bench::Pair pair;
    pair.floor = [&] { rollUpRaw(raw); };
    pair.ours = [&] { chengheng::rollUp(accounts, chengheng::OpeningLayout::simple); };
    bench::reportTimes("roll-up, " + std::to_string(count) + " accounts", pair, 1.5, 9);
}

}  // namespace

int main() {
    for (const int accounts : {1'000, 10'000, 50'000, 200'000}) benchRollUp(accounts);
    for (const int accounts : {10'000, 50'000}) OpeningBench(accounts).run();
}
