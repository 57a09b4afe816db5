#include <fmt/format.h>

#include <map>
#include <vector>

#include "books/checking/integrity_parts.h"
#include "books/checking/integrity_sql.h"
#include "books/checking/integrity_texts.h"
#include "currency/rates/rate_gaps.h"
#include "data/transfer/stored_tables.h"

namespace chengheng {
namespace {

Status noteGapsOf(CheckedBooks& books, FaultList& notes, RateKind kind, std::int64_t currencyId,
                  const std::string& currency) {
    const bool isFixed = kind == RateKind::fixed;
    std::map<int, std::vector<RateRow>> years;
    const Value id = Value::of(currencyId);
    const char* const sql =
        isFixed ? integrity_sql::fixedRateValues : integrity_sql::floatingRateValues;
    const Status status = forEachRow(books.engine(), sql, {&id, 1}, [&](const Cursor& row) {
        if (const auto day = parseDate(row.text(0)))
            years[day->year].push_back(
                {.day = *day, .period = day->month, .rate = numberIn(row, 1)});
        return Status::done();
    });
    // How far the year has come nobody knows here: what lies behind the last rate is to come.
    for (const auto& [year, rows] : years)
        if (const auto gaps = rateGaps(kind, year, rows, {.begin = books.start()}); !gaps.empty())
            notes.add(fmt::format(
                integrity_texts::rateGaps, currency,
                isFixed ? integrity_texts::fixedRatesTitle : integrity_texts::floatingRatesTitle,
                year, gapLine(kind, gaps)));
    return status;
}

}  // namespace

Status noteRateGaps(CheckedBooks& books, FaultList& notes) {
    return forEachCurrency(books, [&](std::int64_t id, const std::string& symbol) {
        const Status status = noteGapsOf(books, notes, RateKind::fixed, id, symbol);
        return status ? noteGapsOf(books, notes, RateKind::floating, id, symbol) : status;
    });
}

}  // namespace chengheng
