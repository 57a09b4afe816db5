#include "currency/rates/rate_gaps.h"

#include <fmt/format.h>

#include <algorithm>
#include <bitset>

#include "currency/rates/rate_texts.h"

namespace chengheng {
namespace {

/// A place for each day of a year.
constexpr std::size_t daySlots = 13 * 32;
std::size_t slotOf(const Date& day) { return day.month * 32u + day.day; }

std::string rangeText(RateKind kind, const RateGap& gap) {
    const std::string first = rateTitle(kind, gap.first);
    return gap.count == 1 ? first
                          : fmt::format(rate_texts::missingRange, first, rateTitle(kind, gap.last));
}

}  // namespace

std::vector<RateGap> rateGaps(RateKind kind, int year, std::span<const RateRow> rows,
                              const RateSpan& wanted) {
    std::bitset<daySlots> rated;
    Date end = wanted.today;
    for (const RateRow& row : rows) {
        if (row.rate == 0 || row.day.year != year) continue;
        rated.set(slotOf(row.day));
        end = std::max(end, row.day);
    }
    if (rated.none()) return {};
    std::vector<RateGap> gaps;
    bool isInGap = false;
    for (const Date& day : rateDays(kind, year, 0)) {
        if (day < wanted.begin) continue;
        if (day > end) break;
        const bool isMissing = !rated[slotOf(day)];
        if (isMissing && !isInGap) gaps.push_back({.first = day, .last = day, .count = 0});
        isInGap = isMissing;
        if (!isMissing) continue;
        gaps.back().last = day;
        ++gaps.back().count;
    }
    return gaps;
}

std::vector<RateGap> gapsInMonth(std::span<const RateGap> gaps, int year, int month) {
    const Date begin{static_cast<std::int16_t>(year), static_cast<std::uint8_t>(month), 1};
    Date end = begin;
    end.day = static_cast<std::uint8_t>(daysInMonth(year, month));
    std::vector<RateGap> within;
    for (const RateGap& gap : gaps) {
        const Date first = std::max(gap.first, begin);
        const Date last = std::min(gap.last, end);
        if (first <= last) within.push_back({first, last, last.day - first.day + 1});
    }
    return within;
}

std::string gapLine(RateKind kind, std::span<const RateGap> gaps, std::size_t named) {
    if (gaps.empty()) return {};
    const int count = missingIn(gaps);
    std::vector<std::string> ranges;
    for (const RateGap& gap : gaps.first(std::min(named, gaps.size())))
        ranges.push_back(rangeText(kind, gap));
    std::string listed = fmt::format("{}", fmt::join(ranges, rate_texts::listSeparator));
    if (gaps.size() > ranges.size()) listed += fmt::format(rate_texts::moreGaps, gaps.size());
    return kind == RateKind::fixed ? fmt::format(rate_texts::missingMonths, count, listed)
                                   : fmt::format(rate_texts::missingDays, count, listed);
}

int missingIn(std::span<const RateGap> gaps) {
    int count = 0;
    for (const RateGap& gap : gaps) count += gap.count;
    return count;
}

std::optional<Date> nextGap(std::span<const RateGap> gaps, const Date& behind) {
    if (gaps.empty()) return std::nullopt;
    const auto next =
        std::ranges::find_if(gaps, [&behind](const RateGap& gap) { return gap.first > behind; });
    return next == gaps.end() ? gaps.front().first : next->first;
}

}  // namespace chengheng
