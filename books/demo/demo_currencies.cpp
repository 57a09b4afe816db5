#include "base/values/numbers.h"
#include "books/demo/demo_parts.h"
#include "data/tables/currency.h"

namespace chengheng {
namespace {

constexpr std::int16_t multiplied = 1;  ///< foreign × rate = home
constexpr float largestDifference = 0.00001F;
constexpr int months = 12;

Date dayOf(const DemoBooks& books, int month, int day) {
    return {books.year(), static_cast<std::uint8_t>(month), static_cast<std::uint8_t>(day)};
}

/// What is to be found by looking at the first currency: two gaps in its days, and a slip of the
/// keys.
bool isForgotten(int month, int day) {
    return (month == 3 && day >= 14 && day <= 16) || (month == 8 && day == 30);
}
bool hasSlipped(int month, int day) { return month == 6 && day == 17; }
constexpr double slip = 1.8;

/// A rate on a day: a little beside the month's, and always the same; 0 where it was forgotten.
double floatingRate(const demo::Currency& currency, double monthlyRate, int month, int day) {
    constexpr int swing = 21;
    constexpr double step = 0.0005;
    const int swung = (day * 8 + month * 5) % swing - swing / 2;
    double rate = monthlyRate + swung * step;
    const bool isFirst = &currency == demo::currencies().data();
    if (isFirst && hasSlipped(month, day)) rate += slip;
    Round(rate, currency.rateDecimals);
    return isFirst && isForgotten(month, day) ? 0 : rate;
}

template <class Rate>
Rate rateOn(const Date& day, std::int32_t currencyId, double bookkeeping, double adjustment) {
    Rate rate;
    rate.byExchId = static_cast<std::uint8_t>(currencyId);
    rate.dtDate = day;
    rate.byPeroid = day.month;
    rate.dRate = bookkeeping;
    rate.dAdjustRate = adjustment;
    return rate;
}

/// The adjustment rate of a month is the bookkeeping rate of the next.
Status writeMonth(DemoBooks& books, const demo::Currency& currency, std::int32_t id, int month) {
    const double rate = currency.monthlyRates[static_cast<std::size_t>(month - 1)];
    const double next = currency.monthlyRates[static_cast<std::size_t>(month % months)];
    Status status = books.add(rateOn<_ExchgFixInfo>(dayOf(books, month, 1), id, rate, next));
    for (int day = 1; status && day <= daysInMonth(books.year(), month); ++day)
        status = books.add(rateOn<_ExchgFltInfo>(dayOf(books, month, day), id,
                                                 floatingRate(currency, rate, month, day), 0));
    return status;
}

}  // namespace

Status writeDemoCurrencies(DemoBooks& books) {
    Status status = Status::done();
    std::uint8_t sequence = 0;
    for (const demo::Currency& currency : demo::currencies()) {
        _CyrencyInfo record;
        record.bySeq = ++sequence;
        record.sExchCode = currency.symbol;
        record.sExchName = currency.name;
        record.bMode = multiplied;
        record.byDecimal = currency.rateDecimals;
        record.fMaxError = largestDifference;
        if (status) status = books.addNamed(record, currency.symbol);
        const std::int32_t id = books.idOf<_CyrencyInfo>(currency.symbol);
        for (int month = 1; status && month <= months; ++month)
            status = writeMonth(books, currency, id, month);
    }
    return status;
}

}  // namespace chengheng
