#pragma once

#include <span>
#include <string>

#include "accounts/chart/account_use.h"

/// What a place of the ledger holds of accounts.
namespace chengheng::where_used_sql {

/// Number of rows of a place that name one of the accounts.
std::string count(UsePlace place, std::span<const int> accountIds);

/// The first of those rows, with the columns in the order of useColumns.
std::string rows(UsePlace place, std::span<const int> accountIds, int most);

/// Ids of all accounts that a place holds.
std::string accountsIn(UsePlace place);
/// Ids of all accounts with an opening balance other than zero.
inline constexpr const char* accountsWithOpening =
    "SELECT DISTINCT lCodeId FROM AccSum WHERE mBegin <> 0";

}  // namespace chengheng::where_used_sql
