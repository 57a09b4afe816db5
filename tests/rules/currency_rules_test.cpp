#include "currency/currency_rules.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace chengheng;

using testing::ElementsAre;

const CurrencyInput dollar{"USD", "美元", RateMode::multiplied, "5", "0.00001"};

/// "field|text" of what refuses an input; empty when nothing does.
std::string refusalOf(const CurrencyInput& input) {
    const auto refusal = firstRefusal(currencyInputChecks(), input);
    if (!refusal) return "";
    EXPECT_EQ(refusal->notice.icon, MessageIcon::information);
    EXPECT_FALSE(refusal->notice.beep);
    return refusal->notice.focusField + "|" + refusal->notice.text;
}

std::string refusalOfMaxError(const char* text) {
    CurrencyInput input = dollar;
    input.maxError = text;
    return refusalOf(input);
}

std::string refusalOfDecimals(const char* text) {
    CurrencyInput input = dollar;
    input.decimals = text;
    return refusalOf(input);
}

TEST(CurrencyRules, CheckSymbolNameDecimalsAndMaximumErrorInThisOrder) {
    std::vector<std::string> names;
    for (const auto& check : currencyInputChecks()) names.emplace_back(check.name);
    EXPECT_THAT(names, ElementsAre("it has a symbol", "it has a name", "its decimals are 2 to 9",
                                   "its maximum error is a number, and zero only as 0",
                                   "its maximum error is not too small",
                                   "its maximum error is not too large"));
    CurrencyInput input{"", "", RateMode::divided, "x", "abc"};
    EXPECT_EQ(refusalOf(input), "sExchCode|外币符号不能为空!");
    input.symbol = "USD";
    EXPECT_EQ(refusalOf(input), "sExchName|外币名称不能为空!");
    input.name = "美元";
    EXPECT_EQ(refusalOf(input), "byDecimal|汇率小数位只能是2-9之间的整数!");
    input.decimals = "2";
    EXPECT_EQ(refusalOf(input), "fMaxError|最大误差应该输入正数或零,请重新输入。");
    input.maxError = "-1";
    EXPECT_EQ(refusalOf(input), "fMaxError|最大误差应该不小于0.0000001,请重新输入。");
    input.maxError = "100001";
    EXPECT_EQ(refusalOf(input), "fMaxError|最大误差应该不大于100000,请重新输入。");
    input.maxError = "";
    EXPECT_EQ(refusalOf(input), "");
}

TEST(CurrencyRules, TakeDecimalsFromTwoToNine) {
    for (const char* text : {"2", "5", "9", "05"}) EXPECT_EQ(refusalOfDecimals(text), "") << text;
    for (const char* text : {"", "1", "10", "0", "-2", "+2", "2.0", "a", "2a", "２", "99999999999"})
        EXPECT_EQ(refusalOfDecimals(text), "byDecimal|汇率小数位只能是2-9之间的整数!") << text;
}

TEST(CurrencyRules, TakeZeroAsMaximumErrorOnlyWrittenAsOneDigitOrNotAtAll) {
    EXPECT_EQ(refusalOfMaxError("0"), "");
    EXPECT_EQ(refusalOfMaxError(""), "");
    for (const char* text : {"0.0", "00", "-0", "0.", ".0", "abc", "1x", "1e-5", ".", "-"})
        EXPECT_EQ(refusalOfMaxError(text), "fMaxError|最大误差应该输入正数或零,请重新输入。")
            << text;
}

TEST(CurrencyRules, KeepTheMaximumErrorWithinItsLimits) {
    for (const char* text : {"0.00000001", "0.00000005", "0.5", "1", "100000", "100000.0"})
        EXPECT_EQ(refusalOfMaxError(text), "") << text;
    for (const char* text : {"-1", "-0.5", "-100001", "0.000000009", "0.00000000999999"})
        EXPECT_EQ(refusalOfMaxError(text), "fMaxError|最大误差应该不小于0.0000001,请重新输入。")
            << text;
    for (const char* text : {"100000.1", "100000.0000001", "999999"})
        EXPECT_EQ(refusalOfMaxError(text), "fMaxError|最大误差应该不大于100000,请重新输入。")
            << text;
}

TEST(CurrencyRules, MakeCapitalsOneForOne) {
    EXPECT_EQ(inCapitals("usd"), "USD");
    EXPECT_EQ(inCapitals("Euro 欧元 1ab"), "EURO 欧元 1AB");
    EXPECT_EQ(inCapitals("straße"), "STRAßE");
    EXPECT_EQ(inCapitals("éñя"), "ÉÑЯ");
    EXPECT_EQ(inCapitals("𐐨𠮷"), "𐐀𠮷");
    EXPECT_EQ(inCapitals(""), "");
}

TEST(CurrencyRules, SaveTextsInCapitalsAndWithoutBlanksAround) {
    EXPECT_EQ(capitalised({" usd ", "\u3000us dollar ", RateMode::divided, " 4 ", " 0.5 "}),
              (CurrencyInput{"USD", "US DOLLAR", RateMode::divided, "4", "0.5"}));
    EXPECT_EQ(capitalised({"  ", "\t", RateMode::multiplied, "5", "  "}),
              (CurrencyInput{"", "", RateMode::multiplied, "5", ""}));
}

TEST(CurrencyRules, BeginANewCurrencyWithFiveDecimalsAndASmallMaximumError) {
    EXPECT_EQ(CurrencyInput{}, (CurrencyInput{"", "", RateMode::multiplied, "5", "0.00001"}));
}

TEST(CurrencyRules, ShowAStoredCurrencyWithItsMaximumErrorInWholeNumbers) {
    EXPECT_EQ(currencyInput({3, 3, "JPY", "日元", 0, 4, 0.00001F}),
              (CurrencyInput{"JPY", "日元", RateMode::divided, "4", "0"}));
    EXPECT_EQ(currencyInput({3, 3, "USD", "美元", 1, 9, 12}),
              (CurrencyInput{"USD", "美元", RateMode::multiplied, "9", "12"}));
}

TEST(CurrencyRules, MakeARecordOfAnInput) {
    EXPECT_EQ(currencyRecord(dollar, {}), (_CyrencyInfo{0, 0, "USD", "美元", 1, 5, 0.00001F}));
    const _CyrencyInfo base{7, 6, "OLD", "旧", 1, 9, 1};
    EXPECT_EQ(currencyRecord({"JPY", "日元", RateMode::divided, "2", "0"}, base),
              (_CyrencyInfo{7, 6, "JPY", "日元", 0, 2, 0}));
}

TEST(CurrencyRules, LookForTheSymbolBeforeTheName) {
    std::vector<std::string> names;
    for (const auto& check : currencyClashChecks()) names.emplace_back(check.name);
    EXPECT_THAT(names,
                ElementsAre("no other currency has its symbol", "no other currency has its name"));
}

TEST(CurrencyRules, PutAMarkBehindOneOfTheFourWordsForAClashOnly) {
    struct Case {
        bool isAddition, hasSymbol, hasName;
        const char* refusal;
    };
    const Case cases[] = {{true, true, true, "sExchCode|币符不唯一!"},
                          {true, false, true, "sExchName|币名不唯一"},
                          {false, true, true, "sExchCode|币符不唯一"},
                          {false, false, true, "sExchName|币名不唯一"}};
    for (const Case& each : cases) {
        const auto refusal =
            firstRefusal(currencyClashChecks(), {.isAddition = each.isAddition,
                                                 .hasSymbol = [&] { return each.hasSymbol; },
                                                 .hasName = [&] { return each.hasName; }});
        ASSERT_TRUE(refusal.has_value());
        EXPECT_EQ(refusal->notice.focusField + "|" + refusal->notice.text, each.refusal);
        EXPECT_TRUE(refusal->notice.beep);
        EXPECT_EQ(refusal->notice.icon, MessageIcon::information);
    }
    EXPECT_FALSE(firstRefusal(
        currencyClashChecks(),
        {.isAddition = true, .hasSymbol = [] { return false; }, .hasName = [] { return false; }}));
}

TEST(CurrencyRules, TellACurrencyInWords) {
    EXPECT_EQ(currencyInWords({3, 3, "JPY", "日元", 0, 4, 0.00001F}),
              "JPY 日元,原币/汇率 = 本位币,小数位 4,最大误差 0.00001");
}

}  // namespace
