#include "currency/rates/gap_filling.h"

#include <algorithm>

namespace chengheng {

std::vector<RateChange> gapFilling(int currency, RateKind kind, std::span<const RateRow> rows,
                                   std::span<const RateGap> gaps) {
    std::vector<RateChange> filling;
    double last = 0;
    for (const RateRow& row : rows) {
        if (row.rate != 0) last = row.rate;
        const bool isInGap = std::ranges::any_of(gaps, [&row](const RateGap& gap) {
            return gap.first <= row.day && row.day <= gap.last;
        });
        if (row.rate != 0 || last == 0 || !isInGap) continue;
        RateRow filled = row;
        filled.rate = last;
        filling.push_back({.currency = currency, .kind = kind, .before = row, .after = filled});
    }
    return filling;
}

}  // namespace chengheng
