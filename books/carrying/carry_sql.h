#pragma once

#include <cstdint>
#include <string>

#include "auxiliary/members/entry_dimensions.h"
#include "data/sql/sql_format.h"

/// Conditions and statements of the carry-forward.
namespace chengheng::carry_sql {

inline constexpr const char* accountsById = "lId > 0 ORDER BY lId";
inline constexpr const char* lastPeriod = "byPeroid=12 ORDER BY lCodeId, lId";
inline constexpr const char* firstPeriod = "byPeroid=1 ORDER BY lCodeId, lId";
/// The year goes on behind these, and its last period is not there.
inline constexpr const char* cutShort =
    "byPeroid=1 AND NOT EXISTS (SELECT lId FROM AccSum later WHERE later.lCodeId=AccSum.lCodeId "
    "AND later.byPeroid=12) ORDER BY lCodeId, lId";
inline constexpr const char* anyRow = "lId > 0";
inline constexpr const char* unpostedVouchers = "byPeroid>0";
inline constexpr const char* accountsWithEntries =
    "SELECT lCodeId, Count(lId) FROM RegSub WHERE bBegin <> 0 GROUP BY lCodeId";
/// What is there goes, and the ids begin anew.
inline constexpr const char* clearSums =
    "DELETE AccSum\nUPDATE ABIdTable Set lLastId = 0 Where sTable = 'AccSum'";

/// The details of an account.
inline std::string detailsOf(std::int32_t accountId) {
    return formatSql("lCodeId = %d ORDER BY lId", accountId);
}
/// The opening of one row of details.
inline void updateDetail(std::string& batch, const EntryFigures& opening, std::int32_t rowId) {
    appendSql(batch, "UPDATE AssAcc Set mBegin = %lf, mFBegin = %lf, dBegin = %lf Where lId = %d\n",
              opening.money, opening.foreign, opening.quantity, rowId);
}
inline void deleteDetail(std::string& batch, std::int32_t rowId) {
    appendSql(batch, "DELETE AssAcc Where lId = %d\n", rowId);
}

}  // namespace chengheng::carry_sql
