#pragma once

#include <span>
#include <vector>

#include "accounts/chart/chart_facts.h"
#include "accounts/rules/account_checks.h"
#include "base/messages/checks.h"
#include "data/tables/accounts.h"

namespace chengheng {

/// What the checks of a deletion look at.
struct DeletionFacts {
    const _CodeInfo& account;
    std::vector<int> idsWithBelow;  ///< of the account and those below it
    IChartFacts& chart;
};

/// Whether an account may be deleted. The obstacle of a refusal is its code when it is used.
std::span<const Check<DeletionFacts>> deletionChecks();

}  // namespace chengheng
