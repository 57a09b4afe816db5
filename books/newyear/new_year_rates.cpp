#include "books/newyear/new_year_rates.h"

namespace chengheng {

std::map<int, double> lastRates(std::span<const EndingRate> rates, int year) {
    std::map<int, EndingRate> last;
    for (const EndingRate& rate : rates) {
        if (rate.day.year != year || (rate.rate == 0 && rate.adjustRate == 0)) continue;
        const auto known = last.find(rate.currency);
        if (known == last.end() || known->second.day <= rate.day) last[rate.currency] = rate;
    }
    std::map<int, double> values;
    for (const auto& [currency, rate] : last)
        values[currency] = rate.adjustRate != 0 ? rate.adjustRate : rate.rate;
    return values;
}

std::vector<NewRate> ratesOfYear(RateKind kind, std::span<const int> currencies, int year,
                                 const std::map<int, double>& first) {
    const std::vector<Date> days = rateDays(kind, year);
    std::vector<NewRate> rows;
    rows.reserve(days.size() * currencies.size());
    for (const int currency : currencies)
        for (const Date& day : days) {
            const auto brought = day == days.front() ? first.find(currency) : first.end();
            rows.push_back({static_cast<std::int32_t>(rows.size() + 1), currency, day,
                            brought == first.end() ? 0.0 : brought->second});
        }
    return rows;
}

}  // namespace chengheng
