#pragma once

#include <array>
#include <string>
#include <unordered_set>
#include <vector>

#include "accounts/chart/account_use.h"
#include "data/access/CNbCwDB.h"
#include "data/tables/accounts.h"
#include "data/tables/currency.h"

namespace chengheng {

/// All of a set of books that decides about a chart: what an import is planned on.
struct ChartState {
    std::string levelPattern = {};
    std::vector<_zCodeClassInfo> classes = {};  ///< in the order of the list
    std::vector<_CyrencyInfo> currencies = {};
    std::vector<_CodeInfo> accounts = {};  ///< in code order
    /// Ids of the accounts that each place holds.
    std::array<std::unordered_set<int>, usePlaces.size()> usedIn = {};
    /// Those with an opening balance other than zero.
    std::unordered_set<int> withOpening = {};
};

/// Reads it from the selected database.
Status readChartState(CNbCwDB& database, ChartState& state);

}  // namespace chengheng
