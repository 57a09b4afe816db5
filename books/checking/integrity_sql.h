#pragma once

#include <string>

// What the integrity checks ask a set of books.

namespace chengheng::integrity_sql {

inline constexpr const char* parameters = "SELECT sCodeLen, dtStart FROM zAccountM ORDER BY lId";

inline constexpr const char* accounts =
    "SELECT lId, sCode, sName, sType, byGrade, bEnd, sAssBook, sHelp, bCash, bBank FROM Code WHERE "
    "lId > 0 "
    "ORDER BY sCode, lId";

inline constexpr const char* idCounters =
    "SELECT sTable, lLastId FROM ABIdTable ORDER BY sTable, lLastId";

/// The highest id of a table; 0 when it is empty.
std::string highestId(const std::string& table);

/// The ids that two tables have in common.
std::string commonIds(const std::string& one, const std::string& other);

/// A column that names a row of another table.
struct Reference {
    const char* table;
    const char* column;
    const char* target;
    const char* targetColumn;
    /// What the column holds where it names nothing; null where it must always name a row.
    const char* none;
    /// Which rows of the target may be named.
    const char* targetCondition = "1 = 1";
};

/// The values of the column that name no row, each with the number of rows that hold it.
std::string danglingValues(const Reference& reference);

/// The project items named by the rows of a table: class code and item id, each pair once.
std::string namedProjectItems(const std::string& table);
inline constexpr const char* projectClasses =
    "SELECT sClsCode, sClsName FROM ProjClass ORDER BY sClsCode, lId";
/// Whether an item table holds the id $1.
std::string hasItem(const std::string& itemTable);

inline constexpr const char* operators =
    "SELECT u.lId, u.lUserId, u.sUserName, (SELECT count(*) FROM UserAuth a WHERE a.lUserId = "
    "u.lUserId), u.bManager, u.sPassword FROM Users u ORDER BY u.lId";
inline constexpr const char* operatorNames =
    "SELECT sUserName, count(*) FROM Users GROUP BY sUserName HAVING count(*) > 1 ORDER BY "
    "sUserName";
inline constexpr const char* strayRights =
    "SELECT a.lId, a.lUserId FROM UserAuth a WHERE NOT EXISTS (SELECT 1 FROM Users u WHERE "
    "u.lUserId = a.lUserId) ORDER BY a.lId";

inline constexpr const char* periods =
    "SELECT lCodeId, byPeroid FROM AccSum ORDER BY lCodeId, byPeroid";

inline constexpr const char* firstDay = "SELECT dtStart FROM zAccountM ORDER BY lId";
/// The headers of opening entries are of no period.
inline constexpr const char* anyVoucher =
    "SELECT lId FROM RegMain WHERE byPeroid > 0 UNION ALL SELECT lId FROM UnregMain WHERE "
    "byPeroid > 0 LIMIT 1";
/// Account, period, row and three opening figures.
inline constexpr const char* openingsOfPeriods =
    "SELECT lCodeId, byPeroid, lId, mBegin, dAmtBegin, mFgnBegin FROM AccSum "
    "ORDER BY lCodeId, byPeroid";

/// Account, period and three amounts.
inline constexpr const char* moneyOfPeriods =
    "SELECT lCodeId, byPeroid, mBegin, mDebet, mCredit FROM AccSum";

/// Account, period and nine figures, from the account sums or the auxiliary ones.
inline constexpr const char* accountFigures =
    "SELECT lCodeId, byPeroid, sum(mBegin), sum(mDebet), sum(mCredit), sum(dAmtBegin), "
    "sum(dAmtDebet), sum(dAmtCredit), sum(mFgnBegin), sum(mFgnDebet), sum(mFgnCredit) "
    "FROM AccSum GROUP BY lCodeId, byPeroid ORDER BY lCodeId, byPeroid";
inline constexpr const char* auxiliaryFigures =
    "SELECT lCodeId, byPeroid, sum(mBegin), sum(mDebt), sum(mCredit), sum(dBegin), sum(dDebt), "
    "sum(dCredit), sum(mFBegin), sum(mFDebt), sum(mFCredit) "
    "FROM AssAcc GROUP BY lCodeId, byPeroid ORDER BY lCodeId, byPeroid";

/// Six columns of a combination and three figures: of the opening entries of an account, plus in
/// its own direction, and of its auxiliary sums in the period $1.
inline constexpr const char* entryFigures =
    "SELECT s.lCodeId, s.lItemId, s.lDeptId, coalesce(s.lPersonId, 0), s.lEnterId, s.sItemId, "
    "sum(CASE WHEN s.bDirect = c.bDirect THEN s.mMoney ELSE 0 - s.mMoney END), "
    "sum(CASE WHEN s.bDirect = c.bDirect THEN s.dAmt ELSE 0 - s.dAmt END), "
    "sum(CASE WHEN s.bDirect = c.bDirect THEN s.mFgn ELSE 0 - s.mFgn END) "
    "FROM RegSub s JOIN Code c ON c.lId = s.lCodeId WHERE s.bBegin <> 0 "
    "GROUP BY s.lCodeId, s.lItemId, s.lDeptId, coalesce(s.lPersonId, 0), s.lEnterId, s.sItemId";
inline constexpr const char* combinationFigures =
    "SELECT lCodeId, lItemId, lDeptId, coalesce(lPersonId, 0), lEnterId, sItemId, sum(mBegin), "
    "sum(dBegin), sum(mFBegin) FROM AssAcc WHERE byPeroid = $1 "
    "GROUP BY lCodeId, lItemId, lDeptId, coalesce(lPersonId, 0), lEnterId, sItemId";

/// Number, kind of restriction and its two accounts, of the types that restrict their vouchers.
inline constexpr const char* restrictedTypes =
    "SELECT sSign, byLimit, sCode1, sCode2 FROM Sign WHERE byLimit <> 0 ORDER BY lId";
/// The lines of all vouchers of such types in the tables of headers and lines, opening entries left
/// out: id, type, number, date; account, debit, three amounts, id of the line. A voucher without
/// lines has one row, without that id.
std::string linesOfRestrictedVouchers(const std::string& headers, const std::string& lines);

inline constexpr const char* currencies = "SELECT lId, sExchCode FROM Cyrency ORDER BY lId";
inline constexpr const char* fixedRates =
    "SELECT dtDate, byPeroid FROM ExchgFix WHERE byExchId = $1 ORDER BY dtDate, lId";
inline constexpr const char* floatingRates =
    "SELECT dtDate, byPeroid FROM ExchgFlt WHERE byExchId = $1 ORDER BY dtDate, lId";
inline constexpr const char* fixedRateValues =
    "SELECT dtDate, dRate FROM ExchgFix WHERE byExchId = $1 ORDER BY dtDate, lId";
inline constexpr const char* floatingRateValues =
    "SELECT dtDate, dRate FROM ExchgFlt WHERE byExchId = $1 ORDER BY dtDate, lId";

}  // namespace chengheng::integrity_sql
