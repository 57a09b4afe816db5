#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "accounts/changing/account_service.h"
#include "accounts/chart/account_entry.h"
#include "accounts/codes/code_levels.h"
#include "accounts/screen/chart_screen.h"

namespace chengheng {

/// The account dialog without its controls: what its fields begin with, what it proposes,
/// which account its arrows lead to, and what is saved.
///
/// While accounts are added it stays at work after a save and proposes the next free code; the
/// arrows choose the account whose settings a new one takes over. While accounts are modified
/// the arrows choose the account that is modified.
class AccountForm {
  public:
    enum class Step { first, previous, next, last };

    /// The screen gives the accounts that the arrows lead through; both outlive the form.
    AccountForm(IMessages& messages, const CodeLevels& levels, const ChartScreen& screen);

    // Beginnings: failed when the books cannot be read, not done the form is as before.

    /// Begins a new account below `parent`, of the class named; a class that is none of the
    /// list, or an empty chart, leaves it to the proposals.
    Outcome beginNew(std::string_view parent, std::string_view className);
    /// Begins a new account with the settings of another one, which is read anew as by
    /// AccountService::find.
    Outcome beginCopy(std::string_view code);
    /// Begins modifying an account, read in the same way.
    Outcome beginModification(std::string_view code);

    bool isAdding() const { return !m_shown; }
    /// What the fields begin with.
    const AccountEntry& entry() const { return m_opened; }
    /// Whether saving would write anything new.
    bool isChanged(const AccountEntry& typed) const;

    /// Adds or modifies. After an addition that is done the form begins the next account,
    /// without a code when none can be read, which is told.
    AccountChange save(const AccountEntry& typed);

    /// The account that an arrow leads to; empty when there is none.
    std::string neighbour(Step step) const;
    /// Goes there, without regard to what has been typed, by a copy or a modification.
    Outcome goTo(std::string_view code);

    // Proposals: nothing when the books cannot be read.

    /// The mnemonic proposed for a name: empty when the name gives none.
    static std::optional<std::string> mnemonicFor(std::string_view name);
    /// The class proposed for a code: that of the account above, at the top the one of the
    /// code's first digit; empty when neither is known or the operator's tab has decided.
    std::optional<std::string> classFor(std::string_view code) const;

  private:
    std::optional<std::string> classOf(std::string_view code) const;
    std::optional<std::string> proposedBelow(std::string_view parent) const;
    std::optional<std::string> proposedBeside(std::string_view code) const;

    IMessages& m_messages;
    AccountService m_service;
    CodeLevels m_levels;
    const ChartScreen& m_screen;
    AccountEntry m_opened;
    std::optional<_CodeInfo> m_shown;  ///< the account modified
    std::string m_place;               ///< the account that the arrows go on from
    bool m_isClassGiven = false;
};

}  // namespace chengheng
