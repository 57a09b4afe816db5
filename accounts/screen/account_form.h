#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "accounts/changing/account_service.h"
#include "accounts/chart/account_entry.h"
#include "accounts/codes/code_levels.h"
#include "accounts/screen/chart_screen.h"
#include "data/tables/accounts.h"

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

    // Beginnings; one that is not done leaves the form as it is.

    /// Begins a new account below `parent`, of the class named; a class that is none of the
    /// list, or an empty chart, leaves it to the proposals.
    Status beginNew(std::string_view parent, std::string_view className);
    /// Begins a new account with the settings of another one, which is read anew as by
    /// AccountService::find.
    Status beginCopy(std::string_view code);
    /// Begins modifying an account, read in the same way.
    Status beginModification(std::string_view code);

    bool isAdding() const { return !m_shown; }
    /// What the fields begin with.
    const AccountEntry& entry() const { return m_opened; }
    /// Whether saving would write anything new.
    bool isChanged(const AccountEntry& typed) const;

    /// Adds or modifies. After an addition that is done the form begins the next account of the
    /// same class; what it cannot read for that, it begins without, which is told. When another
    /// workstation has changed the account, the form goes on with that one, and kept() is what
    /// was typed over it.
    AccountChange save(const AccountEntry& typed, ParentSums parentSums = ParentSums::keepOut);

    const AccountEntry& kept() const { return m_kept; }

    /// The account that an arrow leads to; empty when there is none.
    std::string neighbour(Step step) const;
    /// Goes there, without regard to what has been typed, by a copy or a modification.
    Status goTo(std::string_view code);

    /// What it means that an account which is used gets the class chosen; empty when it keeps
    /// its own, is not used, or is a new one.
    Status explainClass(std::string_view className, std::string& text) const;

    /// Proposes a mnemonic for a name: none when the name gives none.
    static Status proposeMnemonic(std::string_view name, std::string& mnemonic);
    /// Puts what a new account's code proposes into an entry and leaves the rest as it is. The
    /// class: that of the account above, at the top the one of the code's first digit; unless
    /// the operator's tab has decided. Page, currency, quantity and books: as the account above
    /// has them, none at the top; unless another account is copied.
    Status proposeFor(std::string_view code, AccountEntry& entry) const;

  private:
    /// Begins the account after the one that was added, of its class. What cannot be read, it
    /// begins without.
    Status beginNext(const std::string& className);
    void goOnOver(const _CodeInfo& stored, const AccountEntry& typed);
    Status readAbove(std::string_view code, std::optional<_CodeInfo>& above) const;
    std::string classFor(std::string_view code, const std::optional<_CodeInfo>& above,
                         const std::vector<_zCodeClassInfo>& classes) const;
    Status proposeBelow(std::string_view parent, std::string& code) const;
    Status proposeBeside(std::string_view place, std::string& code) const;

    IMessages& m_messages;
    AccountService m_service;
    CodeLevels m_levels;
    const ChartScreen& m_screen;
    AccountEntry m_opened;
    AccountEntry m_kept;
    std::optional<_CodeInfo> m_shown;  ///< the account modified
    std::string m_place;               ///< the account that the arrows go on from
    bool m_isClassGiven = false;
    bool m_isCopy = false;
};

}  // namespace chengheng
