#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "accounts/chart/account_entry.h"
#include "accounts/codes/code_levels.h"
#include "accounts/rules/account_checks.h"
#include "data/tables/accounts.h"
#include "session/record_change.h"

namespace chengheng {

/// What came of an action on one account. Refused without a notice: a question was answered
/// with Cancel. Stale: another workstation deleted or changed the account.
struct AccountChange {
    Outcome outcome = Outcome::failed;
    _CodeInfo account = {};       ///< as it is stored after an addition or modification
    std::string focusField = {};  ///< after a refusal or Cancel; empty: none
    /// The account whose use stands in the way, for findUses; empty for any other refusal.
    std::string usedCode = {};
    /// Whether only the totals of its parent keep the account out, so that it may be added with
    /// ParentSums::mayBeTotals.
    bool isKeptOutByTotals = false;
    /// The account as another workstation has stored it since it was shown.
    std::optional<_CodeInfo> changedThere = {};
};

/// Adds, modifies and deletes accounts of the open set of books (g_pDB). Each action holds its
/// table locks from the first check to the last write and writes in one unit of work. Whatever
/// does not give `done` has told the operator why and has changed nothing. The accounts that
/// CGetData caches are as before; who ends a series of changes loads them anew.
class AccountService {
  public:
    /// The messages outlive the service.
    AccountService(IMessages& messages, const CodeLevels& levels)
        : m_messages(messages), m_levels(levels) {}

    AccountChange add(const AccountEntry& entry, ParentSums parentSums = ParentSums::keepOut);

    /// `shown` is the account as the dialog showed it; one that another workstation has changed
    /// since is left as it is.
    AccountChange modify(const _CodeInfo& shown, const AccountEntry& entry);

    /// Asks first, with code and name as shown. An account that is gone meanwhile is left alone
    /// without a word.
    AccountChange remove(std::string_view code, std::string_view name);

    /// Reads the account of a code as it is stored; missing when there is none.
    static Status find(std::string_view code, _CodeInfo& account);
    /// Whether the ledger holds the account, in whatever place.
    static Status readUse(const _CodeInfo& account, bool& isUsed);
    /// Reads the account classes in the order of the list.
    static Status readClasses(std::vector<_zCodeClassInfo>& classes);

  private:
    IMessages& m_messages;
    CodeLevels m_levels;
};

}  // namespace chengheng
