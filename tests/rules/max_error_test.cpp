#include "currency/max_error.h"

#include <gtest/gtest.h>

namespace {

using namespace chengheng;

TEST(MaxError, IsReadFromPlainDecimalNumbersOnly) {
    const std::pair<const char*, double> numbers[] = {{"0", 0},     {"12", 12},
                                                      {"0.5", 0.5}, {".5", 0.5},
                                                      {"5.", 5},    {"007.10", 7.1},
                                                      {"-1", -1},   {"-.5", -0.5},
                                                      {"-0", 0},    {"0.0", 0},
                                                      {"00", 0},    {"0.00001", 1e-5},
                                                      {"", 0},      {"100000.1", 100000.1}};
    for (const auto& [text, value] : numbers) {
        ASSERT_TRUE(maxErrorValue(text).has_value()) << text;
        EXPECT_EQ(*maxErrorValue(text), value) << text;
    }
    for (const char* text :
         {"abc",   "1a",    "a1",  "1e-5", "1E5", "+1",   "--1", "1-",  ".",  "-",   "-.",
          "1.2.3", "1,000", "1 0", " ",    "1 ",  "0x10", "inf", "nan", "１", "1。5"})
        EXPECT_EQ(maxErrorValue(text), std::nullopt) << text;
}

TEST(MaxError, OfManyDigitsIsNoOtherNumber) {
    EXPECT_GT(maxErrorValue("1" + std::string(400, '0')), 100000.0);
    EXPECT_LT(maxErrorValue("-1" + std::string(400, '0')), 0.0);
    const auto tiny = maxErrorValue("0." + std::string(400, '0') + "1");
    ASSERT_TRUE(tiny.has_value());
    EXPECT_GT(*tiny, 0);
    EXPECT_LT(*tiny, 0.00000001);
    EXPECT_EQ(maxErrorValue(std::string(400, '0')), 0.0);
}

TEST(MaxError, OfANewCurrencyIsAddedUpDigitByDigit) {
    const std::pair<const char*, float> numbers[] = {
        {"", 0.0F},     {"0", 0.0F},  {"1", 1.0F},           {"120", 120.0F},      {"0.5", 0.5F},
        {".25", 0.25F}, {"3.", 3.0F}, {"100000", 100000.0F}, {"99999.5", 99999.5F}};
    for (const auto& [text, value] : numbers) EXPECT_EQ(maxErrorByDigits(text), value) << text;
    // The digits' weights are not exact, so that the last bit may be another one.
    for (const char* text : {"0.00001", "0.00000001", "0.00000005", "12345.678", "0.1"})
        EXPECT_FLOAT_EQ(maxErrorByDigits(text), maxErrorByLibrary(text)) << text;
}

TEST(MaxError, IsAddedUpInAnotherWayThanTheLibraryReadsIt) {
    int different = 0;
    for (int number = 1; number < 100000; ++number) {
        const std::string text = "0." + std::to_string(100000 + number).substr(1) + "73511";
        const float byDigits = maxErrorByDigits(text);
        const float byLibrary = maxErrorByLibrary(text);
        ASSERT_FLOAT_EQ(byDigits, byLibrary) << text;
        double sum = 0;
        double weight = 0.1;
        for (const char digit : text.substr(2)) {
            sum += (digit - '0') * weight;
            weight /= 10;
        }
        ASSERT_EQ(byDigits, static_cast<float>(sum)) << text;
        if (static_cast<double>(byDigits) != static_cast<double>(byLibrary)) ++different;
    }
    RecordProperty("different", different);
}

TEST(MaxError, OfACurrencyThatIsThereIsTheNearestSingle) {
    EXPECT_EQ(maxErrorByLibrary("0.00001"), 0.00001F);
    EXPECT_EQ(maxErrorByLibrary("0.1"), 0.1F);
    EXPECT_EQ(maxErrorByLibrary("99999.99"), 99999.99F);
    EXPECT_EQ(maxErrorByLibrary(""), 0.0F);
}

TEST(MaxError, IsShownWithoutDecimals) {
    EXPECT_EQ(maxErrorText(0.00001F), "0");
    EXPECT_EQ(maxErrorText(0), "0");
    EXPECT_EQ(maxErrorText(0.5F), "0") << "half goes to the even one";
    EXPECT_EQ(maxErrorText(1.5F), "2");
    EXPECT_EQ(maxErrorText(2.5F), "2");
    EXPECT_EQ(maxErrorText(0.75F), "1");
    EXPECT_EQ(maxErrorText(100000), "100000");
}

TEST(MaxError, IsToldInPlainNotation) {
    EXPECT_EQ(plainMaxError(0.00001F), "0.00001");
    EXPECT_EQ(plainMaxError(0.00000001F), "0.00000001");
    EXPECT_EQ(plainMaxError(0), "0");
    EXPECT_EQ(plainMaxError(100000), "100000");
}

}  // namespace
