#include <gtest/gtest.h>

#include "base/values/amount_text.h"

using namespace chengheng;

TEST(AmountLetters, AreNarrowedOnlyWhereTheyAreWide) {
    EXPECT_EQ(readAmount("１２"), 12);
    EXPECT_EQ(readAmount("弑"), std::nullopt) << "ends with the bytes of a wide 1";
    EXPECT_EQ(readAmount("1\xEF"), std::nullopt);
    EXPECT_EQ(readAmount("1\xEF\xBC"), std::nullopt);
}

TEST(AmountLetters, OfAnExponentEndWithItsDigits) {
    EXPECT_EQ(readAmount("=1e2+1"), 101);
    EXPECT_EQ(readAmount("=(2e1)*3"), 60);
    EXPECT_EQ(readAmount("(1e2)"), -100);
    EXPECT_EQ(readAmount("1e2 x"), std::nullopt);
}
