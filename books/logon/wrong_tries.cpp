#include "books/logon/wrong_tries.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>

#include "base/system/workstation.h"
#include "books/logon/logon_sql.h"
#include "books/logon/logon_texts.h"
#include "books/making/new_books.h"
#include "data/access/unit_of_work.h"
#include "data/connection/database.h"
#include "session/failure_texts.h"

namespace chengheng {
namespace {

constexpr std::uint32_t sharedRows = 64;

Refusal delayed(double wait) {
    const int seconds = static_cast<int>(std::ceil(wait));
    return inputRefusal(fmt::format(logon_texts::logonDelayed, seconds), books_field::password);
}

Value rowOf(const TriedOperator& tried) { return Value::of(std::int64_t{tried.row()}); }

template <std::size_t count>
Status change(CNbCwDB& books, const char* sql, const std::array<Value, count>& values) {
    return books.selectedDatabase()->executePlain(sql, values);
}

}  // namespace

std::int32_t TriedOperator::row() const {
    if (id > 0) return id;
    std::uint32_t number = 0x811c9dc5U;  // FNV-1a
    for (const char letter : name)
        number = (number ^ static_cast<unsigned char>(letter)) * 16777619U;
    return -1 - static_cast<std::int32_t>(number % sharedRows);
}

double WrongTries::delayAfter(int wrong) {
    constexpr int longestExponent = 6;
    return wrong <= 0 ? 0 : std::min(std::exp2(std::min(wrong - 1, longestExponent)), longestDelay);
}

/// A clock that was set back would make the rest of a wait longer than the wait.
double WrongTries::Tries::waitLeft() const {
    const double delay = delayAfter(wrong);
    const double passed = now - wrongAt;
    return std::isfinite(passed) ? std::clamp(delay - passed, 0.0, delay) : delay;
}

double WrongTries::processNow() const {
    if (m_clock) return m_clock();
    return std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch())
        .count();
}

Status WrongTries::read(CNbCwDB& books, const TriedOperator& tried, Tries& tries) const {
    Database& database = *books.selectedDatabase();
    const std::array row{rowOf(tried)};
    Status status = change(books, logon_sql::holdTries, row);
    if (!status) return status;
    status = database.selectPlain(
        logon_sql::readTries(database.engine().dialect()), row, [&](Cursor& cursor) {
            const Cursor::Step step = cursor.next();
            if (step != Cursor::Step::row) return cursor.status();
            constexpr std::int64_t most = std::numeric_limits<std::int32_t>::max() - 1;
            tries.wrong = static_cast<int>(std::clamp<std::int64_t>(cursor.integer(0), 0, most));
            tries.wrongAt = cursor.real(1);
            tries.logonAt = cursor.real(2);
            tries.wantsNewPassword = cursor.integer(3) != 0;
            tries.now = m_clock ? m_clock() : cursor.real(4);
            return Status::done();
        });
    return status;
}

Status WrongTries::count(CNbCwDB& books, const TriedOperator& tried, double& wait) const {
    UnitOfWork unit(books);
    Tries tries;
    Status status = unit.status();
    if (status) status = read(books, tried, tries);
    if (!status) return status;
    wait = tries.waitLeft();
    const bool isFromTheFuture = !(tries.wrongAt <= tries.now);
    if (wait > 0 && !isFromTheFuture) return status;
    // A moment that has not come yet would make each next try wait in full.
    const int wrong = wait > 0 ? tries.wrong : tries.wrong + 1;
    status = change(books, logon_sql::countTry,
                    std::array{Value::of(std::int64_t{wrong}), Value::of(tries.now), rowOf(tried)});
    return status ? unit.commit() : status;
}

std::optional<Refusal> WrongTries::begin(CNbCwDB& books, const TriedOperator& tried) {
    // A server that takes no writes may hold books that have no place for the count either.
    if (books.selectedDatabase()->isReadOnly()) return beginUnwritten(tried);
    double wait = 0;
    const Status status = count(books, tried, wait);
    if (status.failure == Failure::readOnly) return beginUnwritten(tried);
    if (!status) return failureRefusal(failureText(status, tried.location), books_field::location);
    return wait > 0 ? std::optional(delayed(wait)) : std::nullopt;
}

std::optional<Refusal> WrongTries::beginUnwritten(const TriedOperator& tried) {
    Tries& tries = m_unwritten[{tried.location, tried.name}];
    tries.now = processNow();
    if (tries.wrong >= mostUnwritten)
        return inputRefusal(fmt::format(logon_texts::logonEnded, tries.wrong),
                            books_field::password);
    if (const double wait = tries.waitLeft(); wait > 0) return delayed(wait);
    ++tries.wrong;
    tries.wrongAt = tries.now;
    return std::nullopt;
}

Status WrongTries::takeBack(CNbCwDB& books, const TriedOperator& tried) {
    if (m_unwritten.erase({tried.location, tried.name}) > 0) return Status::done();
    return change(books, logon_sql::takeTryBack, std::array{rowOf(tried)});
}

Status WrongTries::noteLogon(CNbCwDB& books, const TriedOperator& tried, LogonNote& note) const {
    Tries tries;
    const Status status = read(books, tried, tries);
    if (!status) return status;
    note = {{minuteText(tries.logonAt), tries.wrong}, tries.wantsNewPassword};
    return change(books, logon_sql::noteLogon, std::array{Value::of(tries.now), rowOf(tried)});
}

}  // namespace chengheng
