#pragma once

/// The statements of the making of next year's books.
namespace chengheng::new_year_sql {

inline constexpr const char* parameters =
    "SELECT sName, sCompany, lYear FROM zAccountM ORDER BY lId";
inline constexpr const char* setParameters = "UPDATE zAccountM SET lYear = $1, dtStart = $2";
inline constexpr const char* setCounter = "UPDATE ABIdTable SET lLastId = $1 WHERE sTable = $2";

/// The currencies that rates can name.
inline constexpr const char* currencies =
    "SELECT lId FROM Cyrency WHERE lId BETWEEN 1 AND 255 ORDER BY lId";
inline constexpr const char* fixedRates =
    "SELECT byExchId, dtDate, dRate, dAdjustRate FROM ExchgFix ORDER BY lId";
inline constexpr const char* floatingRates =
    "SELECT byExchId, dtDate, dRate, dAdjustRate FROM ExchgFlt ORDER BY lId";
inline constexpr const char* addFixedRate =
    "INSERT INTO ExchgFix (lId, byExchId, dtDate, byPeroid, dRate, dAdjustRate) "
    "VALUES ($1, $2, $3, $4, $5, 0)";
inline constexpr const char* addFloatingRate =
    "INSERT INTO ExchgFlt (lId, byExchId, dtDate, byPeroid, dRate, dAdjustRate) "
    "VALUES ($1, $2, $3, $4, $5, 0)";

inline constexpr const char* dropTable = "DROP TABLE ";

}  // namespace chengheng::new_year_sql
