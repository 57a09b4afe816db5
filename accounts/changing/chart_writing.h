#pragma once

#include <functional>
#include <optional>
#include <string>

#include "data/tables/accounts.h"
#include "session/record_change.h"

namespace chengheng {

// The writes of a change of the chart, on g_pDB inside a unit of work.

/// Runs the steps until one is not done.
UntoldOutcome inTurn(std::initializer_list<std::function<UntoldOutcome()>> steps);

/// Adds the account and gives it its id.
UntoldOutcome addAccount(_CodeInfo& account);
UntoldOutcome editAccount(const _CodeInfo& account);
UntoldOutcome deleteAccount(int id);

/// The account got a child; nothing to be done where there is none.
UntoldOutcome endsNoMore(const std::optional<_CodeInfo>& parent);
/// The account of a code lost a child, maybe its last; an empty code is no account.
UntoldOutcome endsAgainWithoutChildren(const std::string& code);

}  // namespace chengheng
