#include "accounts/chart/account_sql.h"

#include "data/sql/sql_format.h"

namespace chengheng::account_sql {

std::string ofCode(std::string_view code) { return formatSql("sCode = '%s'", code); }

std::string ofCodeWithChildren(std::string_view code) {
    return formatSql("sCode = '%s' AND bEnd = 0", code);
}

std::string below(std::string_view code) {
    return formatSql("sCode Like '%s%%' AND sCode <> '%s'", code, code);
}

std::string ofCodeAndBelow(std::string_view code) { return formatSql("sCode LIKE '%s%%'", code); }

std::string ofId(int accountId) { return formatSql("lId = %d", accountId); }

std::string ofMnemonic(std::string_view mnemonic) { return formatSql("sHelp = '%s'", mnemonic); }

std::string ofAccounts(std::span<const int> accountIds) {
    std::string condition;
    for (const int id : accountIds) {
        if (condition.empty())
            appendSql(condition, "( lCodeId = %d", id);
        else
            appendSql(condition, " OR lCodeId = %d", id);
    }
    return condition + " )";
}

std::string ofEndAccountsBelow(std::string_view code) {
    return formatSql("lCodeId IN ( SELECT lId FROM Code WHERE %s AND bEnd <> 0 )",
                     SqlFragment{below(code)});
}

std::string openingOfAccounts(std::span<const int> accountIds) {
    return formatSql("%s AND mBegin <> 0", SqlFragment{ofAccounts(accountIds)});
}

std::string addAccounts(std::span<const _CodeInfo> accounts, int lastId) {
    std::string batch;
    int id = lastId;
    for (const _CodeInfo& account : accounts)
        appendSql(batch,
                  "INSERT INTO Code VALUES( %d, '%s', '%s', '%s', %d, %d, %d, %d, %d, '%s', '%s', "
                  "%d, %d, '%s', %d, '%s' )\r\n",
                  ++id, account.sCode, account.sName, account.sType, int{account.byGrade},
                  int{account.bEnd}, int{account.bDirect}, int{account.bCash}, int{account.bBank},
                  account.sAssBook, account.sHelp, int{account.byExchId}, account.lNum,
                  account.sPage, int{account.bAmount}, account.sUnit);
    return batch;
}

std::string makeEndAccount(std::string_view code) {
    return formatSql("Update Code Set bEnd = 1 Where sCode = '%s'", code);
}

std::string designation(std::string_view cashCode, std::string_view bankCode) {
    return formatSql(
        "Update Code Set bCash = 0, bBank = 0\r\n"
        "Update Code Set bCash = 1, sAssBook = 'R' Where sCode Like '%s%%'\r\n"
        "Update Code Set bBank = 1, sAssBook = 'RE' Where sCode Like '%s%%'\r\n",
        cashCode, bankCode);
}

}  // namespace chengheng::account_sql
