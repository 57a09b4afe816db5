#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "books/newyear/new_year_books.h"
#include "books/newyear/new_year_checks.h"
#include "books/newyear/new_year_rates.h"
#include "books/newyear/new_year_tables.h"
#include "data/engines/place_beside.h"
#include "data/tables/schema.h"

namespace chengheng {
namespace {

Date day(int year, int month, int dayOfMonth) {
    return {static_cast<std::int16_t>(year), static_cast<std::uint8_t>(month),
            static_cast<std::uint8_t>(dayOfMonth)};
}

NewYearFacts goodFacts() {
    return {.setName = "示例帐套",
            .company = "示例公司",
            .fromYear = 2026,
            .source = "/books/001/2026/Nbzw.db",
            .year = 2027,
            .place = "/books/001/2027/Nbzw.db"};
}

std::string refused(const NewYearFacts& facts) {
    const auto refusal = firstRefusal(newYearChecks(), facts);
    return refusal ? refusal->notice.text : "";
}

TEST(NewYearTables, NameEachTableOnce) {
    std::multiset<std::string> named;
    for (const TableOfNextYear& table : tablesOfNextYear()) named.insert(table.table);
    std::multiset<std::string> stored;
    for (const TableInfo& table : allTables()) stored.insert(table.name);
    EXPECT_EQ(named, stored);
}

TEST(NewYearTables, LeaveVouchersBalancesAndWhoIsLoggedOnBehind) {
    std::vector<std::string> left;
    for (const TableOfNextYear& table : tablesOfNextYear())
        if (table.fate == NextYearFate::left) left.emplace_back(table.table);
    EXPECT_EQ(left,
              (std::vector<std::string>{"AccSum", "AssAcc", "LoginInfoTbl", "RegMain", "RegSub",
                                        "UnregMain", "UnregSub", "RecpBank", "RecpEnter",
                                        "OperationLog", "OperationLogPart", "OperationLogHead"}));
    EXPECT_EQ(fateInNextYear("ExchgFix"), NextYearFate::made);
    EXPECT_EQ(fateInNextYear("ExchgFlt"), NextYearFate::made);
    EXPECT_EQ(fateInNextYear("zAccountM"), NextYearFate::changed);
    EXPECT_TRUE(isTakenOver("ABIdTable"));
    EXPECT_FALSE(isTakenOver("ExchgFix"));
    EXPECT_TRUE(isTakenOver("ProjItems01"));
}

TEST(NewYearTables, ShareNoCounterBetweenThoseThatStayAndThoseThatGo) {
    for (const TableInfo& one : allTables())
        for (const TableInfo& other : allTables())
            if (!one.idRow.empty() && one.idRow == other.idRow) {
                EXPECT_EQ(isTakenOver(one.name), isTakenOver(other.name)) << one.name;
            }
}

TEST(NewYearRates, AreARowForEachMonthAndEachDay) {
    const std::vector<int> currencies{1, 3};
    const auto fixed = ratesOfYear(RateKind::fixed, currencies, 2027, {});
    ASSERT_EQ(fixed.size(), 24U);
    EXPECT_EQ(fixed.front(), (NewRate{1, 1, day(2027, 1, 1), 0}));
    EXPECT_EQ(fixed[12], (NewRate{13, 3, day(2027, 1, 1), 0}));
    EXPECT_EQ(fixed.back(), (NewRate{24, 3, day(2027, 12, 1), 0}));
    EXPECT_EQ(ratesOfYear(RateKind::floating, currencies, 2027, {}).size(), 730U);
    EXPECT_EQ(ratesOfYear(RateKind::floating, currencies, 2028, {}).size(), 732U);
}

TEST(NewYearRates, BeginWithTheRateThatACurrencyBringsAlong) {
    const std::vector<int> currencies{1, 2};
    const auto rows = ratesOfYear(RateKind::fixed, currencies, 2027, {{2, 7.05}});
    for (const NewRate& row : rows) EXPECT_EQ(row.rate, row.id == 13 ? 7.05 : 0) << row.id;
}

TEST(NewYearRates, LastOneIsThatOfTheLatestDayThatHasOne) {
    const std::vector<EndingRate> rates{{1, day(2026, 12, 1), 0, 0},
                                        {1, day(2026, 11, 1), 7.1, 0},
                                        {1, day(2026, 1, 1), 6.9, 6.8},
                                        {2, day(2026, 12, 1), 0, 0}};
    EXPECT_EQ(lastRates(rates, 2026), (std::map<int, double>{{1, 7.1}}));
}

TEST(NewYearRates, AdjustmentAtTheEndOfAMonthIsLaterThanItsBookkeepingRate) {
    EXPECT_EQ(lastRates(std::vector<EndingRate>{{1, day(2026, 12, 1), 7.1, 7.2}}, 2026),
              (std::map<int, double>{{1, 7.2}}));
    EXPECT_EQ(lastRates(std::vector<EndingRate>{{1, day(2026, 12, 1), 0, 7.2}}, 2026),
              (std::map<int, double>{{1, 7.2}}));
}

TEST(NewYearRates, ThoseOfOtherYearsBringNothingAlong) {
    const std::vector<EndingRate> rates{{1, day(2025, 12, 31), 7.1, 0},
                                        {1, day(2027, 1, 1), 7.3, 0}};
    EXPECT_TRUE(lastRates(rates, 2026).empty());
}

TEST(NewYearChecks, ComeInThisOrder) {
    std::vector<std::string> names;
    for (const auto& check : newYearChecks()) names.emplace_back(check.name);
    EXPECT_EQ(names, (std::vector<std::string>{"folder of the list", "parameters", "year",
                                               "books are those of the list", "year is not listed",
                                               "place", "place is free"}));
    names.clear();
    for (const auto& check : newYearListChecks()) names.emplace_back(check.name);
    EXPECT_EQ(names,
              (std::vector<std::string>{"books are those of the list", "year is not listed"}));
}

TEST(NewYearChecks, SayWhatIsInTheWay) {
    EXPECT_EQ(refused(goodFacts()), "");
    NewYearFacts facts = goodFacts();
    facts.isPlaceFree = false;
    EXPECT_EQ(refused(facts),
              "“/books/001/2027/Nbzw.db”已经存在,没有改动它。\n请换一个路径或地址。");
    facts.place = "";
    EXPECT_EQ(refused(facts), "请指定新年度帐套存放的路径或服务器地址");
    facts.place = ":memory:";
    EXPECT_EQ(refused(facts), "请指定新年度帐套存放的路径或服务器地址");
    facts.listedPlace = "postgresql://a:secret@h/db?schema=zw";
    EXPECT_EQ(refused(facts),
              "帐套“示例帐套”的2027年度已经存在:\npostgresql://a@h/db?schema=zw\n没有改动它。");
    facts.listedSource = "/other/Nbzw.db";
    EXPECT_EQ(refused(facts),
              "列表中帐套“示例帐套”的2026年度在“/other/Nbzw.db”,不是“/books/001/2026/Nbzw.db”。\n"
              "请由列表中的帐套建立新年度;要由这一份建立,请用 chbooks new-year 加 --unlisted。");
    facts.fromYear = 2099;
    facts.year = 2100;
    EXPECT_EQ(refused(facts),
              "帐套“示例帐套”的2099年度之后不能再建立新年度,会计年度应在1990到2099之间");
    facts.fromYear = 0;
    EXPECT_EQ(refused(facts),
              "“/books/001/2026/Nbzw.db”中没有帐套参数,不能由它建立新年度。\n"
              "请用 chbooks check 查明,再用最近的备份恢复。");
    facts.hasHome = false;
    EXPECT_EQ(refused(facts), "找不到存放帐套的文件夹,请设置环境变量 CHENGHENG_HOME");
}

TEST(NewYearChecks, BooksThatAreNotListedNeedNoListAndHinderNobodyInIt) {
    NewYearFacts facts = goodFacts();
    facts.isListed = false;
    facts.hasHome = false;
    facts.listedSource = facts.listedPlace = "/other/Nbzw.db";
    EXPECT_EQ(refused(facts), "");
}

TEST(NewYearPlace, IsBesideTheYearBefore) {
    EXPECT_EQ(placeOfYear("/b/001/2026/Nbzw.db", 2026, 2027), "/b/001/2027/Nbzw.db");
    EXPECT_EQ(placeOfYear("/b/2026/old/Nbzw.db", 2026, 2027), "");
    EXPECT_EQ(placeOfYear("/b/12026/Nbzw.db", 2026, 2027), "");
    EXPECT_EQ(placeOfYear("postgresql://a:b@h:1/db?schema=zw001_2026", 2026, 2027),
              "postgresql://a:b@h:1/db?schema=zw001_2027");
    EXPECT_EQ(placeOfYear("postgresql://h/db?schema=trade", 2026, 2027),
              "postgresql://h/db?schema=trade_2027");
}

TEST(NewYearPlan, SaysWhatIsTakenOverAndWhatIsNot) {
    NewYearPlan plan{.facts = goodFacts(),
                     .taken = {{"Code", "会计科目", 66}, {"Users", "操作员", 4}}};
    EXPECT_EQ(plan.text(),
              "由帐套“示例帐套”的2026年度(/books/001/2026/Nbzw.db)\n"
              "建立2027年度,存放在:\n/books/001/2027/Nbzw.db\n"
              "\n带入:会计科目 66、操作员 4"
              "\n不带入:凭证、期初余额和各期发生额、对帐单。期初余额另用“结转上年余额”带入。"
              "\n汇率:新年度各月、各日的汇率为空。"
              "\n启用日期:2027年1月1日。上年帐套只读取,不改动。\n");
    plan.isCarriedInto = true;
    EXPECT_THAT(plan.text(), testing::HasSubstr("\n不带入:凭证、期初余额和各期发生额、对帐单。"
                                                "建立后随即结转期初余额。\n"));
    plan.bringsLastRates = true;
    EXPECT_THAT(plan.text(),
                testing::HasSubstr("汇率:各外币上年最后一个汇率作为新年度的第一个汇率,其余为空。"));
}

}  // namespace
}  // namespace chengheng
