#include "books/checking/integrity_sql.h"

namespace chengheng::integrity_sql {

std::string highestId(const std::string& table) {
    return "SELECT coalesce(max(lId), 0) FROM " + table;
}

std::string commonIds(const std::string& one, const std::string& other) {
    return "SELECT a.lId FROM " + one + " a, " + other + " b WHERE a.lId = b.lId ORDER BY a.lId";
}

std::string danglingValues(const Reference& reference) {
    const std::string column = std::string("t.") + reference.column;
    const std::string unset =
        reference.none == nullptr ? "" : column + " <> " + reference.none + " AND ";
    return "SELECT " + column + ", count(*) FROM " + reference.table + " t WHERE " + unset +
           "NOT EXISTS (SELECT 1 FROM " + reference.target + " r WHERE r." +
           reference.targetColumn + " = " + column + " AND " + reference.targetCondition +
           ") GROUP BY " + column + " ORDER BY " + column;
}

std::string namedProjectItems(const std::string& table) {
    return "SELECT DISTINCT sItemId, lItemId FROM " + table +
           " WHERE lItemId <> 0 ORDER BY sItemId, lItemId";
}

std::string hasItem(const std::string& itemTable) {
    return "SELECT 1 FROM " + itemTable + " WHERE lId = $1";
}

std::string linesOfRestrictedVouchers(const std::string& headers, const std::string& lines) {
    return "SELECT m.lId, m.sSign, m.lNumber, m.dtDate, coalesce(s.lCodeId, 0), "
           "coalesce(s.bDirect, 0), coalesce(s.mMoney, 0), coalesce(s.mFgn, 0), "
           "coalesce(s.dAmt, 0), coalesce(s.lId, 0) FROM " +
           headers + " m LEFT JOIN " + lines +
           " s ON s.lTieId = m.lId WHERE m.byPeroid > 0 AND m.sSign IN (SELECT sSign FROM Sign "
           "WHERE byLimit <> 0) AND NOT EXISTS (SELECT 1 FROM " +
           lines +
           " b WHERE b.lTieId = m.lId AND b.bBegin <> 0) ORDER BY m.byPeroid, m.sSign, m.lNumber, "
           "m.lId, s.lLine, s.lId";
}

}  // namespace chengheng::integrity_sql
