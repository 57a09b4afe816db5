#include "books/carrying/carry_plan.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/opening_accounts.h"

namespace carry_plans {
namespace {

using namespace chengheng;
using Texts = std::vector<std::string>;

/// A year that ended with the accounts of a sheet, by their ids, without figures.
YearEnd endOf(const OpeningSheet& sheet) {
    YearEnd end;
    for (const OpeningAccount& account : sheet.accounts()) {
        if (!carriesBalance(account.type)) continue;
        end.accounts.push_back({.id = account.id,
                                .code = account.code,
                                .name = account.name,
                                .currency = account.currency,
                                .isDebit = account.isDebit,
                                .isEnd = account.isEnd});
    }
    std::ranges::sort(end.accounts, {}, &ClosedAccount::id);
    return end;
}

CarryPlan planOf(const YearEnd& end, const OpeningSheet& sheet) {
    const Members none;
    return planCarry(end, sheet, {none, none});
}

Texts obstaclesOf(const CarryPlan& plan) {
    Texts texts;
    for (const CarryObstacle& obstacle : plan.obstacles) texts.push_back(obstacle.text);
    return texts;
}

/// What keeps a year with one closed account from being carried into the account 1001.
Texts obstaclesOf(const ClosedAccount& closed, const AccountDraft& now) {
    const OpeningSheet sheet = sheetOf({now});
    YearEnd end;
    end.accounts.push_back(closed);
    return obstaclesOf(planOf(end, sheet));
}

ClosedAccount cash() {
    return {.id = 1,
            .code = "1001",
            .name = "现金",
            .isDebit = true,
            .isEnd = true,
            .closing = {.money = 5}};
}

TEST(YearEnds, CloseByTheDirectionOfTheAccount) {
    _AccSumInfo period;
    period.mBegin = 0.1;
    period.mDebet = 0.2;
    period.mCredit = 0.3;
    period.dAmtBegin = 1;
    period.dAmtDebet = 0.00001;
    period.mFgnBegin = 7;
    period.mFgnCredit = 2;
    EXPECT_EQ(closingOf(period, true), (EntryFigures{0, 5, 1.00001}));
    EXPECT_EQ(closingOf(period, false), (EntryFigures{0.2, 9, 0.99999}));
    _AssAccInfo detail;
    detail.mBegin = 10;
    detail.mDebt = 4;
    detail.mCredit = 1;
    detail.dDebt = 3;
    detail.mFCredit = 2;
    EXPECT_EQ(closingOf(detail, true), (EntryFigures{13, -2, 3}));
    EXPECT_EQ(closingOf(detail, false), (EntryFigures{7, 2, -3}));
}

TEST(YearEnds, KeepLargeSumsToTheCent) {
    _AccSumInfo period;
    period.mBegin = 9'999'999'999'999.99;
    period.mDebet = 0.01;
    period.mCredit = 9'999'999'999'999.98;
    EXPECT_EQ(closingOf(period, true).money, 0.02);
}

TEST(YearEnds, LeaveIncomeAndExpenseBehind) {
    for (const char* type : {"收入", "支出", "损益"}) EXPECT_FALSE(carriesBalance(type)) << type;
    for (const char* type : {"资产", "负债", "权益", "成本", "共同", "", "收入 "})
        EXPECT_TRUE(carriesBalance(type)) << type;
}

TEST(CarryPlans, TakeEndAccountsWithFiguresInTheOrderOfTheCodes) {
    const OpeningSheet sheet = sheetOf({{"1002"}, {"100201"}, {"1001"}, {"1009"}});
    YearEnd end = endOf(sheet);
    for (ClosedAccount& account : end.accounts) account.closing.money = account.id;
    end.accounts[3].closing.money = 0;
    const CarryPlan plan = planOf(end, sheet);
    EXPECT_EQ(obstaclesOf(plan), Texts{});
    ASSERT_EQ(plan.accounts.size(), 2u);
    EXPECT_EQ(sheet.accounts()[plan.accounts[0].place].code, "1001");
    EXPECT_EQ(plan.accounts[0].closing.money, 3);
    EXPECT_EQ(sheet.accounts()[plan.accounts[1].place].code, "100201");
    OpeningSheet carried = sheet;
    putCarried(plan, carried);
    EXPECT_EQ(carried.accounts()[carried.placeOfCode("1002").value_or(0)].opening(), 2);
}

TEST(CarryPlans, TellEveryDifferenceOfTheCharts) {
    const OpeningSheet sheet = sheetOf({{"1001"}, {"1002"}, {"1003"}, {"1004"}});
    YearEnd end = endOf(sheet);
    end.accounts.erase(end.accounts.begin());
    end.accounts[0].code = "1012";
    end.accounts[1].id = 9;
    end.accounts[1].name = "旧名";
    end.accounts.push_back({.id = 10, .code = "1005", .name = "停用"});
    std::ranges::sort(end.accounts, {}, &ClosedAccount::id);
    const CarryPlan plan = planOf(end, sheet);
    EXPECT_TRUE(plan.hasDifferingCharts);
    EXPECT_EQ(obstaclesOf(plan),
              (Texts{"1001 科目1001:上年没有此科目。", "1003 科目1003:上年和本年的内部编号不同。",
                     "1005 停用:本年没有此科目。", "1012 科目1002:本年的编码是 1002。"}));
    std::vector<ObstacleKind> kinds;
    for (const CarryObstacle& obstacle : plan.obstacles) kinds.push_back(obstacle.kind);
    EXPECT_EQ(kinds, (std::vector{ObstacleKind::added, ObstacleKind::otherIdentity,
                                  ObstacleKind::removed, ObstacleKind::recoded}));
}

TEST(CarryPlans, AreEmptyOnlyWhereNeitherYearCarriesAnything) {
    const OpeningSheet result = sheetOf({creditOf("5001", 0, "损益")});
    EXPECT_TRUE(planOf({}, result).isEmpty);
    EXPECT_FALSE(planOf({}, result).hasDifferingCharts);
    YearEnd end;
    end.accounts.push_back(cash());
    EXPECT_FALSE(planOf(end, result).isEmpty);
    EXPECT_TRUE(planOf(end, result).hasDifferingCharts);
    EXPECT_FALSE(planOf({}, sheetOf({{"1001"}})).isEmpty);
}

TEST(CarryPlans, NameWhatKeepsABalanceBack) {
    EXPECT_EQ(obstaclesOf(cash(), {"1001"}), Texts{});
    EXPECT_EQ(obstaclesOf(cash(), creditOf("1001", 0)),
              Texts{"1001 现金:余额方向上年为借,本年为贷。"});
    ClosedAccount closed = cash();
    closed.isDoubled = true;
    EXPECT_EQ(obstaclesOf(closed, {"1001"}), Texts{"1001 现金:上年第 12 期的余额记录重复。"});
    closed = cash();
    closed.isCutShort = true;
    closed.closing = {};
    EXPECT_EQ(obstaclesOf(closed, {"1001"}), Texts{"1001 现金:上年有余额记录,但缺少第 12 期的。"});
    closed = cash();
    closed.closing.foreign = 1;
    closed.currency = 1;
    EXPECT_EQ(obstaclesOf(closed, {"1001"}), Texts{"1001 现金:有外币余额,本年的币种与上年不同。"});
    EXPECT_EQ(obstaclesOf(closed, AccountDraft{"1001"}.foreign(1)), Texts{});
    closed = cash();
    closed.letters = "A";
    EXPECT_EQ(obstaclesOf(closed, AccountDraft{"1001"}.keptBy("C")),
              Texts{"1001 现金:有余额,本年的辅助核算与上年不同。"});
    EXPECT_EQ(obstaclesOf(closed, AccountDraft{"1001"}.keptBy("AC")), Texts{});
    for (const double large : {1e13, -1e13}) {
        closed = cash();
        closed.closing.money = large;
        EXPECT_EQ(obstaclesOf(closed, {"1001"}), Texts{"1001 现金:余额过大,无法记到分。"});
    }
}

TEST(CarryPlans, DoNotLookAtAccountsWithoutFigures) {
    ClosedAccount closed = cash();
    closed.closing = {};
    closed.currency = 1;
    closed.letters = "A";
    EXPECT_EQ(obstaclesOf(closed, {"1001"}), Texts{});
}

TEST(CarryPlans, NameAnAccountThatHasOthersBelowItNow) {
    // What came below it is an account of the result, so that the charts are the same.
    const OpeningSheet sheet = sheetOf({{"1001"}, {"100101", 0, true, "损益"}});
    YearEnd end;
    end.accounts.push_back(cash());
    const CarryPlan plan = planOf(end, sheet);
    EXPECT_FALSE(plan.hasDifferingCharts);
    EXPECT_EQ(obstaclesOf(plan), Texts{"1001 现金:上年为末级科目并有余额,本年已有下级科目。"});
}

TEST(CarryPlans, TakeDetailsOfAuxiliaryAccountsAndNameMissingMembers) {
    const OpeningSheet sheet = sheetOf({AccountDraft{"1001"}.keptBy("C"), {"1002"}});
    YearEnd end = endOf(sheet);
    end.accounts[0].letters = "C";
    for (ClosedAccount& account : end.accounts) account.closing.money = 5;
    end.details = {{1, {}, {.money = 5}}, {2, {}, {.money = 5}}};
    EXPECT_EQ(planOf(end, sheet).details.size(), 1u) << "those of 1002 mean nothing";
    end.details[0].of.department = 7;
    EXPECT_EQ(obstaclesOf(planOf(end, sheet)),
              Texts{"1001 科目1001:有余额的部门在本年目录中没有,或已是另一个。"});
}

TEST(CarryPlans, LookAtDetailsThatMakeUpForEachOther) {
    YearEnd end;
    end.accounts.push_back(cash());
    end.accounts[0].closing = {};
    end.accounts[0].letters = "C";
    const auto obstacles = [&end](const std::vector<AccountDraft>& now, EntryFigures figures) {
        end.details = {{1, {.unit = 0}, figures}, {1, {.item = 0}, -figures}};
        return obstaclesOf(planOf(end, sheetOf(now)));
    };
    const AccountDraft kept = AccountDraft{"1001"}.keptBy("C");
    EXPECT_EQ(obstacles({kept}, {.money = 5}), Texts{});
    EXPECT_EQ(planOf(end, sheetOf({kept})).details.size(), 2u);
    EXPECT_EQ(obstacles({{"1001"}}, {.money = 5}),
              Texts{"1001 现金:有余额,本年的辅助核算与上年不同。"});
    EXPECT_EQ(obstacles({kept.foreign(1)}, {.foreign = 5}),
              Texts{"1001 现金:有外币余额,本年的币种与上年不同。"});
    EXPECT_EQ(obstacles({kept, {"100101", 0, true, "损益"}}, {.money = 5}),
              Texts{"1001 现金:上年为末级科目并有余额,本年已有下级科目。"});
    EXPECT_EQ(obstacles({kept}, {.quantity = 1e13}), Texts{"1001 现金:余额过大,无法记到分。"});
}

}  // namespace
}  // namespace carry_plans
