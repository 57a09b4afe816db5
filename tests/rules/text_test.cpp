#include "base/values/text.h"

#include <gtest/gtest.h>

using namespace chengheng;

TEST(Text, CountsCharactersNotBytes) {
    EXPECT_EQ(characterCount(""), 0u);
    EXPECT_EQ(characterCount("1001"), 4u);
    EXPECT_EQ(characterCount("库存现金"), 4u);
    EXPECT_EQ(characterCount("𠮷a"), 2u);
}

TEST(Text, CutsBetweenCharacters) {
    EXPECT_EQ(firstCharacters("库存现金", 2), "库存");
    EXPECT_EQ(firstCharacters("100101", 4), "1001");
    EXPECT_EQ(firstCharacters("100101", 0), "");
    EXPECT_EQ(firstCharacters("1001", 4), "1001");
    EXPECT_EQ(firstCharacters("1001", 9), "1001");
    EXPECT_EQ(firstCharacters("", 3), "");
}

TEST(Text, FindsBlanksOfAllThreeKinds) {
    EXPECT_TRUE(hasBlank("10 01"));
    EXPECT_TRUE(hasBlank("10\t01"));
    EXPECT_TRUE(hasBlank("10　01"));
    EXPECT_FALSE(hasBlank("1001"));
    EXPECT_FALSE(hasBlank("库存现金"));
    EXPECT_FALSE(hasBlank(""));
}

TEST(Text, TakesBlanksOffTheEndOnly) {
    EXPECT_EQ(withoutTrailingBlanks("1001  "), "1001");
    EXPECT_EQ(withoutTrailingBlanks("1001 　\t "), "1001");
    EXPECT_EQ(withoutTrailingBlanks(" 10 01"), " 10 01");
    EXPECT_EQ(withoutTrailingBlanks("   "), "");
    EXPECT_EQ(withoutTrailingBlanks(""), "");
}

TEST(Text, TakesBlanksOffBothEnds) {
    EXPECT_EQ(withoutBlanksAround(" \t　2026-01-05 　"), "2026-01-05");
    EXPECT_EQ(withoutBlanksAround("a b"), "a b");
    EXPECT_EQ(withoutBlanksAround("   "), "");
}

TEST(Text, ComparesLettersInAnyCaseAndNothingElse) {
    EXPECT_TRUE(isSameInAnyCase("RegSub", "REGSUB"));
    EXPECT_FALSE(isSameInAnyCase("RegSub", "RegSu"));
    EXPECT_FALSE(isSameInAnyCase("[", "{"));
    EXPECT_TRUE(isSameInAnyCase("支票A", "支票a"));
}

TEST(Text, FindsATextInsideAnotherInAnyCase) {
    EXPECT_TRUE(containsInAnyCase("9 Visa卡", "vISA"));
    EXPECT_TRUE(containsInAnyCase("2 转帐支票", "支票"));
    EXPECT_TRUE(containsInAnyCase("2 转帐支票", ""));
    EXPECT_FALSE(containsInAnyCase("2 转帐支票", "现金"));
    EXPECT_FALSE(containsInAnyCase("", "现金"));
}

TEST(Text, ControlCharactersArePrintedAsTheirPictures) {
    EXPECT_EQ(printableText("名\t称\r\n\x1B[2J\r\x7F\xC2\x80\xC2\xA0"),
              "名\t称\n␛[2J␍␡\uFFFD\xC2\xA0");
    EXPECT_EQ(printableText("a\r\nb\r\n"), "a\nb\n");
    EXPECT_EQ(printableText("\xC2"), "\xC2");
    EXPECT_EQ(printableLine("a\tb\r\nc"), "a␉b␍␊c");
    EXPECT_EQ(printableLine(std::string(1, '\0')), "␀");
}
