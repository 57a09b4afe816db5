#include "opening/storing/posting.h"

#include <algorithm>

#include "data/access/row_lease.h"
#include "opening/storing/opening_sql.h"

namespace chengheng {
namespace {

constexpr bool isSimple(OpeningLayout layout) { return layout == OpeningLayout::simple; }

bool hasFigure(const Balance& balance, OpeningLayout layout) {
    return std::ranges::any_of(figuresOf(layout),
                               [&balance](BalanceFigure figure) { return balance.*figure != 0; });
}

/// An account that has others below it keeps only its money in books that begin mid-year.
bool keepsExtraFigures(const OpeningAccount& account) { return account.isEnd; }

void updateRows(std::string& batch, const OpeningAccount& account, const StoredSums& stored,
                OpeningLayout layout) {
    if (isSimple(layout)) return opening_sql::updateOpening(batch, account.id, account.balances);
    for (const int period : stored.periods) {
        const Balance& money = account.balance(Measure::money);
        if (period == 1)
            opening_sql::updateFirstPeriod(batch, account.id, money);
        else
            opening_sql::updateOpeningMoney(batch, account.id, period, money.opening);
        if (keepsExtraFigures(account))
            opening_sql::updateForeignAndQuantity(batch, account.id, period, account.balances);
    }
}

void insertRows(std::string& batch, const OpeningAccount& account, OpeningLayout layout,
                std::int32_t lastId) {
    const Balance& money = account.balance(Measure::money);
    for (int period = 1; period <= periodRows; ++period) {
        const std::int32_t id = lastId + period;
        if (isSimple(layout))
            opening_sql::insertOpening(batch, id, account.id, period, account.balances);
        else if (period == 1)
            opening_sql::insertFirstPeriod(batch, id, account.id, money);
        else
            opening_sql::insertOpeningMoney(batch, id, account.id, period, money.opening);
        if (!isSimple(layout) && keepsExtraFigures(account))
            opening_sql::updateForeignAndQuantity(batch, account.id, period, account.balances);
    }
    opening_sql::setLastId(batch, lastId + periodRows);
}

}  // namespace

void takeFigures(const _AccSumInfo& row, OpeningLayout layout, bool isDebit, Balances& balances) {
    auto& [money, foreign, quantity] = balances;
    if (row.byPeroid == (isSimple(layout) ? 1 : 2)) {
        money.opening = row.mBegin;
        foreign.opening = row.mFgnBegin;
        quantity.opening = row.dAmtBegin;
    } else if (row.byPeroid == 1) {
        money = {row.mBegin, row.mDebet, row.mCredit, 0};
        foreign = {row.mFgnBegin, row.mFgnDebet, row.mFgnCredit, 0};
        quantity = {row.dAmtBegin, row.dAmtDebet, row.dAmtCredit, 0};
        for (const Measure measure : measures) {
            Balance& balance = balances[static_cast<std::size_t>(measure)];
            balance.opening = openingByMovements(balance, isDebit, measure);
        }
    }
}

bool deservesRows(const OpeningAccount& account, OpeningLayout layout) {
    if (!account.isEnd) return hasFigure(account.balance(Measure::money), layout);
    return std::ranges::any_of(
        account.balances, [layout](const Balance& balance) { return hasFigure(balance, layout); });
}

std::string postingBatch(const OpeningAccount& account, const StoredSums& stored,
                         OpeningLayout layout, std::int32_t lastId) {
    std::string batch;
    if (stored.path() == PostingPath::update) {
        updateRows(batch, account, stored, layout);
        return batch;
    }
    if (stored.hasRows()) batch = opening_sql::deleteSums(account.id) + '\n';
    if (deservesRows(account, layout)) insertRows(batch, account, layout, lastId);
    return batch;
}

Status holdSums(CNbCwDB& database) {
    // In a unit of work the row of the last id stays with who reads it.
    database.AccSum_GetLastId();
    return database.lastStatus();
}

Status readStoredSums(CNbCwDB& database, const OpeningAccount& account, OpeningLayout layout,
                      StoredSums& stored) {
    const std::string condition =
        isSimple(layout) ? opening_sql::sumsOf(account.id) : opening_sql::sumsOfInOrder(account.id);
    const RowLease<_AccSumInfo> rows(database, condition.c_str());
    if (!rows.isRead()) return database.lastStatus();
    stored = {};
    for (const _AccSumInfo* row : rows.rows()) {
        stored.periods.push_back(row->byPeroid);
        takeFigures(*row, layout, account.isDebit, stored.balances);
    }
    return Status::done();
}

Status postOver(CNbCwDB& database, const OpeningAccount& account, OpeningLayout layout,
                const StoredSums& stored) {
    std::int32_t lastId = 0;
    if (stored.path() == PostingPath::rebuild && deservesRows(account, layout)) {
        Status status = database.readLastIdBefore<_AccSumInfo>(periodRows, lastId);
        if (!status) return status;
    }
    const std::string batch = postingBatch(account, stored, layout, lastId);
    if (batch.empty() || database.QRYExecuteSQL(batch) != 0) return Status::done();
    return database.lastStatus();
}

Status postAccount(CNbCwDB& database, const OpeningAccount& account, OpeningLayout layout) {
    StoredSums stored;
    const Status status = readStoredSums(database, account, layout, stored);
    return status ? postOver(database, account, layout, stored) : status;
}

}  // namespace chengheng
