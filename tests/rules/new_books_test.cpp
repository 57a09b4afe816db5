#include "books/making/new_books.h"

#include <gtest/gtest.h>

#include <vector>

namespace chengheng {
namespace {

NewBooks fitBooks() {
    NewBooks books;
    books.name = "示例帐套";
    books.company = "示例贸易有限公司";
    books.year = 2026;
    books.supervisor = "王芳";
    books.password = "secret";
    return books;
}

/// The text and field of the first refusal, joined by a bar; empty when there is none.
std::string refusalOf(const NewBooks& books) {
    const auto refusal = firstRefusal(newBooksChecks(), books);
    if (!refusal) return {};
    EXPECT_EQ(refusal->kind, RefusalKind::wrongInput);
    EXPECT_TRUE(refusal->notice.beep);
    return refusal->notice.focusField + "|" + refusal->notice.text;
}

TEST(NewBooks, KeepForeignCurrencyUnlessSomebodySaysOtherwise) {
    EXPECT_TRUE(NewBooks().hasForeignCurrency);
}

TEST(NewBooks, FitFactsAreNotRefused) { EXPECT_EQ(refusalOf(fitBooks()), ""); }

TEST(NewBooks, ChecksRunInTheOrderOfTheForm) {
    std::vector<std::string> names;
    for (const Check<NewBooks>& check : newBooksChecks()) names.emplace_back(check.name);
    EXPECT_EQ(names,
              (std::vector<std::string>{"name", "company", "year", "start month", "level pattern",
                                        "chart fits the pattern", "supervisor", "password"}));
}

TEST(NewBooks, NameAndCompanyAreAskedFor) {
    NewBooks books = fitBooks();
    books.company = " ";
    EXPECT_EQ(refusalOf(books), "company|请输入单位名称");
    books.name = "  ";
    EXPECT_EQ(refusalOf(books), "name|请输入帐套名称");
}

TEST(NewBooks, LengthOfANameCountsCharactersNotBytes) {
    const struct {
        std::string NewBooks::*name;
        int longest;
        const char* refusal;
    } cases[] = {{&NewBooks::name, 40, "name|帐套名称不能超过40个字"},
                 {&NewBooks::company, 60, "company|单位名称不能超过60个字"},
                 {&NewBooks::supervisor, 20, "supervisor|主管姓名不能超过20个字"}};
    for (const auto& [name, longest, refusal] : cases) {
        NewBooks books = fitBooks();
        (books.*name).clear();
        for (int count = 0; count < longest; ++count) books.*name += "帐";
        EXPECT_EQ(refusalOf(books), "");
        books.*name += "套";
        EXPECT_EQ(refusalOf(books), refusal);
    }
}

TEST(NewBooks, YearAndMonthStayInTheCalendar) {
    NewBooks books = fitBooks();
    books.year = 1989;
    EXPECT_EQ(refusalOf(books), "year|会计年度应在1990到2099之间");
    books.year = 2100;
    EXPECT_EQ(refusalOf(books), "year|会计年度应在1990到2099之间");
    books.year = 2099;
    books.startMonth = 0;
    EXPECT_EQ(refusalOf(books), "startMonth|启用月份应在1到12之间");
    books.startMonth = 13;
    EXPECT_EQ(refusalOf(books), "startMonth|启用月份应在1到12之间");
    books.startMonth = 12;
    EXPECT_EQ(refusalOf(books), "");
}

TEST(NewBooks, WrongLevelPatternIsNamedAndExplained) {
    for (const char* pattern : {"", "0", "4022", "42222 2", "4222222", "4a", "四"}) {
        NewBooks books = fitBooks();
        books.levelPattern = pattern;
        EXPECT_EQ(refusalOf(books), std::string("levelPattern|科目级长“") + pattern +
                                        "”不正确\n科目级长由1到6位数字组成,每位数字1到9,"
                                        "表示该级编码的位数,例如4222");
    }
}

TEST(NewBooks, StatutoryChartNeedsFourDigitsAtTheTop) {
    NewBooks books = fitBooks();
    books.levelPattern = "322";
    EXPECT_EQ(refusalOf(books),
              "levelPattern|科目级长“322”不适用于所选科目体系\n法定一级科目编码为4位,"
              "请将科目级长的第一位改为4,或选择“不预置科目”");
    books.chart = ChartTemplate::empty;
    EXPECT_EQ(refusalOf(books), "");
}

TEST(NewBooks, SupervisorAndPasswordAreAskedFor) {
    NewBooks books = fitBooks();
    books.password.clear();
    EXPECT_EQ(refusalOf(books), "password|请输入主管口令");
    books.supervisor.clear();
    EXPECT_EQ(refusalOf(books), "supervisor|请输入主管姓名");
}

TEST(NewBooks, ExampleOfAPatternShowsTheFirstCodeOfEachLevel) {
    EXPECT_EQ(levelPatternExample("4222"), "1001 / 100101 / 10010101 / 1001010101");
    EXPECT_EQ(levelPatternExample("4"), "1001");
    EXPECT_EQ(levelPatternExample("13"), "1 / 1001");
    EXPECT_EQ(levelPatternExample("211"), "11 / 111 / 1111");
    EXPECT_EQ(levelPatternExample("4x"), "");
}

}  // namespace
}  // namespace chengheng
