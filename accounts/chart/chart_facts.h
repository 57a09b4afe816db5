#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "accounts/chart/account_use.h"
#include "data/tables/accounts.h"

namespace chengheng {

/// What the checks of an account ask about the rest of the books. Asked one after the other, so
/// that an entry refused for its text costs no reading.
class IChartFacts {
  public:
    virtual ~IChartFacts() = default;

    virtual std::optional<_CodeInfo> accountOf(std::string_view code) = 0;
    virtual bool isMnemonicTaken(std::string_view mnemonic, int exceptAccountId) = 0;
    virtual bool hasCurrency(int currencyId) = 0;
    virtual bool hasChildren(std::string_view code) = 0;
    /// Whether a place holds one of the accounts.
    virtual bool isUsed(UsePlace place, const std::vector<int>& accountIds, SumsUse sums) = 0;
    /// Whether the sums of an account are no more than the totals of the accounts below it.
    virtual bool hasOnlyTotals(const _CodeInfo& account) = 0;
};

}  // namespace chengheng
