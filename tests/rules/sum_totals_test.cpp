#include "accounts/chart/sum_totals.h"

#include <gtest/gtest.h>

#include <vector>

using namespace chengheng;

namespace {

using Figure = double _AccSumInfo::*;
using Rows = std::vector<_AccSumInfo>;

/// A row of a period with one figure.
_AccSumInfo row(int period, Figure figure, double value) {
    _AccSumInfo made;
    made.byPeroid = static_cast<std::uint8_t>(period);
    made.*figure = value;
    return made;
}

_AccSumInfo opening(int period, double value) { return row(period, &_AccSumInfo::mBegin, value); }

const std::vector<Figure> money{&_AccSumInfo::mBegin, &_AccSumInfo::mDebet, &_AccSumInfo::mCredit};
const std::vector<Figure> sides{&_AccSumInfo::mFgnBegin,  &_AccSumInfo::mFgnDebet,
                                &_AccSumInfo::mFgnCredit, &_AccSumInfo::dAmtBegin,
                                &_AccSumInfo::dAmtDebet,  &_AccSumInfo::dAmtCredit};

}  // namespace

TEST(SumTotals, AreTheSumsBelowPeriodByPeriod) {
    EXPECT_TRUE(areOnlyTotals(Rows{opening(1, 0.3), opening(2, 5)},
                              Rows{opening(1, 0.1), opening(2, 5), opening(1, 0.2)}));
    EXPECT_FALSE(
        areOnlyTotals(Rows{opening(1, 5), opening(2, 3)}, Rows{opening(1, 3), opening(2, 5)}));
    EXPECT_FALSE(areOnlyTotals(Rows{opening(1, 5)}, {})) << "a balance of its own";
    EXPECT_FALSE(areOnlyTotals(Rows{opening(1, 5)}, Rows{opening(1, 5), opening(2, 5)}));
    EXPECT_TRUE(areOnlyTotals(Rows{opening(1, 5), opening(2, 0)}, Rows{opening(1, 5)}));
    EXPECT_TRUE(areOnlyTotals({}, {}));
}

TEST(SumTotals, AreSoInEveryFigureToTheLastDecimal) {
    for (const Figure figure : money) {
        EXPECT_TRUE(areOnlyTotals(Rows{row(1, figure, 7.25)}, Rows{row(1, figure, 7.25)}));
        EXPECT_FALSE(areOnlyTotals(Rows{row(1, figure, 7.26)}, Rows{row(1, figure, 7.25)}));
        EXPECT_FALSE(areOnlyTotals(Rows{row(1, figure, 0)}, Rows{row(1, figure, 7.25)}));
    }
    for (const Figure figure : sides) {
        EXPECT_TRUE(areOnlyTotals(Rows{row(1, figure, 7.25)}, Rows{row(1, figure, 7.25)}));
        EXPECT_FALSE(areOnlyTotals(Rows{row(1, figure, 7.26)}, Rows{row(1, figure, 7.25)}));
        EXPECT_TRUE(areOnlyTotals(Rows{row(1, figure, 0)}, Rows{row(1, figure, 7.25)}))
            << "an account above others need not keep it";
    }
    EXPECT_FALSE(areOnlyTotals(Rows{row(1, &_AccSumInfo::dAmtBegin, 1.00001)},
                               Rows{row(1, &_AccSumInfo::dAmtBegin, 1)}));
    EXPECT_TRUE(areOnlyTotals(Rows{row(1, &_AccSumInfo::dAmtBegin, 1.000004)},
                              Rows{row(1, &_AccSumInfo::dAmtBegin, 1)}));
    EXPECT_TRUE(areOnlyTotals(Rows{opening(1, 1.004)}, Rows{opening(1, 1)}));
}
