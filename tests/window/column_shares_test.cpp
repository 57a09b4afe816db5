#include "screen/grid/column_shares.h"

#include <gtest/gtest.h>

#include <numeric>

using namespace chengheng;

namespace {

using Widths = std::vector<int>;

constexpr ColumnNeed code{.content = 60, .usual = 100, .least = 50};
constexpr ColumnNeed name{.content = 200, .usual = 150, .least = 50};
constexpr ColumnNeed figure{.content = 90, .usual = 180, .least = 90};
constexpr ColumnNeed level{.content = 20, .usual = 30, .least = 20, .grows = false};

Widths shared(std::vector<ColumnNeed> needs, int room) { return shareWidth(needs, room); }
int sumOf(const Widths& widths) { return std::accumulate(widths.begin(), widths.end(), 0); }

}  // namespace

TEST(ColumnShares, GiveEachItsUsualWidthAndWhatItHolds) {
    EXPECT_EQ(shared({code, name, figure}, 480), (Widths{100, 200, 180}));
}

TEST(ColumnShares, ShareWhatIsLeftOverByWidth) {
    EXPECT_EQ(shared({code, name, figure}, 960), (Widths{200, 400, 360}));
    EXPECT_EQ(sumOf(shared({code, name, figure}, 577)), 577);
}

TEST(ColumnShares, LeaveAColumnOfMarksAsItIs) {
    EXPECT_EQ(shared({level, code}, 330), (Widths{30, 300}));
}

TEST(ColumnShares, TakeFirstWhatIsNotNeeded) {
    const Widths widths = shared({code, name, figure}, 415);
    EXPECT_EQ(widths, (Widths{80, 200, 135}));
}

TEST(ColumnShares, CutANameOnlyWhenNothingElseCanGive) {
    EXPECT_EQ(shared({code, name, figure}, 350), (Widths{60, 200, 90}));
    EXPECT_EQ(shared({code, name, figure}, 300), (Widths{60, 150, 90}));
}

TEST(ColumnShares, CutTheWidestTextFirst) {
    const ColumnNeed remark{.content = 500, .usual = 100, .least = 50};
    EXPECT_EQ(shared({name, remark}, 450), (Widths{200, 250}));
    EXPECT_EQ(shared({name, remark}, 300), (Widths{150, 150}));
}

TEST(ColumnShares, KeepTheDigitsOfFiguresWhereThereIsNoRoomForAll) {
    EXPECT_EQ(shared({code, name, figure}, 100), (Widths{50, 50, 90}));
}

TEST(ColumnShares, LeaveAloneWhatTheOperatorMade) {
    ColumnNeed dragged = name;
    dragged.kept = 30;
    EXPECT_EQ(shared({code, dragged, figure}, 590), (Widths{200, 30, 360}));
    EXPECT_EQ(shared({code, dragged, figure}, 180), (Widths{60, 30, 90}));
    dragged.kept = 400;
    EXPECT_EQ(shared({code, dragged, figure}, 200), (Widths{50, 400, 90}));
}

TEST(ColumnShares, AreNoneWithoutColumns) { EXPECT_TRUE(shared({}, 100).empty()); }
