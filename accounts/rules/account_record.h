#pragma once

#include "accounts/rules/account_checks.h"
#include "data/tables/accounts.h"

namespace chengheng {

/// The account that an addition which was let pass stores.
_CodeInfo newAccount(const AccountFacts& facts);
/// The account that a modification which was let pass stores.
_CodeInfo modifiedAccount(const AccountFacts& facts);

}  // namespace chengheng
