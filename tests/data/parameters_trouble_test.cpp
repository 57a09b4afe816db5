#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "books/parameters/parameters_form.h"
#include "data/layout/layout.h"
#include "tests/support/faulty_engine.h"
#include "tests/support/killed_process.h"
#include "tests/support/logged_locks.h"
#include "tests/support/other_workstation.h"
#include "tests/support/parameters_books.h"
#include "tests/support/told_failures.h"

namespace {

using namespace chengheng;

/// The window of the parameters without its screen, on books whose engine can be made to fail.
struct Trouble {
    Trouble(std::unique_ptr<FaultyEngine> faulty, const std::string& location)
        : engine(*faulty), books(std::move(faulty), location) {}

    FaultyEngine& engine;
    ParametersBooks books;
    ParametersForm form{books.messages, &books.registry};
};

std::unique_ptr<FaultyEngine> newEngine(const std::string& location) {
    auto engine = openForTest(location);
    if (!createLayout(*engine)) throw std::runtime_error("no layout");
    return std::make_unique<FaultyEngine>(std::move(engine));
}

class ParametersTrouble : public testing::TestWithParam<EngineCase> {};

TEST_P(ParametersTrouble, AFailedCallLeavesAChangeWholeOrUndoneAndIsTold) {
    for (const Failure failure : {Failure::full, Failure::lost}) {
        const std::string location = freshLocation(GetParam());
        Trouble trouble(newEngine(location), location);
        int number = 1;
        for (bool hasFailed = true; hasFailed && number < 100; ++number) {
            ASSERT_TRUE(trouble.form.open());
            const auto before = trouble.books.stored();
            trouble.books.messages.forget();
            trouble.form.input.company = "公司" + std::to_string(number);
            trouble.form.input.startMonth = before.dtStart.month % 12 + 1;
            trouble.books.messages.willAnswer(Answer::yes);
            trouble.engine.failCall(number, failure);
            const bool isDone = trouble.form.save();
            hasFailed = trouble.engine.hasFailed();
            trouble.engine.failCall(0);
            EXPECT_FALSE(trouble.engine.inTransaction()) << "call " << number;
            EXPECT_FALSE(trouble.books.holdsLocks()) << "call " << number;
            EXPECT_EQ(trouble.books.messages.notices().size(), hasFailed ? 1U : 0U);
            for (const Notice& notice : trouble.books.messages.notices())
                EXPECT_THAT(notice.text, tellsOf(failure)) << "call " << number;
            ASSERT_NE(trouble.books.database.DBSelect("books"), 0);
            EXPECT_EQ(trouble.books.stored() != before, isDone) << "call " << number;
            EXPECT_TRUE(isDone || hasFailed);
            EXPECT_EQ(trouble.books.listed()[0].company, trouble.books.stored().sCompany);
        }
        EXPECT_GT(number, 12) << "calls of the change";
    }
}

TEST_P(ParametersTrouble, AFailedCallOfTheReadingIsTold) {
    const std::string location = freshLocation(GetParam());
    Trouble trouble(newEngine(location), location);
    int number = 1;
    for (bool hasFailed = true; hasFailed && number < 100; ++number) {
        trouble.books.messages.forget();
        trouble.engine.failCall(number, Failure::lost);
        const bool isOpen = trouble.form.open();
        hasFailed = trouble.engine.hasFailed();
        trouble.engine.failCall(0);
        EXPECT_NE(isOpen, hasFailed) << "call " << number;
        EXPECT_EQ(trouble.books.messages.notices().size(), hasFailed ? 1U : 0U);
        for (const Notice& notice : trouble.books.messages.notices())
            EXPECT_THAT(notice.text, tellsOf(Failure::lost)) << "call " << number;
    }
    EXPECT_GT(number, 9) << "each thing that a change depends on is read";
}

TEST_P(ParametersTrouble, TakesAndFreesWhatItReadsFirst) {
    const std::string location = freshLocation(GetParam());
    auto faulty = newEngine(location);
    LoggedLocks locks(faulty->real().locks());
    faulty->replaceLocks(locks);
    Trouble trouble(std::move(faulty), location);
    ASSERT_TRUE(trouble.form.open());
    trouble.form.input.company = "乙公司";
    trouble.books.messages.willAnswer(Answer::yes);
    ASSERT_TRUE(trouble.form.save());
    const std::string referring = "Code AccSum AssAcc Cyrency RegMain RegSub UnRegMain UnRegSub";
    EXPECT_EQ(locks.log(),
              (std::vector<std::string>{"lock " + referring + " 1", "lock zAccountM 2",
                                        "unlock " + referring + " 1", "unlock zAccountM 2"}));
}

CHENGHENG_ON_ALL_ENGINES(ParametersTrouble);

class ParametersCrashes : public testing::TestWithParam<EngineCase> {};

TEST_P(ParametersCrashes, LeaveAChangeWholeOrUndoneAndNoLock) {
    const std::string location = freshLocation(GetParam());
    { const Trouble made(newEngine(location), location); }
    int undone = 0;
    bool isKilled = true;
    for (int number = 1; isKilled && number < 100; ++number) {
        isKilled = isKilledAtWork(location, [&](std::unique_ptr<FaultyEngine> engine) {
            Trouble trouble(std::move(engine), location);
            if (!trouble.form.open()) throw std::runtime_error("not opened");
            trouble.form.input.company = "乙公司";
            trouble.form.input.startMonth = 4;
            trouble.books.messages.willAnswer(Answer::yes);
            trouble.engine.dieAtCall(number);
            if (!trouble.form.save()) throw std::runtime_error("not saved");
        });
        auto engine = std::make_unique<FaultyEngine>(openForTest(location, OpenMode::existing));
        ParametersBooks books(std::move(engine), location);
        EXPECT_NE(books.database.SQLLock("Code AccSum zAccountM", 2, 1), 0) << "call " << number;
        _zAccountMInfo changed = madeParameters();
        changed.sCompany = "乙公司";
        changed.dtStart.month = 4;
        if (books.stored() == madeParameters())
            ++undone;
        else
            EXPECT_EQ(books.stored(), changed) << "call " << number;
        ASSERT_TRUE(isKilled || books.stored() == changed);
        books.run("UPDATE zAccountM SET sCompany = '甲公司', dtStart = '2026/1/1'");
    }
    EXPECT_FALSE(isKilled);
    EXPECT_GT(undone, 4) << "calls before the change counts";
}

CHENGHENG_ON_SHARED_ENGINES(ParametersCrashes);

class ParametersWorkstations : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override { ASSERT_TRUE(m_form.open()); }

    std::string m_location = freshLocation(GetParam());
    ParametersBooks m_books{m_location};
    OtherWorkstation m_other{m_location};
    ParametersForm m_form{m_books.messages, &m_books.registry};
};

TEST_P(ParametersWorkstations, OneThatWritesFiguresKeepsAChangeOut) {
    PatientWaiter impatient{std::chrono::milliseconds(0)};
    m_books.database.setLockWaiter(&impatient);
    ASSERT_TRUE(m_other.lock("AccSum", LockMode::exclusive));
    m_form.input.startMonth = 4;
    m_books.messages.willAnswer(Answer::yes);
    EXPECT_FALSE(m_form.save());
    EXPECT_THAT(m_books.messages.notices().back().text, testing::HasSubstr("占用"));
    EXPECT_EQ(m_books.stored(), madeParameters());
    EXPECT_EQ(m_form.input.startMonth, 4);
    m_other.unlock("AccSum", LockMode::exclusive);
    m_books.messages.willAnswer(Answer::yes);
    EXPECT_TRUE(m_form.save());
    m_books.database.setLockWaiter(nullptr);
}

TEST_P(ParametersWorkstations, FiguresThatCameWhileItWasAskedRefuseAnotherStart) {
    m_books.messages.whileShown([this](const std::string& text) {
        if (!text.starts_with("将修改")) return;
        ASSERT_TRUE(m_other.ask(
            "sql INSERT INTO AccSum (lId, lCodeId, byPeroid, mBegin) VALUES (1, 1, 1, 5)"));
    });
    m_form.input.startMonth = 4;
    m_books.messages.willAnswer(Answer::yes);
    EXPECT_FALSE(m_form.save());
    EXPECT_THAT(m_books.messages.notices().back().text, testing::HasSubstr("已有期初余额"));
    EXPECT_EQ(m_books.stored(), madeParameters());
}

TEST_P(ParametersWorkstations, WhoLogsOnWhileItIsAskedRefusesAnotherStart) {
    m_books.messages.whileShown([this](const std::string& text) {
        if (!text.starts_with("将修改")) return;
        ASSERT_TRUE(
            m_other.ask("sql INSERT INTO LoginInfoTbl (lId, lAccId, sUser, sStation, "
                        "lProcess) VALUES (1, 1, '李明', 'PC2', 7)"));
    });
    m_form.input.startMonth = 4;
    m_books.messages.willAnswer(Answer::yes);
    EXPECT_FALSE(m_form.save());
    EXPECT_THAT(m_books.messages.notices().back().text, testing::HasSubstr("李明(PC2)"));
    EXPECT_EQ(m_books.stored(), madeParameters());
}

CHENGHENG_ON_SHARED_ENGINES(ParametersWorkstations);

}  // namespace
