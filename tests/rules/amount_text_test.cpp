#include "base/values/amount_text.h"
#include "opening/editing/typed_amount.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>

#include "base/values/numbers.h"

using namespace chengheng;

namespace {

double read(std::string_view text) { return readAmount(text).value_or(-999); }

}  // namespace

TEST(TypedAmounts, KeepFiveDecimalsOnAQuantityLineAndTwoOnAMoneyLine) {
    EXPECT_EQ(typedAmount("1.234567", Measure::quantity), 1.23457);
    EXPECT_EQ(typedAmount("1.234567", Measure::money), 1.23);
    EXPECT_EQ(typedAmount("1.234567", Measure::foreign), 1.23);
}

TEST(TypedAmounts, CountATextThatIsNoNumberAsZero) {
    for (const char* text : {"", "   ", "abc", "12x", "--5", "1.2.3", "=", "=1+", "=(1", "=1/0",
                             "1 2", "nan", "inf", "0x10", "1e999", "(5", "=2**3", "e5"}) {
        EXPECT_EQ(typedAmount(text, Measure::money), 0) << text;
        EXPECT_EQ(readAmount(text), std::nullopt) << text;
    }
}

TEST(TypedAmounts, RoundHalfAwayFromZero) {
    EXPECT_EQ(typedAmount("2.675", Measure::money), 2.68);
    EXPECT_EQ(typedAmount("-2.675", Measure::money), -2.68);
}

TEST(Amounts, AreReadWithSignsSeparatorsAndBlanks) {
    EXPECT_EQ(read("1234.5"), 1234.5);
    EXPECT_EQ(read(" -1,234,567.89 "), -1234567.89);
    EXPECT_EQ(read("1,234.50\r\n"), 1234.5);
    EXPECT_EQ(read("\t5\u00A0"), 5);
    EXPECT_EQ(readAmount("1\n2"), std::nullopt);
    EXPECT_EQ(read("+12"), 12);
    EXPECT_EQ(read(".5"), 0.5);
    EXPECT_EQ(read("5."), 5);
    EXPECT_EQ(read("1.5E+03"), 1500);
}

TEST(Amounts, TakeASeparatorOnlyBetweenGroupsOfThreeBeforeThePoint) {
    EXPECT_EQ(read("1,234"), 1234);
    EXPECT_EQ(read("12,345.6"), 12345.6);
    EXPECT_EQ(read("123,456,789.05"), 123456789.05);
    EXPECT_EQ(read("１，２３４"), 1234);
    EXPECT_EQ(read("(1,234)"), -1234);
    EXPECT_EQ(read("¥-1,234"), -1234);
    EXPECT_EQ(read("1,234e2"), 123400);
    for (const char* text :
         {",5",        "5,",        "1,,2",         "1.2,3",      "1,234,",    ",123",
          "1,23,456",  "12,34,567", "1234,567,890", "1,2345,678", "1,234.5,6", "1.234,567.8",
          "1,234 567", "1, 234",    "0,123,456",    "1,5x",       "1,5,",      "abc",
          "",          "=1,5+",     "1,5 2"}) {
        EXPECT_EQ(readAmount(text), std::nullopt) << text;
        EXPECT_STREQ(whyNoAmount(text), "不是数字") << text;
    }
}

TEST(Amounts, WithADecimalCommaAreNoneAndItIsTold) {
    for (const char* text :
         {"1,5", "0,01", "12,34", "1,2345", "1234,5", "1234,567", "0,125", "1.234,56", "-1,5",
          "(1,5)", "¥1,5", " 1,5 ", "１，５", "0,5e3", "=1,5+2", "=(2+1,25)*2"}) {
        EXPECT_EQ(readAmount(text), std::nullopt) << text;
        EXPECT_STREQ(whyNoAmount(text), "不是数字:小数点应为“.”,不能用“,”") << text;
        EXPECT_EQ(typedAmount(text, Measure::money), 0) << text;
    }
}

TEST(Amounts, ReadBackAsTheyAreWrittenWithSeparators) {
    std::mt19937_64 random(12);
    for (int round = 0; round < 20'000; ++round) {
        const int decimals = static_cast<int>(random() % 6);
        const auto range = static_cast<std::int64_t>(std::pow(10.0, 1 + round % 15));
        const auto units = static_cast<std::int64_t>(random() % (2 * range)) - range;
        double amount = static_cast<double>(units) / std::pow(10.0, decimals);
        Round(amount, decimals);
        const std::string text = ftoaWithSap(amount, decimals);
        EXPECT_EQ(readAmount(text), amount + 0.0) << text;
    }
}

TEST(Amounts, AreNoneWhenASeparatorOfThemIsMovedAddedOrTakenAway) {
    std::mt19937_64 random(34);
    const auto isGrouping = [](std::string text) {
        return ftoaWithSap(readAmount(text).value_or(0), 2) == text;
    };
    for (int round = 0; round < 20'000; ++round) {
        std::string text = ftoaWithSap(static_cast<double>(random() % 10'000'000'000) / 100, 2);
        const std::size_t comma = text.find(',');
        const std::size_t place = random() % (text.size() + 1);
        if (comma != std::string::npos && round % 2 == 0) text.erase(comma, 1);
        text.insert(std::min(place, text.size()), ",");
        EXPECT_TRUE(!readAmount(text) || isGrouping(text)) << text;
    }
}

TEST(Amounts, AreReadAsSpreadsheetsShowThem) {
    EXPECT_EQ(read("(1,200.00)"), -1200);
    EXPECT_EQ(read("¥1,200.00"), 1200);
    EXPECT_EQ(read("￥ 5"), 5);
    EXPECT_EQ(read(" - "), 0);
}

TEST(Amounts, AreReadInTheWideLettersOfChineseTyping) {
    EXPECT_EQ(read("１２３４．５"), 1234.5);
    EXPECT_EQ(read("－１，２００。５"), -1200.5);
    EXPECT_EQ(read("＝１＋２＊（３－１）"), 5);
}

TEST(Amounts, AreSummedAfterAnEqualsSign) {
    EXPECT_EQ(read("=1200+350*2"), 1900);
    EXPECT_EQ(read("= 10 - 4 - 3"), 3);
    EXPECT_EQ(read("=2*(3+4)/7"), 2);
    EXPECT_EQ(read("=-5+-2"), -7);
    EXPECT_EQ(read("=1,200*3"), 3600);
    EXPECT_EQ(read("=100÷8×2"), 25);
}

TEST(Amounts, AreHundredthsBeforeAPercentSignInASum) {
    EXPECT_EQ(read("=200*5%"), 10);
    EXPECT_EQ(read("=200*(1+50%)"), 300);
    EXPECT_EQ(typedAmount("=200*(1+13%)", Measure::money), 226);
    EXPECT_EQ(read("=(20+5)%*4"), 1);
    EXPECT_EQ(read("=5000%%"), 0.5);
    EXPECT_EQ(read("＝２００＊５％"), 10);
    EXPECT_EQ(read("=1000+5%"), 1000.05) << "of 1, not of what stands before";
    for (const char* text : {"5%", "=%", "=%5", "=5%3"})
        EXPECT_EQ(readAmount(text), std::nullopt) << text;
}

TEST(Amounts, StandBesideTheirSumAsItIsTyped) {
    EXPECT_EQ(shownSum("=1000+500*2", Measure::money), "= 2,000.00");
    EXPECT_EQ(shownSum(" ＝1/3", Measure::quantity), "= 0.33333");
    EXPECT_EQ(shownSum("=1/3", Measure::money), "= 0.33") << "as it will be stored";
    for (const char* text : {"=", "=1000+", "=(1", "=1,5", "=x", "=1/0"})
        EXPECT_EQ(shownSum(text, Measure::money), "= ?") << text;
    for (const char* text : {"", "1000", "1+2", "-"})
        EXPECT_EQ(shownSum(text, Measure::money), "") << text;
}

TEST(Amounts, AreNeverTheNegativeZero) {
    EXPECT_FALSE(std::signbit(read("-0")));
    EXPECT_FALSE(std::signbit(typedAmount("-0.001", Measure::money)));
}

TEST(Amounts, WithBracketsWithoutEndAreNone) {
    EXPECT_EQ(readAmount("=" + std::string(100'000, '(')), std::nullopt);
    EXPECT_EQ(readAmount("=" + std::string(100'000, '-') + "1"), std::nullopt);
}

TEST(Amounts, MayHaveFiftyBracketsInEachOtherAndNoMore) {
    const auto bracketed = [](std::size_t depth) {
        return "=" + std::string(depth, '(') + "7" + std::string(depth, ')');
    };
    EXPECT_EQ(readAmount(bracketed(50)), 7);
    EXPECT_EQ(readAmount(bracketed(51)), std::nullopt);
    EXPECT_EQ(readAmount("=" + std::string(50, '-') + "7"), 7);
    EXPECT_EQ(readAmount("=" + std::string(51, '-') + "7"), std::nullopt);
    EXPECT_EQ(readAmount("=" + std::string(51, '+') + "7"), std::nullopt);
}

TEST(Amounts, MayHaveAnExponent) {
    EXPECT_EQ(read("1e5"), 100000);
    EXPECT_EQ(read("25E-2"), 0.25);
    EXPECT_EQ(read("1.5e+2"), 150);
    EXPECT_EQ(read("１ｅ２"), 100);
    EXPECT_EQ(read("=1e2*2-3e0"), 197);
    for (const char* text : {"1e", "1e+", "1e-", "1e5x", "1e5.5", "1e 5", "e5", "-e5", "1ee5"})
        EXPECT_EQ(readAmount(text), std::nullopt) << text;
}

TEST(Amounts, TakeOneSignInFrontAndAnyInASum) {
    EXPECT_EQ(read("=2*-3"), -6);
    EXPECT_EQ(read("=+(2)--3"), 5);
    EXPECT_EQ(read("=-(2+3)/-5"), 1);
    EXPECT_EQ(read("=1-2+3-4"), -2);
    EXPECT_EQ(read("=8/2*4/2"), 8);
    EXPECT_EQ(read("(5)"), -5);
    for (const char* text : {"-+5", "+-5", "--5", "(-5)", "(+5)", "-(5)", "5-", "(5))", "((5))",
                             "()", "=()", "=(1)(2)", "=1 2", "=*2", "=2*", "=2//3", "1+2", "2*3"})
        EXPECT_EQ(readAmount(text), std::nullopt) << text;
}

TEST(Amounts, OfHalfAWideLetterAreNone) {
    EXPECT_EQ(readAmount("1\xEF\xBC"), std::nullopt);
    EXPECT_EQ(readAmount("1\xEF\xBE\x91"), std::nullopt);
    EXPECT_EQ(readAmount("1\xEE\xBC\x91"), std::nullopt);
    EXPECT_EQ(readAmount("1\xEF\xBB\x91"), std::nullopt);
    EXPECT_EQ(read("1\xEF\xBC\x91"), 11);
}
