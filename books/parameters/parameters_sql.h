#pragma once

#include <string>

#include "data/tables/books.h"

/// Conditions and statements of the parameters of books.
namespace chengheng::parameters_sql {

inline constexpr const char* inOrder = "lId > 0 ORDER BY lId";
inline constexpr const char* currencyAccounts =
    "SELECT sCode, sName FROM Code WHERE lId > 0 AND byExchId <> 0 ORDER BY sCode";
inline constexpr const char* currencies = "SELECT lId FROM Cyrency WHERE lId > 0";

// Each of rows that keep the start month where it is.
inline constexpr const char* vouchers = "byPeroid > 0";
inline constexpr const char* anyRow = "lId > 0";
inline constexpr const char* openingEntries = "bBegin <> 0";
inline constexpr const char* sums =
    "(mBegin <> 0 OR mDebet <> 0 OR mCredit <> 0 OR dAmtBegin <> 0 OR dAmtDebet <> 0 OR "
    "dAmtCredit <> 0 OR mFgnBegin <> 0 OR mFgnDebet <> 0 OR mFgnCredit <> 0)";
inline constexpr const char* auxiliarySums =
    "(mBegin <> 0 OR mDebt <> 0 OR mCredit <> 0 OR dBegin <> 0 OR dDebt <> 0 OR dCredit <> 0 OR "
    "mFBegin <> 0 OR mFDebt <> 0 OR mFCredit <> 0)";

/// Writes what can be changed of a record.
std::string change(const _zAccountMInfo& record);

}  // namespace chengheng::parameters_sql
