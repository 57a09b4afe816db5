#include "base/values/digit_groups.h"

#include <gtest/gtest.h>

using namespace chengheng;

TEST(DigitGroups, AreTakenTogetherWhenEachHasThreeDigits) {
    EXPECT_EQ(withoutDigitGroups("1,234"), "1234");
    EXPECT_EQ(withoutDigitGroups("12,345,678.9"), "12345678.9");
    EXPECT_EQ(withoutDigitGroups("100,000."), "100000.");
    for (const char* plain : {"", "0", "1234", "0123.5", ".5", "1.2.3"})
        EXPECT_EQ(withoutDigitGroups(plain), plain);
}

TEST(DigitGroups, AreNoneOfAnotherSize) {
    for (const char* text : {",", "1,", ",1", ",123", "1,5", "12,34", "1,2345", "1234,567",
                             "1,,234", "1,234,", "1,234,5", "1.5,000", "1,234.5,6", "0,125",
                             "00,125", "1,2a4", "-1,234", "1,23 ", "1 ,234"})
        EXPECT_EQ(withoutDigitGroups(text), std::nullopt) << text;
}

TEST(DecimalCommas, StandAloneBetweenDigitsThatMakeNoGroups) {
    for (const char* text : {"1,5", "0,01", "12,34", "1,2345", "1234,567", "0,125", "1.234,5"})
        EXPECT_TRUE(hasDecimalComma(text)) << text;
    for (const char* text : {"", "1", "1.5", ",", "1,", ",5", "1,234", "1,,5", "1,5,6", "1,5.6",
                             "1.23,5", "a,5", "1,b", "1.234,567,8"})
        EXPECT_FALSE(hasDecimalComma(text)) << text;
}
