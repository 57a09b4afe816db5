#pragma once

#include <optional>
#include <span>
#include <vector>

#include "accounts/rules/account_checks.h"

namespace chengheng {

/// What the checks of a deletion look at.
struct DeletionFacts {
    const _CodeInfo& account;
    std::vector<int> idsWithBelow;  ///< of the account and those below it
    IChartFacts& chart;
};

struct DeletionCheck {
    const char* name;
    std::optional<AccountRefusal> (*refusal)(const DeletionFacts& facts);
};

/// In the order in which they are told.
std::span<const DeletionCheck> deletionChecks();

/// The first refusal; nothing when the account may be deleted.
std::optional<AccountRefusal> deletionRefusal(const DeletionFacts& facts);

}  // namespace chengheng
