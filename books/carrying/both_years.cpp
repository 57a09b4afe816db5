#include "books/carrying/both_years.h"

#include <optional>
#include <utility>

#include "books/carrying/carry_texts.h"
#include "books/logon/temporary_name.h"
#include "data/access/host_database.h"
#include "data/access/row_lease.h"
#include "data/connection/database.h"
#include "data/tables/books.h"
#include "session/failure_texts.h"
#include "session/open_books.h"

namespace chengheng {
namespace {

Status readYear(CNbCwDB& database, YearOfBooks& now) {
    const RowLease<_zAccountMInfo> rows(database, nullptr);
    if (!rows.isFound()) return database.lastStatus();
    now.name = rows.rows().front()->sName;
    now.year = rows.rows().front()->lYear;
    now.location = database.selectedDatabase()->location();
    return Status::done();
}

UntoldOutcome failedAt(const Status& status, const std::string& location, FailureSubject subject) {
    Notice notice = failureRefusalOf(status, location).notice;
    notice.text = failureText(status, location, subject);
    return {Outcome::failed, std::move(notice)};
}

bool goesOn(const CarryProgress& progress) { return !progress || progress(0, 0); }

}  // namespace

UntoldOutcome carryRefused(const char* text) {
    return UntoldOutcome::refused({.text = text, .icon = MessageIcon::information});
}

UntoldOutcome carryGivenUp() { return carryRefused(carry_texts::givenUp); }

UntoldOutcome BothYears::read(const CarryProgress& progress) {
    YearOfBooks now;
    Status status = selectOpenBooks();
    if (status) status = readYear(*g_pDB, now);
    if (!status) return UntoldOutcome::failed();
    if (m_lastYear.empty())
        if (UntoldOutcome found = findLastYear(now); found.outcome != Outcome::done) return found;
    if (auto text = giveNameBack(m_lastYear)) m_untold.push_back({.text = *std::move(text)});
    UntoldOutcome read = readLastYear(now.year - 1, progress);
    if (read.outcome != Outcome::done) return read;
    return selectOpenBooks() ? UntoldOutcome::done() : UntoldOutcome::failed();
}

UntoldOutcome BothYears::findLastYear(const YearOfBooks& now) {
    std::vector<BooksSet> sets;
    if (const Status status = m_registry.read(sets); !status)
        return failedAt(status, m_registry.path(), FailureSubject::registry);
    m_lastYear = placeOfLastYear(sets, now);
    return m_lastYear.empty() ? carryRefused(carry_texts::noLastYear) : UntoldOutcome::done();
}

UntoldOutcome BothYears::readLastYear(int year, const CarryProgress& progress) {
    LastYear before(*g_pDB);
    Status status = before.open(m_lastYear, year);
    if (status.failure == Failure::missing) return carryRefused(carry_texts::noLastYear);
    if (status && !goesOn(progress)) return carryGivenUp();
    if (status) status = readYearEnd(*g_pDB, m_end);
    if (status && !goesOn(progress)) return carryGivenUp();
    if (status) status = m_membersBefore.read(*g_pDB);
    return status ? UntoldOutcome::done() : failedAt(status, m_lastYear, FailureSubject::books);
}

}  // namespace chengheng
