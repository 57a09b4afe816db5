#include "accounts/rules/code_structure_check.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "accounts/chart/account_texts.h"
#include "base/values/text.h"

using namespace chengheng;

namespace {

using Chart = std::set<std::string, std::less<>>;

CodeFacts factsOf(const std::string& code, const Chart& chart, const char* pattern = "4222") {
    const CodeLevels levels(pattern);
    return {code, levels, [=] { return chart.contains(code); },
            chart.contains(levels.parentOf(code))};
}

std::optional<Refusal> codeRefusal(const CodeFacts& facts) {
    return firstRefusal(codeChecks(), facts);
}

std::string refusalText(const CodeFacts& facts) {
    return codeRefusal(facts).value_or(Refusal{}).notice.text;
}

std::optional<Refusal> placeRefusal(const CodeFacts& facts) {
    return firstRefusal(codePlaceChecks(), facts);
}

using Names = std::vector<std::string>;

Names namesOf(std::span<const Check<CodeFacts>> checks) {
    Names names;
    for (const Check<CodeFacts>& check : checks) names.emplace_back(check.name);
    return names;
}

}  // namespace

TEST(CodeChecks, StandInTheirOrder) {
    EXPECT_EQ(namesOf(codeChecks()), (Names{"code is there", "code has no blank", "code is unique",
                                            "code fits a level", "parent is there"}));
    EXPECT_EQ(namesOf(codeTextChecks()), (Names{"code is there", "code has no blank"}));
    EXPECT_EQ(namesOf(codePlaceChecks()), (Names{"code fits a level", "parent is there"}));
}

TEST(CodeChecks, TellTheFirstOfManyFaultsAndThenTheNext) {
    const Chart chart{"", "1 1", "10010"};
    EXPECT_EQ(refusalText(factsOf("", chart)), "必须输入科目编码");
    EXPECT_EQ(refusalText(factsOf("1 1", chart)), "科目编码不能包含空格!");
    EXPECT_EQ(refusalText(factsOf("10010", chart)), "科目编码不唯一");
    EXPECT_EQ(refusalText(factsOf("10020", chart)), "不符合科目编码规则");
    EXPECT_EQ(refusalText(factsOf("100201", chart)), "必须先定义上级科目编码");
}

TEST(CodeChecks, LetAFreeTopLevelCodePass) {
    EXPECT_EQ(codeRefusal(factsOf("1001", {})), std::nullopt);
}

TEST(CodeChecks, LetAChildOfAnAccountPass) {
    EXPECT_EQ(codeRefusal(factsOf("100101", {"1001"})), std::nullopt);
    EXPECT_EQ(codeRefusal(factsOf("10010101", {"1001", "100101"})), std::nullopt);
}

TEST(CodeChecks, LetACodePassWhoseOnlyBlanksWereAtItsEnd) {
    const std::string code(withoutTrailingBlanks("1001   "));
    EXPECT_EQ(codeRefusal(factsOf(code, {})), std::nullopt);
}

TEST(CodeChecks, FindNothingLeftOfBlanksAlone) {
    const std::string code(withoutTrailingBlanks("   "));
    EXPECT_EQ(refusalText(factsOf(code, {})), "必须输入科目编码");
}

TEST(CodeChecks, RefuseAnEmptyCode) { EXPECT_EQ(refusalText(factsOf("", {})), "必须输入科目编码"); }

TEST(CodeChecks, RefuseASpaceInside) {
    EXPECT_EQ(refusalText(factsOf("10 01", {})), "科目编码不能包含空格!");
}

TEST(CodeChecks, RefuseASpaceInFront) {
    EXPECT_EQ(refusalText(factsOf(" 1001", {})), "科目编码不能包含空格!");
}

TEST(CodeChecks, RefuseTheWideSpaceOfChineseTyping) {
    EXPECT_EQ(refusalText(factsOf("10　1", {})), "科目编码不能包含空格!");
}

TEST(CodeChecks, NameTheSpaceBeforeTheLength) {
    EXPECT_EQ(refusalText(factsOf("1 0", {})), "科目编码不能包含空格!");
}

TEST(CodeChecks, RefuseACodeThatAnotherAccountHas) {
    EXPECT_EQ(refusalText(factsOf("1001", {"1001"})), "科目编码不唯一");
}

TEST(CodeChecks, RefuseALengthOfNoLevel) {
    EXPECT_EQ(refusalText(factsOf("10010", {"1001"})), "不符合科目编码规则");
}

TEST(CodeChecks, RefuseACodeWhoseParentIsNotInTheChart) {
    EXPECT_EQ(refusalText(factsOf("100101", {"1002"})), "必须先定义上级科目编码");
}

TEST(CodeChecks, WantTheAccountDirectlyAboveNotOneFurtherUp) {
    EXPECT_EQ(refusalText(factsOf("10010101", {"1001"})), "必须先定义上级科目编码");
}

TEST(CodeChecks, RefuseEveryCodeWhenThePatternIsEmptyOrTooLong) {
    for (const char* pattern : {"", "1111111", "42222222"})
        for (const char* code : {"1", "1001", "100101", "1001010"})
            EXPECT_EQ(refusalText(factsOf(code, {}, pattern)), "不符合科目编码规则") << pattern;
}

TEST(CodeChecks, BeepShowInformationAndReturnToTheCode) {
    for (const char* code : {"", "1 1", "1001", "10010", "100201"}) {
        const auto refusal = codeRefusal(factsOf(code, {"1001"}));
        ASSERT_TRUE(refusal) << code;
        EXPECT_TRUE(refusal->notice.beep) << code;
        EXPECT_EQ(refusal->notice.icon, MessageIcon::information) << code;
        EXPECT_EQ(refusal->notice.caption, "澄恒财务软件") << code;
        EXPECT_EQ(refusal->notice.focusField, "sCode") << code;
    }
}

TEST(CodeChecks, AskTheChartForNothingWhenTheTextIsRefused) {
    int questions = 0;
    CodeFacts facts = factsOf("10 01", {});
    facts.isTaken = [&questions] { return ++questions > 0; };
    EXPECT_TRUE(codeRefusal(facts));
    EXPECT_EQ(questions, 0);
}

TEST(CodePlace, IsCheckedWithoutTheTextAndWithoutUniqueness) {
    EXPECT_EQ(placeRefusal(factsOf("1001", {"1001"})), std::nullopt);
    EXPECT_EQ(placeRefusal(factsOf("10010", {}))->notice.text, "不符合科目编码规则");
    EXPECT_EQ(placeRefusal(factsOf("100101", {}))->notice.text, "必须先定义上级科目编码");
}

TEST(CodePlace, NeedsNoParentForATopLevelCode) {
    const CodeFacts facts = factsOf("1001", {});
    EXPECT_FALSE(facts.hasParent);
    EXPECT_EQ(placeRefusal(facts), std::nullopt);
}

TEST(AccountTexts, AskAboutTheCategoryDigitInTheseWords) {
    EXPECT_STREQ(account_texts::codeDepartsFromCategory,
                 "科目编码首位和分类编号不符,接受此编码吗?");
}
