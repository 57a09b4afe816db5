#include "accounts/rules/deletion_checks.h"

#include <gtest/gtest.h>

#include "data/tables/accounts.h"
#include "tests/support/fake_chart.h"

using namespace chengheng;

namespace {

Refusal refusalOf(FakeChart& chart, const std::string& code) {
    const _CodeInfo account = chart.account(code);
    return firstRefusal(deletionChecks(), {account, {account.lId}, chart}).value_or(Refusal{});
}

}  // namespace

TEST(Deletion, IsCheckedInItsOrder) {
    std::vector<std::string> names;
    for (const Check<DeletionFacts>& check : deletionChecks()) names.emplace_back(check.name);
    EXPECT_EQ(names, (std::vector<std::string>{"end account", "no bank account", "no cash account",
                                               "not used"}));
}

TEST(Deletion, TellsTheFirstOfManyReasonsAndThenTheNext) {
    FakeChart chart;
    chart.add("1002");
    _CodeInfo& account = chart.account("1002");
    account.bEnd = 0;
    account.bBank = account.bCash = 1;
    chart.use(UsePlace::posted, "1002");
    EXPECT_EQ(refusalOf(chart, "1002").notice.text, "不能删除非末级科目!");
    EXPECT_EQ(refusalOf(chart, "1002").notice.icon, MessageIcon::warning);
    EXPECT_TRUE(chart.askedPlaces().empty()) << "use is asked last";
    account.bEnd = 1;
    EXPECT_EQ(refusalOf(chart, "1002").notice.text, "该科目已指定为银行科目,不能删除");
    account.bBank = 0;
    EXPECT_EQ(refusalOf(chart, "1002").notice.text, "该科目已指定为现金科目,不能删除");
    account.bCash = 0;
    EXPECT_EQ(refusalOf(chart, "1002").notice.text, "在[已记帐凭证]中已使用本科目或其下级科目");
    EXPECT_EQ(refusalOf(chart, "1002").notice.icon, MessageIcon::information);
    EXPECT_EQ(refusalOf(chart, "1002").obstacle, "1002");
}

TEST(Deletion, NamesEachOfTheSevenPlacesInTheirOrder) {
    FakeChart chart;
    chart.add("1002");
    std::vector<std::string> texts;
    for (auto place = usePlaces.rbegin(); place != usePlaces.rend(); ++place) {
        chart.use(*place, "1002");
        texts.push_back(refusalOf(chart, "1002").notice.text);
    }
    EXPECT_EQ(
        texts,
        (std::vector<std::string>{
            "在[项目档案]中已使用本科目或其下级科目", "在[转帐定义]中已使用本科目或其下级科目",
            "在[常用摘要]中已使用本科目或其下级科目", "在[常用凭证]中已使用本科目或其下级科目",
            "在[总帐]中已使用本科目或其下级科目", "在[已记帐凭证]中已使用本科目或其下级科目",
            "在[未记帐凭证]中已使用本科目或其下级科目"}));
}

TEST(Deletion, CountsSumsWithoutAnyAmountAsUse) {
    FakeChart chart;
    chart.add("1002");
    chart.addEmptySums("1002");
    EXPECT_EQ(refusalOf(chart, "1002").notice.text, "在[总帐]中已使用本科目或其下级科目");
}

TEST(Deletion, LetsAnUnusedEndAccountGo) {
    FakeChart chart;
    chart.add("1002");
    const _CodeInfo account = chart.account("1002");
    EXPECT_EQ(firstRefusal(deletionChecks(), {account, {account.lId}, chart}), std::nullopt);
}
