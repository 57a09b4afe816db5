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

/// The text after it was changed from what stood there.
std::string changed(const std::string& before, std::string marked) {
    TypedText text;
    text.cursor = marked.find('|');
    text.text = marked.erase(text.cursor, 1);
    const TypedText grouped = withSeparators(text, before);
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

TEST(TypingSeparators, DoNotGroupDigitsThatBeginWithZero) {
    EXPECT_EQ(typed("0100|"), "0100|");
    EXPECT_EQ(typed("|,000"), "|000");
    EXPECT_EQ(typed("-0123456|"), "-0123456|");
}

TEST(TypingSeparators, LeaveACommaThatIsTypedWhereNoneGoes) {
    EXPECT_EQ(changed("1", "1,|"), "1,|");
    EXPECT_EQ(changed("1,", "1,5|"), "1,5|");
    EXPECT_EQ(changed("1,5", "1,|"), "1,|");
    EXPECT_EQ(changed("1,", "1|"), "1|");
    EXPECT_EQ(changed("", "12,34|"), "12,34|");
    EXPECT_EQ(changed("12,345", "12,345,|"), "12,345,|");
    EXPECT_EQ(changed("-0", "-0,|"), "-0,|");
}

TEST(TypingSeparators, TakeACommaThatIsTypedWhereOneGoes) {
    EXPECT_EQ(changed("1,23", "1,234|"), "1,234|");
    EXPECT_EQ(changed("1,234", "1,2345|"), "12,345|");
    EXPECT_EQ(changed("", "1,234,567|"), "1,234,567|");
}

TEST(TypingSeparators, FollowWhatIsTakenAway) {
    EXPECT_EQ(changed("1,234", "1,23|"), "123|");
    EXPECT_EQ(changed("1,234,567", "1,2|,567"), "12|,567");
    EXPECT_EQ(changed("1,234", "|,234"), "|234");
}
