#include "opening/storing/opening_sql.h"

#include "data/sql/sql_format.h"

namespace chengheng::opening_sql {
namespace {

double openingOf(const Balances& balances, Measure measure) {
    return balances[static_cast<std::size_t>(measure)].opening;
}

/// 1 when a group of the sizes adds up to nothing, else 0. The first row without any figure is
/// nearly always of such a group, so the others are looked at only where it is not.
std::string isAnyNothing(std::string_view table, std::string_view sizes,
                         std::string_view withoutFigures) {
    constexpr std::string_view select = "SELECT ";
    const SqlFragment from{table};
    const SqlFragment where{withoutFigures};
    const SqlFragment sum{sizes.substr(select.size(), sizes.find(", lCodeId") - select.size())};
    const SqlFragment groups{sizes.substr(sizes.find(" GROUP BY ") + 1)};
    return formatSql(
        "CASE WHEN EXISTS (SELECT lCodeId FROM %s WHERE lCodeId = (SELECT min(lCodeId) FROM %s "
        "WHERE %s) %s HAVING %s = 0) THEN 1 "
        "WHEN EXISTS (SELECT lCodeId FROM %s WHERE lCodeId IN (SELECT lCodeId FROM %s WHERE %s) "
        "%s HAVING %s = 0) THEN 1 ELSE 0 END",
        from, from, where, groups, sum, from, from, where, groups, sum);
}

}  // namespace

std::string account(std::int32_t accountId) { return formatSql("lId = %d", accountId); }

std::string sumsOf(std::int32_t accountId) { return formatSql("lCodeId = %ld", accountId); }

std::string sumsOfInOrder(std::int32_t accountId) {
    return formatSql("lCodeId = %ld ORDER BY byPeroid", accountId);
}

void updateOpening(std::string& batch, std::int32_t accountId, const Balances& balances) {
    appendSql(batch,
              "Update AccSum Set mBegin = %lf, mFgnBegin = %lf, dAmtBegin = %lf "
              "Where lCodeId = %d\n",
              openingOf(balances, Measure::money), openingOf(balances, Measure::foreign),
              openingOf(balances, Measure::quantity), accountId);
}

void updateOpeningMoney(std::string& batch, std::int32_t accountId, int period, double opening) {
    appendSql(batch, "Update AccSum Set mBegin = %lf Where lCodeId = %d AND byPeroid = %d\n",
              opening, accountId, period);
}

void updateFirstPeriod(std::string& batch, std::int32_t accountId, const Balance& money) {
    appendSql(batch,
              "Update AccSum Set mBegin = %lf, mDebet = %lf, mCredit = %lf Where lCodeId = %d AND "
              "byPeroid = 1\n",
              money.yearStart, money.debit, money.credit, accountId);
}

void updateForeignAndQuantity(std::string& batch, std::int32_t accountId, int period,
                              const Balances& balances) {
    const Balance& foreign = balances[static_cast<std::size_t>(Measure::foreign)];
    const Balance& quantity = balances[static_cast<std::size_t>(Measure::quantity)];
    if (period == 1)
        appendSql(batch,
                  "Update AccSum Set mFgnBegin = %lf, mFgnDebet = %lf, mFgnCredit = %lf, "
                  "dAmtBegin = %lf, dAmtDebet = %lf, dAmtCredit = %lf "
                  "Where lCodeId = %d AND byPeroid = 1\n",
                  foreign.yearStart, foreign.debit, foreign.credit, quantity.yearStart,
                  quantity.debit, quantity.credit, accountId);
    else
        appendSql(batch,
                  "Update AccSum Set mFgnBegin = %lf, dAmtBegin = %lf "
                  "Where lCodeId = %d AND byPeroid = %d\n",
                  foreign.opening, quantity.opening, accountId, period);
}

std::string deleteSums(std::int32_t accountId) {
    return formatSql("Delete AccSum Where lCodeId = %ld", accountId);
}

void insertOpening(std::string& batch, std::int32_t id, std::int32_t accountId, int period,
                   const Balances& balances) {
    appendSql(batch,
              "INSERT AccSum Values( %d, %d, %d, %lf, 0.00, 0.00, %lf, 0.00, 0.00, %lf, 0.00, "
              "0.00 )\n",
              id, accountId, period, openingOf(balances, Measure::money),
              openingOf(balances, Measure::quantity), openingOf(balances, Measure::foreign));
}

void insertOpeningMoney(std::string& batch, std::int32_t id, std::int32_t accountId, int period,
                        double opening) {
    appendSql(batch,
              "INSERT AccSum Values( %d, %d, %d, %lf, 0.00, 0.00, 0.00, 0.00, 0.00, 0.00, 0.00, "
              "0.00 )\n",
              id, accountId, period, opening);
}

void insertFirstPeriod(std::string& batch, std::int32_t id, std::int32_t accountId,
                       const Balance& money) {
    appendSql(batch,
              "INSERT AccSum Values( %d, %d, %d, %lf, %lf, %lf, 0.00, 0.00, 0.00, 0.00, 0.00, "
              "0.00 )\n",
              id, accountId, 1, money.yearStart, money.debit, money.credit);
}

void setLastId(std::string& batch, std::int32_t lastId) {
    appendSql(batch, "Update ABIdTable Set lLastId = %d Where sTable = 'AccSum'", lastId);
}

std::string isAnythingToSweep() {
    const std::string sums = isAnyNothing("AccSum", sumSizes, sumsWithoutFigures);
    const std::string auxiliary = isAnyNothing("AssAcc", auxiliarySizes, auxiliaryWithoutFigures);
    return formatSql("SELECT %s, %s", SqlFragment{sums}, SqlFragment{auxiliary});
}

std::string deleteSumsOfAccounts(std::span<const std::string_view> accountIds) {
    std::string ids;
    for (const std::string_view id : accountIds) ids.append(ids.empty() ? "" : ",").append(id);
    return formatSql("DELETE FROM AccSum WHERE lCodeId in ( %s )", SqlFragment{ids});
}

void deleteAuxiliary(std::string& batch, const AuxiliaryKey& key) {
    // No comparison with NULL holds.
    const std::string person =
        key.person == nullptr ? "IS NULL" : formatSql("= %s", SqlFragment{key.person});
    appendSql(batch,
              "DELETE AssAcc WHERE lCodeId = %s AND lItemId = %s AND lDeptId = %s "
              "AND lPersonId %s AND lEnterId = %s AND sItemId = '%s' \r\n ",
              SqlFragment{key.account}, SqlFragment{key.item}, SqlFragment{key.department},
              SqlFragment{person}, SqlFragment{key.unit}, key.itemClass);
}

}  // namespace chengheng::opening_sql
