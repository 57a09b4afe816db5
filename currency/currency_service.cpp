#include "currency/currency_service.h"

#include <fmt/format.h>

#include <string>

#include "currency/currency_change.h"
#include "currency/currency_sql.h"
#include "currency/currency_texts.h"
#include "data/access/CNbCwDB.h"
#include "data/access/host_database.h"
#include "data/access/row_lease.h"
#include "data/tables/accounts.h"
#include "session/last_failure.h"
#include "session/open_books.h"

namespace chengheng {
namespace {

UntoldOutcome readCurrency(int id, _CyrencyInfo& currency) {
    const RowLease<_CyrencyInfo> lease(*g_pDB, currency_sql::ofId(id).c_str());
    if (!lease.isRead()) return UntoldOutcome::failed();
    if (!lease.isFound()) return currencyStillThere(id);
    currency = *lease.rows().front();
    return UntoldOutcome::done();
}

std::optional<bool> isCurrencyUsed(int id) {
    return hasRows<_CodeInfo>(*g_pDB, currency_sql::ofCurrency(id));
}

UntoldOutcome refuseClash(const CurrencyInput& input, int id) {
    // An answer that cannot be read refuses, too, and is then told as the failure it is.
    bool hasFailed = false;
    const auto isThere = [&hasFailed](const std::string& condition) {
        const auto found = hasRows<_CyrencyInfo>(*g_pDB, condition);
        hasFailed = !found;
        return hasFailed || *found;
    };
    const auto refusal = firstRefusal(
        currencyClashChecks(),
        {.isAddition = id == 0,
         .hasSymbol = [&] { return isThere(currency_sql::ofSymbol(input.symbol, id)); },
         .hasName = [&] { return isThere(currency_sql::ofName(input.name, id)); }});
    if (hasFailed) return UntoldOutcome::failed();
    return refusal ? UntoldOutcome::refused(refusal->notice) : UntoldOutcome::done();
}

UntoldOutcome addFixedRates(int currency, int year) {
    std::vector<_ExchgFixInfo> rows;
    for (const Date& day : rateDays(RateKind::fixed, year))
        rows.push_back({.lId = 0,
                        .byExchId = static_cast<std::uint8_t>(currency),
                        .dtDate = day,
                        .byPeroid = day.month});
    return g_pDB->addAll<_ExchgFixInfo>(rows) == 0 ? UntoldOutcome::done()
                                                   : UntoldOutcome::failed();
}

UntoldOutcome addFloatingRates(int currency, int year) {
    const std::vector<Date> days = rateDays(RateKind::floating, year);
    int id = 0;
    if (!g_pDB->readLastIdBefore<_ExchgFltInfo>(static_cast<int>(days.size()), id))
        return UntoldOutcome::failed();
    std::string batch;
    for (const Date& day : days) currency_sql::addFloatingRate(batch, ++id, currency, day);
    if (g_pDB->QRYExecuteSQL(batch) == 0) return UntoldOutcome::failed();
    const int counted = g_pDB->QRYEdit(currency_sql::counters, currency_sql::floatingRateCounter,
                                       currency_sql::lastId, id);
    return counted == 0 ? UntoldOutcome::done() : UntoldOutcome::failed();
}

UntoldOutcome addCurrency(const CurrencyInput& input, int year, _CyrencyInfo& added) {
    if (UntoldOutcome clash = refuseClash(input, 0); clash.outcome != Outcome::done) return clash;
    int lastId = 0;
    if (!g_pDB->readLastIdBefore<_CyrencyInfo>(1, lastId)) return UntoldOutcome::failed();
    if (lastId >= mostCurrencies)
        return UntoldOutcome::refused(
            {.text = fmt::format(currency_texts::noMoreCurrencies, mostCurrencies)});
    added = currencyRecord(input, {});
    added.bySeq = static_cast<std::uint8_t>(lastId + 1);
    int id = 0;
    if (g_pDB->Cyrency_AddNew(added, id) != 0) return UntoldOutcome::failed();
    added.lId = id;
    UntoldOutcome result = addFixedRates(id, year);
    return result.outcome == Outcome::done ? addFloatingRates(id, year) : result;
}

UntoldOutcome modifyCurrency(const _CyrencyInfo& loaded, const CurrencyInput& input,
                             _CyrencyInfo& modified) {
    UntoldOutcome result = currencyStillThere(loaded.lId);
    if (result.outcome == Outcome::done) result = refuseClash(input, loaded.lId);
    _CyrencyInfo stored;
    if (result.outcome == Outcome::done) result = readCurrency(loaded.lId, stored);
    if (result.outcome != Outcome::done) return result;
    modified = currencyRecord(input, loaded);
    if (stored == modified) return result;
    if (stored != loaded)
        return UntoldOutcome::stale(
            {.text = fmt::format(currency_texts::changedBelowTyped, currencyInWords(stored),
                                 currencyInWords(modified))});
    return g_pDB->Cyrency_Edit(modified) == 0 ? result : UntoldOutcome::failed();
}

/// Whether the rows of a currency that a table has, if any, have been deleted.
bool deleteRates(const char* table, int currency) {
    const std::string condition = currency_sql::ofCurrency(currency);
    return g_pDB->QRYDelete(table, condition.c_str()) == 0 ||
           g_pDB->lastStatus().failure == Failure::missing;
}

UntoldOutcome deleteCurrency(const _CyrencyInfo& confirmed) {
    UntoldOutcome result = currencyStillThere(confirmed.lId);
    _CyrencyInfo stored;
    if (result.outcome == Outcome::done) result = readCurrency(confirmed.lId, stored);
    if (result.outcome != Outcome::done) return result;
    const auto isUsed = isCurrencyUsed(stored.lId);
    if (!isUsed) return UntoldOutcome::failed();
    if (*isUsed) return UntoldOutcome::stale({.text = currency_texts::usedMeanwhile});
    if (stored != confirmed) return UntoldOutcome::stale({.text = currency_texts::changed});
    const bool isDeleted = g_pDB->Cyrency_Delete(stored.lId) == 0 &&
                           deleteRates("ExchgFix", stored.lId) &&
                           deleteRates("ExchgFlt", stored.lId);
    return isDeleted ? result : UntoldOutcome::failed();
}

template <class Record>
RateRow rateRow(const Record& record) {
    return {record.lId, record.dtDate, record.byPeroid, record.dRate, record.dAdjustRate};
}

template <class Record>
UntoldOutcome writeRow(int rowId, RateColumn column, double value, RateEdit& written) {
    const Notice gone{.text = currency_texts::rateGone};
    Record* row = nullptr;
    const UntoldOutcome result = outcomeOfRow(g_pDB->readOne<Record>(row, rowId), gone);
    if (result.outcome != Outcome::done) return result;
    Record changed = *row;
    g_pDB->release<Record>();
    written.before = rateRow(changed);
    (column == RateColumn::rate ? changed.dRate : changed.dAdjustRate) = value;
    written.after = rateRow(changed);
    return outcomeOfRow(g_pDB->edit(changed), gone);
}

}  // namespace

std::optional<std::vector<_CyrencyInfo>> CurrencyService::readAll() {
    if (selectOpenBooks()) {
        const RowLease<_CyrencyInfo> lease(*g_pDB, currency_sql::inOrder);
        if (lease.isRead()) return lease.copy();
    }
    tellLastFailure(m_messages);
    return std::nullopt;
}

Outcome CurrencyService::read(int id, _CyrencyInfo& currency, bool& isUsed) {
    if (!selectOpenBooks()) return told(m_messages, UntoldOutcome::failed());
    const auto found = isCurrencyUsed(id);
    if (!found) return told(m_messages, UntoldOutcome::failed());
    isUsed = *found;
    return told(m_messages, readCurrency(id, currency));
}

std::optional<std::vector<RateRow>> CurrencyService::rates(RateKind kind, int currencyId, int year,
                                                           int month) {
    if (selectOpenBooks()) return ratesAfterRead(kind, currencyId, year, month);
    tellLastFailure(m_messages);
    return std::nullopt;
}

std::optional<std::vector<RateRow>> CurrencyService::ratesAfterRead(RateKind kind, int currencyId,
                                                                    int year, int month) {
    auto rows = readRates(kind, currencyId, year, month);
    if (!rows) tellLastFailure(m_messages);
    return rows;
}

Outcome CurrencyService::add(const CurrencyInput& input, int year, _CyrencyInfo& added) {
    if (const auto refusal = firstRefusal(currencyInputChecks(), input))
        return told(m_messages, UntoldOutcome::refused(refusal->notice));
    return changeCurrencies(
        m_messages, [&] { return fmt::format(currency_texts::loggedAddition, loggedName(added)); },
        [&] { return addCurrency(input, year, added); });
}

Outcome CurrencyService::modify(const _CyrencyInfo& loaded, const CurrencyInput& input,
                                _CyrencyInfo& modified) {
    if (const auto refusal = firstRefusal(currencyInputChecks(), input))
        return told(m_messages, UntoldOutcome::refused(refusal->notice));
    return changeCurrencies(
        m_messages,
        [&] {
            return fmt::format(currency_texts::loggedChange,
                               changedName(loggedName(loaded), loggedName(modified)));
        },
        [&] { return modifyCurrency(loaded, input, modified); });
}

Outcome CurrencyService::remove(int id, bool isUsed) {
    if (id == 0)
        return told(m_messages, UntoldOutcome::refused({.text = currency_texts::nothingSelected}));
    if (isUsed)
        return told(m_messages, UntoldOutcome::refused({.text = currency_texts::usedNotDeleted}));
    _CyrencyInfo currency;
    bool isUsedNow = false;
    if (const Outcome outcome = read(id, currency, isUsedNow); outcome != Outcome::done)
        return outcome;
    const Answer answer = m_messages.ask(
        {.text = fmt::format(currency_texts::deletion, currency.sExchCode, currency.sExchName),
         .caption = currency_texts::deletionCaption});
    if (answer != Answer::yes) return Outcome::refused;
    return changeCurrencies(
        m_messages,
        [&] { return fmt::format(currency_texts::loggedDeletion, loggedName(currency)); },
        [&] { return deleteCurrency(currency); });
}

Outcome CurrencyService::writeRate(RateKind kind, int currencyId, int rowId, RateColumn column,
                                   double value, RateEdit& written) {
    const auto words = [&] {
        return fmt::format(currency_texts::loggedRate, titleOf(kind), loggedName(currencyId),
                           rateTitle(kind, written.after.day));
    };
    return changeCurrencies(m_messages, words, [&] {
        const UntoldOutcome there = currencyStillThere(currencyId);
        if (there.outcome != Outcome::done) return there;
        return kind == RateKind::fixed ? writeRow<_ExchgFixInfo>(rowId, column, value, written)
                                       : writeRow<_ExchgFltInfo>(rowId, column, value, written);
    });
}

}  // namespace chengheng
