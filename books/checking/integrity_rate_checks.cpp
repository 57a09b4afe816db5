#include <map>
#include <set>
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
struct RateKind {
    const char* title;
    const char* sql;
    bool isMonthly;  ///< a row on the first of each month, else one each day
};

constexpr RateKind fixedRates{integrity_texts::fixedRatesTitle, integrity_sql::fixedRates, true};
constexpr RateKind floatingRates{integrity_texts::floatingRatesTitle, integrity_sql::floatingRates,
                                 false};

/// The days of a year for which a currency has a rate of that kind.
std::vector<Date> rateDays(const RateKind& kind, int year) {
    std::vector<Date> days;
    for (int month = 1; month <= monthsInAYear; ++month) {
        const int last = kind.isMonthly ? 1 : daysInMonth(year, month);
        for (int day = 1; day <= last; ++day)
            days.push_back({static_cast<std::int16_t>(year), static_cast<std::uint8_t>(month),
                            static_cast<std::uint8_t>(day)});
    }
    return days;
}

/// Every year that has a rate at all has them all.
void checkYears(const RateKind& kind, const std::string& currency, const std::set<Date>& found,
                FaultList& faults) {
    std::set<int> years;
    for (const Date& day : found) years.insert(day.year);
    if (years.empty()) faults.add(integrity_texts::noRates(kind.title, currency));
    for (const int year : years) {
        std::vector<Date> missing;
        for (const Date& day : rateDays(kind, year))
            if (!found.contains(day)) missing.push_back(day);
        if (!missing.empty())
            faults.add(integrity_texts::ratesMissing(kind.title, currency, year,
                                                     static_cast<int>(missing.size()),
                                                     isoText(missing.front())));
    }
}

Status checkRatesOf(CheckedBooks& books, FaultList& faults, const RateKind& kind,
                    std::int64_t currencyId, const std::string& currency) {
    std::set<Date> found;
    const Value id = Value::of(currencyId);
    const Status status = forEachRow(books.engine(), kind.sql, {&id, 1}, [&](const Cursor& row) {
        const auto day = parseDate(row.text(0));
        const std::int64_t period = row.integer(1);
        const bool isRight = day && day->month == period && (!kind.isMonthly || day->day == 1);
        if (!isRight || !found.insert(*day).second)
            faults.add(integrity_texts::rateWrong(kind.title, currency, row.text(0), period));
        return Status::done();
    });
    if (status) checkYears(kind, currency, found, faults);
    return status;
}

Status checkRates(CheckedBooks& books, FaultList& faults, const RateKind& kind) {
    std::vector<std::pair<std::int64_t, std::string>> currencies;
    Status status =
        forEachRow(books.engine(), integrity_sql::currencies, {}, [&currencies](const Cursor& row) {
            currencies.emplace_back(row.integer(0), row.text(1));
            return Status::done();
        });
    for (const auto& [id, symbol] : currencies)
        if (status) status = checkRatesOf(books, faults, kind, id, symbol);
    return status;
}

}  // namespace

Status checkFixedRates(CheckedBooks& books, FaultList& faults) {
    return checkRates(books, faults, fixedRates);
}

Status checkFloatingRates(CheckedBooks& books, FaultList& faults) {
    return checkRates(books, faults, floatingRates);
}

}  // namespace chengheng
