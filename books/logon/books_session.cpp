#include "books/logon/books_session.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <utility>

#include "base/system/workstation.h"
#include "books/list/books_registry.h"
#include "books/logon/foreign_objects_text.h"
#include "books/logon/logon_sql.h"
#include "books/logon/logon_texts.h"
#include "books/logon/temporary_name.h"
#include "books/making/new_books.h"
#include "data/access/row_lease.h"
#include "data/access/table_locks.h"
#include "data/access/unit_of_work.h"
#include "data/connection/database.h"
#include "data/engines/open_engine.h"
#include "data/tables/books.h"
#include "data/tables/operators.h"
#include "session/failure_texts.h"
#include "session/rights/new_password_mark.h"
#include "session/rights/passwords.h"
#include "session/who_writes.h"

namespace chengheng {
namespace {

/// A read that found no rows is no failure here: what is missing is told by name.
bool hasFailed(const Status& status) { return !status && status.failure != Failure::missing; }

std::optional<Refusal> inputsRefusal(const LogonRequest& request) {
    if (request.location.empty())
        return inputRefusal(logon_texts::locationMissing, books_field::location);
    if (request.operatorName.empty())
        return inputRefusal(logon_texts::operatorMissing, books_field::operatorName);
    return std::nullopt;
}

std::optional<Refusal> dateRefusal(const std::optional<Date>& date, const DayRange& days) {
    if (!date || days.holds(*date)) return std::nullopt;
    return inputRefusal(fmt::format(logon_texts::dateOutsideYear, isoText(*date),
                                    isoText(days.first), isoText(days.last)),
                        books_field::date);
}

Refusal outdatedRefusal(const std::string& location) {
    Refusal refusal = failureRefusal(failureText(Status::of(Failure::olderVersion), location),
                                     books_field::location);
    refusal.kind = RefusalKind::outdated;
    return refusal;
}

/// The ids of rows that programs of this workstation left behind; "1, 2, 3".
std::string staleIds(const std::vector<_LoginInfo>& rows) {
    std::string ids;
    for (const _LoginInfo& row : rows)
        if (!isOwnProgramAlive(row.lProcess))
            ids += (ids.empty() ? "" : ", ") + std::to_string(row.lId);
    return ids;
}

/// What the log says of a log-on, and of those from here before that never logged off.
std::string logonWords(const LogonRequest& request, const std::vector<_LoginInfo>& rows) {
    std::string words =
        request.newPassword ? logon_texts::logLogonWithPassword : logon_texts::logLogon;
    std::string names;
    for (const _LoginInfo& row : rows)
        if (!isOwnProgramAlive(row.lProcess))
            names += (names.empty() ? "" : logon_texts::logBetween) + row.sUser;
    return names.empty() ? words : fmt::format(logon_texts::logNeverLoggedOff, words, names);
}

/// What is wrong with the password that takes the place of the one given.
std::optional<Refusal> newPasswordRefusal(const LogonRequest& request, const _UsersInfo& user) {
    if (!request.newPassword || !isPasswordOf(user.sPassword, *request.newPassword))
        return std::nullopt;
    return inputRefusal(logon_texts::newPasswordIsOld, books_field::password);
}

Refusal newPasswordWanted(const std::string& name) {
    Refusal refusal =
        inputRefusal(fmt::format(logon_texts::newPasswordWanted, name), books_field::password);
    refusal.kind = RefusalKind::newPassword;
    return refusal;
}

SystemTime momentOf(const Date& day) {
    const ClockTime time = timeOfDay();
    return {day, static_cast<std::uint8_t>(time.hour), static_cast<std::uint8_t>(time.minute),
            static_cast<std::uint8_t>(time.second)};
}

}  // namespace

struct BooksSession::Candidate {
    /// Closes the database again unless the log-on succeeds, and goes back to the one before.
    explicit Candidate(CNbCwDB& opened) : database(opened), before(opened.selectedName()) {}
    ~Candidate() {
        if (name.empty()) return;
        database.DBClose(name.c_str());
        if (!before.empty()) database.DBSelect(before.c_str());
    }
    Candidate(const Candidate&) = delete;
    Candidate& operator=(const Candidate&) = delete;

    Refusal failure() const { return failure(database.lastStatus()); }
    Refusal failure(const Status& status) const {
        return failureRefusalOf(status, location, books_field::location);
    }

    CNbCwDB& database;
    std::string before;
    std::string name;  ///< of the database, once it is open
    std::string location;
    _zAccountMInfo parameters;
    TriedOperator tried;
    LogonNote note;
    bool isTried = false;  ///< the password was looked at
    _UsersInfo user;
    std::string newHash;  ///< of the password that the operator chose
    std::int32_t rightsId = 0;
    Date date;
    BookRecords records;
    std::vector<ForeignObject> objects;
    bool isLogBroken = false;
    std::int32_t logonId = 0;
};

DayRange daysOfYear(int year) {
    const auto number = static_cast<std::int16_t>(year);
    return {{number, 1, 1}, {number, 12, 31}};
}

std::string locationOfBooks(const std::string& given) {
    if (given.empty() || isServerAddress(given)) return given;
    std::error_code unseen;
    const std::filesystem::path path = std::filesystem::absolute(given, unseen).lexically_normal();
    return std::filesystem::is_directory(path, unseen) ? path / booksFileName : path;
}

BooksSession::BooksSession(CNbCwDB& database, WrongTries& tries)
    : m_database(database), m_tries(tries) {}

BooksSession::~BooksSession() { logOff(); }

std::optional<Refusal> BooksSession::logOn(const LogonRequest& request) {
    if (std::optional<Refusal> refusal = inputsRefusal(request)) return refusal;
    Candidate candidate(m_database);
    candidate.location = locationOfBooks(request.location);
    if (std::optional<Refusal> refusal = openBooks(candidate)) return refusal;
    if (std::optional<Refusal> refusal = admit(request, candidate)) {
        noteRefused(request, candidate, *refusal);
        return refusal;
    }
    begin(request, candidate);
    return std::nullopt;
}

std::optional<Refusal> BooksSession::admit(const LogonRequest& request, Candidate& candidate) {
    if (std::optional<Refusal> refusal = checkOperator(request, candidate)) return refusal;
    const DayRange days = daysOfYear(candidate.parameters.lYear);
    if (std::optional<Refusal> refusal = dateRefusal(request.date, days)) return refusal;
    candidate.date = request.date.value_or(days.nearest(today()));
    if (!readBookRecords(m_database, candidate.records)) return candidate.failure();
    const Status looked =
        foreignObjects(m_database.selectedDatabase()->engine(), candidate.objects);
    if (!looked) return candidate.failure(looked);
    return enterLogon(request, candidate);
}

/// Tries that were not even looked at, and what no operator is to blame for, are not noted.
void BooksSession::noteRefused(const LogonRequest& request, const Candidate& candidate,
                               const Refusal& refusal) {
    if (!candidate.isTried || refusal.kind != RefusalKind::wrongInput) return;
    Database& books = *m_database.selectedDatabase();
    books.keepLog(
        logAuthorOf({candidate.tried.id > 0 ? candidate.user.lUserId : 0, request.operatorName}));
    // The refusal stands and is told, whether it can be noted or not.
    static_cast<void>(
        books.noteInLog({.text = fmt::format(logon_texts::logRefused, refusal.notice.text)}));
}

std::optional<Refusal> BooksSession::openBooks(Candidate& candidate) {
    if (auto text = giveNameBack(candidate.location)) m_nameGivenBack = *std::move(text);
    const std::string name = fmt::format("books{}", ++m_opened);
    NbCwDBInfo info;
    if (m_database.DBOpen(info, candidate.location.c_str(), name.c_str(), 1) == 0)
        return candidate.failure();
    candidate.name = name;
    if (m_database.DBSelect(name.c_str()) == 0) return candidate.failure();
    // What cannot be written cannot be upgraded either, and is only read.
    if (info.layout < booksFormatVersion && !m_database.selectedDatabase()->isReadOnly())
        return outdatedRefusal(candidate.location);
    const auto parameters = readRows<_zAccountMInfo>(m_database, logon_sql::parameters);
    if (hasFailed(m_database.lastStatus())) return candidate.failure();
    if (parameters.empty())
        return failureRefusal(fmt::format(logon_texts::operatorsUnreadable,
                                          chengheng::shownLocation(candidate.location)),
                              books_field::location);
    candidate.parameters = parameters.front();
    return std::nullopt;
}

std::optional<Refusal> BooksSession::checkOperator(const LogonRequest& request,
                                                   Candidate& candidate) {
    const auto users =
        readRows<_UsersInfo>(m_database, logon_sql::ofOperator(request.operatorName).c_str());
    if (hasFailed(m_database.lastStatus())) return candidate.failure();
    candidate.tried = {candidate.location, request.operatorName,
                       users.empty() ? 0 : users.front().lId};
    if (std::optional<Refusal> refusal = m_tries.begin(m_database, candidate.tried)) return refusal;
    candidate.isTried = true;
    if (!users.empty()) candidate.user = users.front();
    if (users.empty() || !isPasswordOf(users.front().sPassword, request.password))
        return inputRefusal(logon_texts::logonRefused, books_field::password);
    if (const Status status = m_tries.takeBack(m_database, candidate.tried); !status)
        return candidate.failure(status);
    const auto rights = readRows<_UserAuthInfo>(
        m_database, logon_sql::ofRightsOwner(candidate.user.lUserId).c_str());
    if (hasFailed(m_database.lastStatus())) return candidate.failure();
    if (!rights.empty()) candidate.rightsId = rights.front().lId;
    return std::nullopt;
}

/// Only a supervisor can do something about it.
Status BooksSession::lookAtLog(Database& books, Candidate& candidate) {
    if (books.log() == nullptr || candidate.user.bManager == 0) return Status::done();
    const Value name[] = {Value::of(std::string_view(candidate.user.sUserName))};
    return books.selectPlain(logon_sql::brokenLog, name, [&candidate](Cursor& cursor) {
        const Cursor::Step step = cursor.next();
        candidate.isLogBroken = step == Cursor::Step::row && cursor.integer(0) > 0;
        return step == Cursor::Step::failed ? cursor.status() : Status::done();
    });
}

/// Where the password is still the one that was given.
std::optional<Refusal> BooksSession::writeNewPassword(Candidate& candidate) {
    const auto users =
        readRows<_UsersInfo>(m_database, logon_sql::ofRightsOwner(candidate.user.lUserId).c_str());
    if (hasFailed(m_database.lastStatus())) return candidate.failure();
    if (users.empty() || users.front().sPassword != candidate.user.sPassword)
        return inputRefusal(logon_texts::logonRefused, books_field::password);
    candidate.user = users.front();
    candidate.user.sPassword = candidate.newHash;
    const std::string own = logon_sql::ofRightsOwner(candidate.user.lUserId);
    if (m_database.QRYEdit("Users", own.c_str(), logon_sql::newPassword, candidate.newHash) != 0)
        return candidate.failure();
    const Status status = writeNewPasswordMark(m_database, candidate.user.lId, false);
    return status ? std::nullopt : std::optional(candidate.failure(status));
}

std::optional<Refusal> BooksSession::enterLogon(const LogonRequest& request, Candidate& candidate) {
    // Nobody can tell the others on a medium that takes no writes.
    if (m_database.selectedDatabase()->isReadOnly()) return std::nullopt;
    if (auto refusal = newPasswordRefusal(request, candidate.user)) return refusal;
    if (request.newPassword) candidate.newHash = hashPassword(*request.newPassword);
    if (request.newPassword && candidate.newHash.empty())
        return failureRefusal(logon_texts::passwordNotKept, books_field::password);
    const TableLocks locks(m_database, "", request.newPassword ? "Users UserAuth" : "");
    if (!locks.areGranted()) return candidate.failure();
    const std::string station = stationName();
    Database& books = *m_database.selectedDatabase();
    books.keepLog(logAuthorOf({candidate.user.lUserId, candidate.user.sUserName}));
    UnitOfWork unit(m_database);
    if (!unit.isOpen()) return candidate.failure();
    const auto rows = readRows<_LoginInfo>(m_database, logon_sql::ofStation(station).c_str());
    if (hasFailed(m_database.lastStatus())) return candidate.failure();
    const std::string stale = staleIds(rows);
    if (!stale.empty() &&
        m_database.QRYDelete("LoginInfoTbl", logon_sql::ofLogons(stale).c_str()) != 0)
        return candidate.failure();
    const _LoginInfo own{.lAccId = candidate.parameters.lId,
                         .sUser = candidate.user.sUserName,
                         .sStation = station,
                         .lProcess = ownProcess(),
                         .dtLogon = candidate.date,
                         .lUserId = candidate.user.lUserId};
    if (m_database.add<_LoginInfo>(own, candidate.logonId) != 0) return candidate.failure();
    const Status noted = m_tries.noteLogon(m_database, candidate.tried, candidate.note);
    if (!noted) return candidate.failure(noted);
    if (request.newPassword) {
        if (auto refusal = writeNewPassword(candidate)) return refusal;
    } else if (candidate.note.wantsNewPassword) {
        return newPasswordWanted(candidate.user.sUserName);
    }
    if (const Status status = lookAtLog(books, candidate); !status)
        return candidate.failure(status);
    if (OperationLog* const log = books.log(); log != nullptr)
        log->note({.function = logonFunction, .text = logonWords(request, rows)});
    if (!unit.commit()) return candidate.failure();
    return std::nullopt;
}

/// Nothing in here can fail any more: the session before has ended.
void BooksSession::begin(const LogonRequest& request, Candidate& candidate) {
    logOff();
    m_database.DBSelect(candidate.name.c_str());
    m_database.setLockIdentity({candidate.user.sUserName, ""});
    m_session = std::make_unique<HostSession>(SessionFacts{
        .database = &m_database,
        .databaseName = candidate.name,
        .setName = candidate.parameters.sName,
        .accountId = candidate.parameters.lId,
        .launchArgument = request.launchArgument,
        .logonUser = {candidate.user.lId, candidate.user.lUserId, candidate.rightsId,
                      candidate.user.bManager != 0 ? 1 : 0, candidate.user.sUserName},
        .logonTime = momentOf(candidate.date),
        .history = candidate.note.history,
    });
    m_shownLocation = chengheng::shownLocation(candidate.location);
    m_warning = std::exchange(m_nameGivenBack, {});
    addWarning(foreignObjectsText(candidate.objects, candidate.location));
    if (candidate.isLogBroken) addWarning(logon_texts::logBroken);
    m_logonId = candidate.logonId;
    candidate.name.clear();
    m_lookups = std::make_unique<BookLookups>(std::move(candidate.records));
}

void BooksSession::addWarning(const std::string& text) {
    if (!m_warning.empty() && !text.empty()) m_warning += "\n\n";
    m_warning += text;
}

void BooksSession::logOff() {
    if (m_session == nullptr) return;
    const std::string name = m_session->facts().databaseName;
    // A row that a lost server keeps is removed by the next log-on from this workstation.
    if (m_logonId != 0 && m_database.DBSelect(name.c_str()) != 0) {
        if (OperationLog* const log = m_database.selectedDatabase()->log(); log != nullptr)
            log->note({.text = logon_texts::logLogoff});
        m_database.QRYDelete("LoginInfoTbl",
                             logon_sql::ofLogons(std::to_string(m_logonId)).c_str());
    }
    m_lookups.reset();
    m_session.reset();
    m_database.DBClose(name.c_str());
    m_shownLocation.clear();
    m_warning.clear();
    m_logonId = 0;
}

}  // namespace chengheng
