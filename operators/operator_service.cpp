#include "operators/operator_service.h"

#include <fmt/format.h>

#include <algorithm>

#include "base/system/workstation.h"
#include "data/access/CNbCwDB.h"
#include "data/access/host_database.h"
#include "data/access/row_lease.h"
#include "data/tables/vouchers.h"
#include "operators/operator_reading.h"
#include "operators/operator_sql.h"
#include "operators/operator_texts.h"
#include "operators/presets.h"
#include "session/host_globals.h"
#include "session/last_failure.h"
#include "session/log_notes.h"
#include "session/open_books.h"
#include "session/rights/new_password_mark.h"

namespace chengheng {
namespace {

namespace texts = operator_texts;

constexpr LockLists lockLists{WriteRight::supervisor, "", "Users UserAuth"};

bool isOwn(const _UsersInfo& user) {
    return g_lpLogonUserInfo != nullptr && g_lpLogonUserInfo->lUserId == user.lUserId;
}

/// By the name and by the number, which stays when an operator is renamed. A session whose program
/// has ended counts for nothing. Nothing when it cannot be read.
std::optional<bool> isLoggedOn(const _UsersInfo& user) {
    if (isOwn(user)) return true;
    const RowLease<_LoginInfo> lease(
        *g_pDB, operator_sql::ofLogons(g_lAccountId, user.sUserName, user.lUserId).c_str());
    if (!lease.isRead()) return std::nullopt;
    return std::ranges::any_of(lease.rows(), [](const _LoginInfo* row) {
        return !hasBooksProgramEnded(row->sStation, row->lProcess);
    });
}

/// Whether a supervisor is the only one; nothing when it cannot be read.
std::optional<bool> isLastSupervisor(const _UsersInfo& user) {
    if (user.bManager == 0) return false;
    const auto hasOthers =
        hasRows<_UsersInfo>(*g_pDB, operator_sql::ofSupervisorsBeside(user.lUserId));
    return hasOthers ? std::optional(!*hasOthers) : std::nullopt;
}

UntoldOutcome refuseDeletion(const _UsersInfo& user) {
    const auto isAtWork = isLoggedOn(user);
    if (!isAtWork) return UntoldOutcome::failed();
    const auto hasVouchers = hasRows<_RegMainInfo>(*g_pDB, operator_sql::ofVouchers(user.lUserId));
    if (!hasVouchers) return UntoldOutcome::failed();
    const auto isLast = isLastSupervisor(user);
    if (!isLast) return UntoldOutcome::failed();
    const auto refusal = firstRefusal(operatorDeletionChecks(), {.name = user.sUserName,
                                                                 .isLoggedOn = *isAtWork,
                                                                 .hasPostedVouchers = *hasVouchers,
                                                                 .isLastSupervisor = *isLast});
    return refusal ? UntoldOutcome::refused(refusal->notice) : UntoldOutcome::done();
}

/// Whether another operator than the one of the id has a name; nothing when it cannot be read.
std::optional<bool> isNameTaken(std::string_view name, std::int32_t userId) {
    return hasRows<_UsersInfo>(*g_pDB, userId == 0 ? operator_sql::ofName(name)
                                                   : operator_sql::ofNameBeside(name, userId));
}

UntoldOutcome refuseInput(const OperatorInput& input, std::int32_t userId) {
    bool hasFailed = false;
    const auto refusal = firstRefusal(
        operatorInputChecks(),
        {.input = input, .isAddition = userId == 0, .isNameTaken = [&](std::string_view name) {
             const auto isTaken = isNameTaken(name, userId);
             hasFailed = !isTaken;
             return hasFailed || *isTaken;
         }});
    if (hasFailed) return UntoldOutcome::failed();
    return refusal ? UntoldOutcome::refused(refusal->notice) : UntoldOutcome::done();
}

UntoldOutcome hashed(const std::string& password, PasswordCost cost, std::string& hash) {
    hash = hashPassword(password, cost);
    if (!hash.empty()) return UntoldOutcome::done();
    return {Outcome::failed,
            Notice{.text = texts::passwordNotKept, .icon = MessageIcon::stop, .beep = true}};
}

/// The one row of a condition; stale where there is none.
template <class Record>
UntoldOutcome readOne(const std::string& condition, Record& record) {
    const RowLease<Record> lease(*g_pDB, condition.c_str());
    if (!lease.isRead()) return UntoldOutcome::failed();
    if (!lease.isFound()) return {Outcome::stale};
    record = *lease.rows().front();
    return UntoldOutcome::done();
}

UntoldOutcome writeMark(const _UsersInfo& user, bool isWanted) {
    tellThisUnit();
    return writeNewPasswordMark(*g_pDB, user.lId, isWanted) ? UntoldOutcome::done()
                                                            : UntoldOutcome::failed();
}

UntoldOutcome addOperator(_UsersInfo& user, bool wantsNewPassword) {
    int lastUser = 0;
    int lastRights = 0;
    if (!g_pDB->readLastIdBefore<_UsersInfo>(1, lastUser) ||
        !g_pDB->readLastIdBefore<_UserAuthInfo>(1, lastRights))
        return UntoldOutcome::failed();
    user.lId = user.lUserId = std::max(lastUser, lastRights) + 1;
    if (g_pDB->QRYExecuteSQL(operator_sql::addOperator(user)) == 0) return UntoldOutcome::failed();
    return wantsNewPassword ? writeMark(user, true) : UntoldOutcome::done();
}

/// Those who are at work by the name that was go on by the new one.
UntoldOutcome renameSessions(const std::string& before, const _UsersInfo& user) {
    const std::string condition = operator_sql::ofSessions(g_lAccountId, before, user.lUserId);
    const bool isDone = g_pDB->QRYEdit("LoginInfoTbl", condition.c_str(),
                                       operator_sql::newNameOfLogon, user.sUserName) == 0 ||
                        g_pDB->lastStatus().failure == Failure::missing;
    return isDone ? UntoldOutcome::done() : UntoldOutcome::failed();
}

UntoldOutcome modifyOperator(const OperatorInput& input, const std::string& hash,
                             OperatorRecord& record) {
    _UsersInfo& user = record.user;
    _UsersInfo stored;
    UntoldOutcome result = readOne(operator_sql::ofUser(user.lUserId), stored);
    if (result.outcome != Outcome::done) return result;
    result = refuseInput(input, user.lUserId);
    if (result.outcome != Outcome::done) return result;
    const std::string before = stored.sUserName;
    const std::string wanted(operatorName(input));
    if (wanted != user.sUserName) stored.sUserName = wanted;
    if (!hash.empty()) stored.sPassword = hash;
    if (g_pDB->Users_Edit(stored) != 0) return UntoldOutcome::failed();
    if (stored.sUserName != before) result = renameSessions(before, stored);
    if (result.outcome == Outcome::done && input.wantsNewPassword != record.wantsNewPassword)
        result = writeMark(stored, input.wantsNewPassword);
    record.wantsNewPassword = input.wantsNewPassword;
    user = stored;
    return result;
}

UntoldOutcome changeRights(const RightsChange& change, std::int32_t userId, OperatorRights& before,
                           OperatorRights& rights) {
    _UsersInfo user;
    UntoldOutcome result = readOne(operator_sql::ofUser(userId), user);
    if (result.outcome != Outcome::done) return result;
    _UserAuthInfo stored;
    result = readOne(operator_sql::ofUser(userId), stored);
    if (result.outcome == Outcome::stale)
        return UntoldOutcome::refused({.text = texts::safetyFault});
    if (result.outcome != Outcome::done) return result;
    before = OperatorRights(stored.sAuthId);
    const OperatorRights wanted = change.appliedTo(before);
    if (g_pDB->QRYExecuteSQL(operator_sql::saveRights(userId, wanted.text())) == 0)
        return UntoldOutcome::failed();
    rights = wanted;
    return result;
}

UntoldOutcome refuseSupervisorEnd(const _UsersInfo& user) {
    const auto isLast = isLastSupervisor(user);
    if (!isLast) return UntoldOutcome::failed();
    const auto refusal =
        firstRefusal(supervisorEndChecks(),
                     {.name = user.sUserName, .isOwn = isOwn(user), .isLastSupervisor = *isLast});
    return refusal ? UntoldOutcome::refused(refusal->notice) : UntoldOutcome::done();
}

UntoldOutcome changeSupervisor(bool isSupervisor, _UsersInfo& user) {
    _UsersInfo stored;
    UntoldOutcome result = readOne(operator_sql::ofUser(user.lUserId), stored);
    if (result.outcome == Outcome::done && !isSupervisor) result = refuseSupervisorEnd(stored);
    if (result.outcome != Outcome::done) return result;
    stored.bManager = isSupervisor ? 1 : 0;
    user = stored;
    return g_pDB->Users_Edit(stored) == 0 ? result : UntoldOutcome::failed();
}

std::string inOneLine(std::string lines) {
    if (lines.ends_with('\n')) lines.pop_back();
    std::ranges::replace(lines, '\n', ' ');
    return lines;
}

UntoldOutcome deleteOperator(std::int32_t userId) {
    _UsersInfo stored;
    UntoldOutcome result = readOne(operator_sql::ofUser(userId), stored);
    // Deleted already, as it is wanted.
    if (result.outcome == Outcome::stale) return UntoldOutcome::done();
    if (result.outcome == Outcome::done) result = refuseDeletion(stored);
    if (result.outcome != Outcome::done) return result;
    return g_pDB->QRYExecuteSQL(operator_sql::deleteOperator(userId)) != 0
               ? UntoldOutcome::done()
               : UntoldOutcome::failed();
}

}  // namespace

std::optional<std::vector<OperatorRecord>> OperatorService::readAll() {
    std::optional<std::vector<OperatorRecord>> paired;
    if (!selectOpenBooks() || !readOperators(*g_pDB, paired)) {
        tellLastFailure(m_messages);
        return std::nullopt;
    }
    if (!paired) m_messages.tell({.text = texts::safetyFault});
    return paired;
}

bool OperatorService::readMark(OperatorRecord& record) {
    if (selectOpenBooks() && readNewPasswordMark(*g_pDB, record.user.lId, record.wantsNewPassword))
        return true;
    tellLastFailure(m_messages);
    return false;
}

Outcome OperatorService::add(const OperatorInput& input, OperatorRecord& added) {
    if (!selectOpenBooks()) return told(m_messages, UntoldOutcome::failed());
    UntoldOutcome checked = refuseInput(input, 0);
    _UsersInfo user;
    user.sUserName = operatorName(input);
    if (checked.outcome == Outcome::done) checked = hashed(input.password, m_cost, user.sPassword);
    if (checked.outcome != Outcome::done) return told(m_messages, checked);
    const auto words = [&user] { return fmt::format(texts::loggedAddition, user.sUserName); };
    const Outcome outcome = changeRecords(m_messages, lockLists, words, [&] {
        UntoldOutcome result = refuseInput(input, 0);
        return result.outcome == Outcome::done ? addOperator(user, input.wantsNewPassword) : result;
    });
    if (outcome == Outcome::done) added = {user, {}, input.wantsNewPassword};
    return outcome;
}

Outcome OperatorService::modify(const OperatorInput& input, OperatorRecord& changed) {
    if (!selectOpenBooks()) return told(m_messages, UntoldOutcome::failed());
    OperatorRecord record = changed;
    std::string hash;
    UntoldOutcome checked = refuseInput(input, record.user.lUserId);
    if (checked.outcome == Outcome::done && !input.password.empty())
        checked = hashed(input.password, m_cost, hash);
    if (checked.outcome != Outcome::done) return told(m_messages, checked);
    const Outcome outcome = changeRecords(
        m_messages, lockLists,
        [&] {
            const std::string name = changedName(changed.user.sUserName, record.user.sUserName);
            return hash.empty() ? fmt::format(texts::loggedChange, name)
                                : fmt::format(texts::loggedPassword, name);
        },
        [&] { return modifyOperator(input, hash, record); });
    if (outcome != Outcome::done) return outcome;
    if (isOwn(record.user)) HostSession::renameOperator(record.user.sUserName);
    changed = record;
    return outcome;
}

Outcome OperatorService::saveRights(const RightsChange& change, OperatorRecord& changed) {
    OperatorRights before;
    OperatorRights rights;
    const Outcome outcome = changeRecords(
        m_messages, lockLists,
        [&] {
            return fmt::format(texts::loggedRights, changed.user.sUserName,
                               inOneLine(rightsDifference(before, rights)));
        },
        [&] { return changeRights(change, changed.user.lUserId, before, rights); });
    if (outcome == Outcome::done) changed.rights = rights;
    return outcome;
}

Outcome OperatorService::remove(const OperatorRecord* record) {
    if (record == nullptr)
        return told(m_messages, UntoldOutcome::refused({.text = texts::nothingToDelete}));
    if (!selectOpenBooks()) return told(m_messages, UntoldOutcome::failed());
    const UntoldOutcome checked = refuseDeletion(record->user);
    if (checked.outcome != Outcome::done) return told(m_messages, checked);
    const Answer answer =
        m_messages.ask({.text = fmt::format(texts::deletion, record->user.sUserName),
                        .icon = MessageIcon::information});
    if (answer != Answer::yes) return Outcome::refused;
    return changeRecords(
        m_messages, lockLists,
        [&] { return fmt::format(texts::loggedDeletion, record->user.sUserName); },
        [&] { return deleteOperator(record->user.lUserId); });
}

Outcome OperatorService::setSupervisor(bool isSupervisor, OperatorRecord& changed) {
    if (!selectOpenBooks()) return told(m_messages, UntoldOutcome::failed());
    if (!isSupervisor) {
        const UntoldOutcome checked = refuseSupervisorEnd(changed.user);
        if (checked.outcome != Outcome::done) return told(m_messages, checked);
    }
    const std::string question = isSupervisor
                                     ? fmt::format(texts::makeSupervisor, changed.user.sUserName)
                                     : fmt::format(texts::endSupervisor, changed.user.sUserName,
                                                   rightsInWords(changed.rights));
    if (m_messages.ask({.text = question}) != Answer::yes) return Outcome::refused;
    _UsersInfo user = changed.user;
    const Outcome outcome = changeRecords(
        m_messages, lockLists,
        [&] {
            return isSupervisor ? fmt::format(texts::loggedSupervisor, user.sUserName)
                                : fmt::format(texts::loggedSupervisorEnd, user.sUserName);
        },
        [&] { return changeSupervisor(isSupervisor, user); });
    if (outcome == Outcome::done) changed.user = user;
    return outcome;
}

bool OperatorService::mayReadAgain() {
    return m_messages.ask({.text = texts::goneReload,
                           .icon = MessageIcon::information,
                           .preset = Answer::yes}) == Answer::yes;
}

}  // namespace chengheng
