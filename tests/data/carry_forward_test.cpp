#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "data/tables/schema.h"
#include "tests/support/carry_books.h"
#include "tests/support/killed_process.h"
#include "tests/support/older_books.h"
#include "tests/support/other_workstation.h"
#include "tests/support/small_books.h"
#include "tests/support/sound_log.h"
#include "tests/support/told_failures.h"

namespace {

using namespace chengheng;
using testing::HasSubstr;
using Texts = std::vector<std::string>;

/// Cash, a bank account on two levels and a loan, of which last year knows the same.
class CarryForward : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override {
        m_books.now().addAccounts({"1001", "1002", "100201", "100202"});
        m_books.now().addCredit("2001");
        m_books.mirror();
        ASSERT_EQ(work().refresh(), Outcome::done);
    }
    OpeningWork& work() { return m_books.now().work(); }
    RecordingMessages& messages() { return m_books.messages(); }
    std::string openings(const char* code) { return m_books.now().openings(code); }
    void expectRefused(const char* text) {
        messages().forget();
        EXPECT_EQ(m_books.carry(), Outcome::refused);
        const Notice notice = messages().onlyNotice();
        EXPECT_EQ(notice.text, text);
        EXPECT_EQ(notice.icon, MessageIcon::information);
        EXPECT_EQ(notice.caption, "澄恒财务软件");
    }
    static constexpr const char* differing = "上年科目信息和本年科目信息不一致,不能结转期初余额!";

    CarryBooks m_books{GetParam()};
};

TEST_P(CarryForward, TakesTheClosingOfTheLastPeriodIntoAllTwelve) {
    m_books.close("1001", 100, 50.1, 30.3);
    m_books.close("2001", 200, 80.2, 0);
    EXPECT_EQ(m_books.carry(), Outcome::done);
    EXPECT_TRUE(messages().texts().empty());
    EXPECT_EQ(openings("1001"), allPeriods("119.8"));
    EXPECT_EQ(openings("2001"), allPeriods("119.8"));
    Texts rows;
    for (int period = 1; period <= 12; ++period)
        rows.push_back(std::to_string(period) + ": 1001 " + std::to_string(period) +
                       " begin 119.8");
    EXPECT_EQ(m_books.now().rowsOf("1001"), rows) << "ids from 1, no movements";
    EXPECT_EQ(m_books.now().database().AccSum_GetLastId(), 24);
    EXPECT_EQ(work().remark(), "已结转 2 个科目,借方合计 119.80,贷方合计 119.80。");
    EXPECT_EQ(m_books.now().shown("1001"), "119.80");
    EXPECT_FALSE(work().mayCarryForward());
    EXPECT_EQ(m_books.now().whatASaveWouldChange(), Texts{});
    EXPECT_EQ(m_books.now().books().faults(), Texts{});
}

TEST_P(CarryForward, StartsTheIdsAnew) {
    m_books.now().books().run("UPDATE ABIdTable SET lLastId = 900 WHERE sTable = 'AccSum'");
    m_books.close("1001", 5, 0, 0);
    EXPECT_EQ(m_books.carry(), Outcome::done);
    EXPECT_EQ(m_books.now().rows().front(), "1: 1001 1 begin 5");
    EXPECT_EQ(m_books.now().database().AccSum_GetLastId(), 12);
}

TEST_P(CarryForward, SumsUpTheAccountsAboveAndLeavesOutWhatHasNoFigures) {
    m_books.close("100201", 0.1, 0.2, 0);
    m_books.close("100202", 10, 0, 10);
    m_books.close("1002", 77, 0, 0);
    EXPECT_EQ(m_books.carry(), Outcome::done);
    EXPECT_EQ(openings("1002"), allPeriods("0.3"));
    EXPECT_EQ(openings("100201"), allPeriods("0.3"));
    EXPECT_EQ(openings("100202"), "");
    EXPECT_EQ(openings("1001"), "");
}

TEST_P(CarryForward, TakesForeignCurrencyAndQuantity) {
    m_books.now().change("1001", "byExchId = 1, bAmount = 1, sUnit = '件'");
    m_books.mirror();
    m_books.last(
        formatSql("INSERT INTO AccSum VALUES (1, %d, 12, 70, 14, 7, 1.5, 0.00002, 0.5, 10, 2, 1)",
                  m_books.now().idOf("1001")));
    ASSERT_EQ(work().refresh(), Outcome::done);
    EXPECT_EQ(m_books.carry(), Outcome::done);
    EXPECT_EQ(m_books.now().rowsOf("1001").back(),
              "12: 1001 12 begin 77 quantity 1.00002 foreign 11");
    EXPECT_EQ(m_books.now().books().faults(), Texts{});
}

TEST_P(CarryForward, OnlyTheLastPeriodCounts) {
    m_books.close("1001", 5, 1, 0);
    m_books.last(formatSql("INSERT INTO AccSum VALUES (99, %d, 11, 1000, 1, 1, 0, 0, 0, 0, 0, 0)",
                           m_books.now().idOf("1001")));
    EXPECT_EQ(m_books.carry(), Outcome::done);
    EXPECT_EQ(openings("1001"), allPeriods("6"));
}

TEST_P(CarryForward, NamesAnAccountWhoseLastPeriodIsNotThere) {
    m_books.close("2001", 5, 0, 0);
    const int cash = m_books.now().idOf("1001");
    for (int period = 1; period <= 11; ++period)
        m_books.last(formatSql("INSERT INTO AccSum VALUES (%d, %d, %d, 7, 0, 0, 0, 0, 0, 0, 0, 0)",
                               100 + period, cash, period));
    EXPECT_EQ(m_books.carry(), Outcome::refused);
    EXPECT_EQ(messages().onlyNotice().text,
              "不能结转上年余额,没有改动:\n1001 科目1001:上年有余额记录,但缺少第 12 期的。");
    EXPECT_EQ(m_books.now().rows(), Texts{});
    m_books.last(
        formatSql("INSERT INTO AccSum VALUES (112, %d, 12, 7, 0, 0, 0, 0, 0, 0, 0, 0)", cash));
    EXPECT_EQ(m_books.carry(), Outcome::done);
    EXPECT_EQ(openings("1001"), allPeriods("7"));
}

TEST_P(CarryForward, PassesOverIncomeAndExpenseWhichMayDifferFreely) {
    m_books.now().addCredit("5001", "损益");
    m_books.now().addCredit("5101", "收入");
    m_books.mirror();
    m_books.close("5001", 9, 0, 0);
    m_books.close("5101", 9, 0, 0);
    m_books.close("1001", 5, 0, 0);
    m_books.now().addCredit("5201", "支出");
    m_books.last(
        "INSERT INTO Code (lId, sCode, sName, sType, byGrade, bEnd, bDirect) "
        "VALUES (90, '5301', '旧', '损益', 1, 1, 1)");
    ASSERT_EQ(work().refresh(), Outcome::done);
    EXPECT_EQ(m_books.carry(), Outcome::done);
    EXPECT_EQ(openings("5001"), "");
    EXPECT_EQ(openings("5101"), "");
    EXPECT_EQ(openings("1001"), allPeriods("5"));
}

TEST_P(CarryForward, RefusesBooksWithAnyBalanceAndIsThenNoLongerOffered) {
    m_books.close("1001", 5, 0, 0);
    m_books.now().addRows("2001", 1);
    EXPECT_TRUE(work().mayCarryForward()) << "it came meanwhile";
    const Texts before = m_books.now().rows();
    expectRefused("结转上年余额不成功");
    EXPECT_FALSE(work().mayCarryForward());
    EXPECT_EQ(m_books.now().rows(), before);
}

TEST_P(CarryForward, RefusesBooksWithDetailsOfBalancesLikewise) {
    m_books.now().books().run(
        formatSql("INSERT INTO AssAcc (lId, lCodeId, byPeroid, mBegin) VALUES (1, %d, 1, 5)",
                  m_books.now().idOf("1001")));
    expectRefused("结转上年余额不成功");
    EXPECT_FALSE(work().mayCarryForward());
}

TEST_P(CarryForward, RefusesWithoutTheYearBefore) {
    m_books.list(m_books.location(), "");
    expectRefused("上年帐套不存在");
    m_books.list(m_books.location(), m_books.lastLocation(), 2024);
    expectRefused("上年帐套不存在");
    EXPECT_TRUE(work().mayCarryForward());
}

TEST_P(CarryForward, RefusesBooksThatAreOfAnotherYearThanTheListSays) {
    m_books.last("UPDATE zAccountM SET lYear = 2024");
    expectRefused("上年帐套不存在");
}

TEST_P(CarryForward, RefusesAccountsThatAreNotTheSame) {
    m_books.close("1001", 5, 0, 0);
    const int id = m_books.now().idOf("1001");
    const std::string others[] = {
        formatSql("INSERT INTO Code (lId, sCode, sName, sType, byGrade, bEnd, bDirect) "
                  "VALUES (90, '1003', '旧', '资产', 1, 1, 1)"),
        formatSql("DELETE FROM Code WHERE lId = %d", id),
        formatSql("UPDATE Code SET sCode = '1009' WHERE lId = %d", id),
        formatSql("UPDATE Code SET lId = 91 WHERE lId = %d", id),
        formatSql("UPDATE Code SET sType = '损益' WHERE lId = %d", id)};
    for (const std::string& other : others) {
        m_books.mirror();
        m_books.last(other);
        expectRefused(differing);
        EXPECT_EQ(m_books.now().rows(), Texts{}) << other;
        EXPECT_TRUE(work().mayCarryForward());
    }
}

TEST_P(CarryForward, DoesNotLookAtAccountsThatAreNone) {
    m_books.last(
        "INSERT INTO Code (lId, sCode, sName, sType, byGrade, bEnd, bDirect) "
        "VALUES (0, '', '', '资产', 1, 1, 1)");
    m_books.close("1001", 5, 0, 0);
    EXPECT_EQ(m_books.carry(), Outcome::done);
}

TEST_P(CarryForward, SaysThatThereIsNothingToCarryWhereNeitherYearHasAccounts) {
    m_books.now().books().run("DELETE FROM Code WHERE lId > 0");
    m_books.mirror();
    expectRefused("上年和本年都没有可以结转的科目,没有改动。");
    EXPECT_TRUE(work().mayCarryForward());
}

TEST_P(CarryForward, NamesAnAccountWhoseDirectionTurned) {
    m_books.last(
        formatSql("UPDATE Code SET bDirect = 0 WHERE lId = %d", m_books.now().idOf("1001")));
    expectRefused("不能结转上年余额,没有改动:\n1001 科目1001:余额方向上年为贷,本年为借。");
    EXPECT_TRUE(work().mayCarryForward());
}

TEST_P(CarryForward, IsNotDoneWhereVouchersAre) {
    m_books.close("1001", 5, 0, 0);
    m_books.now().addVoucher();
    expectRefused("帐套已有凭证或只能浏览,不能结转上年余额,没有改动。");
    EXPECT_EQ(m_books.now().rows(), Texts{});
}

TEST_P(CarryForward, LooksAgainWhereNobodyCanComeBetween) {
    m_books.close("1001", 5, 0, 0);
    FaultyEngine& engine = m_books.now().books().engine();
    OtherWorkstation other(m_books.location());
    const std::string sum =
        formatSql("sql INSERT INTO AccSum VALUES (1, %d, 1, 3, 0, 0, 0, 0, 0, 0, 0, 0)",
                  m_books.now().idOf("2001"));
    int times = 0;
    bool hasCome = true;
    for (int number = 1; hasCome; ++number) {
        hasCome = false;
        engine.beforeCall(number, [&] {
            hasCome = !engine.inTransaction();
            if (!hasCome) return;
            ASSERT_TRUE(other.ask(sum));
        });
        std::vector<Notice> untold;
        const CarriedForward carried = carryForward(m_books.registry(), untold);
        engine.beforeCall(0, {});
        if (!hasCome) {
            EXPECT_EQ(carried.outcome, Outcome::done);
            break;
        }
        ++times;
        ASSERT_EQ(untold.size(), 1U);
        EXPECT_EQ(untold[0].text, "结转上年余额不成功") << number;
        EXPECT_EQ(m_books.now().rows(), Texts{"1: 2001 1 begin 3"}) << number;
        m_books.now().books().run("DELETE FROM AccSum WHERE lId > 0");
    }
    EXPECT_GT(times, 6) << "before and behind the first look";
}

TEST_P(CarryForward, IsNotProvenByTheLastOfTwoRowsOfAPeriod) {
    m_books.close("1001", 5, 0, 0);
    ASSERT_EQ(m_books.carry(), Outcome::done);
    EXPECT_EQ(m_books.differences(), Texts{});
    m_books.now().books().run(
        formatSql("INSERT INTO AccSum VALUES (0, %d, 1, 2, 0, 0, 0, 0, 0, 0, 0, 0)",
                  m_books.now().idOf("1001")));
    EXPECT_EQ(m_books.differences(),
              Texts{"1001 科目1001:上年期末金额 5.00,本年期初 7.00,相差 -2.00"});
}

TEST_P(CarryForward, LeavesLastYearsBooksAsTheyWere) {
    m_books.close("1001", 5, 0, 0);
    const Texts before = m_books.lastRows();
    EXPECT_EQ(m_books.carry(), Outcome::done);
    EXPECT_EQ(m_books.lastRows(), before);
    if (isServerAddress(m_books.lastLocation())) return;
    const auto folder = std::filesystem::path(m_books.lastLocation()).parent_path();
    Texts names;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        names.push_back(entry.path().filename().string());
    EXPECT_EQ(names, Texts{"Nbzw.db"});
}

TEST_P(CarryForward, ReadsTheNewestFiguresWhileLastYearsBooksAreOpen) {
    OtherWorkstation other(m_books.lastLocation());
    ASSERT_TRUE(
        other.ask(formatSql("sql INSERT INTO AccSum VALUES (1, %d, 12, 3, 0, 0, 0, 0, 0, 0, 0, 0)",
                            m_books.now().idOf("1001"))));
    EXPECT_EQ(m_books.carry(), Outcome::done);
    EXPECT_EQ(openings("1001"), allPeriods("3"));
    EXPECT_TRUE(other.ask("sql UPDATE AccSum SET mBegin = 4"));
}

TEST_P(CarryForward, TellsWhichBooksCannotBeRead) {
    m_books.last("DROP TABLE Code");
    EXPECT_EQ(m_books.carry(), Outcome::failed);
    EXPECT_THAT(messages().onlyNotice().text, HasSubstr(shownLocation(m_books.lastLocation())));
    EXPECT_EQ(m_books.now().rows(), Texts{});
    EXPECT_EQ(m_books.now().database().selectedName(), "books");
}

TEST_P(CarryForward, ReadsBooksOfAnOlderLayoutAndLeavesThemSo) {
    const std::string older = freshLocation(GetParam());
    fillOlderBooks(*openForTest(older), 1);
    const int layout = layoutAt(older);
    {
        const auto engine = openForTest(older, OpenMode::existing);
        runScript(*engine, "UPDATE zAccountM SET lYear = 2025");
        runScript(*engine, "DELETE FROM Code");
        runScript(*engine, "DELETE FROM AccSum");
    }
    m_books.list(m_books.location(), older);
    expectRefused(differing);
    EXPECT_EQ(layoutAt(older), layout);
    EXPECT_LT(layout, booksFormatVersion);
}

TEST_P(CarryForward, TellsBooksThatAreDamaged) {
    if (isServerAddress(m_books.lastLocation())) return;
    std::ofstream(m_books.lastLocation()) << "no books";
    EXPECT_EQ(m_books.carry(), Outcome::failed);
    EXPECT_THAT(messages().onlyNotice().text, HasSubstr(m_books.lastLocation()));
    EXPECT_EQ(m_books.now().rows(), Texts{});
    std::ifstream file(m_books.lastLocation());
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}), "no books");
}

TEST_P(CarryForward, FailsWholeAtWhateverCallAndTellsIt) {
    m_books.close("1001", 5, 0, 0);
    m_books.close("2001", 5, 0, 0);
    FaultyEngine& engine = m_books.now().books().engine();
    for (const Failure failure : {Failure::full, Failure::lost}) {
        int number = 0;
        bool hasFailed = true;
        while (hasFailed && ++number < 200) {
            messages().forget();
            engine.failCall(number, failure);
            std::vector<Notice> untold;
            const CarriedForward carried = carryForward(m_books.registry(), untold);
            hasFailed = engine.hasFailed();
            engine.failCall(0);
            // Going back to the own books is tried twice.
            const bool isDone = carried.outcome == Outcome::done;
            EXPECT_TRUE(isDone || hasFailed) << number;
            EXPECT_FALSE(engine.inTransaction()) << number;
            EXPECT_EQ(untold.size(), isDone ? 0U : 1U) << number;
            for (const Notice& notice : untold) EXPECT_THAT(notice.text, tellsOf(failure));
            ASSERT_NE(m_books.now().database().DBSelect("books"), 0);
            EXPECT_EQ(m_books.now().rows().size(), isDone ? 24U : 0U) << number;
            m_books.now().books().run("DELETE FROM AccSum WHERE lId > 0");
        }
        EXPECT_GT(number, 12);
    }
}

TEST_P(CarryForward, IsWholeOrNotAtAllAfterAKill) {
    m_books.close("1001", 5, 0, 0);
    m_books.close("2001", 5, 0, 0);
    std::vector<std::string> whole;
    int undone = 0;
    bool isKilled = true;
    for (int number = 1; isKilled && number < 200; ++number) {
        isKilled = isKilledAtWork([&] {
            OpeningTestBooks books(m_books.location(), OpeningLayout::simple, false);
            std::vector<Notice> untold;
            books.books().engine().dieAtCall(number);
            if (carryForward(m_books.registry(), untold).outcome != Outcome::done)
                throw std::runtime_error("not carried");
        });
        const std::size_t rows = m_books.now().rows().size();
        EXPECT_TRUE(rows == 0 || rows == 24) << number;
        undone += rows == 0;
        EXPECT_TRUE(isKilled || rows == 24);
        expectSoundLogAt(m_books.location());
        m_books.now().books().run("DELETE FROM AccSum WHERE lId > 0");
    }
    EXPECT_FALSE(isKilled);
    EXPECT_GT(undone, 8);
}

CHENGHENG_ON_SHARED_ENGINES(CarryForward);

class MidYearCarryForward : public testing::TestWithParam<EngineCase> {};

TEST_P(MidYearCarryForward, GivesYearStartAndOpeningWithoutMovements) {
    CarryBooks books(GetParam(), OpeningLayout::midYear);
    books.now().addAccounts({"1001", "1002", "100201"});
    books.now().change("100201", "byExchId = 1");
    books.mirror();
    books.last(formatSql("INSERT INTO AccSum VALUES (1, %d, 12, 70, 7, 0, 0, 0, 0, 10, 1, 0)",
                         books.now().idOf("100201")));
    ASSERT_EQ(books.now().work().refresh(), Outcome::done);
    EXPECT_EQ(books.carry(), Outcome::done);
    EXPECT_EQ(books.now().openings("100201"), allPeriods("77"));
    EXPECT_EQ(books.now().rowsOf("1002").back(), "12: 1002 12 begin 77");
    for (const OpeningField field : {OpeningField::yearStart, OpeningField::opening}) {
        EXPECT_EQ(books.now().shown("100201", Measure::money, field), "77.00");
        EXPECT_EQ(books.now().shown("100201", Measure::foreign, field), "11.00");
    }
    EXPECT_EQ(books.now().shown("100201", Measure::money, OpeningField::debit), "0.00");
    EXPECT_EQ(books.now().whatASaveWouldChange(), Texts{});
}

CHENGHENG_ON_SHARED_ENGINES(MidYearCarryForward);

}  // namespace
