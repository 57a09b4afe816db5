#pragma once

/// Conditions and statements of the carry-forward.
namespace chengheng::carry_sql {

inline constexpr const char* accountsById = "lId > 0 ORDER BY lId";
inline constexpr const char* lastPeriod = "byPeroid=12 ORDER BY lCodeId, lId";
inline constexpr const char* firstPeriod = "byPeroid=1 ORDER BY lCodeId, lId";
inline constexpr const char* anyRow = "lId > 0";
/// What is there goes, and the ids begin anew.
inline constexpr const char* clearSums =
    "DELETE AccSum\nUPDATE ABIdTable Set lLastId = 0 Where sTable = 'AccSum'";

}  // namespace chengheng::carry_sql
