#include "books/carrying/year_end.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "books/carrying/carry_sql.h"
#include "books/carrying/carry_texts.h"
#include "data/access/row_lease.h"
#include "data/tables/accounts.h"

namespace chengheng {
namespace {

EntryFigures closing(const EntryFigures& opening, const EntryFigures& debit,
                     const EntryFigures& credit, bool isDebit) {
    FigureSums sums;
    sums.add(opening);
    sums.add(isDebit ? debit : credit);
    sums.add(-(isDebit ? credit : debit));
    return sums.total();
}

ClosedAccount* findAmong(std::vector<ClosedAccount>& accounts, std::int32_t id) {
    const auto found = std::ranges::lower_bound(accounts, id, {}, &ClosedAccount::id);
    return found != accounts.end() && found->id == id ? &*found : nullptr;
}

Status readAccounts(CNbCwDB& database, std::vector<ClosedAccount>& accounts) {
    const RowLease<_CodeInfo> rows(database, carry_sql::accountsById);
    if (!rows.isRead()) return database.lastStatus();
    for (_CodeInfo* row : rows.rows()) {
        if (!carriesBalance(row->sType)) continue;
        accounts.push_back({.id = row->lId,
                            .code = std::move(row->sCode),
                            .name = std::move(row->sName),
                            .letters = std::move(row->sAssBook),
                            .currency = row->byExchId,
                            .isDebit = row->bDirect == 1,
                            .isEnd = row->bEnd != 0});
    }
    return Status::done();
}

Status readClosings(CNbCwDB& database, std::vector<ClosedAccount>& accounts) {
    const RowLease<_AccSumInfo> rows(database, carry_sql::lastPeriod);
    if (!rows.isRead()) return database.lastStatus();
    std::int32_t last = 0;
    for (const _AccSumInfo* row : rows.rows()) {
        ClosedAccount* const account = findAmong(accounts, row->lCodeId);
        if (account == nullptr) continue;
        account->isDoubled = account->isDoubled || row->lCodeId == last;
        account->closing = closingOf(*row, account->isDebit);
        last = row->lCodeId;
    }
    return Status::done();
}

Status readDetails(CNbCwDB& database, YearEnd& end) {
    const RowLease<_AssAccInfo> rows(database, carry_sql::lastPeriod);
    if (!rows.isRead()) return database.lastStatus();
    for (const _AssAccInfo* row : rows.rows()) {
        const ClosedAccount* const account = findAccount(end, row->lCodeId);
        if (account == nullptr) continue;
        const EntryFigures closing = closingOf(*row, account->isDebit);
        if (closing == EntryFigures()) continue;
        end.details.push_back({row->lCodeId,
                               {.department = row->lDeptId,
                                .person = row->lPersonId,
                                .unit = row->lEnterId,
                                .item = row->lItemId,
                                .itemClass = row->sItemId},
                               closing});
    }
    return Status::done();
}

}  // namespace

bool carriesBalance(std::string_view type) {
    return std::ranges::find(carry_texts::classesOfTheResult, type) ==
           std::end(carry_texts::classesOfTheResult);
}

EntryFigures closingOf(const _AccSumInfo& period, bool isDebit) {
    return closing({period.mBegin, period.mFgnBegin, period.dAmtBegin},
                   {period.mDebet, period.mFgnDebet, period.dAmtDebet},
                   {period.mCredit, period.mFgnCredit, period.dAmtCredit}, isDebit);
}

EntryFigures closingOf(const _AssAccInfo& period, bool isDebit) {
    return closing({period.mBegin, period.mFBegin, period.dBegin},
                   {period.mDebt, period.mFDebt, period.dDebt},
                   {period.mCredit, period.mFCredit, period.dCredit}, isDebit);
}

const ClosedAccount* findAccount(const YearEnd& end, std::int32_t id) {
    const auto found = std::ranges::lower_bound(end.accounts, id, {}, &ClosedAccount::id);
    return found != end.accounts.end() && found->id == id ? &*found : nullptr;
}

Status readYearEnd(CNbCwDB& database, YearEnd& end) {
    YearEnd read;
    Status status = readAccounts(database, read.accounts);
    if (status) status = readClosings(database, read.accounts);
    if (status) status = readDetails(database, read);
    if (status) end = std::move(read);
    return status;
}

}  // namespace chengheng
