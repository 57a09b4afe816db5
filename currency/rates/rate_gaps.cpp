#include "currency/rates/rate_gaps.h"

#include <fmt/format.h>

#include <algorithm>
#include <set>

#include "currency/rates/rate_texts.h"

namespace chengheng {
namespace {

/// The days of a gap in their order.
std::vector<Date> daysOf(RateKind kind, const RateGap& gap) {
    std::vector<Date> days;
    for (const Date& day : rateDays(kind, gap.first.year))
        if (gap.first <= day && day <= gap.last) days.push_back(day);
    return days;
}

std::string rangeText(RateKind kind, const RateGap& gap) {
    const std::string first = rateTitle(kind, gap.first);
    return gap.count == 1 ? first
                          : fmt::format(rate_texts::missingRange, first, rateTitle(kind, gap.last));
}

}  // namespace

std::vector<RateGap> rateGaps(RateKind kind, int year, std::span<const RateRow> rows,
                              const Date& today, int month) {
    std::set<Date> rated;
    for (const RateRow& row : rows)
        if (row.rate != 0) rated.insert(row.day);
    if (rated.empty()) return {};
    const Date end = std::max(*rated.rbegin(), today);
    std::vector<RateGap> gaps;
    bool isInGap = false;
    for (const Date& day : rateDays(kind, year, month)) {
        if (day > end) break;
        const bool isMissing = !rated.contains(day);
        if (isMissing && !isInGap) gaps.push_back({.first = day, .last = day, .count = 0});
        isInGap = isMissing;
        if (!isMissing) continue;
        gaps.back().last = day;
        ++gaps.back().count;
    }
    return gaps;
}

std::string gapLine(RateKind kind, std::span<const RateGap> gaps, std::size_t named) {
    if (gaps.empty()) return {};
    int count = 0;
    for (const RateGap& gap : gaps) count += gap.count;
    std::vector<std::string> ranges;
    for (const RateGap& gap : gaps.first(std::min(named, gaps.size())))
        ranges.push_back(rangeText(kind, gap));
    std::string listed = fmt::format("{}", fmt::join(ranges, rate_texts::listSeparator));
    if (gaps.size() > ranges.size()) listed += fmt::format(rate_texts::moreGaps, gaps.size());
    return kind == RateKind::fixed ? fmt::format(rate_texts::missingMonths, count, listed)
                                   : fmt::format(rate_texts::missingDays, count, listed);
}

std::optional<Date> nextGap(RateKind kind, std::span<const RateGap> gaps, const Date& behind) {
    for (const RateGap& gap : gaps)
        for (const Date& day : daysOf(kind, gap))
            if (day > behind) return day;
    if (gaps.empty()) return std::nullopt;
    return gaps.front().first;
}

}  // namespace chengheng
