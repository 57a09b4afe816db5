#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "currency/rate_rows.h"

namespace chengheng {

/// What is strange about a rate beside the one before it.
enum class RateMark : std::uint8_t {
    none,
    jump,       ///< it differs by more than a twentieth: probably a slip of the keys
    departure,  ///< it differs by more than half
};

/// A bookkeeping rate that is there, as a line through the year is drawn from.
struct RatePoint {
    Date day;
    double rate = 0;
    RateMark mark = RateMark::none;

    bool operator==(const RatePoint&) const = default;
};

/// The rates that are there, in the order of rows, each marked beside those before it. Where one
/// is out of line and the next is back, only the first is marked; where a new level begins, only
/// its first.
std::vector<RatePoint> ratePoints(std::span<const RateRow> rows);
/// The same of the adjustment rates.
std::vector<RatePoint> adjustmentPoints(std::span<const RateRow> rows);

/// What a rate is beside the one before it; none where either is 0.
RateMark markBeside(double before, double rate);

/// The last rate before a day; nothing where there is none.
std::optional<RatePoint> pointBefore(std::span<const RatePoint> points, const Date& day);

}  // namespace chengheng
