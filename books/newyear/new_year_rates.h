#pragma once

#include <cstdint>
#include <map>
#include <span>
#include <vector>

#include "currency/rate_calendar.h"

namespace chengheng {

/// A currency's rate of the year that ends.
struct EndingRate {
    int currency = 0;
    Date day = {};
    double rate = 0;
    double adjustRate = 0;
};

/// The last rate that each currency has in a year, be it of the end of a month (the adjustment
/// rate) or of the day itself; a currency without any has none.
std::map<int, double> lastRates(std::span<const EndingRate> rates, int year);

/// A row of the new year's rates.
struct NewRate {
    std::int32_t id = 0;
    int currency = 0;
    Date day = {};
    double rate = 0;

    bool operator==(const NewRate&) const = default;
};

/// The rows of a year for each currency, with ids from 1 on: all 0 but the first one, where the
/// currency brings a rate along.
std::vector<NewRate> ratesOfYear(RateKind kind, std::span<const int> currencies, int year,
                                 const std::map<int, double>& first);

}  // namespace chengheng
