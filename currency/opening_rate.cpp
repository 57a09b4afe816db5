#include "currency/opening_rate.h"

#include <algorithm>
#include <ranges>

#include "data/access/CNbCwDB.h"
#include "data/access/host_database.h"
#include "data/tables/currency.h"

namespace chengheng {
namespace {

bool hasRate(const RateRow& row) { return row.rate > 0; }

/// False when it could not be read; a currency that is gone has none.
bool readMode(int currencyId, std::optional<RateMode>& mode) {
    _CyrencyInfo* currency = nullptr;
    if (g_pDB->Cyrency_GetInfo(currency, currencyId) != 0)
        return g_pDB->lastStatus().failure == Failure::missing;
    mode = currencyInput(*currency).mode;
    g_pDB->Cyrency_ReleaseAllBuffer();
    return true;
}

/// Those of the year of the start and of the one before.
std::optional<std::vector<RateRow>> readFloating(int currencyId, const Date& start) {
    auto rows = readRates(RateKind::floating, currencyId, start.year - 1);
    const auto ofYear = readRates(RateKind::floating, currencyId, start.year);
    if (!rows || !ofYear) return std::nullopt;
    rows->insert(rows->end(), ofYear->begin(), ofYear->end());
    return rows;
}

}  // namespace

const RateRow* openingRateRow(std::span<const RateRow> fixed, std::span<const RateRow> floating,
                              const Date& start, RateKind& kind) {
    kind = RateKind::fixed;
    const auto ofMonth = std::ranges::find_if(fixed, hasRate);
    if (ofMonth != fixed.end()) return &*ofMonth;
    kind = RateKind::floating;
    const auto before = floating | std::views::reverse;
    const auto last = std::ranges::find_if(
        before, [&start](const RateRow& row) { return row.day < start && hasRate(row); });
    if (last != before.end()) return &*last;
    const auto first = std::ranges::find_if(
        floating, [&start](const RateRow& row) { return row.day == start && hasRate(row); });
    return first == floating.end() ? nullptr : &*first;
}

bool readOpeningRate(int currencyId, const Date& start, std::optional<HomeRate>& rate) {
    rate.reset();
    std::optional<RateMode> mode;
    if (!readMode(currencyId, mode)) return false;
    if (!mode) return true;
    const auto fixed = readRates(RateKind::fixed, currencyId, start.year, start.month);
    if (!fixed) return false;
    std::optional<std::vector<RateRow>> floating(std::in_place);
    const bool hasFixed = std::ranges::any_of(*fixed, hasRate);
    if (!hasFixed) floating = readFloating(currencyId, start);
    if (!floating) return false;
    RateKind kind = RateKind::fixed;
    if (const RateRow* const row = openingRateRow(*fixed, *floating, start, kind))
        rate = HomeRate{*mode, row->rate, rateTitle(kind, row->day)};
    return true;
}

}  // namespace chengheng
