#pragma once

#include <set>
#include <string>
#include <utility>
#include <vector>

#include "accounts/chart/chart_facts.h"
#include "data/tables/accounts.h"

namespace chengheng {

/// A chart without a database: accounts, currencies and uses as a test writes them down. It
/// notes every question about use and every account asked for, in order.
class FakeChart final : public IChartFacts {
  public:
    /// Gives the account's id: 1, 2, ...
    int add(const std::string& code, const std::string& mnemonic = {});
    void addCurrency(int id) { m_currencies.insert(id); }
    void use(UsePlace place, const std::string& code);
    /// Sums without an opening balance.
    void addEmptySums(const std::string& code);
    /// Lets the sums of the account be no more than the totals of those below it.
    void addTotals(const std::string& code);

    _CodeInfo& account(const std::string& code);
    const std::vector<UsePlace>& askedPlaces() const { return m_asked; }
    const std::vector<std::string>& askedCodes() const { return m_askedCodes; }

    std::optional<_CodeInfo> accountOf(std::string_view code) override;
    bool isMnemonicTaken(std::string_view mnemonic, int exceptAccountId) override;
    bool hasCurrency(int currencyId) override { return m_currencies.contains(currencyId); }
    bool hasChildren(std::string_view code) override;
    bool isUsed(UsePlace place, const std::vector<int>& accountIds, SumsUse sums) override;
    bool hasOnlyTotals(const _CodeInfo& account) override;

  private:
    std::vector<_CodeInfo> m_accounts;
    std::set<int> m_currencies;
    std::set<std::pair<UsePlace, int>> m_uses;
    std::set<int> m_emptySums;
    std::set<int> m_totals;
    std::vector<UsePlace> m_asked;
    std::vector<std::string> m_askedCodes;
};

}  // namespace chengheng
