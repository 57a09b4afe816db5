#include "books/carrying/last_year.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "books/logon/temporary_name.h"
#include "data/access/row_lease.h"
#include "data/tables/balances.h"
#include "tests/support/carry_books.h"

namespace last_years {
namespace {

using namespace chengheng;
namespace files = std::filesystem;

void write(const files::path& file, const char* text) {
    files::create_directories(file.parent_path());
    std::ofstream(file) << text;
}

std::string textIn(const files::path& file) {
    std::ifstream stream(file);
    return {std::istreambuf_iterator<char>(stream), {}};
}

class LastYearsPlace : public testing::Test {
  protected:
    std::string place(int year) const {
        return (m_folder / std::to_string(year) / "Nbzw.db").string();
    }
    std::string found(const std::vector<BooksSet>& sets) const {
        return placeOfLastYear(sets, {"甲", 2026, place(2026)});
    }

    files::path m_folder = freshFolder();
};

TEST_F(LastYearsPlace, IsThatOfTheSameSetInTheList) {
    const BooksSet other{1, "乙", "", {{2026, "/x/2026/Nbzw.db"}, {2025, "/x/2025/Nbzw.db"}}};
    const BooksSet own{2, "旧名", "", {{2024, "/a"}, {2025, "/b"}, {2026, place(2026)}}};
    EXPECT_EQ(found({other, own}), "/b");
    EXPECT_EQ(found({other}), "");
    const BooksSet without{2, "甲", "", {{2024, "/a"}, {2026, place(2026)}}};
    EXPECT_EQ(found({other, without}), "") << "never two years back";
}

TEST_F(LastYearsPlace, IsElseTheFolderOfTheYearBefore) {
    EXPECT_EQ(found({}), "");
    write(place(2024), "");
    EXPECT_EQ(found({}), "");
    EXPECT_FALSE(files::exists(place(2025))) << "looking creates nothing";
    write(place(2025), "");
    EXPECT_EQ(found({}), place(2025));
    EXPECT_EQ(placeOfLastYear({}, {"甲", 2026, (m_folder / "Nbzw.db").string()}), "");
    EXPECT_EQ(placeOfLastYear({}, {"甲", 2027, place(2026)}), "");
}

TEST_F(LastYearsPlace, IsNotThatOfAnotherSetInTheFolderBeside) {
    write(place(2025), "");
    const BooksSet other{1, "乙", "", {{2025, place(2025)}}};
    const BooksSet own{2, "甲", "", {{2026, place(2026)}}};
    EXPECT_EQ(found({other}), "");
    EXPECT_EQ(found({other, own}), "");
    EXPECT_EQ(found({own}), place(2025));
    const BooksSet before{1, "甲", "", {{2025, place(2025)}}};
    EXPECT_EQ(found({before}), place(2025)) << "a year that the list does not have yet";
}

TEST_F(LastYearsPlace, OnAServerIsOnlyThatOfTheList) {
    const std::string address = "postgresql://a@h/db?schema=s26";
    EXPECT_EQ(placeOfLastYear({}, {"甲", 2026, address}), "");
    const BooksSet own{1, "甲", "", {{2025, "postgresql://a@h/db?schema=s25"}, {2026, address}}};
    EXPECT_EQ(placeOfLastYear(std::vector{own}, {"甲", 2026, address}),
              "postgresql://a@h/db?schema=s25");
}

TEST_F(LastYearsPlace, IsFoundUnderItsTemporaryNameWhichItLosesAgain) {
    const files::path temporary = m_folder / "2025" / "NbzwTmp.db";
    write(temporary, "books");
    files::permissions(temporary, files::perms::owner_read);
    ASSERT_EQ(found({}), place(2025));
    const auto text = giveNameBack(place(2025));
    EXPECT_EQ(text.value_or("nothing"), "上次结转中断,帐套留在临时文件“" + temporary.string() +
                                            "”中。\n已恢复为“" + place(2025) + "”,内容没有改变。");
    EXPECT_EQ(textIn(place(2025)), "books");
    EXPECT_FALSE(files::exists(temporary));
    EXPECT_EQ(files::status(place(2025)).permissions(), files::perms::owner_read);
    EXPECT_FALSE(giveNameBack(place(2025))) << "nothing more to do";
}

TEST_F(LastYearsPlace, GetsItsNameBackWithWhatStandsInItsLogAlone) {
    const files::path folder = m_folder / "2025";
    write(folder / "NbzwTmp.db", "books");
    write(folder / "NbzwTmp.db-wal", "log");
    write(folder / "NbzwTmp.db-shm", "index");
    write(folder / "NbzwTmp.rbk", "");
    EXPECT_TRUE(giveNameBack(place(2025)));
    EXPECT_EQ(textIn(place(2025) + "-wal"), "log");
    EXPECT_EQ(std::distance(files::directory_iterator(folder), {}), 2) << "nothing else is left";
}

TEST_F(LastYearsPlace, KeepsALogThatTheFileLeftUnderItsName) {
    write(m_folder / "2025" / "NbzwTmp.db", "books");
    write(m_folder / "2025" / "NbzwTmp.db-wal", "");
    write(place(2025) + "-wal", "log");
    EXPECT_TRUE(giveNameBack(place(2025)));
    EXPECT_EQ(textIn(place(2025) + "-wal"), "log");
}

TEST_F(LastYearsPlace, KeepsAFileThatHasTheName) {
    write(m_folder / "2025" / "NbzwTmp.db", "old");
    write(place(2025), "books");
    EXPECT_FALSE(giveNameBack(place(2025)));
    EXPECT_EQ(textIn(place(2025)), "books");
    EXPECT_EQ(textIn(m_folder / "2025" / "NbzwTmp.db"), "old");
    EXPECT_FALSE(giveNameBack((m_folder / "2025" / "other.db").string()));
    EXPECT_FALSE(giveNameBack("postgresql://a@h/db?schema=s25"));
    EXPECT_FALSE(giveNameBack(""));
}

/// Accounts kept by department and by person, with the same members in both years.
class CarriedDetails : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override {
        m_books.now().addAccounts({"1001", "1133"});
        m_books.now().addCredit("2202");
        m_books.now().change("1133", "sAssBook = 'C'");
        m_books.now().change("2202", "sAssBook = 'B'");
        m_books.mirror();
        m_books.addMembers();
        ASSERT_EQ(m_books.now().work().refresh(), Outcome::done);
    }
    CarryBooks m_books{GetParam()};
};

TEST_P(CarriedDetails, GoWithTheBalancesOfTheirAccounts) {
    m_books.close("1133", 8, 0, 1);
    m_books.detail("1133", 1, 0, 5, 0);
    m_books.detail("1133", 2, 0, 3, 1);
    m_books.detail("1133", 2, 1, 3, 3);
    m_books.close("2202", 4, 1, 4);
    m_books.detail("2202", 0, 1, 4, 3);
    EXPECT_EQ(m_books.carry(), Outcome::done);
    EXPECT_EQ(m_books.details(), (std::vector<std::string>{"0/1 7 7 7 7 7 7 7 7 7 7 7 7",
                                                           "1/0 5 5 5 5 5 5 5 5 5 5 5 5",
                                                           "2/0 2 2 2 2 2 2 2 2 2 2 2 2"}));
    EXPECT_EQ(m_books.now().openings("2202"), allPeriods("7"));
    EXPECT_EQ(m_books.now().books().faults(), std::vector<std::string>{});
}

TEST_P(CarriedDetails, OfOneCombinationInSeveralRowsAreOne) {
    m_books.close("1133", 10, 0, 0);
    m_books.detail("1133", 1, 0, 7, 0);
    m_books.detail("1133", 2, 0, 4, 0);
    m_books.detail("1133", 1, 0, 3, 0);
    m_books.detail("1133", 2, 0, -4, 0);
    EXPECT_EQ(m_books.carry(), Outcome::done);
    EXPECT_EQ(m_books.details(),
              std::vector<std::string>{"1/0 10 10 10 10 10 10 10 10 10 10 10 10"});
    EXPECT_EQ(m_books.differences(), std::vector<std::string>{});
}

TEST_P(CarriedDetails, AreRefusedWhereTheirMemberIsGoneOrAnother) {
    m_books.close("1133", 5, 0, 0);
    m_books.detail("1133", 1, 0, 5, 0);
    m_books.now().books().run("UPDATE Dept SET sDeptName = '营销部' WHERE lId = 1");
    EXPECT_EQ(m_books.carry(), Outcome::done) << "only its name changed";
    for (const char* change :
         {"UPDATE Dept SET sDeptCode = '09' WHERE lId = 1", "DELETE FROM Dept WHERE lId = 1"}) {
        m_books.now().books().run(
            "DELETE FROM AccSum WHERE lId > 0;DELETE FROM AssAcc WHERE lId > 0");
        m_books.now().books().run(change);
        m_books.now().work().refresh();
        m_books.messages().forget();
        EXPECT_EQ(m_books.carry(), Outcome::refused);
        EXPECT_EQ(m_books.messages().onlyNotice().text,
                  "不能结转上年余额,没有改动:\n1133 "
                  "科目1133:有余额的部门在本年目录中没有,或已是另一个。");
        EXPECT_EQ(m_books.now().rows(), std::vector<std::string>{});
    }
}

CHENGHENG_ON_SHARED_ENGINES(CarriedDetails);

}  // namespace
}  // namespace last_years
