#include "operationlog/verifying/verifying_sql.h"

#include "data/sql/sql_format.h"

namespace chengheng::verifying_sql {
namespace {

constexpr int entriesOfPage = 256;

}  // namespace

std::string entries(const NumberRange& numbers, bool isNewestFirst) {
    std::string sql =
        "SELECT lId, sTime, lUserId, sUser, sStation, lProcess, sProgram, lFunction, sWords, "
        "sUnit, lParts, lRows, sPartsHash, sHash FROM OperationLog";
    appendSql(sql, " WHERE lId BETWEEN %d AND %d ORDER BY lId", numbers.lowest, numbers.highest);
    if (isNewestFirst) sql += " DESC";
    appendSql(sql, " LIMIT %d", entriesOfPage);
    return sql;
}

std::string parts(bool isNewestFirst) {
    const std::string direction = isNewestFirst ? " DESC" : "";
    return "SELECT l.lId, p.lPart, p.sTable, p.lLowest, p.lHighest, p.lLowAccount, "
           "p.lHighAccount, p.lRows, p.sPacked FROM OperationLog l JOIN OperationLogPart p ON "
           "p.sUnit = l.sUnit WHERE l.lId BETWEEN $1 AND $2 AND p.lPart BETWEEN $3 AND $4 ORDER "
           "BY l.lId" +
           direction + ", p.lPart" + direction;
}

}  // namespace chengheng::verifying_sql
