#include "opening/balance/trial_balance.h"

#include <gtest/gtest.h>

#include "data/tables/accounts.h"
#include "tests/support/opening_accounts.h"

using namespace chengheng;

namespace {

using Classes = std::vector<_zCodeClassInfo>;

/// The standard classes, then further ones; two of the first five are debit-natured.
Classes firstClasses(std::size_t count) {
    const std::pair<const char*, int> standard[] = {
        {"资产", 1}, {"负债", 0}, {"权益", 0}, {"成本", 1}, {"共同", 0}, {"损益", 0}, {"表外", 1}};
    Classes classes;
    for (std::size_t at = 0; at < count; ++at) {
        const auto [name, direction] = standard[at];
        classes.push_back({static_cast<std::int32_t>(at) + 1, static_cast<std::int32_t>(at) + 1,
                           name, static_cast<std::int16_t>(direction)});
    }
    return classes;
}

TrialBalance balanceOf(const std::vector<AccountDraft>& drafts, const Classes& classes) {
    return {classes, accountsOf(drafts)};
}

/// Books with one debit and one credit class and these totals.
TrialBalance withTotals(double debits, double credits) {
    return balanceOf({{"1001", debits}, creditOf("2001", credits)}, firstClasses(2));
}

}  // namespace

TEST(TrialBalances, CountWithoutClassesAsBalanced) {
    const TrialBalance balance = balanceOf({{"1001", 100}}, {});
    const TrialBalanceTexts texts = balance.texts();
    EXPECT_TRUE(balance.isBalanced());
    EXPECT_EQ(texts.debitClasses, "");
    EXPECT_EQ(texts.creditClasses, "");
    EXPECT_EQ(texts.debitTotal, "合计 = 平\t0.00");
    EXPECT_EQ(texts.creditTotal, "合计 = 平\t0.00");
    EXPECT_EQ(texts.result, "试算结果平衡");
}

TEST(TrialBalances, CountAccountsOfClassesThatTakeTurns) {
    const TrialBalance balance = balanceOf({{"1001", 5},
                                            creditOf("1002", 3),
                                            {"1003", 7},
                                            {"1004", 100, true, "无此类"},
                                            {"1005", 11},
                                            creditOf("1006", 13)},
                                           firstClasses(2));
    EXPECT_EQ(balance.debitTotal(), 23);
    EXPECT_EQ(balance.creditTotal(), 16);
}

TEST(TrialBalances, ShowEachClassInOrderOnItsSide) {
    const TrialBalanceTexts texts = balanceOf({{"1001", 1500.5},
                                               creditOf("2001", 1000),
                                               creditOf("3001", 700.25, "权益"),
                                               {"4001", 199.75, true, "成本"}},
                                              firstClasses(5))
                                        .texts();
    EXPECT_EQ(texts.debitClasses, "资产 = 借\t1500.50\r\n\r\n成本 = 借\t199.75\r\n\r\n");
    EXPECT_EQ(texts.creditClasses,
              "负债 = 贷\t1000.00\r\n\r\n权益 = 贷\t700.25\r\n\r\n共同 = 平\t0.00\r\n\r\n");
    EXPECT_EQ(texts.debitTotal, "合计 = 借\t1700.25");
    EXPECT_EQ(texts.creditTotal, "合计 = 贷\t1700.25");
    EXPECT_EQ(texts.result, "试算结果平衡");
}

TEST(TrialBalances, ShowClassesOfTheOtherSideByTheirSize) {
    const TrialBalanceTexts texts =
        balanceOf({{"1001", -12.5}, creditOf("2001", -3)}, firstClasses(2)).texts();
    EXPECT_EQ(texts.debitClasses, "资产 = 贷\t12.50\r\n\r\n");
    EXPECT_EQ(texts.creditClasses, "负债 = 借\t3.00\r\n\r\n");
}

TEST(TrialBalances, ShowTheSideOfASumOfLessThanOne) {
    const TrialBalanceTexts texts = withTotals(0.01, -0.01).texts();
    EXPECT_EQ(texts.debitClasses, "资产 = 借\t0.01\r\n\r\n");
    EXPECT_EQ(texts.creditClasses, "负债 = 借\t0.01\r\n\r\n");
}

TEST(TrialBalances, TakeAClassOfAnyOtherDirectionThanOneAsACreditClass) {
    for (const std::int16_t direction : {0, 2, -1}) {
        Classes classes = firstClasses(2);
        classes[1].bDirect = direction;
        const TrialBalance balance = balanceOf({creditOf("2001", 30)}, classes);
        EXPECT_EQ(balance.creditTotal(), 30) << direction;
        EXPECT_EQ(balance.debitTotal(), 0) << direction;
    }
}

TEST(TrialBalances, KeepAllClassesUpToFive) {
    for (const std::size_t count : {1u, 2u, 5u})
        EXPECT_EQ(balanceOf({}, firstClasses(count)).classes().size(), count);
}

TEST(TrialBalances, DropTheLastOfSixClasses) {
    const TrialBalance balance = balanceOf({{"6001", 50, false, "损益"}}, firstClasses(6));
    ASSERT_EQ(balance.classes().size(), 5u);
    EXPECT_EQ(balance.classes().back().name, "共同");
    EXPECT_TRUE(balance.isBalanced());
}

TEST(TrialBalances, DropOnlyOneOfSevenClasses) {
    const TrialBalance balance =
        balanceOf({{"6001", 50, false, "损益"}, {"7001", 99, true, "表外"}}, firstClasses(7));
    ASSERT_EQ(balance.classes().size(), 6u);
    EXPECT_EQ(balance.creditTotal(), 50);
    EXPECT_EQ(balance.debitTotal(), 0);
}

TEST(TrialBalances, TakeAContraAccountOff) {
    const TrialBalance balance =
        balanceOf({{"1001", 500}, creditOf("1602", 100, "资产")}, firstClasses(2));
    EXPECT_EQ(balance.classes()[0].sum.value(), 400);
}

TEST(TrialBalances, TakeADebitAccountOffACreditClass) {
    const TrialBalance balance =
        balanceOf({creditOf("3001", 500, "权益"), {"3201", 80, true, "权益"}}, firstClasses(3));
    EXPECT_EQ(balance.creditTotal(), 420);
}

TEST(TrialBalances, NeverCountAnAccountThatHasOthersBelow) {
    const TrialBalance balance = balanceOf({{"1002", 30}, {"100201", 30}}, firstClasses(1));
    EXPECT_EQ(balance.debitTotal(), 30);
}

TEST(TrialBalances, IgnoreAccountsOfNoKnownClass) {
    EXPECT_EQ(balanceOf({{"1001", 30, true, "资"}}, firstClasses(2)).difference(), 0);
}

TEST(TrialBalances, CountClassesOfOneNameTwice) {
    Classes classes = firstClasses(1);
    classes.push_back(classes.front());
    EXPECT_EQ(balanceOf({{"1001", 30}}, classes).debitTotal(), 60);
}

TEST(TrialBalances, NameTheCreditTotalByTheSignOfTheDebitTotal) {
    struct Case {
        double debits;
        double credits;
        const char* debitLine;
        const char* creditLine;
    };
    const Case cases[] = {
        {50, 50, "合计 = 借\t50.00", "合计 = 贷\t50.00"},
        {50, 0, "合计 = 借\t50.00", "合计 = 贷\t0.00"},
        {50, -7, "合计 = 借\t50.00", "合计 = 贷\t-7.00"},
        {0, 50, "合计 = 平\t0.00", "合计 = 平\t50.00"},
        {0, 0, "合计 = 平\t0.00", "合计 = 平\t0.00"},
        {0, -50, "合计 = 平\t0.00", "合计 = 平\t-50.00"},
        {-50, 50, "合计 = 贷\t50.00", "合计 = 借\t50.00"},
        {-50, 0, "合计 = 贷\t50.00", "合计 = 借\t0.00"},
        {-50, -50, "合计 = 贷\t50.00", "合计 = 借\t50.00"},
    };
    for (const Case& each : cases) {
        const TrialBalanceTexts texts = withTotals(each.debits, each.credits).texts();
        EXPECT_EQ(texts.debitTotal, each.debitLine);
        EXPECT_EQ(texts.creditTotal, each.creditLine);
    }
}

TEST(TrialBalances, ShowTheLevelFormWhenOnlyTheCreditSideHasAnAmount) {
    const TrialBalanceTexts texts = withTotals(0, 50).texts();
    EXPECT_EQ(texts.creditTotal, "合计 = 平\t50.00");
    EXPECT_EQ(texts.result, "试算结果不平衡,差额为50.00");
}

TEST(TrialBalances, BalanceWithinAHundredThousandth) {
    EXPECT_TRUE(withTotals(100.000009, 100).isBalanced());
    EXPECT_EQ(withTotals(100.000009, 100).texts().result, "试算结果平衡");
    EXPECT_TRUE(withTotals(100, 100.000009).isBalanced());
}

TEST(TrialBalances, StillBalanceAtAHundredThousandth) {
    EXPECT_TRUE(withTotals(0.00001, 0).isBalanced());
    EXPECT_TRUE(withTotals(0, 0.00001).isBalanced());
    EXPECT_FALSE(withTotals(0.0000100001, 0).isBalanced());
}

TEST(TrialBalances, DoNotBalanceBeyondItAndThenShowADifferenceOfNothing) {
    const TrialBalance balance = withTotals(100.00002, 100);
    EXPECT_FALSE(balance.isBalanced());
    EXPECT_EQ(balance.texts().result, "试算结果不平衡,差额为0.00");
    EXPECT_EQ(balance.closePrompt(), "期初余额试算不平衡,差额为0.00,是否退出?");
}

TEST(TrialBalances, AskAboutTheAbsoluteDifferenceOnClosing) {
    EXPECT_EQ(withTotals(1, 1234567.891).closePrompt(),
              "期初余额试算不平衡,差额为1234566.89,是否退出?");
}

TEST(TrialBalances, AreExactInBooksOfFourTrillion) {
    std::vector<AccountDraft> drafts;
    for (int at = 0; at < 1000; ++at) {
        drafts.push_back({std::to_string(1'000'000 + at), 4e9 + 0.01 * at});
        drafts.push_back(creditOf(std::to_string(2'000'000 + at), 4e9 + 0.01 * at));
    }
    EXPECT_EQ(balanceOf(drafts, firstClasses(2)).difference(), 0);
    drafts.push_back({"3000000", 0.01});
    const TrialBalance balance = balanceOf(drafts, firstClasses(2));
    EXPECT_EQ(balance.difference(), 0.01);
    EXPECT_EQ(balance.texts().debitTotal, "合计 = 借\t4000000004995.01");
    EXPECT_EQ(balance.texts().result, "试算结果不平衡,差额为0.01");
}

TEST(TrialBalances, FindSmallDifferencesInLargeBooksOfOddAmounts) {
    EXPECT_NEAR(withTotals(4e12 + 0.015625, 4e12).difference(), 0.015625, 1e-12);
    std::vector<AccountDraft> drafts{{"1001", 4e12}, creditOf("2001", 4e12), {"1002", 0.00002}};
    EXPECT_FALSE(balanceOf(drafts, firstClasses(2)).isBalanced());
    drafts[2].opening = 0.000009;
    EXPECT_TRUE(balanceOf(drafts, firstClasses(2)).isBalanced());
}
