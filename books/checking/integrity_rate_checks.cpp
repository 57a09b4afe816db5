#include <bitset>
#include <map>
#include <utility>
#include <vector>

#include "base/values/date.h"
#include "books/checking/integrity_parts.h"
#include "books/checking/integrity_sql.h"
#include "books/checking/integrity_texts.h"
#include "data/transfer/stored_tables.h"

namespace chengheng {
namespace {

constexpr int monthsInAYear = 12;

/// One of the two tables of rates.
struct RateTable {
    const char* title;
    const char* sql;
    bool isMonthly;  ///< a row on the first of each month, else one each day
};

constexpr RateTable fixedRates{integrity_texts::fixedRatesTitle, integrity_sql::fixedRates, true};
constexpr RateTable floatingRates{integrity_texts::floatingRatesTitle, integrity_sql::floatingRates,
                                  false};

/// The days of a year that have a rate, by month and day.
using RateDays = std::bitset<13 * 32>;

std::size_t slotOf(int month, int day) { return month * 32 + day; }

/// Every year that has a rate at all has them all.
void checkYear(const RateTable& kind, const std::string& currency, int year, const RateDays& found,
               FaultList& faults) {
    int missing = 0;
    Date firstMissing;
    for (int month = 1; month <= monthsInAYear; ++month) {
        const int last = kind.isMonthly ? 1 : daysInMonth(year, month);
        for (int day = 1; day <= last; ++day)
            if (!found[slotOf(month, day)] && ++missing == 1)
                firstMissing = {static_cast<std::int16_t>(year), static_cast<std::uint8_t>(month),
                                static_cast<std::uint8_t>(day)};
    }
    if (missing > 0)
        faults.add(integrity_texts::ratesMissing(kind.title, currency, year, missing,
                                                 isoText(firstMissing)));
}

Status checkRatesOf(CheckedBooks& books, FaultList& faults, const RateTable& kind,
                    std::int64_t currencyId, const std::string& currency) {
    std::map<int, RateDays> found;
    const Value id = Value::of(currencyId);
    const Status status = forEachRow(books.engine(), kind.sql, {&id, 1}, [&](const Cursor& row) {
        const auto day = parseDate(row.text(0));
        const std::int64_t period = row.integer(1);
        const bool isRight = day && day->month == period && (!kind.isMonthly || day->day == 1);
        if (!isRight || found[day->year][slotOf(day->month, day->day)])
            faults.add(integrity_texts::rateWrong(kind.title, currency, row.text(0), period));
        else
            found[day->year].set(slotOf(day->month, day->day));
        return Status::done();
    });
    if (!status) return status;
    if (found.empty()) faults.add(integrity_texts::noRates(kind.title, currency));
    for (const auto& [year, days] : found) checkYear(kind, currency, year, days, faults);
    return status;
}

Status checkRates(CheckedBooks& books, FaultList& faults, const RateTable& table) {
    return forEachCurrency(books, [&](std::int64_t id, const std::string& symbol) {
        return checkRatesOf(books, faults, table, id, symbol);
    });
}

}  // namespace

Status forEachCurrency(
    CheckedBooks& books,
    const std::function<Status(std::int64_t id, const std::string& symbol)>& work) {
    std::vector<std::pair<std::int64_t, std::string>> currencies;
    Status status =
        forEachRow(books.engine(), integrity_sql::currencies, {}, [&currencies](const Cursor& row) {
            currencies.emplace_back(row.integer(0), row.text(1));
            return Status::done();
        });
    for (const auto& [id, symbol] : currencies)
        if (status) status = work(id, symbol);
    return status;
}

Status checkFixedRates(CheckedBooks& books, FaultList& faults) {
    return checkRates(books, faults, fixedRates);
}

Status checkFloatingRates(CheckedBooks& books, FaultList& faults) {
    return checkRates(books, faults, floatingRates);
}

}  // namespace chengheng
