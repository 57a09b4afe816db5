#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "opening/sheet/opening_account.h"

namespace chengheng {

/// Sets the figures of every account that is no end account to the sums of the end accounts
/// below it, at any depth, rounded to the decimals of their measure. Directions play no part. An
/// account is below another when its code begins with the whole code of the other.
///
/// The accounts are in the order of their codes, byte by byte; a stretch of them may be given
/// that holds whatever is below its accounts. One pass: the time grows with their number.
void rollUp(std::span<OpeningAccount> accounts, OpeningLayout layout);

/// The accounts that an end account at a place counts for, with all that is below them: from
/// its top-level account to the last account with that code in front. Gives first place and
/// number.
struct Subtree {
    std::size_t first = 0;
    std::size_t count = 0;
};
Subtree subtreeAround(std::span<const OpeningAccount> accounts, std::size_t place);

/// The places of the accounts above the one at a place, from the nearest to the top.
std::vector<std::size_t> ancestorsOf(std::span<const OpeningAccount> accounts, std::size_t place);

}  // namespace chengheng
