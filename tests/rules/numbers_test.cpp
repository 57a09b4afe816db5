#include "base/values/numbers.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <limits>
#include <random>
#include <string>

#include "tests/support/comma_locale.h"

using chengheng::shortestText;
using chengheng::shortestTextRoom;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

double rounded(double value, int decimals) {
    Round(value, decimals);
    return value;
}

double readBack(const std::string& text) {
    double value = notANumber;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

int significantDigits(const std::string& text) {
    std::string digits;
    for (const char letter : text.substr(0, text.find('e')))
        if (letter >= '0' && letter <= '9') digits += letter;
    digits.erase(0, std::min(digits.find_first_not_of('0'), digits.size()));
    digits.erase(digits.find_last_not_of('0') + 1);
    return static_cast<int>(digits.size());
}

/// The shortest decimal as the standard library finds it, checked against ours.
void expectShortest(double value) {
    const std::string text = shortestText(value);
    ASSERT_EQ(readBack(text), value) << text;
    std::array<char, 64> plain{};
    char* const end = std::to_chars(plain.data(), plain.data() + plain.size(), value,
                                    std::chars_format::scientific)
                          .ptr;
    ASSERT_EQ(significantDigits(text), significantDigits(std::string(plain.data(), end))) << text;
    ASSERT_LE(text.size(), shortestTextRoom);
}

}  // namespace

TEST(Round, TakesTiesOfTheDecimalSeenAwayFromZero) {
    EXPECT_EQ(rounded(2.675, 2), 2.68);
    EXPECT_EQ(rounded(-2.675, 2), -2.68);
    EXPECT_EQ(rounded(1.005, 2), 1.01);
    EXPECT_EQ(rounded(0.285, 2), 0.29);
    EXPECT_EQ(rounded(1.115, 2), 1.12);
    EXPECT_EQ(rounded(0.5, 0), 1.0);
    EXPECT_EQ(rounded(-0.5, 0), -1.0);
    EXPECT_EQ(rounded(1.000005, 5), 1.00001);
}

TEST(Round, KeepsWhatIsBelowATieBelow) {
    EXPECT_EQ(rounded(2.6749999, 2), 2.67);
    EXPECT_EQ(rounded(0.49999999999999994, 0), 0.0);
    EXPECT_EQ(rounded(1.0049999999999, 2), 1.0);
}

TEST(Round, LeavesAValueWithNoMoreDecimalsAlone) {
    EXPECT_EQ(rounded(0.1, 2), 0.1);
    EXPECT_EQ(rounded(12345.67, 2), 12345.67);
    EXPECT_EQ(rounded(1e300, 2), 1e300);
    EXPECT_EQ(rounded(9007199254740993.0, 2), 9007199254740993.0);
    EXPECT_EQ(rounded(0.1, 400), 0.1);
    EXPECT_EQ(rounded(0.1, std::numeric_limits<int>::max()), 0.1);
}

TEST(Round, CarriesThroughNines) {
    EXPECT_EQ(rounded(9.995, 2), 10.0);
    EXPECT_EQ(rounded(0.999995, 5), 1.0);
    EXPECT_EQ(rounded(0.95, 1), 1.0);
    EXPECT_EQ(rounded(99999999999999.995, 2), 100000000000000.0);
}

TEST(Round, GivesZeroWithoutASign) {
    EXPECT_FALSE(std::signbit(rounded(-0.001, 2)));
    EXPECT_FALSE(std::signbit(rounded(-0.0, 2)));
    EXPECT_FALSE(std::signbit(rounded(-0.0, -3)));
    EXPECT_EQ(rounded(0.1 + 0.2 - 0.3, 2), 0.0);
    EXPECT_EQ(rounded(5e-324, 2), 0.0);
}

TEST(Round, RoundsToTensWithNegativeDecimals) {
    EXPECT_EQ(rounded(1250, -2), 1300);
    EXPECT_EQ(rounded(-1249, -2), -1200);
    EXPECT_EQ(rounded(50, -2), 100);
    EXPECT_EQ(rounded(49, -2), 0);
    EXPECT_EQ(rounded(7, -2), 0);
    EXPECT_EQ(rounded(1e300, std::numeric_limits<int>::min()), 0);
}

TEST(Round, LeavesWhatIsNoNumberAlone) {
    EXPECT_EQ(rounded(infinity, 2), infinity);
    EXPECT_EQ(rounded(-infinity, 2), -infinity);
    EXPECT_TRUE(std::isnan(rounded(notANumber, 2)));
}

TEST(Round, LeavesAValueWhoseRoundedOneNoDoubleHolds) {
    EXPECT_EQ(rounded(1.7e308, -308), 1.7e308);
}

TEST(Round, TakesHalvesOfHundredthsAwayFromZeroWhateverTheirBinaryValue) {
    for (int thousandths = 5; thousandths < 10'000'000; thousandths += 10) {
        const double tie = thousandths / 1000.0;
        const double wanted = (thousandths + 5) / 1000.0;
        ASSERT_EQ(rounded(tie, 2), wanted) << tie;
        ASSERT_EQ(rounded(-tie, 2), -wanted) << tie;
    }
}

TEST(Round, ChangesNothingTheSecondTime) {
    std::mt19937_64 random(20260105);
    std::uniform_real_distribution<double> exponent(-6, 17);
    std::uniform_int_distribution<int> decimals(-3, 9);
    for (int run = 0; run < 200'000; ++run) {
        const double value = std::pow(10.0, exponent(random));
        const int places = decimals(random);
        const double once = rounded(value, places);
        ASSERT_EQ(rounded(once, places), once) << shortestText(value) << " to " << places;
    }
}

TEST(Round, AgreesWithItsTextForEveryMagnitude) {
    std::mt19937_64 random(7);
    std::uniform_real_distribution<double> exponent(-6, 17);
    std::uniform_int_distribution<int> decimals(0, 9);
    for (int run = 0; run < 200'000; ++run) {
        const double value = std::pow(10.0, exponent(random));
        const int places = decimals(random);
        ASSERT_EQ(readBack(ftoa(value, places)), rounded(value, places)) << shortestText(value);
    }
}

TEST(ShortestText, WritesOrdinaryNumbersPlainly) {
    EXPECT_EQ(shortestText(0), "0");
    EXPECT_EQ(shortestText(-0.0), "0");
    EXPECT_EQ(shortestText(100000), "100000");
    EXPECT_EQ(shortestText(0.1), "0.1");
    EXPECT_EQ(shortestText(-1234.56), "-1234.56");
    EXPECT_EQ(shortestText(0.05), "0.05");
    EXPECT_EQ(shortestText(12.30), "12.3");
    EXPECT_EQ(shortestText(6.1234567), "6.1234567");
    EXPECT_EQ(shortestText(0.1 + 0.2), "0.30000000000000004");
    EXPECT_EQ(shortestText(4e12), "4000000000000");
    EXPECT_EQ(shortestText(9999999999999.99), "9999999999999.99");
    EXPECT_EQ(shortestText(1e20), "100000000000000000000");
    EXPECT_EQ(shortestText(72057594037927936.0), "72057594037927940");
    EXPECT_EQ(shortestText(0.0000001), "0.0000001");
}

TEST(ShortestText, WritesVeryLargeAndVerySmallOnesWithAnExponent) {
    EXPECT_EQ(shortestText(1e22), "1e+22");
    EXPECT_EQ(shortestText(-1.5e300), "-1.5e+300");
    EXPECT_EQ(shortestText(1.25e-8), "1.25e-08");
    EXPECT_EQ(shortestText(5e-324), "5e-324");
}

TEST(ShortestText, NamesWhatIsNoNumber) {
    EXPECT_EQ(shortestText(notANumber), "nan");
    EXPECT_EQ(shortestText(infinity), "inf");
    EXPECT_EQ(shortestText(-infinity), "-inf");
}

TEST(ShortestText, ReadsBackAndIsShortestForRandomBits) {
    std::mt19937_64 random(42);
    for (int run = 0; run < 300'000; ++run) {
        const double value = std::bit_cast<double>(random());
        if (!std::isfinite(value)) continue;
        expectShortest(value);
    }
}

TEST(ShortestText, ReadsBackAndIsShortestForAmounts) {
    std::mt19937_64 random(43);
    std::uniform_int_distribution<std::int64_t> amount(-1'000'000'000'000'000,
                                                       1'000'000'000'000'000);
    for (int run = 0; run < 100'000; ++run) {
        const auto cents = amount(random) >> (run % 50);
        for (const double unit : {1.0, 10.0, 100.0, 1000.0, 100000.0})
            expectShortest(static_cast<double>(cents) / unit);
    }
}

TEST(ShortestText, ReadsBackAndIsShortestNextToAmounts) {
    for (int cents = 1; cents < 200'000; cents += 7) {
        const double amount = cents / 100.0;
        expectShortest(std::nextafter(amount, 0));
        expectShortest(std::nextafter(amount, infinity));
    }
    for (const double limit : {1e13, 1e15, 9007199254740992.0, 1e21, 1e-7}) {
        expectShortest(limit);
        expectShortest(std::nextafter(limit, 0));
        expectShortest(std::nextafter(limit, infinity));
    }
}

TEST(NumberToText, GivesExactlyTheDecimalsAsked) {
    EXPECT_EQ(ftoa(2.675, 2), "2.68");
    EXPECT_EQ(ftoa(3, 2), "3.00");
    EXPECT_EQ(ftoa(3.5, 0), "4");
    EXPECT_EQ(ftoa(0.004, 2), "0.00");
    EXPECT_EQ(ftoa(0.005, 2), "0.01");
    EXPECT_EQ(ftoa(9.999, 2), "10.00");
    EXPECT_EQ(ftoa(1000000000000.1, 5), "1000000000000.10000");
    EXPECT_EQ(ftoa(1e22, 1), "10000000000000000000000.0");
    EXPECT_EQ(ftoa(0.000001, 8), "0.00000100");
    EXPECT_EQ(ftoa(7.6, -1), "8");
}

TEST(NumberToText, WritesNoDecimalsThatANumberDoesNotHaveWhenNoneAreAsked) {
    EXPECT_EQ(ftoa(2.5), "2.5");
    EXPECT_EQ(ftoa(-100), "-100");
}

TEST(NumberToText, NeverWritesMinusZero) {
    EXPECT_EQ(ftoa(-0.0), "0");
    EXPECT_EQ(ftoa(-0.0, 2), "0.00");
    EXPECT_EQ(ftoa(-0.004, 2), "0.00");
    EXPECT_EQ(ftoaWithSap(-0.004, 2), "0.00");
    EXPECT_EQ(ftoa(-0.4, 0), "0");
}

TEST(NumberToText, SeparatesThousands) {
    EXPECT_EQ(ftoaWithSap(0, 2), "0.00");
    EXPECT_EQ(ftoaWithSap(999.99, 2), "999.99");
    EXPECT_EQ(ftoaWithSap(999.995, 2), "1,000.00");
    EXPECT_EQ(ftoaWithSap(-1234567.8, 2), "-1,234,567.80");
    EXPECT_EQ(ftoaWithSap(123456, 0), "123,456");
    EXPECT_EQ(ftoaWithSap(4e12, 2), "4,000,000,000,000.00");
    EXPECT_EQ(ftoaWithSap(1234.56789, 5), "1,234.56789");
}

TEST(NumberToText, NamesWhatIsNoNumber) {
    EXPECT_EQ(ftoa(notANumber, 2), "nan");
    EXPECT_EQ(ftoaWithSap(-infinity, 2), "-inf");
}

TEST(NumberToText, DoesNotDependOnTheLocale) {
    const chengheng::CommaLocale comma;
    EXPECT_EQ(ftoaWithSap(1234.5, 2), "1,234.50");
    EXPECT_EQ(shortestText(0.5), "0.5");
    EXPECT_EQ(rounded(2.675, 2), 2.68);
}
