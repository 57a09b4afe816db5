#include "books/carrying/year_end.h"

#include <algorithm>
#include <iterator>
#include <tuple>
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

EntryFigures openingOf(const _AccSumInfo& row) {
    return {row.mBegin, row.mFgnBegin, row.dAmtBegin};
}

EntryFigures openingOf(const _AssAccInfo& row) { return {row.mBegin, row.mFBegin, row.dBegin}; }

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

/// Which rows are read, and whether what moved in their period belongs to it.
struct Moment {
    const char* rows;
    bool hasMoved;
};

constexpr Moment atTheEnd{carry_sql::lastPeriod, true};
constexpr Moment atTheStart{carry_sql::firstPeriod, false};

template <class Record>
EntryFigures figuresAt(const Moment& moment, const Record& row, bool isDebit) {
    return moment.hasMoved ? closingOf(row, isDebit) : openingOf(row);
}

Status readFigures(CNbCwDB& database, const Moment& moment, std::vector<ClosedAccount>& accounts) {
    const RowLease<_AccSumInfo> rows(database, moment.rows);
    if (!rows.isRead()) return database.lastStatus();
    std::int32_t last = 0;
    for (const _AccSumInfo* row : rows.rows()) {
        ClosedAccount* const account = findAmong(accounts, row->lCodeId);
        if (account == nullptr) continue;
        const EntryFigures figures = figuresAt(moment, *row, account->isDebit);
        const bool isAgain = row->lCodeId == last;
        account->isDoubled = account->isDoubled || isAgain;
        account->closing = isAgain ? account->closing + figures : figures;
        last = row->lCodeId;
    }
    return Status::done();
}

Status readCutShort(CNbCwDB& database, std::vector<ClosedAccount>& accounts) {
    const RowLease<_AccSumInfo> rows(database, carry_sql::cutShort);
    if (!rows.isRead()) return database.lastStatus();
    for (const _AccSumInfo* row : rows.rows())
        if (ClosedAccount* const account = findAmong(accounts, row->lCodeId); account != nullptr)
            account->isCutShort = true;
    return Status::done();
}

/// One for each combination, whatever number of rows it has; none for those that come to nothing.
void sumUp(std::vector<ClosedDetail>& details) {
    const auto keyOf = [](const ClosedDetail& each) { return std::tie(each.account, each.of); };
    std::ranges::sort(details, {}, keyOf);
    std::vector<ClosedDetail> summed;
    summed.reserve(details.size());
    for (auto first = details.begin(); first != details.end();) {
        const auto last = std::find_if(
            first, details.end(), [&](const auto& each) { return keyOf(each) != keyOf(*first); });
        if (last - first > 1) {
            FigureSums sums;
            for (auto each = first; each != last; ++each) sums.add(each->closing);
            first->closing = sums.total();
        }
        if (!(first->closing == EntryFigures())) summed.push_back(std::move(*first));
        first = last;
    }
    details = std::move(summed);
}

Status readDetails(CNbCwDB& database, const Moment& moment, YearEnd& end) {
    const RowLease<_AssAccInfo> rows(database, moment.rows);
    if (!rows.isRead()) return database.lastStatus();
    for (const _AssAccInfo* row : rows.rows()) {
        const ClosedAccount* const account = findAccount(end, row->lCodeId);
        if (account == nullptr) continue;
        const EntryFigures closing = figuresAt(moment, *row, account->isDebit);
        if (closing == EntryFigures()) continue;
        end.details.push_back({row->lCodeId,
                               {.department = row->lDeptId,
                                .person = row->lPersonId,
                                .unit = row->lEnterId,
                                .item = row->lItemId,
                                .itemClass = row->sItemId},
                               closing});
    }
    sumUp(end.details);
    return Status::done();
}

Status read(CNbCwDB& database, const Moment& moment, YearEnd& end) {
    YearEnd read;
    Status status = readAccounts(database, read.accounts);
    if (status) status = readFigures(database, moment, read.accounts);
    if (status && moment.hasMoved) status = readCutShort(database, read.accounts);
    if (status) status = readDetails(database, moment, read);
    if (status) end = std::move(read);
    return status;
}

}  // namespace

bool carriesBalance(std::string_view type) {
    return std::ranges::find(carry_texts::classesOfTheResult, type) ==
           std::end(carry_texts::classesOfTheResult);
}

EntryFigures closingOf(const _AccSumInfo& period, bool isDebit) {
    return closing(openingOf(period), {period.mDebet, period.mFgnDebet, period.dAmtDebet},
                   {period.mCredit, period.mFgnCredit, period.dAmtCredit}, isDebit);
}

EntryFigures closingOf(const _AssAccInfo& period, bool isDebit) {
    return closing(openingOf(period), {period.mDebt, period.mFDebt, period.dDebt},
                   {period.mCredit, period.mFCredit, period.dCredit}, isDebit);
}

const ClosedAccount* findAccount(const YearEnd& end, std::int32_t id) {
    const auto found = std::ranges::lower_bound(end.accounts, id, {}, &ClosedAccount::id);
    return found != end.accounts.end() && found->id == id ? &*found : nullptr;
}

Status readYearEnd(CNbCwDB& database, YearEnd& end) { return read(database, atTheEnd, end); }

Status readYearStart(CNbCwDB& database, YearEnd& start) {
    return read(database, atTheStart, start);
}

}  // namespace chengheng
