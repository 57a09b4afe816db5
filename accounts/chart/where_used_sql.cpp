#include "accounts/chart/where_used_sql.h"

#include "data/sql/sql_format.h"

namespace chengheng::where_used_sql {
namespace {

/// Where the rows of a place stand, and how they are listed.
struct PlaceRows {
    std::string_view table;
    std::string_view columns;
    std::string_view joined;  ///< tables beside it, that of the account apart
    std::string_view order;
};

PlaceRows rowsOf(UsePlace place) {
    constexpr std::string_view voucher =
        "c.sCode, m.byPeroid, m.dtDate, m.sSign, m.lNumber, u.sDigest, u.bDirect, u.mMoney";
    switch (place) {
        case UsePlace::unposted:
            return {"UnregSub", voucher, "LEFT JOIN UnregMain m ON m.lId = u.lTieId",
                    "m.dtDate, u.lTieId, u.lLine"};
        case UsePlace::posted:
            return {"RegSub", voucher, "LEFT JOIN RegMain m ON m.lId = u.lTieId",
                    "m.dtDate, u.lTieId, u.lLine"};
        case UsePlace::sums:
            return {"AccSum", "c.sCode, u.byPeroid, u.mBegin, u.mDebet, u.mCredit", "",
                    "c.sCode, u.byPeroid"};
        case UsePlace::frequentVouchers:
            return {"FreqSub", "c.sCode, u.lTieId, u.sDigest, u.bDirect, u.mMoney", "",
                    "u.lTieId, u.lId"};
        case UsePlace::digests:
            return {"_Digest", "c.sCode, u.sDigest", "", "u.lId"};
        case UsePlace::transfers:
            return {"AutoSub", "c.sCode, m.sName, u.sDigest, u.bDirect",
                    "LEFT JOIN AutoMain m ON m.lId = u.lTieId", "u.lTieId, u.lId"};
        case UsePlace::projects:
            break;
    }
    return {"ProjCodes", "c.sCode, u.sItemId, m.sClsName",
            "LEFT JOIN ProjClass m ON m.sClsCode = u.sItemId", "u.lId"};
}

/// The rows of any of the accounts, as one term: an engine does not take thousands of them
/// joined by OR.
std::string ofAny(std::span<const int> accountIds) {
    std::string condition;
    for (const int id : accountIds) {
        condition += condition.empty() ? "lCodeId IN ( " : ", ";
        appendSql(condition, "%d", id);
    }
    return condition + " )";
}

}  // namespace

std::string count(UsePlace place, std::span<const int> accountIds) {
    return formatSql("SELECT count(*) FROM %s WHERE %s", SqlFragment{rowsOf(place).table},
                     SqlFragment{ofAny(accountIds)});
}

std::string rows(UsePlace place, std::span<const int> accountIds, int most) {
    const PlaceRows found = rowsOf(place);
    return formatSql(
        "SELECT %s FROM %s u LEFT JOIN Code c ON c.lId = u.lCodeId %s WHERE %s ORDER "
        "BY %s LIMIT %d",
        SqlFragment{found.columns}, SqlFragment{found.table}, SqlFragment{found.joined},
        SqlFragment{ofAny(accountIds)}, SqlFragment{found.order}, most);
}

std::string accountsIn(UsePlace place) {
    return formatSql("SELECT DISTINCT lCodeId FROM %s", SqlFragment{rowsOf(place).table});
}

}  // namespace chengheng::where_used_sql
