#include "books/logon/own_password.h"

#include <fmt/format.h>

#include "books/logon/logon_sql.h"
#include "books/logon/logon_texts.h"
#include "data/access/CNbCwDB.h"
#include "data/access/row_lease.h"
#include "data/connection/database.h"
#include "data/tables/operators.h"
#include "session/failure_texts.h"
#include "session/host_globals.h"
#include "session/last_failure.h"
#include "session/open_books.h"
#include "session/rights/new_password_mark.h"
#include "session/rights/password_advice.h"

namespace chengheng {
namespace {

constexpr LockLists lockLists{WriteRight::own, "", "Users UserAuth"};

UntoldOutcome refused(const char* text, const char* field) {
    return UntoldOutcome::refused({.text = text, .beep = true, .focusField = field});
}

UntoldOutcome readOwn(_UsersInfo& user) {
    const RowLease<_UsersInfo> lease(*g_pDB,
                                     logon_sql::ofRightsOwner(g_lpLogonUserInfo->lUserId).c_str());
    if (!lease.isRead()) return UntoldOutcome::failed();
    if (!lease.isFound()) return UntoldOutcome::refused({.text = logon_texts::ownRowGone});
    user = *lease.rows().front();
    return UntoldOutcome::done();
}

/// Another password that was given meanwhile is not overwritten: the old one is wrong by now.
UntoldOutcome writeOwn(const std::string& knownHash, const std::string& hash) {
    _UsersInfo user;
    UntoldOutcome result = readOwn(user);
    if (result.outcome != Outcome::done) return result;
    if (user.sPassword != knownHash)
        return refused(logon_texts::oldPasswordWrong, own_password_field::old);
    // Of the own row a server may let an operator write nothing but this.
    const int written = g_pDB->QRYEdit("Users", logon_sql::ofRightsOwner(user.lUserId).c_str(),
                                       logon_sql::newPassword, hash);
    if (written != 0 || !writeNewPasswordMark(*g_pDB, user.lId, false))
        return UntoldOutcome::failed();
    return result;
}

}  // namespace

std::string PasswordForm::note() const {
    return wanted.empty() && !confirmation.empty() ? std::string() : passwordAdvice(wanted, name());
}

std::optional<Notice> PasswordForm::confirmationRefusal() const {
    if (wanted == confirmation) return std::nullopt;
    return Notice{.text = logon_texts::newPasswordsDiffer,
                  .beep = true,
                  .focusField = own_password_field::confirmation};
}

std::string OwnPassword::name() const {
    return g_lpLogonUserInfo == nullptr ? "" : g_lpLogonUserInfo->sUserName;
}

bool NewPassword::confirm() {
    if (!canConfirm()) return false;
    auto refused = confirmationRefusal();
    if (!refused && wanted == old)
        refused = Notice{.text = logon_texts::newPasswordIsOld,
                         .beep = true,
                         .focusField = own_password_field::wanted};
    if (refused) m_messages.tell(*refused);
    return !refused;
}

UntoldOutcome OwnPassword::check(std::string& knownHash) {
    if (const auto notice = confirmationRefusal()) return UntoldOutcome::refused(*notice);
    if (!selectOpenBooks()) return UntoldOutcome::failed();
    _UsersInfo user;
    UntoldOutcome result = readOwn(user);
    if (result.outcome != Outcome::done) return result;
    const std::string location = g_pDB->selectedDatabase()->location();
    const TriedOperator tried{location, user.sUserName, user.lId};
    if (auto refusal = m_tries.begin(*g_pDB, tried)) {
        refusal->notice.focusField = own_password_field::old;
        return UntoldOutcome::refused(refusal->notice);
    }
    if (!isPasswordOf(user.sPassword, old))
        return refused(logon_texts::oldPasswordWrong, own_password_field::old);
    if (const Status status = m_tries.takeBack(*g_pDB, tried); !status)
        return {Outcome::failed, failureRefusalOf(status, location).notice};
    knownHash = user.sPassword;
    return result;
}

bool OwnPassword::confirm() {
    if (!canConfirm()) return false;
    std::string knownHash;
    const UntoldOutcome checked = check(knownHash);
    if (checked.outcome != Outcome::done) {
        told(m_messages, checked);
        return false;
    }
    const std::string hash = hashPassword(wanted, m_cost);
    if (hash.empty()) {
        m_messages.tell({.text = logon_texts::passwordNotKept, .icon = MessageIcon::stop});
        return false;
    }
    const auto words = [this] { return fmt::format(logon_texts::loggedOwnPassword, name()); };
    return changeRecords(m_messages, lockLists, words, [&] { return writeOwn(knownHash, hash); }) ==
           Outcome::done;
}

}  // namespace chengheng
