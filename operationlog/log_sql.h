#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "data/tables/schema.h"
#include "operationlog/log_filter.h"

// What is asked of the operation log.

namespace chengheng::log_sql {

/// What of the entries a page may hold, where the filter's account stands for these ids.
struct PageRange {
    std::int32_t lowest = 1;
    std::int32_t highest = 0;
    int limit = 0;
};

/// The entries of a range that a filter lets through, newest first. `likeEscape` is the engine's.
std::string page(const LogFilter& filter, const std::vector<std::int32_t>& accounts,
                 const PageRange& range, std::string_view likeEscape);
/// The lowest and the highest number within the times of a filter; NULL where there is none.
std::string numbersWithin(const LogFilter& filter);
/// The entry of a number.
std::string entry(std::int32_t number);
/// The numbers of the entries with parts that may hold a row of a table, newest first.
std::string entriesOfRow(const std::string& table, std::int32_t id, const PageRange& range);

/// Those with parts of a table that may hold rows of an account.
std::string entriesOfAccount(const std::string& table, std::int32_t account,
                             const PageRange& range);
/// $1 an account, $2 a period: the row of balances of a table.
std::string balancesOf(const std::string& table);

/// $1 a unit, $2 the number of a part: the parts behind it, one at a time.
inline constexpr const char* partBehind =
    "SELECT lPart, sTable, lRows, sPacked FROM OperationLogPart WHERE sUnit = $1 AND lPart > $2 "
    "ORDER BY lPart LIMIT 1";
/// $3 a table, $4 a row's id: those that may hold it.
inline constexpr const char* partOfRowBehind =
    "SELECT lPart, sTable, lRows, sPacked FROM OperationLogPart WHERE sUnit = $1 AND lPart > $2 "
    "AND sTable = $3 AND lLowest <= $4 AND lHighest >= $4 ORDER BY lPart LIMIT 1";
/// $3 a table, $4 an account's id: those that may hold a row of it.
inline constexpr const char* partOfTableBehind =
    "SELECT lPart, sTable, lRows, sPacked FROM OperationLogPart WHERE sUnit = $1 AND lPart > $2 "
    "AND sTable = $3 AND lLowAccount <= $4 AND lHighAccount >= $4 ORDER BY lPart LIMIT 1";
/// $3 an account's id: those that may hold a row of it, and whether they hold only such.
inline constexpr const char* partOfAccountBehind =
    "SELECT lPart, sTable, lRows, CASE WHEN lLowAccount = lHighAccount THEN '' ELSE sPacked END, "
    "lLowest, lHighest FROM OperationLogPart WHERE sUnit = $1 AND lPart > $2 AND lLowAccount <= "
    "$3 AND lHighAccount >= $3 ORDER BY lPart LIMIT 1";
/// The parts of a table in the order of its index, a page at a time; $1 the table, $2 to $5 where
/// the last page ended.
inline constexpr const char* partsOfTable =
    "SELECT lLowest, lHighest, sUnit, lPart, sPacked FROM OperationLogPart WHERE sTable = $1 AND "
    "(lLowest, lHighest, sUnit, lPart) > ($2, $3, $4, $5) ORDER BY lLowest, lHighest, sUnit, "
    "lPart LIMIT 64";

/// $1 a code: the accounts that have it now.
inline constexpr const char* accountsOfCode = "SELECT lId FROM Code WHERE sCode = $1";
/// $1 to $2: the accounts that rows of a table belong to now.
std::string accountsOfRows(const std::string& table);

/// The rows of a table whose ids lie from $1 to $2.
std::string rowsBetween(const TableInfo& table);
/// Those of these ids.
std::string rowsOf(const TableInfo& table, const std::vector<std::int64_t>& ids);

/// The names of those whom the log tells of, found one behind the other.
inline constexpr const char* operators =
    "WITH RECURSIVE names(sName) AS (SELECT min(sUser) FROM OperationLog UNION ALL SELECT (SELECT "
    "min(l.sUser) FROM OperationLog l WHERE l.sUser > names.sName) FROM names WHERE names.sName "
    "IS NOT NULL) SELECT sName FROM names WHERE sName IS NOT NULL";
/// The functions that it tells of, likewise.
inline constexpr const char* functions =
    "WITH RECURSIVE numbers(lNumber) AS (SELECT min(lFunction) FROM OperationLog UNION ALL SELECT "
    "(SELECT min(l.lFunction) FROM OperationLog l WHERE l.lFunction > numbers.lNumber) FROM "
    "numbers WHERE numbers.lNumber IS NOT NULL) SELECT lNumber FROM numbers WHERE lNumber IS NOT "
    "NULL";

}  // namespace chengheng::log_sql
