#pragma once

#include <string>
#include <vector>

#include "base/values/date.h"

namespace chengheng {

/// What a currency's rates are kept for: a fixed one for each month, a floating one for each day.
enum class RateKind { fixed, floating };

inline constexpr int monthsOfYear = 12;

/// The days whose rates a year has, in their order: the first of each month, or every day. Month
/// 0 is the whole year; a month outside 0 to 12 has none.
std::vector<Date> rateDays(RateKind kind, int year, int month = 0);

/// How a month is called: "2026.02".
std::string monthTitle(int year, int month);
/// How the row of a rate is called: "2026.02", "2026.02.28".
std::string rateTitle(RateKind kind, const Date& day);

}  // namespace chengheng
