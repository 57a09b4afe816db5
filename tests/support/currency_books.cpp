#include "tests/support/currency_books.h"

#include <fmt/format.h>

#include <stdexcept>

#include "currency/rate_calendar.h"
#include "data/access/row_lease.h"
#include "data/tables/currency.h"
#include "tests/support/made_layout.h"

namespace chengheng {
namespace {

void mustBe(CNbCwDB& database, bool isDone) {
    if (!isDone) throw std::runtime_error(database.lastStatus().detail);
}

SessionFacts factsOf(CNbCwDB& database, int year) {
    return {.database = &database,
            .databaseName = "books",
            .logonUser = {1, 1, 1, 1, "王芳"},
            .logonTime = {.day = {static_cast<std::int16_t>(year), 5, 31}}};
}

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

CurrencyBooks::CurrencyBooks(const std::string& location, bool isNew, int year)
    : session(factsOf(database, year)) {
    if (isNew) {
        openNewBooks(database, location);
        return;
    }
    NbCwDBInfo info;
    mustBe(database, database.DBOpen(info, location.c_str(), "books", 1) != 0);
    mustBe(database, database.DBSelect("books") != 0);
}

CurrencyBooks::CurrencyBooks(std::unique_ptr<Engine> engine, int year)
    : session(factsOf(database, year)) {
    database.adopt(std::move(engine), "books", "books");
    mustBe(database, database.DBSelect("books") != 0);
}

void CurrencyBooks::run(const std::string& batch) {
    mustBe(database, database.QRYExecuteSQL(batch) != 0);
}

void CurrencyBooks::insert(const char* symbol, const char* name, int year) {
    _CyrencyInfo currency{0, 0, symbol, name, 1, 5, 0.00001F};
    currency.bySeq = static_cast<std::uint8_t>(database.lastId("Cyrency") + 1);
    int id = 0;
    mustBe(database, database.Cyrency_AddNew(currency, id) == 0);
    auto fixed = emptyRates<_ExchgFixInfo>(RateKind::fixed, id, year);
    auto floating = emptyRates<_ExchgFltInfo>(RateKind::floating, id, year);
    mustBe(database, database.addAll<_ExchgFixInfo>(fixed) == 0);
    mustBe(database, database.addAll<_ExchgFltInfo>(floating) == 0);
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

bool CurrencyBooks::holdsLocks() {
    LockService& locks = *database.lockService();
    for (const char* name : {"Code", "Cyrency", "ExchgFix", "ExchgFlt"}) {
        if (locks.holds(name, LockMode::shared) || locks.holds(name, LockMode::exclusive))
            return true;
    }
    return false;
}

}  // namespace chengheng
