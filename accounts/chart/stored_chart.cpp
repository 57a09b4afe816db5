#include "accounts/chart/stored_chart.h"

#include <algorithm>

#include "accounts/chart/account_sql.h"
#include "accounts/chart/sum_totals.h"
#include "data/access/row_lease.h"
#include "data/lookups/existence.h"
#include "data/tables/balances.h"
#include "data/tables/definitions.h"
#include "data/tables/directories.h"
#include "data/tables/vouchers.h"

namespace chengheng {

void StoredChart::note(bool isRead) {
    if (!isRead) m_status = m_database.lastStatus();
}

template <class Record>
std::vector<Record> StoredChart::read(const std::string& condition) {
    if (!isRead()) return {};
    const RowLease<Record> rows(m_database, condition.c_str());
    note(rows.isRead());
    return rows.copy();
}

template <class Record>
bool StoredChart::hasRow(const std::string& condition) {
    if (!isRead()) return false;
    const auto found = hasRows<Record>(m_database, condition);
    note(found.has_value());
    return found.value_or(false);
}

std::vector<_CodeInfo> StoredChart::accounts(const std::string& condition) {
    return read<_CodeInfo>(condition);
}

std::optional<_CodeInfo> StoredChart::accountOf(std::string_view code) {
    const auto rows = read<_CodeInfo>(account_sql::ofCode(code));
    return rows.empty() ? std::nullopt : std::optional(rows.front());
}

std::optional<_CodeInfo> StoredChart::accountOfId(int id) {
    const auto rows = read<_CodeInfo>(account_sql::ofId(id));
    return rows.empty() ? std::nullopt : std::optional(rows.front());
}

bool StoredChart::isMnemonicTaken(std::string_view mnemonic, int exceptAccountId) {
    return std::ranges::any_of(
        read<_CodeInfo>(account_sql::ofMnemonic(mnemonic)),
        [exceptAccountId](const _CodeInfo& account) { return account.lId != exceptAccountId; });
}

bool StoredChart::hasCurrency(int currencyId) {
    if (!isRead()) return false;
    const int existence = currencyExistence(currencyId);
    note(existence >= 0);
    return existence == 0;
}

bool StoredChart::hasChildren(std::string_view code) {
    return hasRow<_CodeInfo>(account_sql::ofCodeWithChildren(code));
}

bool StoredChart::hasAccountsBelow(std::string_view code) {
    return hasRow<_CodeInfo>(account_sql::below(code));
}

std::vector<int> StoredChart::idsWithBelow(std::string_view code) {
    std::vector<int> ids;
    for (const _CodeInfo& account : read<_CodeInfo>(account_sql::ofCodeAndBelow(code)))
        ids.push_back(account.lId);
    return ids;
}

std::vector<_zCodeClassInfo> StoredChart::classes() {
    return read<_zCodeClassInfo>(account_sql::allClasses);
}

bool StoredChart::isUsed(UsePlace place, const std::vector<int>& accountIds, SumsUse sums) {
    const std::string condition = account_sql::ofAccounts(accountIds);
    switch (place) {
        case UsePlace::unposted:
            return hasRow<_UnregSubInfo>(condition);
        case UsePlace::posted:
            return hasRow<_RegSubInfo>(condition);
        case UsePlace::sums:
            return hasRow<_AccSumInfo>(
                sums == SumsUse::anyRow ? condition : account_sql::openingOfAccounts(accountIds));
        case UsePlace::frequentVouchers:
            return hasRow<_FreqSubInfo>(condition);
        case UsePlace::digests:
            return hasRow<__DigestInfo>(condition);
        case UsePlace::transfers:
            return hasRow<_AutoSubInfo>(condition);
        case UsePlace::projects:
            break;
    }
    return hasRow<_ProjCodesInfo>(condition);
}

bool StoredChart::hasOnlyTotals(const _CodeInfo& account) {
    if (!hasAccountsBelow(account.sCode)) return false;
    const std::vector<int> ids{account.lId};
    const auto own = read<_AccSumInfo>(account_sql::ofAccounts(ids));
    const auto below = read<_AccSumInfo>(account_sql::ofEndAccountsBelow(account.sCode));
    return isRead() && areOnlyTotals(own, below);
}

}  // namespace chengheng
