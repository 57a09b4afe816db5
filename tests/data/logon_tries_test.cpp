#include <gtest/gtest.h>

#include <ctime>

#include "base/system/workstation.h"
#include "books/logon/books_session.h"
#include "tests/support/engine_cases.h"
#include "tests/support/engine_tools.h"
#include "tests/support/faulty_engine.h"
#include "tests/support/made_books.h"
#include "tests/support/small_books.h"
#include "tests/support/waiting_process.h"

namespace chengheng {
namespace {

constexpr const char* isWrong = "password|操作员姓名或口令不正确";
constexpr const char* waitsOneSecond = "password|口令连续输错,请在1秒后重试";
constexpr double noon = 1'795'000'000;

std::string refusalText(const std::optional<Refusal>& refusal) {
    return refusal ? refusal->notice.focusField + "|" + refusal->notice.text : "";
}

/// A program that somebody logs on with, by a clock that stands still until it is moved.
struct Program {
    explicit Program(std::string books, double time = noon)
        : location(std::move(books)), now(time) {}

    std::string logOn(const std::string& password, const std::string& name = "王芳") {
        request.operatorName = name;
        request.password = password;
        request.location = location;
        return refusalText(session.logOn(request));
    }

    std::string location;
    double now;
    LogonRequest request{.date = Date{2026, 5, 31}};
    CNbCwDB database;
    WrongTries tries{[this] { return now; }};
    BooksSession session{database, tries};
};

class LogonTries : public testing::TestWithParam<EngineCase> {
  protected:
    std::string m_location = makeBooks(freshLocation(GetParam()));
};

TEST_P(LogonTries, AreCountedInTheBooksForEveryProgram) {
    EXPECT_EQ(Program(m_location).logOn("guess"), isWrong);
    EXPECT_EQ(Program(m_location).logOn("guess"), waitsOneSecond);
    EXPECT_EQ(Program(m_location, noon + 1).logOn("guess"), isWrong);
    EXPECT_EQ(Program(m_location, noon + 2).logOn("secret"), waitsOneSecond);
    Program program(m_location, noon + 3);
    EXPECT_EQ(program.logOn("secret"), "");
    EXPECT_EQ(logonHistory().wrongTries, 2);
    EXPECT_EQ(logonHistory().lastLogon, "");
}

TEST_P(LogonTries, AreToldOnceAfterTheNextLogon) {
    Program program(m_location);
    ASSERT_EQ(program.logOn("secret"), "");
    EXPECT_EQ(logonHistory().wrongTries, 0);
    for (int tries = 0; tries < 3; ++tries) {
        program.now += 100;
        EXPECT_EQ(program.logOn("guess"), isWrong);
    }
    program.now += 100;
    const std::string second = minuteText(program.now);
    ASSERT_EQ(program.logOn("secret"), "");
    EXPECT_EQ(logonHistory().lastLogon, minuteText(noon));
    EXPECT_EQ(logonHistory().wrongTries, 3);
    program.now += 100;
    ASSERT_EQ(program.logOn("secret"), "");
    EXPECT_EQ(logonHistory().lastLogon, second);
    EXPECT_EQ(logonHistory().wrongTries, 0);
    program.session.logOff();
    EXPECT_EQ(logonHistory().lastLogon, "");
}

TEST_P(LogonTries, OfARightPasswordDoNotCountWhenTheDateIsRefused) {
    Program program(m_location);
    program.logOn("guess");
    program.now += 1;
    program.request.date = Date{2030, 1, 1};
    EXPECT_TRUE(program.logOn("secret").starts_with("date|"));
    program.request.date = Date{2026, 1, 1};
    EXPECT_EQ(program.logOn("secret"), "");
    EXPECT_EQ(logonHistory().wrongTries, 1);
}

TEST_P(LogonTries, AreLookedAtOneByOneHoweverManyGuess) {
    std::vector<std::unique_ptr<WaitingProcess>> guessers;
    for (int number = 0; number < 6; ++number)
        guessers.push_back(std::make_unique<WaitingProcess>(
            [this] { return Program(m_location).logOn("guess") == isWrong; }));
    for (const auto& guesser : guessers) guesser->start(std::chrono::milliseconds(0));
    int looks = 0;
    for (const auto& guesser : guessers) looks += guesser->hasSucceeded() ? 1 : 0;
    EXPECT_EQ(looks, 1);
}

TEST_P(LogonTries, AreCountedBeforeTheyAreLookedAt) {
    // As a program leaves it that is killed while it looks.
    CNbCwDB books;
    NbCwDBInfo info;
    ASSERT_NE(books.DBOpen(info, m_location.c_str(), "b", 1), 0);
    ASSERT_NE(books.DBSelect("b"), 0);
    EXPECT_FALSE(WrongTries([] { return noon; }).begin(books, {m_location, "王芳", 1}));
    EXPECT_EQ(Program(m_location).logOn("secret"), waitsOneSecond);
}

TEST_P(LogonTries, WithNamesThatNobodyHasWaitAndFillNothing) {
    Program program(m_location);
    const std::string longName(100'000, 'x');
    for (const std::string& name : {std::string("' OR 1=1 --"), std::string("%"), longName}) {
        EXPECT_EQ(program.logOn("guess", name), isWrong);
        EXPECT_EQ(program.logOn("guess", name), waitsOneSecond);
    }
    for (int number = 0; number < 100; ++number) {
        program.now += 100;
        EXPECT_EQ(program.logOn("guess", "nobody" + std::to_string(number)), isWrong);
    }
    const auto engine = openForTest(m_location, OpenMode::existing);
    EXPECT_LE(std::stoi(readCell(*engine, "SELECT count(*) FROM LogonTries")), 64);
    EXPECT_EQ(program.logOn("secret"), "");
}

TEST_P(LogonTries, WaitNoLongerBecauseAClockWasSetBack) {
    Program program(m_location);
    program.logOn("guess");
    program.now -= 86'400;
    EXPECT_EQ(program.logOn("guess"), waitsOneSecond);
    program.now += 1;
    EXPECT_EQ(program.logOn("secret"), "");
    EXPECT_EQ(logonHistory().wrongTries, 1);
}

TEST_P(LogonTries, ThatCannotBeDoNoHarm) {
    for (const char* values : {"2147483647, 1e300, 1e300", "-5, -1e300, -1e300"}) {
        runScript(*openForTest(m_location, OpenMode::existing),
                  std::string("DELETE FROM LogonTries; INSERT INTO LogonTries VALUES (1, ") +
                      values + ", 0)");
        Program program(m_location);
        const bool isDelayed = program.logOn("secret") != "";
        program.now += 60;
        if (isDelayed) {
            EXPECT_EQ(program.logOn("secret"), "") << values;
        }
        EXPECT_EQ(logonHistory().lastLogon, "");
    }
}

TEST_P(LogonTries, GoByTheClockOfTheBooks) {
    CNbCwDB database;
    WrongTries tries;
    BooksSession session(database, tries);
    ASSERT_TRUE(
        session.logOn({.location = m_location, .operatorName = "王芳", .password = "guess"}));
    const auto engine = openForTest(m_location, OpenMode::existing);
    EXPECT_NEAR(std::stod(readCell(*engine, "SELECT dWrongAt FROM LogonTries")),
                static_cast<double>(std::time(nullptr)), 30);
}

TEST_P(LogonTries, AreCountedByTheProcessWhereBooksCannotBeWritten) {
    double now = noon;
    WrongTries tries([&now] { return now; });
    CNbCwDB books;
    auto made = std::make_unique<FaultyEngine>(openForTest(m_location, OpenMode::existing));
    FaultyEngine& engine = *made;
    books.adopt(std::move(made), m_location.c_str(), "b");
    ASSERT_NE(books.DBSelect("b"), 0);
    const TriedOperator tried{m_location, "王芳", 1};
    const auto begin = [&] {
        engine.failCall(1, Failure::readOnly);
        return refusalText(tries.begin(books, tried));
    };
    for (const double delay : {1, 2, 4, 8, 16}) {
        EXPECT_EQ(begin(), "");
        if (delay < 16) {
            EXPECT_TRUE(begin().starts_with("password|口令连续输错,请在")) << delay;
        }
        now += delay;
    }
    now += 1e6;
    EXPECT_EQ(begin(),
              "password|口令已连续输错5次,而这个帐套不能写入,无法记下次数。\n"
              "请退出程序,核对口令后再试。");
    engine.failCall(0);
    EXPECT_EQ(
        readCell(*openForTest(m_location, OpenMode::existing), "SELECT count(*) FROM LogonTries"),
        "0");
}

TEST_P(LogonTries, ARightOneWhereBooksCannotBeWrittenEndsTheCounting) {
    double now = noon;
    WrongTries tries([&now] { return now; });
    CNbCwDB books;
    auto made = std::make_unique<FaultyEngine>(openForTest(m_location, OpenMode::existing));
    FaultyEngine& engine = *made;
    books.adopt(std::move(made), m_location.c_str(), "b");
    ASSERT_NE(books.DBSelect("b"), 0);
    const TriedOperator tried{m_location, "王芳", 1};
    for (int number = 0; number < 20; ++number) {
        engine.failCall(1, Failure::readOnly);
        EXPECT_EQ(refusalText(tries.begin(books, tried)), "");
        engine.failCall(0);
        EXPECT_TRUE(tries.takeBack(books, tried).isDone());
    }
}

TEST_P(LogonTries, ThatCannotBeCountedAreNotLookedAt) {
    for (int number = 1;; ++number) {
        CNbCwDB books;
        auto made = std::make_unique<FaultyEngine>(openForTest(m_location, OpenMode::existing));
        FaultyEngine& engine = *made;
        books.adopt(std::move(made), m_location.c_str(), "b");
        ASSERT_NE(books.DBSelect("b"), 0);
        engine.failCall(number, Failure::full);
        const std::string text =
            refusalText(WrongTries([] { return noon; }).begin(books, {m_location, "王芳", 1}));
        const bool hasFailed = engine.hasFailed();
        engine.failCall(0);
        EXPECT_FALSE(engine.inTransaction());
        if (!hasFailed) {
            EXPECT_EQ(text, "");
            EXPECT_GT(number, 4);
            break;
        }
        EXPECT_TRUE(text.starts_with("location|")) << number << text;
        EXPECT_EQ(readCell(engine, "SELECT coalesce(sum(lWrong), 0) FROM LogonTries"), "0");
    }
}

CHENGHENG_ON_SHARED_ENGINES(LogonTries);

TEST(MinuteText, IsEmptyForWhatIsNoMoment) {
    EXPECT_EQ(minuteText(0), "");
    EXPECT_EQ(minuteText(-1), "");
    EXPECT_EQ(minuteText(1e300), "");
    EXPECT_EQ(minuteText(std::numeric_limits<double>::quiet_NaN()), "");
    EXPECT_EQ(minuteText(noon).size(), std::string("2026-11-22 14:05").size());
}

}  // namespace
}  // namespace chengheng
