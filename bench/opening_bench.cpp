// Opening balances: reading and rolling up, saving the accounts above others, one edit from the
// keystroke to the disk.

#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include "bench/grouped_books.h"
#include "bench/raw_codes.h"
#include "bench/silent_messages.h"
#include "bench/timing.h"
#include "data/access/unit_of_work.h"
#include "opening/screen/opening_work.h"
#include "opening/sheet/roll_up.h"
#include "opening/storing/posting.h"
#include "opening/storing/saving.h"
#include "session/host_globals.h"

namespace {

using bench::require;

constexpr std::size_t editedLine = 7;
/// The floor edits another group: its sums are not those of the accounts below.
constexpr int rawEdited[] = {41, 48};

class OpeningBench {
  public:
    explicit OpeningBench(int accounts)
        : m_books(accounts),
          m_session({.database = &m_books.database(), .databaseName = "books"}) {}

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
    void reading() {
        bench::Pair pair;
        pair.floor = [this] {
            require(m_books.readRaw().size() == static_cast<std::size_t>(m_books.accounts()),
                    "raw read");
        };
        pair.ours = [this] {
            require(m_books.database().DBSelect("books") != 0, "selecting");
            require(chengheng::readOpeningBooks(m_books.database(), m_read).isDone(), "reading");
        };
        bench::reportTimes(of("opening data ready for the grid"), pair, 1.3);
    }

    void changeParents() {
        m_books.run("UPDATE AccSum SET mBegin = mBegin + 1 WHERE (lCodeId - 1) % " +
                    std::to_string(bench::accountsInAGroup) + " = 0");
    }
    void deleteParents() {
        m_books.run("DELETE FROM AccSum WHERE (lCodeId - 1) % " +
                    std::to_string(bench::accountsInAGroup) + " = 0");
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
            if (!bench::isAboveOthers(id)) continue;
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
        bench::SilentMessages messages;
        chengheng::OpeningWork work(messages);
        require(work.refresh() == chengheng::Outcome::done, "reading the window");
        const std::size_t column =
            chengheng::placeOf(chengheng::OpeningField::opening, work.sheet().layout());
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

    bench::GroupedBooks m_books;
    chengheng::HostSession m_session;
    chengheng::OpeningBooks m_read;
    int m_lastId = 0;
    long m_readRows = 0;
    double m_amount = 1;
};

void benchRollUp(int count) {
    std::vector<chengheng::OpeningAccount> accounts(static_cast<std::size_t>(count));
    std::vector<bench::RawAccount> raw(accounts.size());
    for (std::size_t place = 0; place < accounts.size(); ++place) {
        const std::size_t number = place % bench::accountsInAGroup;
        chengheng::OpeningAccount& account = accounts[place];
        account.code = std::to_string(100000 + place / bench::accountsInAGroup) +
                       (number == 0 ? "" : std::to_string(10 + number));
        account.isEnd = number != 0;
        account.balance(chengheng::Measure::money).opening = static_cast<double>(place) * 1.25;
        std::memcpy(raw[place].code, account.code.c_str(), account.code.size() + 1);
        raw[place].isEnd = account.isEnd;
        raw[place].money = account.opening();
    }
    bench::Pair pair;
    pair.floor = [&] { bench::rollUpRaw(raw); };
    pair.ours = [&] { chengheng::rollUp(accounts, chengheng::OpeningLayout::simple); };
    bench::reportTimes("roll-up, " + std::to_string(count) + " accounts", pair, 1.5, 9);
}

}  // namespace

int main() {
    for (const int accounts : {1'000, 10'000, 50'000, 200'000}) benchRollUp(accounts);
    for (const int accounts : {10'000, 50'000}) OpeningBench(accounts).run();
}
