#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "accounts/chart/account_use.h"
#include "base/values/status.h"

namespace chengheng {

/// A place of the ledger that holds accounts, with what it holds.
struct UseSection {
    UsePlace place;
    std::string title = {};                           ///< 已记帐凭证
    int count = 0;                                    ///< rows in all
    std::vector<std::string> headings = {};           ///< of the columns
    std::vector<std::vector<std::string>> rows = {};  ///< the first of them, as texts
};

/// The most rows of a place that are listed; the count tells of all.
inline constexpr int mostUsesListed = 200;

/// Which vouchers, balances, definitions and projects of the open set of books (g_pDB) hold an
/// account or one below it. Only places that hold one are in the list.
Status findUses(std::string_view code, std::vector<UseSection>& sections);

}  // namespace chengheng
