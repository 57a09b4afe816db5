#include "books/parameters/parameter_checks.h"

#include <gtest/gtest.h>

#include "books/parameters/parameter_plan.h"
#include "books/parameters/parameters_form.h"
#include "tests/support/recording_messages.h"

namespace {

using namespace chengheng;

using Texts = std::vector<std::string>;

/// Books of 2026 that begin in January, keep foreign currency and hold nothing else.
ParameterFacts sampleFacts() {
    ParameterFacts facts;
    facts.stored = {.lId = 1,
                    .sName = "甲帐套",
                    .sCompany = "甲公司",
                    .dtStart = {2026, 1, 1},
                    .sCodeLen = "4222",
                    .bFgn = 1,
                    .lYear = 2026};
    facts.location = "/books/1/Nbzw.db";
    facts.listed = {{1, "甲帐套", "甲公司", {{2026, "/books/1/Nbzw.db"}}},
                    {2, "乙帐套", "乙公司", {{2026, "/books/2/Nbzw.db"}}}};
    return facts;
}

/// Sample books and what somebody wants of them.
struct Wish {
    WantedParameters given() const { return {facts, wanted, passesOverOthers}; }
    /// The field and text of the first refusal, joined by a bar; empty when there is none.
    std::string refusal() const {
        const auto found = firstRefusal(parameterChecks(), given());
        return found ? found->notice.focusField + "|" + found->notice.text : "";
    }
    std::string text() const { return planOf(given()).text(); }

    ParameterFacts facts = sampleFacts();
    BooksParameters wanted = parametersOf(facts.stored);
    bool passesOverOthers = false;
};

TEST(ParameterChecks, RunInTheOrderOfTheForm) {
    Texts names;
    for (const auto& check : parameterChecks()) names.emplace_back(check.name);
    EXPECT_EQ(names, (Texts{"name", "the list can be read", "the list has no such name and year",
                            "company", "no account keeps foreign currency", "level pattern",
                            "the level pattern is only lengthened", "start month",
                            "nothing depends on the start month", "nobody else is at work"}));
}

TEST(ParameterChecks, AskNothingOfWhatStaysAsItIs) {
    Wish wish;
    wish.facts.stored.sName = "";
    wish.facts.stored.sCompany = "";
    wish.facts.stored.sCodeLen = "0";
    wish.facts.stored.dtStart = {};
    wish.facts.currencyAccounts = {"1002 银行存款"};
    wish.facts.hasVouchers = wish.facts.hasFigures = wish.facts.hasOpeningEntries = true;
    wish.facts.others = {{"李明", "PC2"}};
    wish.facts.listStatus = Status::of(Failure::damaged, "");
    wish.wanted = parametersOf(wish.facts.stored);
    EXPECT_EQ(wish.refusal(), "");
    EXPECT_TRUE(planOf(wish.given()).changes.empty());
}

TEST(ParameterChecks, NameAndCompanyAreThoseThatNewBooksMayHave) {
    Wish wish;
    wish.wanted.name = " ";
    EXPECT_EQ(wish.refusal(), "name|请输入帐套名称");
    for (int count = 0; count < 41; ++count) wish.wanted.name += "帐";
    EXPECT_EQ(wish.refusal(), "name|帐套名称不能超过40个字");
    wish.wanted.name = "丙";
    wish.wanted.company = "";
    EXPECT_EQ(wish.refusal(), "company|请输入单位名称");
    for (int count = 0; count < 61; ++count) wish.wanted.company += "司";
    EXPECT_EQ(wish.refusal(), "company|单位名称不能超过60个字");
    wish.wanted.company = "丙公司";
    EXPECT_EQ(wish.refusal(), "");
}

TEST(ParameterChecks, NameOfOtherBooksOfTheSameYearIsRefused) {
    Wish wish;
    wish.wanted.name = "乙帐套 ";
    EXPECT_EQ(wish.refusal(),
              "name|帐套列表中已有“乙帐套”的2026年度:\n/books/2/Nbzw.db\n请用另一个名称。");
    wish.facts.listed[1].years[0].year = 2025;
    EXPECT_EQ(wish.refusal(), "");
}

TEST(ParameterChecks, NameStaysWhileTheListCannotBeRead) {
    Wish wish;
    wish.facts.listStatus = Status::of(Failure::damaged, "");
    wish.facts.listPath = "/home/books.json";
    wish.wanted.company = "丙公司";
    EXPECT_EQ(wish.refusal(), "");
    wish.wanted.name = "丙帐套";
    EXPECT_NE(wish.refusal().find("/home/books.json"), std::string::npos) << wish.refusal();
}

TEST(ParameterChecks, ForeignCurrencyStaysOnWhileAnAccountKeepsOne) {
    Wish wish;
    wish.wanted.hasForeignCurrency = false;
    EXPECT_EQ(wish.refusal(), "");
    wish.facts.currencyAccounts = {"100202 美元户"};
    EXPECT_EQ(wish.refusal(),
              "foreignCurrency|有科目核算外币,不能取消外币核算:100202 美元户\n"
              "请先在会计科目中取消这些科目的外币核算。");
    wish.facts.stored.bFgn = 0;
    wish.wanted.hasForeignCurrency = true;
    EXPECT_EQ(wish.refusal(), "") << "switching on is always allowed";
}

TEST(ParameterChecks, NameTheFirstFiveAccountsAndCountThem) {
    EXPECT_EQ(namedAccounts({"1 甲", "2 乙", "3 丙", "4 丁", "5 戊"}),
              "1 甲、2 乙、3 丙、4 丁、5 戊");
    EXPECT_EQ(namedAccounts({"1 甲", "2 乙", "3 丙", "4 丁", "5 戊", "6 己"}),
              "1 甲、2 乙、3 丙、4 丁、5 戊等 6 个");
}

TEST(ParameterChecks, LevelPatternIsOnlyLengthened) {
    const std::string changed =
        "levelPattern|科目级长“4222”不能改变,只能在末尾增加级次,例如“42222”。";
    const std::pair<const char*, std::string> cases[] = {
        {"42222", ""},     {"422299", ""},    {"42223 ", ""},
        {"422", changed},  {"4232", changed}, {"32222", changed},
        {"4322", changed}, {"422", changed},  {"142222", changed},
    };
    for (const auto& [pattern, refusal] : cases) {
        Wish wish;
        wish.wanted.levelPattern = pattern;
        EXPECT_EQ(wish.refusal(), refusal) << pattern;
    }
    for (const char* pattern : {"", "42220", "4222222", "4222a"}) {
        Wish wish;
        wish.wanted.levelPattern = pattern;
        EXPECT_EQ(wish.refusal(), std::string("levelPattern|科目级长“") + pattern +
                                      "”不正确\n科目级长由1到6位数字组成,每位数字1到9,"
                                      "表示该级编码的位数,例如4222");
    }
    Wish full;
    full.facts.stored.sCodeLen = "422222";
    full.wanted.levelPattern = "422223";
    EXPECT_EQ(full.refusal(), "levelPattern|科目级长“422222”已有6级,不能再增加或改变。");
}

TEST(ParameterChecks, StartMonthStaysOnceAnythingDependsOnIt) {
    Wish wish;
    wish.wanted.startMonth = 4;
    EXPECT_EQ(wish.refusal(), "");
    wish.facts.hasFigures = true;
    EXPECT_EQ(wish.refusal(),
              "startMonth|已有期初余额,不能再改启用月份。\n请先在期初余额录入中把全部余额清为零。");
    wish.facts.hasOpeningEntries = true;
    EXPECT_EQ(wish.refusal(),
              "startMonth|已有辅助科目的期初明细,不能再改启用月份。\n"
              "请先在期初余额录入中删除全部期初明细。");
    wish.facts.hasVouchers = true;
    EXPECT_EQ(wish.refusal(), "startMonth|已有凭证,不能再改启用月份。");
    wish.wanted.startMonth = 13;
    EXPECT_EQ(wish.refusal(), "startMonth|启用月份应在1到12之间");
    wish.wanted.startMonth = 0;
    EXPECT_EQ(wish.refusal(), "startMonth|启用月份应在1到12之间");
}

TEST(ParameterChecks, StartMonthStaysWhileOthersWorkUnlessTheyAreKnownToBeGone) {
    Wish wish;
    wish.wanted.startMonth = 4;
    wish.facts.others = {{"李明", "PC2"}, {"张红", ""}};
    EXPECT_EQ(wish.refusal(),
              "startMonth|其他人正在使用本帐套:李明(PC2)、张红。\n"
              "改启用月份时不能有其他人使用,请等其退出后重试。");
    wish.passesOverOthers = true;
    EXPECT_EQ(wish.refusal(), "");
    wish.passesOverOthers = false;
    wish.wanted.startMonth = 1;
    wish.wanted.company = "丙公司";
    EXPECT_EQ(wish.refusal(), "");
    EXPECT_EQ(wish.text(),
              "单位名称:“甲公司”改为“丙公司”\n    以后打印的页面用新的单位名称。\n"
              "\n正在使用本帐套的李明(PC2)、张红重新登录后才使用新的参数。\n");
}

TEST(ParameterPlan, TellsEachChangeInTheOrderOfTheFormWithWhatItTouches) {
    Wish wish;
    wish.facts.currencies = 2;
    wish.wanted = {"丙帐套 ", "丙公司", false, "42223", 4};
    EXPECT_EQ(planOf(wish.given()).question(),
              "将修改帐套参数:\n\n"
              "帐套名称:“甲帐套”改为“丙帐套”\n"
              "    登录列表和窗口显示新的名称,帐套的存放位置不变。\n"
              "单位名称:“甲公司”改为“丙公司”\n"
              "    以后打印的页面用新的单位名称。\n"
              "外币核算:“是”改为“否”\n"
              "    汇率管理不能再使用。已登记的 2 种外币和汇率保留不变。\n"
              "科目级长:“4222”改为“42223”\n"
              "    科目最多 5 级,末级编码最长 13 位;已有的科目不变。以后不能再减少级次。\n"
              "启用月份:“1月”改为“4月”\n"
              "    期初余额录入还要录年初余额、累计借方和累计贷方。"
              "辅助科目期初明细的日期为 2026-03-31。\n"
              "\n是否修改?");
    wish.facts.currencies = 0;
    wish.wanted = parametersOf(wish.facts.stored);
    wish.wanted.hasForeignCurrency = false;
    EXPECT_EQ(wish.text(), "外币核算:“是”改为“否”\n    汇率管理不能再使用。\n");
}

TEST(ParameterPlan, TellsWhatTheWayBackTouches) {
    Wish wish;
    wish.facts.stored.bFgn = 0;
    wish.facts.stored.dtStart = {2026, 4, 1};
    wish.wanted = parametersOf(wish.facts.stored);
    wish.wanted.hasForeignCurrency = true;
    wish.wanted.startMonth = 1;
    EXPECT_EQ(wish.text(),
              "外币核算:“否”改为“是”\n    可以使用汇率管理,并让科目核算外币。\n"
              "启用月份:“4月”改为“1月”\n"
              "    期初余额录入只录期初余额,不再录年初余额和累计发生额。"
              "辅助科目期初明细的日期为 2025-12-31。\n");
}

TEST(ParameterPlan, NamesTheOtherYearsThatKeepTheirName) {
    Wish wish;
    wish.facts.listed[0].years = {{2024, "/a"}, {2025, "/b"}, {2026, "/books/1/Nbzw.db"}};
    wish.wanted.name = "丙帐套";
    EXPECT_EQ(wish.text(),
              "帐套名称:“甲帐套”改为“丙帐套”\n"
              "    登录列表和窗口显示新的名称,帐套的存放位置不变。"
              "本机列表中2024、2025年度的帐套不随之改名,2026年度另列为“丙帐套”。\n");
}

TEST(ParameterPlan, BlanksAroundATextAreNoChange) {
    Wish wish;
    wish.wanted.name = " 甲帐套";
    wish.wanted.company = "甲公司 ";
    wish.wanted.levelPattern = "4222 ";
    EXPECT_EQ(wish.refusal(), "");
    EXPECT_TRUE(planOf(wish.given()).changes.empty());
}

TEST(BooksParameters, RecordKeepsWhatIsNoParameterAndADayThatIsNotMoved) {
    _zAccountMInfo record = sampleFacts().stored;
    record.dtStart = {2025, 3, 15};
    BooksParameters parameters = parametersOf(record);
    EXPECT_EQ(recordWith(parameters, record), record);
    parameters.startMonth = 5;
    const _zAccountMInfo moved = recordWith(parameters, record);
    EXPECT_EQ(moved.dtStart, (Date{2026, 5, 1}));
    EXPECT_EQ(moved.lId, 1);
    EXPECT_EQ(moved.lYear, 2026);
}

TEST(BooksParameters, TypedFieldsLieOverWhatIsStoredByNow) {
    const BooksParameters before{"甲", "甲公司", false, "4222", 1};
    const BooksParameters now{"乙", "乙公司", true, "42222", 3};
    EXPECT_EQ(typedOver(now, before, before), now);
    BooksParameters typed = before;
    typed.company = "丙公司";
    typed.startMonth = 6;
    EXPECT_EQ(typedOver(now, typed, before), (BooksParameters{"乙", "丙公司", true, "42222", 6}));
    EXPECT_EQ(typedOver(now, {"丁", "丁公司", true, "422", 2}, before),
              (BooksParameters{"丁", "丁公司", true, "422", 2}));
}

}  // namespace
