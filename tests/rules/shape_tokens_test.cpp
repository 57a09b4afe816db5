#include "data/sql/shape_tokens.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "data/sql/shape_hash.h"

namespace chengheng {
namespace {

using testing::ElementsAre;

/// Each token behind the first letter of its kind.
std::vector<std::string> tokensOf(std::string_view shape) {
    std::vector<std::string> tokens;
    for (const Token& token : shapeTokens(shape))
        tokens.push_back(std::string(1, "wqmtns"[static_cast<std::size_t>(token.kind)]) + ' ' +
                         std::string(token.text));
    return tokens;
}

TEST(ShapeTokens, AreWordsNamesMarksTextsNumbersAndSymbols) {
    EXPECT_THAT(tokensOf("a1 \"b c\"=#,~,?||'d''e'<>12"),
                ElementsAre("w a1", "q \"b c\"", "s =", "m #", "s ,", "m ~", "s ,", "m ?", "s ||",
                            "t 'd''e'", "s <>", "n 12"));
}

TEST(ShapeTokens, TakeNumbersWithPointAndExponentWhole) {
    EXPECT_THAT(tokensOf("1.5,.5,2.,1e-5,1E+5,2e5-e-1"),
                ElementsAre("n 1.5", "s ,", "n .5", "s ,", "n 2.", "s ,", "n 1e-5", "s ,", "n 1E+5",
                            "s ,", "n 2e5", "s -", "w e", "s -", "n 1"));
    EXPECT_THAT(tokensOf("e+1"), ElementsAre("w e", "s +", "n 1"));
}

TEST(ShapeTokens, TakeAPointBehindANameForASeparator) {
    EXPECT_THAT(tokensOf("a.b"), ElementsAre("w a", "s .", "w b"));
    EXPECT_THAT(tokensOf("a.5"), ElementsAre("w a", "s .", "n 5"));
    EXPECT_THAT(tokensOf("\"a\".5"), ElementsAre("q \"a\"", "s .", "n 5"));
    EXPECT_THAT(tokensOf(").b"), ElementsAre("s )", "s .", "w b"));
}

TEST(ShapeTokens, EndWithTheShapeThoughItsTextGoesOn) {
    const std::string_view text = "a+.5+12";
    EXPECT_THAT(tokensOf(text.substr(0, 3)), ElementsAre("w a", "s +", "s ."));
    EXPECT_THAT(tokensOf(text.substr(0, 6)), ElementsAre("w a", "s +", "n .5", "s +", "n 1"));
}

TEST(ShapeHash, IsAnotherWhicheverLetterDiffers) {
    const std::string shape = "select scode,lid from code where lid=#";
    for (std::size_t length = 1; length <= shape.size(); ++length)
        for (std::size_t at = 0; at < length; ++at) {
            std::string other = shape.substr(0, length);
            other[at] = '*';
            EXPECT_NE(shapeHash(other), shapeHash(shape.substr(0, length))) << other;
        }
}

}  // namespace
}  // namespace chengheng
