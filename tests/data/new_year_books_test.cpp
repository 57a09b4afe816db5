#include "books/newyear/new_year_books.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "books/checking/integrity_check.h"
#include "books/making/books_creation.h"
#include "data/layout/layout.h"
#include "tests/data/new_year_case.h"
#include "tests/support/made_books.h"
#include "tests/support/older_books.h"

namespace chengheng {
namespace {

namespace files = std::filesystem;
using testing::HasSubstr;

/// From each engine to each.
class NewYear : public testing::TestWithParam<std::tuple<EngineCase, EngineCase>> {
  protected:
    std::string makeAtTarget(bool bringsLastRates = false) {
        NewYearOrder order = m_year.order(m_target);
        order.bringsLastRates = bringsLastRates;
        return m_year.make(order);
    }
    std::vector<std::vector<std::string>> read(const char* sql) {
        return readSql(*openForTest(m_target, OpenMode::readable), sql);
    }
    std::string cell(const char* sql) {
        return readCell(*openForTest(m_target, OpenMode::readable), sql);
    }

    EndingYear m_year{std::get<0>(GetParam())};
    std::string m_target = freshLocation(std::get<1>(GetParam()));
};

TEST_P(NewYear, HasWhatWasSetUpAndNothingOfTheYearBefore) {
    ASSERT_EQ(makeAtTarget(), "done");
    EXPECT_EQ(contentAt(m_target, isTakenAsItIs), contentAt(m_year.books, isTakenAsItIs));
    for (const TableDigest& digest : contentAt(m_target))
        if (fateInNextYear(digest.table) == NextYearFate::left &&
            !digest.table.starts_with("OperationLog")) {
            EXPECT_EQ(digest.rows, 0) << digest.table;
        }
    EXPECT_EQ(read("SELECT lId, lFunction, sWords, lRows FROM OperationLog"),
              (std::vector<std::vector<std::string>>{
                  {"1", "35", "建立 2027 年度帐套,由“" + shownLocation(m_year.books) + "”结转而来",
                   "0"}}));
    EXPECT_EQ(cell("SELECT count(*) FROM LoginInfoTbl"), "0");
    EXPECT_EQ(contentAt(m_year.books), m_year.before);
}

TEST_P(NewYear, BeginsInJanuaryOfTheNextYear) {
    ASSERT_EQ(makeAtTarget(), "done");
    EXPECT_EQ(read("SELECT lId, sName, sCompany, dtStart, sCodeLen, bFgn, lYear FROM zAccountM"),
              (std::vector<std::vector<std::string>>{
                  {"1", "小帐", "小公司", "2027-01-01", "4222", "1", "2027"}}));
}

TEST_P(NewYear, HasTheMonthsAndDaysOfItsOwnRates) {
    ASSERT_EQ(makeAtTarget(), "done");
    EXPECT_EQ(
        read("SELECT count(*), min(lId), max(lId), min(dtDate), max(dtDate), sum(CASE WHEN dRate = "
             "0 AND "
             "dAdjustRate = 0 THEN 0 ELSE 1 END), min(byExchId), max(byPeroid) FROM ExchgFix"),
        (std::vector<std::vector<std::string>>{
            {"12", "1", "12", "2027-01-01", "2027-12-01", "0", "1", "12"}}));
    EXPECT_EQ(
        read("SELECT count(*), min(lId), max(lId), min(dtDate), max(dtDate), sum(CASE WHEN dRate = "
             "0 AND "
             "dAdjustRate = 0 THEN 0 ELSE 1 END), min(byExchId), max(byPeroid) FROM ExchgFlt"),
        (std::vector<std::vector<std::string>>{
            {"365", "1", "365", "2027-01-01", "2027-12-31", "0", "1", "12"}}));
    EXPECT_EQ(cell("SELECT byPeroid FROM ExchgFlt WHERE dtDate = '2027-02-28'"), "2");
}

TEST_P(NewYear, BringsTheLastRateOfEachKindWhenWanted) {
    ASSERT_EQ(makeAtTarget(true), "done");
    EXPECT_EQ(read("SELECT dtDate, dRate FROM ExchgFix WHERE dRate <> 0"),
              (std::vector<std::vector<std::string>>{{"2027-01-01", "7.2"}}));
    EXPECT_EQ(read("SELECT dtDate, dRate FROM ExchgFlt WHERE dRate <> 0"),
              (std::vector<std::vector<std::string>>{{"2027-01-01", "7.3"}}));
}

TEST_P(NewYear, CountsAnewWhatItDoesNotTakeOver) {
    ASSERT_EQ(makeAtTarget(), "done");
    for (const TableInfo& table : allTables()) {
        if (table.idRow.empty()) continue;
        const std::string sql =
            "SELECT lLastId FROM ABIdTable WHERE sTable = '" + table.idRow + "'";
        const std::string counter = cell(sql.c_str());
        const std::string old = readCell(*openForTest(m_year.books, OpenMode::readable), sql);
        EXPECT_EQ(counter, isTakenOver(table.name)    ? old
                           : table.name == "ExchgFix" ? "12"
                           : table.name == "ExchgFlt" ? "365"
                                                      : "0")
            << table.name;
    }
}

TEST_P(NewYear, HoldsNothingThatTheCheckFindsWrong) {
    ASSERT_EQ(makeAtTarget(true), "done");
    std::vector<IntegrityFault> faults;
    ASSERT_TRUE(checkIntegrity(*openForTest(m_target, OpenMode::existing), faults));
    for (const IntegrityFault& fault : faults) ADD_FAILURE() << fault.check << fault.text;
}

TEST_P(NewYear, IsListedWithTheYearBeforeInOneSet) {
    ASSERT_EQ(makeAtTarget(), "done");
    EXPECT_EQ(m_year.listed(), (std::vector<BooksSet>{{1,
                                                       "小帐",
                                                       "小公司",
                                                       {{2026, shownLocation(m_year.books)},
                                                        {2027, shownLocation(m_target)}}}}));
}

TEST_P(NewYear, IsMadeFromBooksOfAnOlderLayout) {
    const std::string older = freshLocation(std::get<0>(GetParam()));
    fillOlderBooks(*openForTest(older), 1);
    const std::string accounts = "SELECT lId, sCode, sName, sAssBook FROM Code ORDER BY lId";
    const auto expected = readSql(*openForTest(older, OpenMode::readable), accounts);
    ASSERT_EQ(m_year.make({.books = older, .target = m_target}), "done");
    EXPECT_EQ(layoutAt(older), 1);
    EXPECT_EQ(layoutAt(m_target), booksFormatVersion);
    EXPECT_TRUE(checkLayout(*openForTest(m_target, OpenMode::existing)).isDone());
    EXPECT_EQ(read(accounts.c_str()), expected);
    EXPECT_EQ(cell("SELECT byKind FROM Enter"), "0");
    EXPECT_EQ(cell("SELECT count(*) FROM AccSum"), "0");
}

TEST_P(NewYear, GivenUpOnTheWayLeavesNothing) {
    std::size_t steps = 0;
    const auto count = [&steps](std::size_t done, std::size_t total) {
        EXPECT_LE(done, total);
        ++steps;
        return true;
    };
    const NewYearBooks books(m_year.registry);
    ASSERT_EQ(textOf(books.make(m_year.order(freshLocation(std::get<1>(GetParam()))), count,
                                m_year.made)),
              "done");
    ASSERT_GT(steps, 20U);
    ASSERT_TRUE(m_year.registry.forget(shownLocation(m_year.made.facts.place)).isDone());
    const auto before = m_year.listed();
    for (std::size_t last = 0; last < steps; last += 5) {
        std::size_t step = 0;
        const auto giveUp = [&](std::size_t, std::size_t) { return step++ < last; };
        EXPECT_EQ(textOf(books.make(m_year.order(m_target), giveUp, m_year.made)),
                  "已取消,没有建立新年度帐套,什么都没有改变。");
        std::unique_ptr<Engine> engine;
        EXPECT_EQ(openEngine(m_target, OpenMode::existing, engine).failure, Failure::missing);
        EXPECT_EQ(m_year.listed(), before);
    }
    EXPECT_EQ(makeAtTarget(), "done");
}

INSTANTIATE_TEST_SUITE_P(Between, NewYear,
                         testing::Combine(testing::ValuesIn(sharedEngineCases()),
                                          testing::ValuesIn(sharedEngineCases())),
                         [](const auto& pair) {
                             return std::get<0>(pair.param).name + "To" +
                                    std::get<1>(pair.param).name;
                         });

/// Books on each engine and what may stand in the way of their next year.
class NewYearOf : public testing::TestWithParam<EngineCase> {
  protected:
    bool isServer() const { return isServerAddress(m_year.books); }
    EndingYear m_year{GetParam()};
};

TEST_P(NewYearOf, ReadsTheBooksAsTheyStandWhileOthersWrite) {
    const auto other = openForTest(m_year.books, OpenMode::existing);
    ASSERT_TRUE(other->begin().isDone());
    runScript(*other, "UPDATE Code SET sName = '未存'");
    const std::string target = freshLocation(GetParam());
    ASSERT_EQ(m_year.make(m_year.order(target)), "done");
    ASSERT_TRUE(other->rollback().isDone());
    EXPECT_EQ(contentAt(target, isTakenAsItIs), contentAt(m_year.books, isTakenAsItIs));
}

TEST_P(NewYearOf, WhatIsChangedWhileItIsReadComesTooLate) {
    const auto other = openForTest(m_year.books, OpenMode::existing);
    bool isChanged = false;
    const auto change = [&](std::size_t, std::size_t) {
        if (!isChanged) runScript(*other, "UPDATE Code SET sName = '后改'");
        return isChanged = true;
    };
    const std::string target = freshLocation(GetParam());
    ASSERT_EQ(textOf(NewYearBooks(m_year.registry).make(m_year.order(target), change, m_year.made)),
              "done");
    EXPECT_EQ(readCell(*openForTest(target, OpenMode::readable),
                       "SELECT count(*) FROM Code WHERE sName = '后改'"),
              "0");
}

TEST_P(NewYearOf, IsNotMadeTwice) {
    const std::string target = freshLocation(GetParam());
    ASSERT_EQ(m_year.make(m_year.order(target)), "done");
    const Digests made = contentAt(target);
    const auto listed = m_year.listed();
    EXPECT_EQ(m_year.make(m_year.order(freshLocation(GetParam()))),
              "帐套“小帐”的2027年度已经存在:\n" + shownLocation(target) + "\n没有改动它。");
    NewYearOrder unlisted = m_year.order(target);
    unlisted.isListed = false;
    EXPECT_EQ(m_year.make(unlisted),
              "“" + shownLocation(target) + "”已经存在,没有改动它。\n请换一个路径或地址。");
    EXPECT_EQ(contentAt(target), made);
    EXPECT_EQ(m_year.listed(), listed);
}

TEST_P(NewYearOf, IsNotMadeOverTheBooksItComesFrom) {
    EXPECT_THAT(m_year.make(m_year.order(m_year.books)), HasSubstr("已经存在,没有改动它"));
    EXPECT_EQ(contentAt(m_year.books), m_year.before);
}

TEST_P(NewYearOf, IsNotMadeFromASecondCopyOfListedBooks) {
    ASSERT_EQ(m_year.make(m_year.order(freshLocation(GetParam()))), "done");
    ASSERT_TRUE(m_year.registry.forget(shownLocation(m_year.made.facts.place)).isDone());
    const std::string copy = freshLocation(GetParam());
    fillEndingYear(*openForTest(copy));
    NewYearOrder order{.books = copy, .target = freshLocation(GetParam())};
    EXPECT_EQ(m_year.make(order),
              "列表中帐套“小帐”的2026年度在“" + shownLocation(m_year.books) + "”,不是“" +
                  shownLocation(copy) +
                  "”。\n请由列表中的帐套建立新年度;要由这一份建立,请用 chbooks new-year 加 "
                  "--unlisted。");
    order.isListed = false;
    const auto listed = m_year.listed();
    EXPECT_EQ(m_year.make(order), "done");
    EXPECT_EQ(m_year.listed(), listed);
}

TEST_P(NewYearOf, UnlistedNeedsAPlace) {
    NewYearOrder order = m_year.order();
    order.isListed = false;
    EXPECT_EQ(m_year.make(order), "请指定新年度帐套存放的路径或服务器地址");
}

TEST_P(NewYearOf, IsMadeOfNoBooksThatAreMissingForeignOrWithoutParameters) {
    EXPECT_THAT(m_year.make({.books = freshLocation(GetParam())}), HasSubstr("找不到帐套"));
    const std::string foreign = freshLocation(GetParam());
    runScript(*openForTest(foreign), "CREATE TABLE other (a integer)");
    EXPECT_THAT(m_year.make({.books = foreign}), HasSubstr("不是帐套"));
    runScript(*openForTest(m_year.books, OpenMode::existing), "DELETE FROM zAccountM");
    EXPECT_THAT(m_year.make(m_year.order()), HasSubstr("中没有帐套参数,不能由它建立新年度"));
    EXPECT_TRUE(m_year.listed().empty());
}

TEST_P(NewYearOf, AfterTheLastYearThereIsNone) {
    runScript(*openForTest(m_year.books, OpenMode::existing), "UPDATE zAccountM SET lYear = 2099");
    EXPECT_THAT(m_year.make(m_year.order()), HasSubstr("之后不能再建立新年度"));
}

TEST_P(NewYearOf, LeavesObjectsOfOthersBehindAndNamesThem) {
    runScript(*openForTest(m_year.books, OpenMode::existing),
              "CREATE VIEW mine AS SELECT * FROM Code");
    const std::string target = freshLocation(GetParam());
    ASSERT_EQ(m_year.make(m_year.order(target)), "done");
    ASSERT_EQ(m_year.made.leftOut.size(), 1U);
    EXPECT_EQ(m_year.made.leftOut[0].name, "mine");
    bool isThere = true;
    EXPECT_TRUE(openForTest(target, OpenMode::existing)->hasTable("mine", isThere).isDone());
    EXPECT_FALSE(isThere);
}

TEST_P(NewYearOf, KeepsNamesThatLookLikeStatements) {
    constexpr const char* hostile = "O''Brien; DROP TABLE Code -- %s {} \\";
    runScript(*openForTest(m_year.books, OpenMode::existing),
              std::string("UPDATE zAccountM SET sName = '") + hostile + "'; UPDATE Dept SET " +
                  "sDeptName = '" + hostile + "'");
    const std::string target = freshLocation(GetParam());
    ASSERT_EQ(m_year.make(m_year.order(target)), "done");
    EXPECT_EQ(contentAt(target, isTakenAsItIs), contentAt(m_year.books, isTakenAsItIs));
    EXPECT_EQ(m_year.listed().at(0).name, "O'Brien; DROP TABLE Code -- %s {} \\");
}

TEST_P(NewYearOf, ThePlanSaysWhatTheMakingDoesAndMakesNothing) {
    NewYearPlan plan;
    const std::string target = freshLocation(GetParam());
    ASSERT_EQ(textOf(NewYearBooks(m_year.registry).plan(m_year.order(target), plan)), "done");
    EXPECT_TRUE(m_year.listed().empty());
    std::unique_ptr<Engine> engine;
    EXPECT_EQ(openEngine(target, OpenMode::existing, engine).failure, Failure::missing);
    EXPECT_THAT(plan.text(),
                HasSubstr("带入:会计科目 6、部门 1、职员 1、单位分类 1、往来单位 1、项目大类 1、"
                          "项目 1、外币 1、凭证类别 1、结算方式 1、自动转帐 1、常用凭证分录 1、"
                          "常用摘要 1、打印模板 1、操作员及其权限 1"));
    ASSERT_EQ(m_year.make(m_year.order(target)), "done");
    EXPECT_EQ(m_year.made.text(), plan.text());
}

CHENGHENG_ON_SHARED_ENGINES(NewYearOf);

TEST(NewYearFile, LiesBesideTheYearBeforeLikeOtherBooksOfTheSet) {
    EndingYear year(EngineCase{"sqliteFile"});
    CreatedBooks created;
    ASSERT_FALSE(BooksCreation(&year.registry).create(sampleBooks(), created));
    ASSERT_EQ(year.make({.books = created.year.location}), "done");
    EXPECT_EQ(year.made.facts.place, year.registry.folder() + "/001/2027/Nbzw.db");
    EXPECT_EQ(
        year.listed(),
        (std::vector<BooksSet>{{1,
                                "示例帐套",
                                sampleBooks().company,
                                {{2026, created.year.location}, {2027, year.made.facts.place}}}}));
    EXPECT_EQ(files::status(year.made.facts.place).permissions(),
              files::perms::owner_read | files::perms::owner_write);
    ASSERT_EQ(year.make({.books = year.made.facts.place}), "done");
    EXPECT_EQ(year.made.facts.place, year.registry.folder() + "/001/2028/Nbzw.db");
    EXPECT_EQ(readCell(*openForTest(year.made.facts.place, OpenMode::readable),
                       "SELECT lYear FROM zAccountM"),
              "2028");
}

TEST(NewYearFile, OfBooksElsewhereLiesAmongTheListedOnes) {
    EndingYear year(EngineCase{"sqliteFile"});
    ASSERT_EQ(year.make(year.order()), "done");
    EXPECT_EQ(year.made.facts.place, year.registry.folder() + "/001/2027/Nbzw.db");
}

TEST(NewYearFile, DoesNotReplaceWhatStandsAtItsPlace) {
    EndingYear year(EngineCase{"sqliteFile"});
    const std::string target = freshFolder() + "/Nbzw.db";
    std::ofstream(target) << "something else";
    EXPECT_EQ(year.make(year.order(target)),
              "“" + target + "”已经存在,没有改动它。\n请换一个路径或地址。");
    EXPECT_EQ(files::file_size(target), 14U);
    EXPECT_TRUE(year.listed().empty());
}

TEST(NewYearFile, OfBooksRenamedSinceTheyWereListedIsListedUnderTheirNewName) {
    EndingYear year(EngineCase{"sqliteFile"});
    CreatedBooks created;
    ASSERT_FALSE(BooksCreation(&year.registry).create(sampleBooks(), created));
    runScript(*openForTest(created.year.location, OpenMode::existing),
              "UPDATE zAccountM SET sName = '新名'");
    ASSERT_EQ(year.make({.books = created.year.location}), "done");
    ASSERT_EQ(year.listed().size(), 1U);
    EXPECT_EQ(year.listed()[0].name, "新名");
    EXPECT_EQ(year.listed()[0].years.size(), 2U);
}

TEST(NewYearFile, OfCorruptBooksIsRefused) {
    EndingYear year(EngineCase{"sqliteFile"});
    {
        std::fstream stream(year.books, std::ios::in | std::ios::out | std::ios::binary);
        stream.seekp(-8 * 4096, std::ios::end);
        stream << std::string(3 * 4096, 'x');
    }
    EXPECT_THAT(year.make(year.order()), HasSubstr("已损坏"));
    EXPECT_TRUE(year.listed().empty());
    EXPECT_FALSE(files::exists(year.registry.folder() + "/001"));
}

}  // namespace
}  // namespace chengheng
