#pragma once

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "books/carrying/carry_plan.h"
#include "books/carrying/carry_proof.h"
#include "opening/sheet/edit_journal.h"

namespace chengheng {

/// What a repeated carry-forward would do: the differences of the two years, those that can be
/// carried and those of accounts that something stands in the way of.
struct RepeatPlan {
    std::vector<CarryDifference> carried;
    std::vector<CarryDifference> left;
    std::vector<CarryObstacle> obstacles;  ///< why, in the order of the accounts' codes
    YearEnd now;                           ///< this year as it was looked at

    bool isEmpty() const { return carried.empty() && left.empty(); }
    /// So many accounts are carried to.
    std::size_t accounts() const;
    /// What would be done, or what was: how many figures and accounts, and what is left.
    std::string text(bool isDone) const;
};

/// Accounts go by their codes, so that one that was made anew is the same. `withEntries` are this
/// year's accounts with opening entries, whose balances follow from these.
RepeatPlan planRepeat(const YearEnd& before, YearEnd now, const MembersOfYears& members,
                      const std::set<std::int32_t>& withEntries);

/// The planned figures as a step of the sheet. An account of which only details differ is in it
/// unchanged. It names no account where one is no longer what it was.
EditStep repeatStep(const RepeatPlan& plan, const OpeningSheet& sheet);

}  // namespace chengheng
