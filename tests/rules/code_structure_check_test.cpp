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
    const auto isThere = [chart](std::string_view asked) { return chart.contains(asked); };
    return {code, CodeLevels(pattern), isThere, isThere};
}

std::string refusalText(const CodeFacts& facts) {
    const auto refusal = codeRefusal(facts);
    return refusal ? refusal->text : "";
}

}  // namespace

TEST(CodeChecks, StandInTheirOrder) {
    std::vector<std::string> messages;
    for (const CodeCheck& check : codeChecks) messages.push_back(check.message);
    EXPECT_EQ(messages, (std::vector<std::string>{"必须输入科目编码", "科目编码不能包含空格!",
                                                  "科目编码不唯一", "不符合科目编码规则",
                                                  "必须先定义上级科目编码"}));
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
        EXPECT_TRUE(refusal->beep) << code;
        EXPECT_EQ(refusal->icon, MessageIcon::information) << code;
        EXPECT_EQ(refusal->caption, "澄恒财务软件") << code;
        EXPECT_EQ(refusal->focusField, codeField) << code;
    }
}

TEST(CodeChecks, AskTheChartForNothingWhenTheTextIsRefused) {
    int questions = 0;
    CodeFacts facts = factsOf("10 01", {});
    facts.isTaken = facts.hasAccount = [&questions](std::string_view) { return ++questions > 0; };
    EXPECT_TRUE(codeRefusal(facts));
    EXPECT_EQ(questions, 0);
}

TEST(CodePlace, IsCheckedWithoutTheTextAndWithoutUniqueness) {
    EXPECT_EQ(codePlaceRefusal(factsOf("1001", {"1001"})), std::nullopt);
    EXPECT_EQ(codePlaceRefusal(factsOf("10010", {}))->text, "不符合科目编码规则");
    EXPECT_EQ(codePlaceRefusal(factsOf("100101", {}))->text, "必须先定义上级科目编码");
}

TEST(CodePlace, NeedsNoLookupForATopLevelCode) {
    CodeFacts facts = factsOf("1001", {});
    facts.hasAccount = nullptr;
    EXPECT_EQ(codePlaceRefusal(facts), std::nullopt);
}

TEST(AccountTexts, AskAboutTheCategoryDigitInTheseWords) {
    EXPECT_STREQ(account_texts::codeDepartsFromCategory,
                 "科目编码首位和分类编号不符,接受此编码吗?");
}
