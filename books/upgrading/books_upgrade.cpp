#include "books/upgrading/books_upgrade.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <thread>

#include "base/values/text.h"
#include "books/upgrading/upgrade_backup.h"
#include "books/upgrading/upgrade_sql.h"
#include "books/upgrading/upgrade_texts.h"
#include "data/connection/log_store.h"
#include "data/engines/open_engine.h"
#include "data/layout/layout.h"
#include "data/transfer/stored_tables.h"
#include "session/failure_texts.h"
#include "session/who_writes.h"

namespace chengheng {
namespace {

using namespace std::chrono_literals;
using Digests = std::vector<TableDigest>;

constexpr auto pollInterval = 100ms;

/// All of them as one, for who waits.
LockHolder holderOf(const std::vector<PersonAtWork>& people, const std::string& books) {
    LockHolder holder{
        .lockName = books, .operatorName = {}, .function = {}, .station = {}, .since = {}};
    const auto add = [](std::string& text, const std::string& name) {
        if (name.empty()) return;
        text += (text.empty() ? "" : upgrade_texts::between) + printableLine(name);
    };
    for (const PersonAtWork& person : people) {
        add(holder.operatorName, person.name);
        add(holder.station, person.station);
    }
    return holder;
}

/// What was there before must be there as it was; the number of the layout and the counters of new
/// tables are what a step changes.
bool isKept(const Digests& before, const Digests& after) {
    constexpr std::array changed{"BooksFormat", "ABIdTable"};
    return std::ranges::all_of(before, [&](const TableDigest& digest) {
        return std::ranges::find(changed, digest.table) != changed.end() ||
               std::ranges::find(after, digest) != after.end();
    });
}

Status readSetName(Engine& books, std::string& name) {
    return forEachRow(books, upgrade_sql::setName, {}, [&name](const Cursor& row) {
        if (name.empty()) name = row.text(0);
        return Status::done();
    });
}

}  // namespace

bool UpgradePlan::isNeeded() const { return from < booksFormatVersion; }

std::string UpgradePlan::text() const {
    std::string text = fmt::format(upgrade_texts::heading, printableLine(setName), location, from,
                                   booksFormatVersion);
    text += fmt::format(upgrade_texts::backupFirst, backup);
    for (const upgrade_texts::StepText& step : upgrade_texts::steps)
        if (step.from >= from) text += fmt::format(upgrade_texts::step, step.text);
    text += upgrade_texts::allOrNothing;
    text += upgrade_texts::otherPrograms;
    return text + (atWork.empty() ? upgrade_texts::waitsForOthers
                                  : fmt::format(upgrade_texts::atWork, namesOf(atWork)));
}

std::string UpgradePlan::question() const { return text() + upgrade_texts::question; }

BooksUpgrade::BooksUpgrade(const std::string& location)
    : BooksUpgrade(location, [location](std::unique_ptr<Engine>& engine) {
          return openEngine(location, OpenMode::existing, engine);
      }) {}

BooksUpgrade::BooksUpgrade(std::string location, Opener opener)
    : m_location(std::move(location)), m_open(std::move(opener)) {}

BooksUpgrade::~BooksUpgrade() { letGo(); }

std::optional<Refusal> BooksUpgrade::plan(UpgradePlan& plan) const {
    plan = {};
    std::unique_ptr<Engine> books;
    Status status = m_open(books);
    if (status) status = checkReadable(*books, &plan.from);
    if (status) status = readSetName(*books, plan.setName);
    if (status && plan.isNeeded()) status = listPeopleAtWork(*books, plan.atWork);
    if (!status) return failed(status);
    books.reset();
    plan.location = shownLocation(m_location);
    if (!plan.isNeeded()) return std::nullopt;
    std::string place;
    status = findPlaceOfBackup(m_location, plan.from, place);
    plan.backup = shownLocation(place);
    return status ? std::optional<Refusal>() : failed(status);
}

std::optional<Refusal> BooksUpgrade::keepOthersOut(LockWaiter& waiter, LoggedOn loggedOn,
                                                   const Runner& run) {
    const auto start = std::chrono::steady_clock::now();
    std::optional<Refusal> refusal;
    while (true) {
        std::vector<PersonAtWork> people;
        Status status;
        run([&] {
            status = keepOthersOutNow(loggedOn, people);
            if (!status) letGo();
        });
        if (!status && status.failure != Failure::busy) refusal = failed(status);
        if (status.failure != Failure::busy) break;
        const auto waited = std::chrono::duration_cast<std::chrono::milliseconds>(
            std::chrono::steady_clock::now() - start);
        if (!waiter.keepWaiting(holderOf(people, shownLocation(m_location)), waited)) {
            refusal = inUse(people);
            break;
        }
        std::this_thread::sleep_for(pollInterval);
    }
    waiter.waitEnded();
    return refusal;
}

Status BooksUpgrade::keepOthersOutNow(LoggedOn loggedOn, std::vector<PersonAtWork>& people) {
    Status status = openHeld(people);
    if (status && m_from == booksFormatVersion) letGo();
    if (!status || m_books == nullptr) return status;
    status = m_books->beginAlone();
    const bool isListNeeded = isServerAddress(m_location) && loggedOn == LoggedOn::waitFor;
    if (status.failure != Failure::busy && (!status || !isListNeeded)) return status;
    const Status listed = listPeopleAtWork(*m_books, people);
    // Who is in the way need not be known.
    if (!status) return status;
    return listed && !people.empty() ? Status::of(Failure::busy, namesOf(people)) : listed;
}

/// Whoever changes something, logged on or not, holds locks of tables, and so does another who
/// upgrades: with their locks one need not wait for what these do not let one read.
Status BooksUpgrade::openHeld(std::vector<PersonAtWork>& people) {
    Status status = m_open(m_books);
    if (!status) return status;
    LockService& locks = m_books->locks();
    locks.setIdentity({{}, upgrade_texts::function});
    status = locks.lock(allTableNames(), LockMode::exclusive, false);
    const LockHolder& holder = locks.lastHolder();
    if (status.failure == Failure::busy && !holder.operatorName.empty())
        people.push_back({holder.operatorName, holder.station});
    return status ? checkReadable(*m_books, &m_from) : status;
}

std::optional<Refusal> BooksUpgrade::carryOut() {
    if (m_books == nullptr) return std::nullopt;
    std::optional<Refusal> refusal = takeSteps();
    letGo();
    return refusal;
}

std::optional<Refusal> BooksUpgrade::takeSteps() {
    std::vector<std::string> faults;
    Digests before;
    Status status = m_books->verify(faults);
    if (status && !faults.empty())
        return failureRefusal(
            fmt::format(upgrade_texts::damaged, shownLocation(m_location), faults.front()));
    if (status) status = digestContent(*m_books, before);
    std::string place;
    if (status) status = findPlaceOfBackup(m_location, m_from, place);
    if (!status) return failed(status);
    UpgradeBackup backup(place);
    const std::string shownBackup = shownLocation(backup.place());
    status = backup.make(*m_books, m_from, before);
    if (!status) {
        const std::string reason = status.failure == Failure::wrongValue
                                       ? fmt::format(upgrade_texts::backupDiffers, shownBackup)
                                       : failureText(status, backup.place());
        return failureRefusal(
            fmt::format(upgrade_texts::backupFailed, shownLocation(m_location), reason));
    }
    Digests after;
    status = raiseLayout(*m_books, m_from);
    if (status) status = digestContent(*m_books, m_from, after);
    if (status && !isKept(before, after))
        status = Status::of(Failure::damaged, "rows have changed");
    if (status) {
        const std::string words =
            fmt::format(upgrade_texts::logUpgrade, m_from, booksFormatVersion, shownBackup);
        status = noteInLog(*m_books, logAuthor(), {.text = words});
    }
    if (!status) {
        letGo();
        backup.discard();
        return failed(status);
    }
    status = m_books->commit();
    m_backup = shownBackup;
    if (status) return std::nullopt;
    // Whether the last step was done may not be known: the backup stays.
    return failureRefusal(
        fmt::format(upgrade_texts::backupKept, failureText(status, m_location), m_backup));
}

std::optional<Refusal> BooksUpgrade::failed(const Status& status) const {
    return failureRefusal(failureText(status, m_location));
}

std::optional<Refusal> BooksUpgrade::inUse(const std::vector<PersonAtWork>& people) const {
    const std::string books = shownLocation(m_location);
    return failureRefusal(isServerAddress(m_location)
                              ? fmt::format(upgrade_texts::inUseOnServer, books, namesOf(people))
                              : fmt::format(upgrade_texts::inUse, books, namesOf(people)));
}

void BooksUpgrade::letGo() {
    if (m_books == nullptr) return;
    // With a lost connection the engine undoes the transaction by itself.
    if (m_books->inTransaction()) static_cast<void>(m_books->rollback().isDone());
    m_books.reset();
}

}  // namespace chengheng
