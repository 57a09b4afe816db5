#include <gtest/gtest.h>

#include <stdexcept>
#include <tuple>

#include "tests/support/account_actions.h"
#include "tests/support/engine_cases.h"
#include "tests/support/killed_process.h"
#include "tests/support/sound_log.h"
#include "tests/support/told_failures.h"

using namespace chengheng;

namespace {

constexpr int tooManyCalls = 500;

using ActionCase = std::tuple<EngineCase, AccountAction>;

class AccountFaults : public testing::TestWithParam<ActionCase> {};

auto everyActionOn(const std::vector<EngineCase>& engines) {
    return testing::Combine(testing::ValuesIn(engines), testing::ValuesIn(accountActions()));
}

std::string actionCaseName(const testing::TestParamInfo<ActionCase>& info) {
    const auto& [engine, action] = info.param;
    return engine.name + "_" + action.name;
}

/// Lets the n-th call of an action fail, n = 1, 2, ..., until it is done. After each failure the
/// chart is as before, the operator knows, and no lock is held.
void failEachCall(const EngineCase& kind, const AccountAction& action, Failure failure) {
    AccountBooks books(freshLocation(kind));
    prepareActions(books);
    const auto before = books.chart();
    Outcome outcome = Outcome::failed;
    int failures = 0;
    for (int call = 1; outcome != Outcome::done && call < tooManyCalls; ++call) {
        books.messages().forget();
        books.engine().failCall(call, failure);
        outcome = action.run(books);
        const bool hasFailed = books.engine().hasFailed();
        books.engine().failCall(0);
        ASSERT_NE(books.database().DBSelect("books"), 0);
        EXPECT_NE(outcome == Outcome::done, hasFailed) << action.name << " call " << call;
        EXPECT_FALSE(books.holdsLocks()) << action.name << " call " << call;
        EXPECT_FALSE(books.engine().inTransaction());
        if (outcome == Outcome::done) break;
        ++failures;
        ASSERT_EQ(books.messages().notices().size(), 1u) << action.name << " call " << call;
        EXPECT_THAT(books.messages().notices()[0].text, tellsOf(failure)) << action.name;
        ASSERT_EQ(books.chart(), before) << action.name << " call " << call;
        EXPECT_EQ(books.chartFaults(), std::vector<std::string>{});
    }
    EXPECT_EQ(outcome, Outcome::done) << action.name;
    EXPECT_NE(books.chart(), before) << action.name;
    EXPECT_GT(failures, 3) << action.name;
    EXPECT_EQ(books.faults(), std::vector<std::string>{});
}

/// The chart that books of a place hold; the test fails when they are not sound.
std::vector<std::string> soundChart(const std::string& location) {
    AccountBooks books(location, false);
    expectSoundLog(books.engine().real());
    EXPECT_EQ(books.chartFaults(), std::vector<std::string>{});
    EXPECT_NE(books.database().SQLLock("AccSum Code", 2, 0), 0) << "the dead hold nothing";
    return books.chart();
}

/// Runs the action in a process that dies before its n-th call; false when it lived to the end.
bool diesAtCall(const std::string& location, const AccountAction& action, int call) {
    return isKilledAtWork([&] {
        AccountBooks books(location, false);
        books.engine().dieAtCall(call);
        if (action.run(books) != Outcome::done) throw std::runtime_error(action.name);
    });
}

}  // namespace

TEST_P(AccountFaults, LeaveTheChartAsItWasWhateverCallFails) {
    const auto& [engine, action] = GetParam();
    for (const Failure failure : {Failure::full, Failure::lost})
        failEachCall(engine, action, failure);
}

INSTANTIATE_TEST_SUITE_P(On, AccountFaults, everyActionOn(allEngineCases()), actionCaseName);

namespace {

class AccountCrashes : public testing::TestWithParam<ActionCase> {};

}  // namespace

TEST_P(AccountCrashes, LeaveTheOldChartOrTheNewOne) {
    const auto& [engine, action] = GetParam();
    const std::string location = freshLocation(engine);
    std::vector<std::string> before;
    {
        AccountBooks books(location);
        prepareActions(books);
        before = books.chart();
    }
    int call = 1;
    while (diesAtCall(location, action, call) && call < tooManyCalls) {
        ASSERT_EQ(soundChart(location), before) << "died at call " << call;
        call = nextCallToDieAt(call);
    }
    EXPECT_GT(call, 5);
    EXPECT_NE(soundChart(location), before);
    EXPECT_EQ(AccountBooks(location, false).faults(), std::vector<std::string>{});
}

INSTANTIATE_TEST_SUITE_P(On, AccountCrashes, everyActionOn(sharedEngineCases()), actionCaseName);
