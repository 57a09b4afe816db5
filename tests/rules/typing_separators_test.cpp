#include "opening/editing/typing_separators.h"

#include <gtest/gtest.h>

using namespace chengheng;

namespace {

/// The text with | where the cursor stands.
std::string typed(std::string marked) {
    TypedText text;
    text.cursor = marked.find('|');
    text.text = marked.erase(text.cursor, 1);
    const TypedText grouped = withSeparators(text);
    return std::string(grouped.text).insert(grouped.cursor, "|");
}

}  // namespace

TEST(TypingSeparators, AppearAsTheDigitsAreTyped) {
    EXPECT_EQ(typed("123|"), "123|");
    EXPECT_EQ(typed("1234|"), "1,234|");
    EXPECT_EQ(typed("1,2345|"), "12,345|");
    EXPECT_EQ(typed("1,234567|"), "1,234,567|");
    EXPECT_EQ(typed("-1234|"), "-1,234|");
    EXPECT_EQ(typed("-123|"), "-123|");
}

TEST(TypingSeparators, StandOnlyBeforeThePoint) {
    EXPECT_EQ(typed("1234.|"), "1,234.|");
    EXPECT_EQ(typed("1234.56789|"), "1,234.56789|");
    EXPECT_EQ(typed(".5678|"), ".5678|");
}

TEST(TypingSeparators, KeepTheCursorBehindItsDigit) {
    EXPECT_EQ(typed("12|34"), "1,2|34");
    EXPECT_EQ(typed("1|234"), "1|,234");
    EXPECT_EQ(typed("|1234"), "|1,234");
    EXPECT_EQ(typed("1,|34"), "1|34");
}

TEST(TypingSeparators, LeaveWhatIsNoPlainNumberAlone) {
    for (const char* text : {"=1200+3500|", "1200+|", "1.2.3456|", "(1,200)|", "|", "-|", "12a4|"})
        EXPECT_EQ(typed(text), text);
}
