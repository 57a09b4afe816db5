#include "books/making/chart_templates.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "data/tables/accounts.h"

namespace chengheng {
namespace {

std::vector<std::string_view> classNames(ChartTemplate chart) {
    std::vector<std::string_view> names;
    for (const ChartClass& found : chartClasses(chart)) names.push_back(found.name);
    return names;
}

TEST(ChartTemplates, SmallEnterpriseChartHasItsSixtySixAccounts) {
    const auto& accounts = chartAccounts(ChartTemplate::smallEnterprise);
    ASSERT_EQ(accounts.size(), 66U);
    EXPECT_EQ(accounts.front().code, "1001");
    EXPECT_EQ(accounts.front().name, "库存现金");
    EXPECT_EQ(accounts.back().name, "所得税费用");
}

TEST(ChartTemplates, EnterpriseChartHasItsHundredFiftySixAccounts) {
    EXPECT_EQ(chartAccounts(ChartTemplate::enterprise).size(), 156U);
}

TEST(ChartTemplates, EmptyChartHasNoAccountsButTheEnterpriseClasses) {
    EXPECT_TRUE(chartAccounts(ChartTemplate::empty).empty());
    EXPECT_EQ(classNames(ChartTemplate::empty), classNames(ChartTemplate::enterprise));
}

TEST(ChartTemplates, ClassesStandInStatutoryOrder) {
    EXPECT_EQ(classNames(ChartTemplate::smallEnterprise),
              (std::vector<std::string_view>{"资产", "负债", "所有者权益", "成本", "损益"}));
    EXPECT_EQ(
        classNames(ChartTemplate::enterprise),
        (std::vector<std::string_view>{"资产", "负债", "共同", "所有者权益", "成本", "损益"}));
}

TEST(ChartTemplates, AssetsAndCostsAreDebitNaturedTheOthersCreditNatured) {
    std::set<std::string_view> debitClasses;
    for (const ChartClass& found : chartClasses(ChartTemplate::enterprise))
        if (found.isDebit) debitClasses.insert(found.name);
    EXPECT_EQ(debitClasses, (std::set<std::string_view>{"资产", "共同", "成本"}));
}

TEST(ChartTemplates, FirstDigitOfEveryCodeIsTheNumberOfItsClass) {
    for (const auto chart : {ChartTemplate::smallEnterprise, ChartTemplate::enterprise}) {
        const auto classes = chartClasses(chart);
        for (const ChartAccount& account : chartAccounts(chart)) {
            const auto number = static_cast<std::size_t>(account.code.front() - '1');
            ASSERT_LT(number, classes.size());
            EXPECT_EQ(classes[number].name, account.className) << account.code;
        }
    }
}

TEST(ChartTemplates, CodesAreOfFourDigitsAndEachStandsOnce) {
    for (const auto chart : {ChartTemplate::smallEnterprise, ChartTemplate::enterprise}) {
        std::set<std::string_view> codes;
        for (const ChartAccount& account : chartAccounts(chart)) {
            EXPECT_EQ(account.code.size(), std::size_t{chartCodeLength});
            EXPECT_TRUE(codes.insert(account.code).second) << account.code;
        }
    }
}

TEST(ChartTemplates, ContraAccountKeepsItsOwnDirection) {
    const auto& accounts = chartAccounts(ChartTemplate::enterprise);
    const auto found = std::ranges::find(accounts, "1602", &ChartAccount::code);
    ASSERT_NE(found, accounts.end());
    EXPECT_FALSE(found->isDebit);
}

TEST(ChartTemplates, ChartFileWithABrokenLineIsNotRead) {
    const std::string heading = "code,name,class,direction\n";
    EXPECT_TRUE(readChart(heading + "1001,库存现金,资产,借\n"));
    EXPECT_TRUE(readChart(heading + "1001,库存现金,资产,借\r\n"));
    EXPECT_FALSE(readChart(heading + "1001,库存现金,资产\n"));
    EXPECT_FALSE(readChart(heading + "1001,,资产,借\n"));
    EXPECT_FALSE(readChart(heading + "1001,库存现金,资产,左\n"));
    EXPECT_FALSE(readChart("1001,库存现金,资产,借\n"));
}

TEST(ChartTemplates, GiveEachAccountAMnemonicOfItsOwn) {
    for (const auto chart : {ChartTemplate::smallEnterprise, ChartTemplate::enterprise}) {
        const auto accounts = templateAccounts(chart, "4222");
        ASSERT_TRUE(accounts);
        EXPECT_EQ(accounts->front().sHelp, "KCXJ");
        std::set<std::string> mnemonics;
        for (const _CodeInfo& account : *accounts) {
            EXPECT_NE(account.sHelp, "") << account.sName;
            EXPECT_TRUE(mnemonics.insert(account.sHelp).second) << account.sHelp;
        }
    }
}

TEST(ChartTemplates, WordsOfTheCommandLineNameEachTemplate) {
    for (const auto chart :
         {ChartTemplate::smallEnterprise, ChartTemplate::enterprise, ChartTemplate::empty})
        EXPECT_EQ(chartOfWord(chartWord(chart)), chart);
    EXPECT_EQ(chartWord(ChartTemplate::smallEnterprise), "small-enterprise");
    EXPECT_FALSE(chartOfWord("large"));
}

}  // namespace
}  // namespace chengheng
