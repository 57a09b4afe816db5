#include "operationlog/log_sql.h"

#include <utility>

#include "base/values/text.h"
#include "data/sql/sql_format.h"
#include "data/transfer/stored_tables.h"

namespace chengheng::log_sql {
namespace {

constexpr const char* entryColumns =
    "SELECT lId, sTime, lUserId, sUser, sStation, lProcess, sProgram, lFunction, sWords, sUnit, "
    "lParts, lRows, sPartsHash, sHash FROM OperationLog";

// Behind whatever a time goes on with.
constexpr const char* endOfTimes = "~";

/// The column in an expression is not looked up in its index: within a range of numbers, few
/// entries have other times.
void addTimes(const LogFilter& filter, const char* column, std::string& sql) {
    if (!filter.from.empty()) appendSql(sql, " AND %s >= '%s'", SqlFragment(column), filter.from);
    if (!filter.to.empty())
        appendSql(sql, " AND %s < '%s'", SqlFragment(column), filter.to + endOfTimes);
}

std::string unitsOf(const std::vector<std::int32_t>& accounts) {
    std::string units;
    for (const std::int32_t account : accounts) {
        units += units.empty() ? "" : " UNION ALL ";
        appendSql(units,
                  "SELECT sUnit FROM OperationLogPart WHERE lLowAccount <= %d AND lHighAccount >= "
                  "%d",
                  account, account);
    }
    return units;
}

}  // namespace

std::string page(const LogFilter& filter, const std::vector<std::int32_t>& accounts,
                 const PageRange& range, std::string_view likeEscape) {
    std::string sql = entryColumns;
    appendSql(sql, " WHERE lId BETWEEN %d AND %d", range.lowest, range.highest);
    addTimes(filter, "sTime || ''", sql);
    if (!filter.operatorName.empty()) appendSql(sql, " AND sUser = '%s'", filter.operatorName);
    if (filter.function) appendSql(sql, " AND lFunction = %d", *filter.function);
    if (!filter.text.empty()) {
        appendSql(sql, " AND lower(sWords) LIKE '%%%s%%'", inSmallLetters(filter.text));
        sql += likeEscape;
    }
    if (!accounts.empty()) sql += " AND sUnit IN (" + unitsOf(accounts) + ")";
    appendSql(sql, " ORDER BY lId DESC LIMIT %d", range.limit);
    return sql;
}

std::string numbersWithin(const LogFilter& filter) {
    std::string sql = "SELECT min(lId), max(lId) FROM OperationLog WHERE 1 = 1";
    addTimes(filter, "sTime", sql);
    return sql;
}

std::string entry(std::int32_t number) {
    std::string sql = entryColumns;
    appendSql(sql, " WHERE lId = %d", number);
    return sql;
}

std::string entriesOfRow(const std::string& table, std::int32_t id, const PageRange& range) {
    std::string sql = entryColumns;
    appendSql(sql,
              " WHERE lId BETWEEN %d AND %d AND sUnit IN (SELECT sUnit FROM OperationLogPart WHERE "
              "sTable = '%s' AND lLowest <= %d AND lHighest >= %d) ORDER BY lId DESC LIMIT %d",
              range.lowest, range.highest, table, id, id, range.limit);
    return sql;
}

std::string entriesOfAccount(const std::string& table, std::int32_t account,
                             const PageRange& range) {
    std::string sql = entryColumns;
    appendSql(sql,
              " WHERE lId BETWEEN %d AND %d AND sUnit IN (SELECT sUnit FROM OperationLogPart WHERE "
              "sTable = '%s' AND lLowAccount <= %d AND lHighAccount >= %d) ORDER BY lId DESC LIMIT "
              "%d",
              range.lowest, range.highest, table, account, account, range.limit);
    return sql;
}

std::string balancesOf(const std::string& table) {
    return "SELECT lId FROM " + table + " WHERE lCodeId = $1 AND byPeroid = $2";
}

std::string accountsOfRows(const std::string& table) {
    return "SELECT lId, lCodeId FROM " + table + " WHERE lId BETWEEN $1 AND $2";
}

std::string rowsBetween(const TableInfo& table) {
    return "SELECT " + columnNames(table) + " FROM " + table.name + " WHERE lId BETWEEN $1 AND $2";
}

std::string rowsOf(const TableInfo& table, const std::vector<std::int64_t>& ids) {
    std::string sql = "SELECT " + columnNames(table) + " FROM " + table.name + " WHERE lId IN (";
    const char* comma = "";
    for (const std::int64_t id : ids) {
        sql += std::exchange(comma, ", ");
        appendSql(sql, "%ld", id);
    }
    return sql + ")";
}

}  // namespace chengheng::log_sql
