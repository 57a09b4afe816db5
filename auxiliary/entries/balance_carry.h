#pragma once

#include <map>
#include <span>
#include <utility>
#include <vector>

#include "auxiliary/entries/auxiliary_entry.h"
#include "auxiliary/members/auxiliary_member.h"
#include "data/access/CNbCwDB.h"
#include "data/tables/balances.h"

namespace chengheng {

/// Below this a money figure counts as none.
inline constexpr double leastMoney = 0.0001;

/// Carries changes of the entries of one account into its auxiliary sums and its period sums, as
/// differences: rows of twelve periods that differ from each other each move by the same.
/// Changes of one combination that come together are one movement.
class BalanceCarry {
  public:
    BalanceCarry(const AuxiliaryMember& member, const AuxiliaryAccount& account)
        : m_member(member), m_account(account) {}

    /// An entry goes. Without money it leaves the auxiliary sums as they are.
    void takeOff(const EntryContent& entry);
    /// An entry comes.
    void put(const EntryContent& entry);

    /// Writes into the selected database; to be called in a unit of work that holds the sums.
    /// `isTooLarge` tells that a balance is more than the books hold exactly: then nothing of the
    /// unit is to be kept.
    Status write(CNbCwDB& database, bool& isTooLarge);

  private:
    using Rows = std::vector<_AssAccInfo>;
    using FreshSums = std::pair<EntryDimensions, EntryFigures>;

    EntryDimensions combinationOf(const EntryDimensions& of) const;
    /// The rows of each combination that moves; those without rows are left out.
    Status readRows(CNbCwDB& database, std::map<EntryDimensions, Rows>& rows) const;
    Status writeAuxiliary(CNbCwDB& database, bool& isTooLarge);
    /// The rows of combinations that have none yet, by statements or, for many, as records.
    Status insertSums(CNbCwDB& database, std::span<const FreshSums> fresh) const;
    Status addSums(CNbCwDB& database, std::span<const FreshSums> fresh) const;
    Status writeAccount(CNbCwDB& database, bool& isTooLarge);

    const AuxiliaryMember& m_member;
    const AuxiliaryAccount& m_account;
    std::map<EntryDimensions, FigureSums> m_combinations;
    FigureSums m_total;
};

}  // namespace chengheng
