#include "accounts/codes/code_levels.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>
#include <vector>

using chengheng::CodeLevels;
using chengheng::departsFromCategory;
using chengheng::indentedName;
using chengheng::isLevelPattern;

namespace {

constexpr int longestCode = 6 * 9;

/// Lengths of whole codes by level, straight from the words of the rule: 1 to 6 digits, each
/// adding 1 to 9 characters. Empty when the pattern is none.
std::vector<int> lengthsByTheRule(const std::string& pattern) {
    if (pattern.size() > 6) return {};
    std::vector<int> lengths;
    int sum = 0;
    for (const char digit : pattern) {
        if (std::string_view("123456789").find(digit) == std::string_view::npos) return {};
        sum += digit - '0';
        lengths.push_back(sum);
    }
    return lengths;
}

/// By length, the level whose codes have it; 0 where there is none.
using Grades = std::array<int, longestCode + 2>;

Grades gradesByTheRule(const std::vector<int>& lengths) {
    Grades grades{};
    for (std::size_t level = 0; level < lengths.size(); ++level)
        grades[lengths[level]] = static_cast<int>(level) + 1;
    return grades;
}

/// The digits 0 to 9 over and over.
std::string codeOfLength(int length) {
    std::string code;
    for (int at = 0; at < length; ++at) code += static_cast<char>('0' + at % 10);
    return code;
}

/// All patterns of 1 to 6 digits.
template <class Visit>
void forEachPattern(Visit visit) {
    int count = 1;
    for (int digits = 1; digits <= 6; ++digits) {
        count *= 10;
        std::string pattern(static_cast<std::size_t>(digits), '0');
        for (int number = 0; number < count; ++number) {
            visit(pattern);
            for (auto digit = pattern.rbegin(); digit != pattern.rend(); ++digit) {
                *digit = *digit == '9' ? '0' : static_cast<char>(*digit + 1);
                if (*digit != '0') break;
            }
        }
    }
}

}  // namespace

TEST(CodeLevels, FindsTheLevelOfACodeByItsLength) {
    const CodeLevels levels("4222");
    EXPECT_EQ(levels.gradeOf("1001"), 1);
    EXPECT_EQ(levels.gradeOf("100101"), 2);
    EXPECT_EQ(levels.gradeOf("10010101"), 3);
    EXPECT_EQ(levels.gradeOf("1001010101"), 4);
}

TEST(CodeLevels, FindsTheParentByCuttingTheLastLevelOff) {
    const CodeLevels levels("4222");
    EXPECT_EQ(levels.parentOf("100101"), "1001");
    EXPECT_EQ(levels.parentOf("10010101"), "100101");
    EXPECT_EQ(levels.parentOf("1001010101"), "10010101");
}

TEST(CodeLevels, GivesATopLevelCodeNoParent) { EXPECT_EQ(CodeLevels("4222").parentOf("1001"), ""); }

TEST(CodeLevels, RefusesALengthBetweenTwoLevels) {
    const CodeLevels levels("4222");
    EXPECT_FALSE(levels.isWellFormed("10010"));
    EXPECT_EQ(levels.gradeOf("10010"), 0);
    EXPECT_EQ(levels.parentOf("10010"), "");
}

TEST(CodeLevels, RefusesACodeShorterThanTheFirstOrLongerThanTheLastLevel) {
    const CodeLevels levels("4222");
    EXPECT_FALSE(levels.isWellFormed(""));
    EXPECT_FALSE(levels.isWellFormed("100"));
    EXPECT_FALSE(levels.isWellFormed("10010101010"));
    EXPECT_FALSE(levels.isWellFormed("100101010101"));
}

TEST(CodeLevels, KnowsTheLengthOfEveryLevelAndOfNoOther) {
    const CodeLevels levels("4222");
    EXPECT_EQ(levels.count(), 4);
    const auto lengths = levels.lengths();
    EXPECT_EQ(std::vector<int>(lengths.begin(), lengths.end()), (std::vector<int>{4, 6, 8, 10}));
    EXPECT_EQ(levels.lengthOf(1), 4);
    EXPECT_EQ(levels.lengthOf(2), 6);
    EXPECT_EQ(levels.lengthOf(3), 8);
    EXPECT_EQ(levels.lengthOf(4), 10);
    EXPECT_EQ(levels.lengthOf(0), 0);
    EXPECT_EQ(levels.lengthOf(-1), 0);
    EXPECT_EQ(levels.lengthOf(5), 0);
    EXPECT_EQ(levels.lengthOf(7), 0);
}

TEST(CodeLevels, AllowsOneLevelAndSix) {
    EXPECT_EQ(CodeLevels("4").gradeOf("1001"), 1);
    EXPECT_FALSE(CodeLevels("4").isWellFormed("100101"));
    EXPECT_EQ(CodeLevels("111111").gradeOf("123456"), 6);
    EXPECT_EQ(CodeLevels("999999").gradeOf(codeOfLength(54)), 6);
}

TEST(CodeLevels, FindsEveryCodeMalformedWhenThePatternIsNone) {
    for (const char* pattern :
         {"", "4222222", "42222222", "4 22", "42a2", "四222", "-222", "4.2"}) {
        EXPECT_FALSE(isLevelPattern(pattern)) << pattern;
        const CodeLevels levels(pattern);
        EXPECT_EQ(levels.count(), 0) << pattern;
        for (int length = 0; length <= longestCode + 10; ++length)
            EXPECT_FALSE(levels.isWellFormed(codeOfLength(length))) << pattern << ' ' << length;
    }
}

TEST(CodeLevels, TakesAPatternWithAZeroForNone) {
    for (const char* pattern : {"0", "4022", "0422", "4220", "000000"}) {
        EXPECT_FALSE(isLevelPattern(pattern)) << pattern;
        EXPECT_FALSE(CodeLevels(pattern).isWellFormed("1001")) << pattern;
    }
}

TEST(CodeLevels, AcceptsAnyCharactersInACode) {
    const CodeLevels levels("42");
    EXPECT_EQ(levels.gradeOf("A%_'"), 1);
    EXPECT_EQ(levels.parentOf("A%_'\\1"), "A%_'");
}

TEST(CodeLevels, CountsAChineseCharacterAsOne) {
    const CodeLevels levels("42");
    EXPECT_EQ(levels.gradeOf("应收账款"), 1);
    EXPECT_EQ(levels.parentOf("应收账款国内"), "应收账款");
    EXPECT_FALSE(levels.isWellFormed("应收"));
}

TEST(CodeLevels, AgreesWithTheRuleForEveryPatternAndEveryLength) {
    long patterns = 0;
    forEachPattern([&patterns](const std::string& pattern) {
        ++patterns;
        const CodeLevels levels(pattern);
        const std::vector<int> lengths = lengthsByTheRule(pattern);
        bool agrees = isLevelPattern(pattern) == !lengths.empty();
        const Grades grades = gradesByTheRule(lengths);
        for (int length = 0; length <= longestCode + 1; ++length)
            agrees &= levels.gradeOfLength(length) == grades[length];
        if (!agrees) ADD_FAILURE() << pattern;
    });
    EXPECT_EQ(patterns, 1'111'110);
}

TEST(CodeLevels, AgreesWithTheRuleOnTheParentForEveryPattern) {
    const std::string longest = codeOfLength(longestCode);
    forEachPattern([&longest](const std::string& pattern) {
        const CodeLevels levels(pattern);
        const std::vector<int> lengths = lengthsByTheRule(pattern);
        bool agrees = true;
        for (std::size_t level = 0; level < lengths.size(); ++level) {
            const std::string_view code = std::string_view(longest).substr(0, lengths[level]);
            const int above = level == 0 ? 0 : lengths[level - 1];
            agrees &= levels.parentOf(code) == code.substr(0, above);
        }
        if (!agrees) ADD_FAILURE() << pattern;
    });
}

TEST(CodeLevels, TakesNoPatternOfSevenDigits) {
    for (int number = 0; number < 10'000'000; number += 9'973) {
        std::string pattern = std::to_string(number);
        pattern.insert(0, 7 - pattern.size(), '1');
        ASSERT_EQ(CodeLevels(pattern).count(), 0) << pattern;
    }
}

TEST(CategoryDigit, AgreesWhenTheFirstCharacterIsTheNumberOfTheCategory) {
    const CodeLevels levels("4222");
    for (int number = 1; number <= 9; ++number)
        EXPECT_FALSE(departsFromCategory(levels, std::to_string(number) + "001", number)) << number;
}

TEST(CategoryDigit, DepartsWhenATopLevelCodeBeginsWithAnotherDigit) {
    const CodeLevels levels("4222");
    EXPECT_TRUE(departsFromCategory(levels, "2001", 1));
    EXPECT_TRUE(departsFromCategory(levels, "0001", 1));
}

TEST(CategoryDigit, NeverDepartsBelowTheTopLevel) {
    const CodeLevels levels("4222");
    EXPECT_FALSE(departsFromCategory(levels, "200101", 1));
    EXPECT_FALSE(departsFromCategory(levels, "20010101", 1));
}

TEST(CategoryDigit, IsNoQuestionForAMalformedCode) {
    EXPECT_FALSE(departsFromCategory(CodeLevels("4222"), "20", 1));
    EXPECT_FALSE(departsFromCategory(CodeLevels("4222"), "", 1));
    EXPECT_FALSE(departsFromCategory(CodeLevels(""), "2001", 1));
}

TEST(CategoryDigit, DepartsWhenTheFirstCharacterIsNoDigit) {
    const CodeLevels levels("4222");
    EXPECT_TRUE(departsFromCategory(levels, "A001", 1));
    EXPECT_TRUE(departsFromCategory(levels, "应收账款", 1));
    EXPECT_TRUE(departsFromCategory(levels, ":001", 10)) << "the character after 9";
}

TEST(CategoryDigit, DepartsFromATenthCategory) {
    EXPECT_TRUE(departsFromCategory(CodeLevels("4222"), "1001", 10));
}

TEST(IndentedName, AddsTwoBlanksForEachLevelBelowTheFirst) {
    EXPECT_EQ(indentedName("库存现金", 1), "库存现金");
    EXPECT_EQ(indentedName("库存现金", 2), "  库存现金");
    EXPECT_EQ(indentedName("库存现金", 3), "    库存现金");
    EXPECT_EQ(indentedName("库存现金", 4), "      库存现金");
    EXPECT_EQ(indentedName("库存现金", 5), "        库存现金");
    EXPECT_EQ(indentedName("库存现金", 6), "          库存现金");
}

TEST(IndentedName, LeavesAnyOtherLevelUnindented) {
    for (const int grade : {-1, 0, 7, 8, 255})
        EXPECT_EQ(indentedName("库存现金", grade), "库存现金") << grade;
}
