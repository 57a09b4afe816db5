#include "currency/rates/rate_writing.h"

#include <fmt/format.h>

#include <algorithm>
#include <ranges>
#include <set>
#include <unordered_map>

#include "currency/currency_change.h"
#include "currency/currency_sql.h"
#include "currency/currency_texts.h"
#include "currency/rates/rate_texts.h"
#include "data/access/CNbCwDB.h"
#include "data/access/host_database.h"
#include "data/access/row_lease.h"
#include "data/tables/currency.h"

namespace chengheng {
namespace {

constexpr std::size_t changesAtOnce = 50;

/// Changes of one kind of one currency that stand together.
class GroupWriter {
  public:
    GroupWriter(std::span<const RateChange> all, const ImportProgress& progress)
        : m_total(all.size()), m_progress(progress) {}

    UntoldOutcome write(std::span<const RateChange> group) {
        const int currency = group.front().currency;
        if (UntoldOutcome there = currencyStillThere(currency); there.outcome != Outcome::done)
            return there;
        if (group.front().kind == RateKind::fixed)
            return writeRows<_ExchgFixInfo>(group, currency_sql::fixedRatesOf(currency));
        return writeRows<_ExchgFltInfo>(group, currency_sql::floatingRatesOf(currency, 0));
    }
    bool goesOn() const { return !m_progress || m_progress(m_done, m_total); }

  private:
    template <class Record>
    UntoldOutcome writeRows(std::span<const RateChange> group, const std::string& condition) {
        std::unordered_map<std::int32_t, Record> stored;
        {
            const RowLease<Record> lease(*g_pDB, condition.c_str());
            if (!lease.isRead()) return UntoldOutcome::failed();
            for (const Record* row : lease.rows()) stored.emplace(row->lId, *row);
        }
        for (const RateChange& change : group) {
            const auto found = stored.find(change.before.id);
            const bool isWritten =
                found != stored.end() && found->second.dtDate == change.before.day &&
                replace(found->second.dRate, change.before.rate, change.after.rate) &&
                replace(found->second.dAdjustRate, change.before.adjustRate,
                        change.after.adjustRate);
            if (!isWritten) return UntoldOutcome::stale({.text = rate_texts::changedMeanwhile});
            if (g_pDB->edit(found->second) != 0) return UntoldOutcome::failed();
            if (++m_done % changesAtOnce == 0 && !goesOn())
                return UntoldOutcome::refused({.text = rate_texts::cancelled});
        }
        return UntoldOutcome::done();
    }
    /// False where the rate to be replaced is not the one that was seen.
    static bool replace(double& stored, double seen, double wanted) {
        if (seen == wanted) return true;
        if (stored != seen) return false;
        stored = wanted;
        return true;
    }

    const std::size_t m_total;
    const ImportProgress& m_progress;
    std::size_t m_done = 0;
};

}  // namespace

UntoldOutcome writeChanges(std::span<const RateChange> changes, const ImportProgress& progress) {
    GroupWriter writer(changes, progress);
    if (!writer.goesOn()) return UntoldOutcome::refused({.text = rate_texts::cancelled});
    while (!changes.empty()) {
        const RateChange& first = changes.front();
        const auto end = std::ranges::find_if_not(changes, [&](const RateChange& change) {
            return change.currency == first.currency && change.kind == first.kind;
        });
        const auto group = changes.first(static_cast<std::size_t>(end - changes.begin()));
        const UntoldOutcome result = writer.write(group);
        if (result.outcome != Outcome::done) return result;
        changes = changes.subspan(group.size());
    }
    return UntoldOutcome::done();
}

namespace {

/// Those of one row tell which; of more the kind of the first and all the currencies.
std::string changesInWords(std::span<const RateChange> changes) {
    const RateChange& first = changes.front();
    std::string currencies = loggedName(first.currency);
    if (changes.size() == 1)
        return fmt::format(currency_texts::loggedRate, titleOf(first.kind), currencies,
                           rateTitle(first.kind, first.after.day));
    std::set<int> named{first.currency};
    for (const RateChange& change : changes)
        if (named.insert(change.currency).second)
            currencies += currency_texts::betweenCurrencies + loggedName(change.currency);
    return fmt::format(currency_texts::loggedRates, titleOf(first.kind), currencies,
                       changes.size());
}

}  // namespace

Outcome writeRates(IMessages& messages, std::span<const RateChange> changes,
                   const ImportProgress& progress) {
    if (changes.empty()) return Outcome::done;
    return changeCurrencies(
        messages, [&] { return changesInWords(changes); },
        [&] { return writeChanges(changes, progress); });
}

std::vector<RateChange> takenBack(std::span<const RateChange> changes) {
    std::vector<RateChange> back;
    back.reserve(changes.size());
    for (const RateChange& change : changes | std::views::reverse)
        back.push_back({change.currency, change.kind, change.after, change.before});
    return back;
}

}  // namespace chengheng
