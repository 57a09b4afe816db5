#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "accounts/chart/chart_facts.h"
#include "accounts/chart/chart_state.h"
#include "data/tables/accounts.h"

namespace chengheng {

/// The chart of a set of books as it will be when what was planned so far is done. New accounts
/// have ids below zero, so that nothing of the ledger holds them.
class PlannedChart final : public IChartFacts {
  public:
    explicit PlannedChart(const ChartState& state);

    std::optional<_CodeInfo> accountOf(std::string_view code) override;
    bool isMnemonicTaken(std::string_view mnemonic, int exceptAccountId) override;
    bool hasCurrency(int currencyId) override;
    bool hasChildren(std::string_view code) override;
    bool isUsed(UsePlace place, const std::vector<int>& accountIds, SumsUse sums) override;
    /// Never: an import keeps to the refusal, as nobody is there to insist row by row.
    bool hasOnlyTotals(const _CodeInfo&) override { return false; }

    void add(_CodeInfo account, const std::string& parentCode);
    /// The code stays.
    void change(const _CodeInfo& account);

    /// New accounts as they shall be, without ids, in the order in which they were added.
    std::vector<_CodeInfo> added() const;
    /// Accounts of the books that differ from how they are, in code order.
    std::vector<_CodeInfo> changed() const;

  private:
    void noteMnemonic(const _CodeInfo& account);

    const ChartState& m_state;
    std::vector<_CodeInfo> m_accounts;  ///< those of the books, then the new ones
    std::unordered_map<std::string, std::size_t> m_byCode;
    std::unordered_multimap<std::string, int> m_mnemonics;  ///< with their accounts' ids
};

}  // namespace chengheng
