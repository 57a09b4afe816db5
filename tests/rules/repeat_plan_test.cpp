#include "books/carrying/repeat_plan.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/opening_accounts.h"

namespace repeat_plans {
namespace {

using namespace chengheng;
using Texts = std::vector<std::string>;

ClosedAccount cash(double closing) {
    return {.id = 1,
            .code = "1001",
            .name = "现金",
            .isDebit = true,
            .isEnd = true,
            .closing = {.money = closing}};
}

RepeatPlan planOf(const YearEnd& before, const YearEnd& now,
                  const std::set<std::int32_t>& withEntries = {}) {
    const Members none;
    return planRepeat(before, now, {none, none}, withEntries);
}

/// What stands in the way where the account of both years is this, with 5 closed and 4 opened.
Texts obstaclesOf(const ClosedAccount& before, const ClosedAccount& now,
                  const std::set<std::int32_t>& withEntries = {}) {
    const RepeatPlan plan = planOf({{before}, {}}, {{now}, {}}, withEntries);
    EXPECT_TRUE(plan.obstacles.empty() ? plan.left.empty() : plan.carried.empty());
    Texts texts;
    for (const CarryObstacle& obstacle : plan.obstacles) texts.push_back(obstacle.text);
    return texts;
}

TEST(RepeatPlans, TakeAnAccountWithAnotherIdAsTheSame) {
    ClosedAccount now = cash(4);
    now.id = 7;
    const RepeatPlan plan = planOf({{cash(5)}, {}}, {{now}, {}});
    ASSERT_EQ(plan.carried.size(), 1U);
    EXPECT_EQ(plan.carried[0].accountBefore, 1);
    EXPECT_EQ(plan.carried[0].accountNow, 7);
    EXPECT_EQ(plan.text(false), "可以补转 1 处差额,共 1 个科目。");
}

TEST(RepeatPlans, NameWhatStandsInTheWay) {
    EXPECT_EQ(obstaclesOf(cash(5), cash(4)), Texts{});
    ClosedAccount other = cash(5);
    other.isDebit = false;
    EXPECT_EQ(obstaclesOf(other, cash(4)), Texts{"1001 现金:余额方向上年为贷,本年为借。"});
    other = cash(5);
    other.isDoubled = true;
    EXPECT_EQ(obstaclesOf(other, cash(4)), Texts{"1001 现金:上年第 12 期的余额记录重复。"});
    EXPECT_EQ(obstaclesOf(cash(1e13), cash(4)), Texts{"1001 现金:余额过大,无法记到分。"});
    EXPECT_EQ(obstaclesOf(cash(5), cash(4), {1}),
              Texts{"1001 现金:本年已有期初明细,请在辅助期初中修改。"});
    other = cash(5);
    other.letters = "C";
    EXPECT_EQ(obstaclesOf(other, cash(4)), Texts{"1001 现金:有余额,本年的辅助核算与上年不同。"});
    other = cash(5);
    other.currency = 2;
    EXPECT_EQ(obstaclesOf(other, cash(4)), Texts{}) << "without foreign currency";
    other.closing.foreign = 1;
    EXPECT_EQ(obstaclesOf(other, cash(4)), Texts{"1001 现金:有外币余额,本年的币种与上年不同。"});
    other = cash(4);
    other.isEnd = false;
    EXPECT_EQ(obstaclesOf(cash(5), other),
              Texts{"1001 现金:上年为末级科目并有余额,本年已有下级科目。"});
    EXPECT_EQ(obstaclesOf(other, cash(4)), Texts{"1001 现金:上年有下级科目,本年为末级科目。"});
    other = cash(4);
    other.code = "1002";
    EXPECT_EQ(obstaclesOf(cash(5), other),
              (Texts{"1001 现金:本年没有此科目。", "1002 现金:上年没有此科目。"}));
}

TEST(RepeatPlans, NameEachReasonOnceAndLeaveAllOfTheAccount) {
    ClosedAccount before = cash(5);
    before.isDoubled = true;
    before.closing.quantity = 1;
    ClosedAccount bank = cash(7);
    bank.id = 2;
    bank.code = "1002";
    ClosedAccount bankNow = bank;
    bankNow.closing.money = 6;
    const RepeatPlan plan = planOf({{before, bank}, {}}, {{cash(5), bankNow}, {}});
    ASSERT_EQ(plan.obstacles.size(), 1U);
    EXPECT_EQ(plan.obstacles[0].code, "1001");
    EXPECT_EQ(plan.left.size(), 1U);
    ASSERT_EQ(plan.carried.size(), 1U);
    EXPECT_EQ(plan.carried[0].code, "1002");
    EXPECT_EQ(plan.text(true), "已补转 1 处差额,共 1 个科目。另有 1 处差额不能补转,保持不变。");
}

TEST(RepeatPlans, NameDetailsThatHaveNoPlace) {
    ClosedAccount auxiliary = cash(5);
    auxiliary.letters = "C";
    const ClosedDetail detail{1, {.department = 3}, {.money = 5}};
    RepeatPlan plan = planOf({{auxiliary}, {detail}}, {{auxiliary}, {}});
    ASSERT_EQ(plan.obstacles.size(), 1U);
    EXPECT_EQ(plan.obstacles[0].text, "1001 现金:有余额的部门在本年目录中没有,或已是另一个。");
    plan = planOf({{auxiliary}, {}}, {{auxiliary}, {detail}});
    EXPECT_TRUE(plan.obstacles.empty()) << "what goes needs no member";
    EXPECT_EQ(plan.carried.size(), 1U);
    plan = planOf({{cash(5)}, {detail}}, {{cash(5)}, {}});
    ASSERT_EQ(plan.obstacles.size(), 2U);
    EXPECT_EQ(plan.obstacles[0].text, "1001 现金:不是辅助核算科目,明细不结转。");
}

TEST(RepeatSteps, AreOfTheFiguresThatWereSeen) {
    const RepeatPlan plan = planOf({{cash(5)}, {}}, {{cash(4)}, {}});
    OpeningSheet sheet = sheetOf({{"1001"}});
    OpeningAccount& account = sheet.accounts()[0];
    account.balance(Measure::money).opening = 4.001;
    const EditStep step = repeatStep(plan, sheet);
    ASSERT_EQ(step.size(), 1U);
    EXPECT_EQ(step[0].before, 4.001) << "which counts as 4.00";
    EXPECT_EQ(step[0].after, 5);
    EXPECT_TRUE(step[0].isCarried);
    account.balance(Measure::money).opening = 6;
    EXPECT_EQ(repeatStep(plan, sheet)[0].before, 4) << "not what is there now";
    account.isDebit = false;
    EXPECT_EQ(repeatStep(plan, sheet)[0].accountId, 0);
    EXPECT_EQ(repeatStep(plan, sheetOf({}))[0].accountId, 0);
}

}  // namespace
}  // namespace repeat_plans
