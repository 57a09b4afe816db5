#include "currency/rate_rows.h"

#include <algorithm>
#include <tuple>

#include "currency/currency_sql.h"
#include "data/access/host_database.h"
#include "data/access/row_lease.h"
#include "data/tables/currency.h"

namespace chengheng {
namespace {

template <class Record>
std::optional<std::vector<RateRow>> readRows(const std::string& condition, int year, int month) {
    const RowLease<Record> lease(*g_pDB, condition.c_str());
    if (!lease.isRead()) return std::nullopt;
    std::vector<RateRow> rows;
    rows.reserve(lease.rows().size());
    for (const Record* row : lease.rows()) {
        if (row->dtDate.year != year || (month != 0 && row->byPeroid != month)) continue;
        rows.push_back({row->lId, row->dtDate, row->byPeroid, row->dRate, row->dAdjustRate});
    }
    // Of two rows for one day the older comes first, whichever the engine gives first.
    const auto order = [](const RateRow& row) { return std::tuple(row.period, row.day, row.id); };
    if (!std::ranges::is_sorted(rows, {}, order)) std::ranges::sort(rows, {}, order);
    return rows;
}

}  // namespace

std::optional<std::vector<RateRow>> readRates(RateKind kind, int currencyId, int year, int month) {
    if (kind == RateKind::fixed)
        return readRows<_ExchgFixInfo>(currency_sql::fixedRatesOf(currencyId), year, month);
    return readRows<_ExchgFltInfo>(currency_sql::floatingRatesOf(currencyId, month), year, month);
}

}  // namespace chengheng
