#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "accounts/chart/account_entry.h"
#include "accounts/chart/chart_facts.h"
#include "accounts/codes/code_levels.h"
#include "base/messages/checks.h"
#include "data/tables/accounts.h"

namespace chengheng {

/// Whether an account may be added below one whose opening balance is only the total of the
/// accounts below it: no balance changes by that.
enum class ParentSums { keepOut, mayBeTotals };

/// What the checks of an addition or modification look at.
struct AccountFacts {
    /// Reads the parent, which the checks, the new account and the writing all look at.
    AccountFacts(AccountEntry tidiedEntry, const _CodeInfo* accountBefore,
                 const CodeLevels& codeLevels, const std::vector<_zCodeClassInfo>& allClasses,
                 IChartFacts& chartFacts);

    AccountEntry entry;       ///< tidied
    const _CodeInfo* before;  ///< the account modified; null: a new one
    const CodeLevels& levels;
    const std::vector<_zCodeClassInfo>& classes;  ///< in the order of the list
    IChartFacts& chart;
    std::optional<_CodeInfo> parent;  ///< the account of the parent's code
    ParentSums parentSums = ParentSums::keepOut;

    bool isCodeChanged() const { return before == nullptr || before->sCode != entry.code; }
    int accountId() const { return before == nullptr ? 0 : before->lId; }
    std::string parentCode() const { return levels.parentOf(entry.code); }
    /// Whether an account is the one being saved.
    bool isOwn(const _CodeInfo& account) const {
        return before != nullptr && before->lId == account.lId;
    }
    /// Position in the list plus one; 0 for a class that is not in it.
    int categoryNumber() const;
};

/// Whether an entry may be saved. The obstacle of a refusal is the code of the account whose use
/// in the ledger stands in the way.
std::span<const Check<AccountFacts>> additionChecks();
std::span<const Check<AccountFacts>> modificationChecks();

/// Whether an addition that was refused for the use of its parent would pass with
/// ParentSums::mayBeTotals.
bool passesWithTotals(const AccountFacts& facts);

/// What is asked before an entry that nothing refuses is saved: OK goes on to the next
/// question, Cancel stops the save.
struct AccountQuestion {
    Question question;
    const char* focusField;  ///< after Cancel
};
std::vector<AccountQuestion> additionQuestions(const AccountFacts& facts);
std::vector<AccountQuestion> modificationQuestions(const AccountFacts& facts);

}  // namespace chengheng
