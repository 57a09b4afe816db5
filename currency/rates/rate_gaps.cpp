#include "currency/rates/rate_gaps.h"

#include <fmt/format.h>

#include <algorithm>
#include <set>

#include "currency/rates/rate_texts.h"

namespace chengheng {
namespace {

std::string rangeText(RateKind kind, const RateGap& gap) {
    const std::string first = rateTitle(kind, gap.first);
    return gap.count == 1 ? first
                          : fmt::format(rate_texts::missingRange, first, rateTitle(kind, gap.last));
}

}  // namespace

std::vector<RateGap> rateGaps(RateKind kind, int year, std::span<const RateRow> rows,
                              const RateSpan& wanted, int month) {
    std::set<Date> rated;
    for (const RateRow& row : rows)
        if (row.rate != 0) rated.insert(row.day);
    if (rated.empty()) return {};
    const Date end = std::max(*rated.rbegin(), wanted.today);
    std::vector<RateGap> gaps;
    bool isInGap = false;
    for (const Date& day : rateDays(kind, year, month)) {
        if (day < wanted.begin) continue;
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
