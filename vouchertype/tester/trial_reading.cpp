#include "vouchertype/tester/trial_reading.h"

#include "accounts/chart/account_sql.h"
#include "data/access/host_database.h"
#include "data/access/row_lease.h"
#include "data/tables/accounts.h"
#include "data/tables/books.h"
#include "session/last_failure.h"
#include "session/open_books.h"
#include "vouchertype/voucher_type_sql.h"

namespace chengheng {
namespace {

bool readBooks(TrialBooks& books) {
    const RowLease<_SignInfo> types(*g_pDB, voucher_type_sql::inOrder);
    if (!types.isRead()) return false;
    books.types = types.copy();
    const RowLease<_zAccountMInfo> parameters(*g_pDB, nullptr);
    if (!parameters.isRead()) return false;
    if (parameters.isFound()) books.levels = CodeLevels(parameters.rows().front()->sCodeLen);
    const RowLease<_CodeInfo> accounts(*g_pDB, account_sql::all);
    if (!accounts.isRead()) return false;
    for (const _CodeInfo* account : accounts.rows())
        books.accounts.emplace(account->sCode, account->sName);
    return true;
}

}  // namespace

std::optional<TrialBooks> readTrialBooks(IMessages& messages) {
    TrialBooks books;
    if (selectOpenBooks() && readBooks(books)) return books;
    tellLastFailure(messages);
    return std::nullopt;
}

}  // namespace chengheng
