#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "opening/sheet/opening_account.h"

/// Conditions and statements of the opening balances.
namespace chengheng::opening_sql {

inline constexpr const char* accountsInOrder = "lId > 0 ORDER BY sCode";
inline constexpr const char* classesInOrder = "lId > 0 ORDER BY lNum";
inline constexpr const char* currencies = "lId > 0 ORDER BY lId";
inline constexpr const char* firstPeriod = "byPeroid = 1 AND mBegin is not NULL ORDER BY lCodeId";
/// The second period alone knows an opening balance that departs from the movements.
inline constexpr const char* secondPeriod = "byPeroid = 2 AND mBegin is not NULL ORDER BY lCodeId";
/// Vouchers of a period, as opposed to opening entries.
inline constexpr const char* vouchers = "byPeroid>0";
inline constexpr const char* anyRow = "lId > 0";

std::string account(std::int32_t accountId);
/// What gives it a direction.
inline constexpr const char* direction = "bDirect = %d";

/// The rows of an account.
std::string sumsOf(std::int32_t accountId);
std::string sumsOfInOrder(std::int32_t accountId);

// Statements of a batch; each ends its line.

/// All twelve periods carry the same opening figures.
void updateOpening(std::string& batch, std::int32_t accountId, const Balances& balances);
void updateOpeningMoney(std::string& batch, std::int32_t accountId, int period, double opening);
void updateFirstPeriod(std::string& batch, std::int32_t accountId, const Balance& money);
void updateForeignAndQuantity(std::string& batch, std::int32_t accountId, int period,
                              const Balances& balances);
std::string deleteSums(std::int32_t accountId);
void insertOpening(std::string& batch, std::int32_t id, std::int32_t accountId, int period,
                   const Balances& balances);
void insertOpeningMoney(std::string& batch, std::int32_t id, std::int32_t accountId, int period,
                        double opening);
void insertFirstPeriod(std::string& batch, std::int32_t id, std::int32_t accountId,
                       const Balance& money);
void setLastId(std::string& batch, std::int32_t lastId);

// The sweep of rows that carry nothing.

inline constexpr const char* sumSizes =
    "SELECT Sum( abs(mBegin)+abs(mDebet)+abs(mCredit)+abs(dAmtBegin)+abs(dAmtDebet)"
    "+abs(dAmtCredit) + abs(mFgnBegin)+abs(mFgnDebet)+abs(mFgnCredit)), lCodeId FROM AccSum "
    "GROUP BY lCodeId";
inline constexpr const char* auxiliaryOpenings =
    "SELECT lCodeId, Sum(mBegin) FROM AssAcc WHERE byPeroid = 1 GROUP BY lCodeId";
/// Of books that begin mid-year.
inline constexpr const char* auxiliaryOpeningsMidYear =
    "SELECT lCodeId, Sum(mBegin) FROM AssAcc WHERE byPeroid = 2 GROUP BY lCodeId";
inline constexpr const char* auxiliarySizes =
    "SELECT Sum( abs(mBegin)+abs(mDebt)+abs(mCredit)+abs(dBegin)+abs(dDebt)+abs(dCredit) "
    "+ abs(mFBegin)+abs(mFDebt)+abs(mFCredit)), lCodeId, lItemId, lDeptId, lPersonId, lEnterId, "
    "sItemId FROM AssAcc GROUP BY lCodeId, lItemId, lDeptId, lPersonId, lEnterId, sItemId";

/// Conditions of rows without any figure, as the indexes of such rows have them.
inline constexpr const char* sumsWithoutFigures =
    "mBegin = 0.0 AND mDebet = 0.0 AND mCredit = 0.0 AND dAmtBegin = 0.0 AND dAmtDebet = 0.0 "
    "AND dAmtCredit = 0.0 AND mFgnBegin = 0.0 AND mFgnDebet = 0.0 AND mFgnCredit = 0.0";
inline constexpr const char* auxiliaryWithoutFigures =
    "mBegin = 0.0 AND mDebt = 0.0 AND mCredit = 0.0 AND dBegin = 0.0 AND dDebt = 0.0 "
    "AND dCredit = 0.0 AND mFBegin = 0.0 AND mFDebt = 0.0 AND mFCredit = 0.0";
/// Whether AccSum and AssAcc have something to sweep, in a column each. Only what has a row without
/// any figure is added up.
std::string isAnythingToSweep();

std::string deleteSumsOfAccounts(std::span<const std::string_view> accountIds);

/// One combination of dimensions, its cells as the query gave them.
struct AuxiliaryKey {
    std::string_view account;
    std::string_view item;
    std::string_view department;
    const char* person;  ///< null: none is known
    std::string_view unit;
    std::string_view itemClass;
};
void deleteAuxiliary(std::string& batch, const AuxiliaryKey& key);

}  // namespace chengheng::opening_sql
