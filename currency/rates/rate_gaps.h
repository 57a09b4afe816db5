#pragma once

#include <span>
#include <string>
#include <vector>

#include "currency/rate_rows.h"

namespace chengheng {

/// Days or months in a row that have no bookkeeping rate.
struct RateGap {
    Date first;
    Date last;
    int count = 0;  ///< of days or of months

    bool operator==(const RateGap&) const = default;
};

/// From when to when rates are wanted: the day that the books begin with, and today.
struct RateSpan {
    Date begin = {};
    Date today = {};
};

/// The gaps of a year's rates, in the order of time. What lies behind the last rate of the year and
/// behind today is no gap, it is still to come; nor is what lies before the books begin, nor
/// anything in a year that has no rate at all. Days that have no row are missing, too.
std::vector<RateGap> rateGaps(RateKind kind, int year, std::span<const RateRow> rows,
                              const RateSpan& wanted);

/// What of a year's gaps of days lies in one month of it.
std::vector<RateGap> gapsInMonth(std::span<const RateGap> gaps, int year, int month);

/// "缺 3 天:2026.03.04 至 2026.03.05、2026.03.09"; empty without gaps. No more than so many are
/// named.
std::string gapLine(RateKind kind, std::span<const RateGap> gaps, std::size_t named = 3);

/// How many days or months are missing in all of them.
int missingIn(std::span<const RateGap> gaps);

/// Where the next gap behind a day begins, else the first of all; nothing without gaps.
std::optional<Date> nextGap(std::span<const RateGap> gaps, const Date& behind);

}  // namespace chengheng
