#include "currency/rates/rate_marks.h"

#include <cmath>

namespace chengheng {
namespace {

/// Parts of the rate before.
constexpr double jump = 0.05;
constexpr double departure = 0.5;
/// Rates with nine decimals that differ by just a twentieth are no jump, whatever a quotient of
/// doubles is.
constexpr double tolerance = 1e-9;

std::vector<RatePoint> pointsOf(std::span<const RateRow> rows, double RateRow::*rate) {
    std::vector<RatePoint> points;
    double before = 0;
    double lastInLine = 0;
    for (const RateRow& row : rows) {
        const double value = row.*rate;
        if (value == 0) continue;
        const bool isBack = markBeside(lastInLine, value) == RateMark::none;
        const RateMark mark = isBack ? RateMark::none : markBeside(before, value);
        points.push_back({row.day, value, mark});
        before = value;
        if (mark == RateMark::none) lastInLine = value;
    }
    return points;
}

}  // namespace

RateMark markBeside(double before, double rate) {
    if (before == 0 || rate == 0) return RateMark::none;
    const double moved = std::fabs(rate - before) / std::fabs(before);
    if (moved > departure + tolerance) return RateMark::departure;
    return moved > jump + tolerance ? RateMark::jump : RateMark::none;
}

std::vector<RatePoint> ratePoints(std::span<const RateRow> rows) {
    return pointsOf(rows, &RateRow::rate);
}

std::vector<RatePoint> adjustmentPoints(std::span<const RateRow> rows) {
    return pointsOf(rows, &RateRow::adjustRate);
}

std::optional<RatePoint> pointBefore(std::span<const RatePoint> points, const Date& day) {
    std::optional<RatePoint> last;
    for (const RatePoint& point : points)
        if (point.day < day) last = point;
    return last;
}

}  // namespace chengheng
