#include "screen/grid/column_shares.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <numeric>

namespace chengheng {
namespace {

using Widths = std::vector<int>;

int sumOf(const Widths& widths) { return std::accumulate(widths.begin(), widths.end(), 0); }

/// Adds so many pixels to the widths, each by its weight; to none where there is no weight.
void spread(Widths& widths, const Widths& weights, int pixels) {
    std::int64_t weight = sumOf(weights);
    std::int64_t left = pixels;
    for (std::size_t place = 0; place < widths.size() && weight > 0; ++place) {
        const auto part = left * weights[place] / weight;
        widths[place] += static_cast<int>(part);
        left -= part;
        weight -= weights[place];
    }
}

/// Takes so many pixels from the widest columns first, from none more than it can give.
void cutWidest(Widths& widths, const Widths& least, int pixels) {
    int low = 0;
    int high = *std::ranges::max_element(widths);
    const auto sumAt = [&](int height) {
        int sum = 0;
        for (std::size_t place = 0; place < widths.size(); ++place)
            sum += std::max(std::min(widths[place], height), least[place]);
        return sum;
    };
    const int wanted = sumOf(widths) - pixels;
    while (low < high) {
        const int middle = (low + high + 1) / 2;
        if (sumAt(middle) <= wanted)
            low = middle;
        else
            high = middle - 1;
    }
    for (std::size_t place = 0; place < widths.size(); ++place)
        widths[place] = std::max(std::min(widths[place], low), least[place]);
}

Widths widthsOf(std::span<const ColumnNeed> needs, int (*width)(const ColumnNeed&)) {
    Widths widths(needs.size());
    std::ranges::transform(needs, widths.begin(), [width](const ColumnNeed& need) {
        return need.kept > 0 ? need.kept : width(need);
    });
    return widths;
}

int contentOf(const ColumnNeed& need) { return need.content; }
int usualOf(const ColumnNeed& need) { return std::max(need.usual, need.content); }
int leastOf(const ColumnNeed& need) { return std::min(need.least, need.content); }

}  // namespace

std::vector<int> shareWidth(std::span<const ColumnNeed> needs, int room) {
    if (needs.empty()) return {};
    Widths widths = widthsOf(needs, usualOf);
    const int left = room - sumOf(widths);
    if (left >= 0) {
        Widths weights(needs.size());
        for (std::size_t place = 0; place < needs.size(); ++place)
            weights[place] = needs[place].grows && needs[place].kept == 0 ? widths[place] : 0;
        spread(widths, weights, left);
        return widths;
    }
    Widths content = widthsOf(needs, contentOf);
    const int missing = sumOf(content) - room;
    if (missing > 0) {
        cutWidest(content, widthsOf(needs, leastOf), missing);
        return content;
    }
    Widths spare(needs.size());
    std::ranges::transform(widths, content, spare.begin(), std::minus<>());
    spread(content, spare, -missing);
    return content;
}

}  // namespace chengheng
