#include "tests/support/currency_books.h"

#include <fmt/format.h>

#include "currency/rate_calendar.h"
#include "data/access/row_lease.h"
#include "data/tables/currency.h"

namespace chengheng {
namespace {

template <class Record>
std::vector<Record> emptyRates(RateKind kind, int currency, int year) {
    std::vector<Record> rows;
    for (const Date& day : rateDays(kind, year)) {
        Record row;
        row.byExchId = static_cast<std::uint8_t>(currency);
        row.dtDate = day;
        row.byPeroid = day.month;
        rows.push_back(row);
    }
    return rows;
}

template <class Record>
std::vector<std::string> ratesOf(CNbCwDB& database, bool onlyFilled) {
    std::vector<std::string> texts;
    for (const Record& row : readRows<Record>(database, "ORDER BY lId")) {
        if (onlyFilled && row.dRate == 0 && row.dAdjustRate == 0) continue;
        texts.push_back(fmt::format("{} {} {} {} {} {}", row.lId, row.byExchId, isoText(row.dtDate),
                                    row.byPeroid, row.dRate, row.dAdjustRate));
    }
    return texts;
}

std::vector<std::string> ratesIn(CNbCwDB& database, const std::string& table, bool onlyFilled) {
    return table == "ExchgFix" ? ratesOf<_ExchgFixInfo>(database, onlyFilled)
                               : ratesOf<_ExchgFltInfo>(database, onlyFilled);
}

}  // namespace

void CurrencyBooks::insert(const char* symbol, const char* name, int year) {
    _CyrencyInfo currency{0, 0, symbol, name, 1, 5, 0.00001F};
    currency.bySeq = static_cast<std::uint8_t>(database.lastId("Cyrency") + 1);
    int id = 0;
    mustBe(database.Cyrency_AddNew(currency, id) == 0);
    auto fixed = emptyRates<_ExchgFixInfo>(RateKind::fixed, id, year);
    auto floating = emptyRates<_ExchgFltInfo>(RateKind::floating, id, year);
    mustBe(database.addAll<_ExchgFixInfo>(fixed) == 0);
    mustBe(database.addAll<_ExchgFltInfo>(floating) == 0);
}

std::vector<std::string> CurrencyBooks::stored() {
    std::vector<std::string> texts;
    for (const _CyrencyInfo& row : readRows<_CyrencyInfo>(database, "ORDER BY lId"))
        texts.push_back(fmt::format("{} {} {} {} {} {} {}", row.lId, row.bySeq, row.sExchCode,
                                    row.sExchName, row.bMode, row.byDecimal, row.fMaxError));
    return texts;
}

std::vector<std::string> CurrencyBooks::rates(const std::string& table) {
    return ratesIn(database, table, false);
}

std::vector<std::string> CurrencyBooks::filledRates(const std::string& table) {
    return ratesIn(database, table, true);
}

std::vector<std::string> CurrencyBooks::everything() {
    std::vector<std::string> texts = stored();
    for (const char* table : {"ExchgFix", "ExchgFlt"})
        for (std::string& text : rates(table)) texts.push_back(std::move(text));
    for (const char* table : {"Cyrency", "ExchgFix", "ExchgFlt"})
        texts.push_back(fmt::format("{} {}", table, counter(table)));
    return texts;
}

}  // namespace chengheng
